#include "calculator/calc_evaluation.h"

#include <algorithm>
#include <string_view>

#include "calculator/calculator_state.h"
#include "calculator/variable_rows.h"
#include "core/scratch.h"
#include "core/text_flags.h"
#include "formula/formula_evaluation.h"
#include "shell/ui_error.h"
#include "shell/ui_message.h"
#include "values/number_text.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

CalcEvaluation EvaluateInForce(const char16_t* formula, const VariableRows& variables,
                               uint64_t* result) {
    FormulaEvaluator evaluator{};
    evaluator.text = formula;
    evaluator.flags = TextGroup;
    evaluator.variableCount = variables.count;
    evaluator.variables = variables.rows;
    evaluator.result = result;
    EvaluateFormula(evaluator);
    return {static_cast<FormulaError>(evaluator.error), evaluator.errorPosition,
            evaluator.inexactResult, false};
}

CalcEvaluation EvaluateInReal(const char16_t* formula, const VariableRows& variables,
                              uint64_t* result) {
    CalcEvaluation evaluation{};
    {
        NumberSetup setup = CalcNumberSetup();
        setup.type = NumberTypeReal;
        const NumberSetupScope scope(setup);
        evaluation = EvaluateInForce(formula, variables, result);
    }
    evaluation.fellToReal = evaluation.error == FormulaErrorNone;
    if (evaluation.fellToReal) {
        InstallNumberType(NumberTypeReal, calculator.calcOutputBase);
    }
    return evaluation;
}

void RaiseFormulaError(const CalcEvaluation& evaluation) {
    char16_t text[UiErrorArgumentCapacity + 1];
    FormatFormulaError(text, UiErrorArgumentCapacity, evaluation.error, evaluation.errorPosition);
    SetUiError(UiErrorFormula, text);
}

void KeepResult(const uint64_t* value) {
    calculator.calcResultType = numberContext.numberType;
    switch (numberContext.numberType) {
        case NumberTypeReal:
        case NumberTypeComplex:
            NumberRoundDigits(calculator.calcResult, value, calculator.calcPrecision);
            return;
        case NumberTypeUint:
        case NumberTypeRational:
            ValueCopy(calculator.calcResult, value);
            return;
        case NumberTypeNone:
            break;
    }
    SetCalcError(CalcErrorUnknownType);
}

}  // namespace

int64_t CountMissingParentheses(const char16_t* formula) {
    const std::u16string_view text = formula;
    const int64_t missing =
        std::count(text.begin(), text.end(), u'(') - std::count(text.begin(), text.end(), u')');
    return std::max<int64_t>(missing, 0);
}

CalcEvaluation EvaluateCalcFormula(const char16_t* formula, uint64_t* result) {
    ScratchStackScope scope;
    const VariableRows variables = BuildVariableRows(scope);
    CalcEvaluation evaluation = EvaluateInForce(formula, variables, result);
    if (evaluation.error != FormulaErrorNone && evaluation.error != FormulaErrorAborted &&
        numberContext.numberType == NumberTypeRational) {
        evaluation = EvaluateInReal(formula, variables, result);
    }
    if (evaluation.error == FormulaErrorAborted) {
        SetUiError(UiErrorStopped);
    } else if (evaluation.error != FormulaErrorNone) {
        RaiseFormulaError(evaluation);
    }
    return evaluation;
}

CalcEvaluation CalculateResult(const char16_t* formula) {
    if (PendingUiError() != UiErrorNone) {
        return {};
    }
    ScratchStackScope scope;
    uint64_t* value = scope.Take(CalcResultWords);
    const CalcEvaluation evaluation = EvaluateCalcFormula(formula, value);
    if (PendingUiError() == UiErrorNone) {
        calculator.resultBracket = evaluation.inexactResult;
        KeepResult(value);
    }
    return evaluation;
}

}  // namespace tallymere
