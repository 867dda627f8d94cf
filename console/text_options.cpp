#include "console/text_options.h"

#include <array>

#include "console/option_usage.h"
#include "core/number_bases.h"
#include "layout/number_base_layout.h"
#include "shell/languages.h"

namespace tallymere {

namespace {

// What stands in braces is replaced by what the tables of the program say.
constexpr std::string_view Usage =
    R"(  --group                       group digits in results
{--decimal}decimal separator ({decimal})
{--thousands}separator of groups ({thousands})
{--language}language of texts and messages ({language})
)";

std::vector<Choice> DecimalChoices() {
    return {{"point", DecimalPoint}, {"comma", DecimalComma}};
}

std::vector<Choice> ThousandsChoices() {
    return {{"point", ThousandsPoint},
            {"comma", ThousandsComma},
            {"apostrophe", ThousandsApostrophe},
            {"narrow-space", ThousandsNarrowSpace}};
}

std::vector<Choice> LanguageChoices() {
    std::vector<Choice> choices;
    for (const LanguageRow& row : Languages) {
        choices.push_back({row.code, int32_t{row.language}});
    }
    return choices;
}

// The digits of a base, a text that lives as long as the process.
std::string_view BaseSpelling(int32_t base) {
    static std::array<std::string, HighestBase + 1> spellings;
    std::string& spelling = spellings[static_cast<size_t>(base)];
    spelling = std::to_string(base);
    return spelling;
}

}  // namespace

std::vector<Choice> BaseChoices(uint32_t listStyle) {
    std::vector<Choice> choices;
    const NumberBaseRows rows = RowsOfNumberBases(listStyle);
    for (int32_t i = 0; i < rows.count; i++) {
        choices.push_back({BaseSpelling(rows.bases[i]), rows.bases[i]});
    }
    return choices;
}

std::vector<Option> TextOptionList(TextOptions& options) {
    return {
        FlagOption("--group", options.groupDigits, true),
        ChoiceOption("--decimal", DecimalChoices(), options.decimal),
        ChoiceOption("--thousands", ThousandsChoices(), options.thousands),
        ChoiceOption("--language", LanguageChoices(), options.language),
    };
}

std::string TextOptionUsage() {
    const TextOptions initial;
    return FillInUsage(Usage, {{"{--decimal}", UsageOfChoices("--decimal", DecimalChoices())},
                               {"{decimal}", SpellingOf(DecimalChoices(), initial.decimal)},
                               {"{--thousands}", UsageOfChoices("--thousands", ThousandsChoices())},
                               {"{thousands}", SpellingOf(ThousandsChoices(), initial.thousands)},
                               {"{--language}", UsageOfChoices("--language", LanguageChoices())},
                               {"{language}", SpellingOf(LanguageChoices(), initial.language)}});
}

std::string CheckSeparators(const TextOptions& options) {
    const std::string taken = SpellingOf(DecimalChoices(), options.decimal);
    if (SpellingOf(ThousandsChoices(), options.thousands) != taken) {
        return {};
    }
    std::vector<Choice> left = ThousandsChoices();
    std::erase_if(left, [&taken](const Choice& choice) { return choice.spelling == taken; });
    return ValueNotAllowed(
        "--thousands", taken, "is the decimal separator",
        JoinByCommas(left, [](const Choice& choice) { return choice.spelling; }));
}

}  // namespace tallymere
