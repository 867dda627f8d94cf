#include "formula/formula_driver.h"

#include "core/number_context.h"
#include "core/scratch.h"
#include "formula/formula_lexer.h"
#include "formula/formula_operands.h"
#include "formula/formula_reduction.h"
#include "formula/formula_stack.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

// True when the `;` on top of the stack ends an argument of a function.
bool SeparatesArguments(const FormulaEvaluator& evaluator) {
    if (StackId(evaluator, 1) != TokenValue) {
        return false;
    }
    const uint32_t before = StackId(evaluator, 2);
    return before == TokenSeparator ||
           (before == TokenLeftParen && IsFunctionId(StackId(evaluator, 3)));
}

void EndFormula(FormulaEvaluator& evaluator, const FormulaToken& token) {
    ReduceOnToken(evaluator, token);
    if (evaluator.error != FormulaErrorNone) {
        return;
    }
    if (evaluator.top == 0 && StackId(evaluator, 0) == TokenValue) {
        ValueCopy(evaluator.result, evaluator.stack[0].value);
    } else {
        SetFormulaError(evaluator, FormulaErrorUnexpectedEnd, token);
    }
}

// The two halves of the driver table, by what stands on top of the stack. False when the token may
// not stand there.
bool ActAfterValue(FormulaEvaluator& evaluator, const FormulaToken& token) {
    if (token.id == TokenEnd) {
        EndFormula(evaluator, token);
    } else if (IsOperatorId(token.id) || token.id == TokenRightParen) {
        ReduceOnToken(evaluator, token);
    } else if (token.id == TokenSeparator) {
        ReduceOnToken(evaluator, token);
        return evaluator.error != FormulaErrorNone || SeparatesArguments(evaluator);
    } else {
        return false;
    }
    return true;
}

bool ActBeforeOperand(FormulaEvaluator& evaluator, const FormulaToken& token) {
    const uint32_t below = StackId(evaluator, 0);
    if (!OperandMayFollow(evaluator) && !(IsFunctionId(below) && token.id == TokenLeftParen)) {
        return false;
    }
    if (IsConstantId(token.id)) {
        PushConstant(evaluator, token);
    } else if (token.id == TokenIdentifier) {
        PushVariable(evaluator, token);
    } else if (token.id == TokenLeftParen || IsFunctionId(token.id) ||
               (IsSignId(token.id) && !IsOperatorId(below))) {
        PushFormulaToken(evaluator, token);
    } else {
        return false;
    }
    return true;
}

bool ActOnToken(FormulaEvaluator& evaluator, const FormulaToken& token) {
    if (token.id == TokenValue) {
        ParseNumberToken(evaluator, token);
        return true;
    }
    if (token.id == TokenImaginaryUnit) {
        ApplyImaginaryUnit(evaluator, token);
        return true;
    }
    return StackId(evaluator, 0) == TokenValue ? ActAfterValue(evaluator, token)
                                               : ActBeforeOperand(evaluator, token);
}

// The operations note a CalcError and leave a number, so one check after each token suffices. It
// comes before what the grammar may have to say of the same token.
void CheckCalcError(FormulaEvaluator& evaluator, const FormulaToken& token) {
    if (numberContext.calcError == CalcErrorNone) {
        return;
    }
    if (numberContext.calcError == CalcErrorCancelled) {
        SetFormulaAborted(evaluator);
    } else {
        SetFormulaError(evaluator, FormulaErrorOverflow, token);
    }
    numberContext.calcError = CalcErrorNone;
}

}  // namespace

void AcceptFormulaToken(FormulaEvaluator& evaluator, const FormulaToken& token) {
    if (!ActOnToken(evaluator, token)) {
        const bool atEnd = token.id == TokenEnd;
        SetFormulaError(evaluator, atEnd ? FormulaErrorUnexpectedEnd : FormulaErrorSyntax, token);
    }
    CheckCalcError(evaluator, token);
}

void RunFormula(FormulaEvaluator& evaluator) {
    ScratchStackScope scope;
    StartFormulaStack(evaluator);
    FormulaToken token{};
    uint64_t position = 0;
    do {
        NextFormulaToken(evaluator, token, position);
        AcceptFormulaToken(evaluator, token);
    } while (evaluator.error == FormulaErrorNone && token.id != TokenEnd);
    if (evaluator.error != FormulaErrorNone) {
        ValueZero(evaluator.result);
    }
    evaluator.stack = nullptr;
    evaluator.usedCount = 0;
    evaluator.usedVariables = nullptr;
}

}  // namespace tallymere
