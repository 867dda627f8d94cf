#include "console/session.h"

#include <algorithm>

#include "calculator/calc_evaluation.h"
#include "calculator/variable_table.h"
#include "console/line_reader.h"
#include "console/utf8.h"
#include "shell/ui_error.h"
#include "shell/ui_message.h"

namespace tallymere {

namespace {

// The position of an error that belongs to no one character of the formula.
constexpr uint64_t WholeFormulaPosition = 1;

ConsoleAnswer ErrorAnswer(uint64_t code, uint64_t position, const char16_t* message) {
    return {"error " + std::to_string(code) + " " + std::to_string(position) + ": " +
                EncodeUtf8(message),
            true};
}

ConsoleAnswer FormulaErrorAnswer(const CalcEvaluation& evaluation) {
    char16_t message[UiErrorMessageCapacity + 1];
    FormatFormulaError(message, UiErrorMessageCapacity, evaluation);
    return ErrorAnswer(evaluation.error, evaluation.errorPosition, message);
}

// Reports the pending error of the program.
ConsoleAnswer UiErrorAnswer(uint64_t position) {
    const auto code = static_cast<uint64_t>(PendingUiError());
    char16_t message[UiErrorMessageCapacity + 1];
    TakeUiErrorMessage(message, UiErrorMessageCapacity);
    return ErrorAnswer(code, position, message);
}

// A formula that cannot be read at a 0-based position, quoted in one line.
ConsoleAnswer InvalidInputAnswer(std::u16string formula, size_t position) {
    std::replace(formula.begin(), formula.end(), u'\0', ReplacementCharacter);
    BlankControlCharacters(formula);
    SetUiError(UiErrorInvalidInput, formula.c_str());
    return UiErrorAnswer(position + 1);
}

bool IsBlank(std::u16string_view text) {
    return text.find_first_not_of(u" \t\r\n") == text.npos;
}

void InstallVariables(const std::vector<ConsoleVariable>& variables) {
    for (const ConsoleVariable& variable : variables) {
        const int64_t index = variableTable.count;
        AddVariable(index);
        SetVariableName(index, variable.name.c_str());
        SetVariableValue(index, variable.text.c_str());
    }
}

}  // namespace

Session::Session(const ConsoleOptions& options)
    : ground_(options.text),
      form_(options.form),
      style_{options.text.groupDigits, options.lowerHex} {
    const NumberSetupScope scope;
    ApplyPrecision(options.digits);
    ApplyNumberType(options.type, options.base);
    InstallVariables(options.variables);
}

ConsoleAnswer Session::Answer(std::string_view bytes) {
    // A stop that Ctrl+C asked for stays: it may have come shortly before this formula.
    ClearPendingErrors();
    if (bytes.size() > MaxLineBytes) {
        SetUiError(UiErrorInputTooLong);
        return UiErrorAnswer(MaxLineBytes + 1);
    }
    DecodedText decoded = DecodeUtf8(bytes);
    std::u16string& formula = decoded.text;
    const size_t invalid = std::min(decoded.firstInvalid, formula.find(u'\0'));
    if (invalid != DecodedText::NoPosition) {
        return InvalidInputAnswer(std::move(formula), invalid);
    }
    if (IsBlank(formula)) {
        return {};
    }
    formula.append(static_cast<size_t>(CountMissingParentheses(formula.c_str())), u')');

    const NumberSetupScope scope(CalcNumberSetup());
    calculator.resultForm = form_;
    const CalcEvaluation evaluation = CalculateResult(formula.c_str());
    const char16_t* shown = FinishCalculation(style_);
    if (evaluation.error != FormulaErrorNone) {
        return FormulaErrorAnswer(evaluation);
    }
    TakeCalcError(UiErrorCalculation);
    if (PendingUiError() != UiErrorNone) {
        return UiErrorAnswer(WholeFormulaPosition);
    }
    return {EncodeUtf8(shown) + (calculator.resultBracket ? "\t[ ]" : ""), false};
}

}  // namespace tallymere
