// The command line of the console.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "calculator/calculator_state.h"
#include "core/limits.h"
#include "core/number_bases.h"
#include "core/number_context.h"
#include "shell/separators.h"
#include "shell/ui_text.h"

namespace tallymere {

struct ConsoleVariable {
    std::u16string name;
    std::u16string text;  ///< with the separators of the options
};

enum ConsoleAction { EvaluateFormulas, PrintHelp, PrintVersion };

struct ConsoleOptions {
    ConsoleAction action = EvaluateFormulas;
    NumberType type = NumberTypeReal;
    int64_t digits = DefaultDigits;
    int64_t base = DecimalBase;
    bool lowerHex = false;
    ResultForm form = ResultAutomatic;
    bool groupDigits = false;
    DecimalSeparatorSetting decimal = DecimalPoint;
    ThousandsSeparatorSetting thousands = ThousandsApostrophe;
    Language language = LanguageEnglish;
    std::vector<ConsoleVariable> variables;  ///< valid names, each once
    std::vector<std::string> formulas;       ///< as given, UTF-8 or not
};

struct ParsedArguments {
    ConsoleOptions options;
    std::string error;  ///< one line without its end, empty when all is well
};

/// Reads the arguments behind the program's name. Options may stand anywhere before "--", as
/// `--name value` or `--name=value`, and the last of several counts; of variables, the last of each
/// name. What begins with "-" and a letter or another "-" is an option, everything else a formula,
/// so -2^2 is one. --help and --version end the reading.
ParsedArguments ParseArguments(const std::vector<std::string>& arguments);

}  // namespace tallymere
