// The options that formulas and all words of the console share: how numbers and messages are
// written and read.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "console/option_reader.h"
#include "shell/separators.h"
#include "shell/ui_text.h"

namespace tallymere {

struct TextOptions {
    bool groupDigits = false;
    DecimalSeparatorSetting decimal = DecimalPoint;
    ThousandsSeparatorSetting thousands = ThousandsApostrophe;
    Language language = LanguageEnglish;
};

/// The choices of --base: what a list of bases offers that is made with these bits of
/// NumberBaseStyle.
std::vector<Choice> BaseChoices(uint32_t listStyle);

/// --group, --decimal, --thousands and --language, for ReadOptions. They write into `options`.
std::vector<Option> TextOptionList(TextOptions& options);

/// How the help explains them.
std::string TextOptionUsage();

/// What is wrong with the two separators together, empty when nothing is.
std::string CheckSeparators(const TextOptions& options);

}  // namespace tallymere
