#include "formula/formula_operands.h"

#include "core/number_bases.h"
#include "core/number_context.h"
#include "formula/complex_operators.h"
#include "formula/constant_table.h"
#include "formula/formula_stack.h"
#include "formula/operation_dispatch.h"
#include "formula/used_variables.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

// Pushes a token that brings a value with it; null when the stack is full.
uint64_t* PushOperand(FormulaEvaluator& evaluator, const FormulaToken& token) {
    if (!PushFormulaToken(evaluator, token)) {
        return nullptr;
    }
    FormulaToken& entry = evaluator.stack[evaluator.top];
    entry.kind = TokenValue;
    return entry.value;
}

}  // namespace

void ParseNumberToken(FormulaEvaluator& evaluator, const FormulaToken& token) {
    if (!OperandMayFollow(evaluator)) {
        SetFormulaError(evaluator, FormulaErrorSyntax, token);
        return;
    }
    uint64_t* value = PushOperand(evaluator, token);
    if (value == nullptr) {
        return;
    }
    const char16_t* text = evaluator.text + token.position;
    const NumberBase& row = NumberBaseOfPrefix(text);
    const int64_t prefix = PrefixLength(row);
    ValueFromNumberText(value, text + prefix, static_cast<int64_t>(token.length) - prefix,
                        static_cast<uint32_t>(row.base), evaluator.flags);
    if (numberContext.calcError == CalcErrorCancelled) {
        SetFormulaAborted(evaluator);
    } else if (numberContext.calcError != CalcErrorNone) {
        SetFormulaError(evaluator, FormulaErrorBadNumber, token);
    }
    numberContext.calcError = CalcErrorNone;
}

void PushConstant(FormulaEvaluator& evaluator, const FormulaToken& token) {
    uint64_t* value = PushOperand(evaluator, token);
    if (value == nullptr) {
        return;
    }
    const ConstantRoutine routine =
        RoutineOf(ConstantOf(token.constant).routines, numberContext.numberType);
    if (routine != nullptr) {
        routine(value);
    } else {
        ValueSetUnavailable(value);
    }
}

void PushVariable(FormulaEvaluator& evaluator, const FormulaToken& token) {
    uint64_t* value = PushOperand(evaluator, token);
    if (value == nullptr) {
        return;
    }
    const UsedVariable* used = FindUsedVariable(evaluator, token);
    if (used != nullptr) {
        ValueCopy(value, used->value);
    } else {
        SetFormulaError(evaluator, FormulaErrorUndefinedName, token);
    }
}

void ApplyImaginaryUnit(FormulaEvaluator& evaluator, const FormulaToken& token) {
    if (numberContext.numberType != NumberTypeComplex) {
        SetFormulaError(evaluator, FormulaErrorNeedsComplex, token);
    } else if (StackKind(evaluator, 0) == TokenValue) {
        if (!ComplexTurnImaginary(ComplexAt(evaluator.stack[evaluator.top].value))) {
            SetFormulaError(evaluator, FormulaErrorBadNumber, token);
        }
    } else {
        uint64_t* value = PushOperand(evaluator, token);
        if (value != nullptr) {
            ComplexSetImaginaryUnit(ComplexAt(value));
        }
    }
}

}  // namespace tallymere
