#include "console/session.h"

#include "calculator/calc_evaluation.h"
#include "calculator/variable_table.h"
#include "console/error_line.h"
#include "console/input_text.h"
#include "console/utf8.h"
#include "shell/ui_error.h"
#include "shell/ui_message.h"

namespace tallymere {

namespace {

// The position of an error that belongs to no one character of the formula.
constexpr uint64_t WholeFormulaPosition = 1;

ConsoleAnswer FormulaErrorAnswer(const CalcEvaluation& evaluation) {
    char16_t message[UiErrorMessageCapacity + 1];
    FormatFormulaError(message, UiErrorMessageCapacity, evaluation.error, evaluation.errorPosition);
    return {ErrorLine(evaluation.error, evaluation.errorPosition, message), true};
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
    : setup_(options.text),
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
    InputText input = ReadInputText(bytes);
    if (input.errorPosition != 0) {
        return {TakeErrorLine(input.errorPosition), true};
    }
    std::u16string& formula = input.text;
    if (IsBlankText(formula)) {
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
        return {TakeErrorLine(WholeFormulaPosition), true};
    }
    return {EncodeUtf8(shown) + (calculator.resultBracket ? "\t[ ]" : ""), false};
}

}  // namespace tallymere
