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

/// --base with the bases that a list of the program offers, by the bits of NumberBaseStyle that it
/// is made with. It writes into `base`.
Option BaseOption(uint32_t listStyle, int64_t& base);

/// --group, --decimal, --thousands and --language, for ReadOptions. They write into `options`.
std::vector<Option> TextOptionList(TextOptions& options);

/// What is wrong with the two separators together, empty when nothing is.
std::string CheckSeparators(const TextOptions& options);

/// What a run of the console stands on while it lives: the ScratchStack, language and separators.
/// There is one in a process.
class ConsoleGround {
public:
    explicit ConsoleGround(const TextOptions& options);
    ~ConsoleGround();
    ConsoleGround(const ConsoleGround&) = delete;
    ConsoleGround& operator=(const ConsoleGround&) = delete;
};

}  // namespace tallymere
