// The command line of the calculator.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "calculator/calculator_state.h"
#include "console/text_options.h"
#include "core/limits.h"
#include "core/number_bases.h"
#include "core/number_context.h"

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
    TextOptions text;
    std::vector<ConsoleVariable> variables;  ///< valid names, each once
    std::vector<std::string> formulas;       ///< as given, UTF-8 or not
};

struct ParsedArguments {
    ConsoleOptions options;
    std::string error;  ///< one line without its end, empty when all is well
};

/// Reads the arguments behind the program's name, see ReadOptions; an operand is a formula. Options
/// may stand anywhere before "--". Of variables, the last of each name counts. Nothing is read
/// behind --help and --version.
ParsedArguments ParseArguments(const std::vector<std::string>& arguments);

/// How the help explains the options of formulas.
std::string FormulaOptionUsage();

}  // namespace tallymere
