#include "formula/formula_driver.h"

#include "core/number_context.h"
#include "core/scratch.h"
#include "core/stop_request.h"
#include "formula/formula_lexer.h"
#include "formula/formula_operands.h"
#include "formula/formula_reduction.h"
#include "formula/formula_stack.h"
#include "formula/operator_table.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

// True when the `;` on top of the stack, with a value below it, ends an argument of a function.
bool SeparatesArguments(const FormulaEvaluator& evaluator) {
    TALLYMERE_REQUIRE(StackKind(evaluator, 1) == TokenValue);
    const TokenKind before = StackKind(evaluator, 2);
    return before == TokenSeparator ||
           (before == TokenLeftParen && StackKind(evaluator, 3) == TokenFunction);
}

void EndFormula(FormulaEvaluator& evaluator, const FormulaToken& token) {
    ReduceOnToken(evaluator, token);
    if (evaluator.error != FormulaErrorNone) {
        return;
    }
    if (evaluator.top == 0 && StackKind(evaluator, 0) == TokenValue) {
        ValueCopy(evaluator.result, evaluator.stack[0].value);
    } else {
        SetFormulaError(evaluator, FormulaErrorUnexpectedEnd, token);
    }
}

// The two halves of the driver table, by what stands on top of the stack. False when the token may
// not stand there.
bool ActAfterValue(FormulaEvaluator& evaluator, const FormulaToken& token) {
    switch (token.kind) {
        case TokenEnd:
            EndFormula(evaluator, token);
            return true;
        case TokenOperator:
        case TokenRightParen:
            ReduceOnToken(evaluator, token);
            return true;
        case TokenSeparator:
            ReduceOnToken(evaluator, token);
            return evaluator.error != FormulaErrorNone || SeparatesArguments(evaluator);
        case TokenNone:
        case TokenInvalid:
        case TokenValue:
        case TokenLeftParen:
        case TokenImaginaryUnit:
        case TokenFunction:
        case TokenConstant:
        case TokenIdentifier:
            break;
    }
    return false;
}

bool ActBeforeOperand(FormulaEvaluator& evaluator, const FormulaToken& token) {
    const TokenKind below = StackKind(evaluator, 0);
    if (below == TokenFunction ? token.kind != TokenLeftParen : !OperandMayFollow(evaluator)) {
        return false;
    }
    switch (token.kind) {
        case TokenConstant:
            PushConstant(evaluator, token);
            return true;
        case TokenIdentifier:
            PushVariable(evaluator, token);
            return true;
        case TokenLeftParen:
        case TokenFunction:
            PushFormulaToken(evaluator, token);
            return true;
        case TokenOperator:
            if (OperatorOf(token.operation).sign == nullptr || below == TokenOperator) {
                return false;
            }
            PushFormulaToken(evaluator, token);
            return true;
        case TokenNone:
        case TokenEnd:
        case TokenInvalid:
        case TokenValue:
        case TokenRightParen:
        case TokenSeparator:
        case TokenImaginaryUnit:
            break;
    }
    return false;
}

bool ActOnToken(FormulaEvaluator& evaluator, const FormulaToken& token) {
    if (token.kind == TokenValue) {
        ParseNumberToken(evaluator, token);
        return true;
    }
    if (token.kind == TokenImaginaryUnit) {
        ApplyImaginaryUnit(evaluator, token);
        return true;
    }
    return StackKind(evaluator, 0) == TokenValue ? ActAfterValue(evaluator, token)
                                                 : ActBeforeOperand(evaluator, token);
}

// The operations note a CalcError and leave a number, so one check after each token is enough. The
// error of an operation replaces a syntax error at the same token.
void CheckCalcError(FormulaEvaluator& evaluator, const FormulaToken& token) {
    if (numberContext.calcError == CalcErrorNone) {
        return;
    }
    if (numberContext.calcError == CalcErrorCancelled) {
        SetFormulaAborted(evaluator);
    } else {
        SetFormulaError(evaluator, FormulaErrorOperationFailed, token);
    }
    numberContext.calcError = CalcErrorNone;
}

}  // namespace

void AcceptFormulaToken(FormulaEvaluator& evaluator, const FormulaToken& token) {
    if (!ActOnToken(evaluator, token)) {
        const bool atEnd = token.kind == TokenEnd;
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
        if (StopRequested()) {
            SetFormulaAborted(evaluator);
        } else {
            AcceptFormulaToken(evaluator, token);
        }
    } while (evaluator.error == FormulaErrorNone && token.kind != TokenEnd);
    if (evaluator.error != FormulaErrorNone) {
        ValueZero(evaluator.result);
    }
    evaluator.stack = nullptr;
    evaluator.usedCount = 0;
    evaluator.usedVariables = nullptr;
}

}  // namespace tallymere
