#include "console/text_options.h"

#include <array>
#include <iterator>

#include "core/number_bases.h"
#include "core/scratch.h"
#include "layout/number_base_layout.h"
#include "shell/languages.h"

namespace tallymere {

namespace {

constexpr Choice Decimals[] = {{"point", DecimalPoint}, {"comma", DecimalComma}};
constexpr Choice Thousands[] = {{"point", ThousandsPoint},
                                {"comma", ThousandsComma},
                                {"apostrophe", ThousandsApostrophe},
                                {"narrow-space", ThousandsNarrowSpace}};

std::vector<Choice> LanguageChoices() {
    std::vector<Choice> choices;
    for (const LanguageRow& row : Languages) {
        choices.push_back({row.code, int32_t{row.language}});
    }
    return choices;
}

// The digits of a base, a text that lives as long as the process.
std::string_view BaseWord(int32_t base) {
    static std::array<std::string, HighestBase + 1> words;
    std::string& word = words[static_cast<size_t>(base)];
    word = std::to_string(base);
    return word;
}

}  // namespace

Option BaseOption(uint32_t listStyle, int64_t& base) {
    std::vector<Choice> choices;
    const NumberBaseRows rows = RowsOfNumberBases(listStyle);
    for (int32_t i = 0; i < rows.count; i++) {
        choices.push_back({BaseWord(rows.bases[i]), rows.bases[i]});
    }
    return ChoiceOption("--base", choices, base);
}

std::vector<Option> TextOptionList(TextOptions& options) {
    return {
        FlagOption("--group", options.groupDigits, true),
        ChoiceOption("--decimal", {std::begin(Decimals), std::end(Decimals)}, options.decimal),
        ChoiceOption("--thousands", {std::begin(Thousands), std::end(Thousands)},
                     options.thousands),
        ChoiceOption("--language", LanguageChoices(), options.language),
    };
}

std::string CheckSeparators(const TextOptions& options) {
    const std::string_view taken = Decimals[options.decimal].word;
    if (Thousands[options.thousands].word != taken) {
        return {};
    }
    std::vector<std::string_view> left;
    for (const Choice& choice : Thousands) {
        if (choice.word != taken) {
            left.push_back(choice.word);
        }
    }
    return ValueNotAllowed("--thousands", taken, "is the decimal separator",
                           ListWords(left, [](std::string_view word) { return word; }));
}

ConsoleGround::ConsoleGround(const TextOptions& options) {
    CreateScratchStack();
    InstallLanguage(options.language);
    ApplySeparators(options.decimal, options.thousands);
}

ConsoleGround::~ConsoleGround() {
    DestroyScratchStack();
}

}  // namespace tallymere
