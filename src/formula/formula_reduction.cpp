#include "formula/formula_reduction.h"

#include <utility>

#include "formula/formula_stack.h"
#include "formula/function_table.h"
#include "formula/operation_dispatch.h"
#include "formula/operator_table.h"

namespace tallymere {

namespace {

// True when an operator stands below the value on top and is applied before the one that comes. A
// sign on the stack has the level of the operator with its spelling.
bool BindsFirst(const FormulaEvaluator& evaluator, OperatorId coming) {
    if (StackKind(evaluator, 1) != TokenOperator) {
        return false;
    }
    const OperatorRow& left = OperatorOf(evaluator.stack[evaluator.top - 1].operation);
    const OperatorRow& right = OperatorOf(coming);
    return left.level == right.level ? left.associativity == Associativity::LeftToRight
                                     : left.level > right.level;
}

void ReduceOnOperator(FormulaEvaluator& evaluator, const FormulaToken& token) {
    while (BindsFirst(evaluator, token.operation)) {
        ApplyOperator(evaluator);
        if (evaluator.error != FormulaErrorNone) {
            return;
        }
    }
    PushFormulaToken(evaluator, token);
}

void ReduceAllOperators(FormulaEvaluator& evaluator) {
    while (StackKind(evaluator, 1) == TokenOperator && evaluator.error == FormulaErrorNone) {
        ApplyOperator(evaluator);
    }
}

void ReduceOnSeparator(FormulaEvaluator& evaluator, const FormulaToken& token) {
    ReduceAllOperators(evaluator);
    if (evaluator.error != FormulaErrorNone) {
        return;
    }
    const TokenKind below = StackKind(evaluator, 1);
    if (below == TokenSeparator || below == TokenLeftParen) {
        PushFormulaToken(evaluator, token);
    } else {
        SetFormulaError(evaluator, FormulaErrorSyntax, evaluator.stack[evaluator.top]);
    }
}

// With the last argument on top.
void CallFunction(FormulaEvaluator& evaluator, const FormulaToken& token) {
    FormulaToken* stack = evaluator.stack;
    int64_t argumentCount = 1;
    int64_t index = evaluator.top - 1;
    while (index >= 0 && stack[index].kind == TokenSeparator) {
        argumentCount++;
        if (index == 0 || stack[index - 1].kind != TokenValue) {
            SetFormulaError(evaluator, FormulaErrorSyntax, stack[index == 0 ? 0 : index - 1]);
            return;
        }
        index -= 2;
    }
    if (index < 1 || stack[index].kind != TokenLeftParen ||
        stack[index - 1].kind != TokenFunction) {
        SetFormulaError(evaluator, FormulaErrorInternal, token);
        return;
    }
    FormulaToken& function = stack[index - 1];
    if (ArgumentCount(FunctionOf(function.function)) != argumentCount) {
        SetFormulaError(evaluator, FormulaErrorArgumentCount, function);
        return;
    }
    const uint64_t* first = stack[index + 1].value;
    switch (argumentCount) {
        case 1:
            ApplyFunction1(evaluator, function, function.value, first);
            break;
        case 2:
            ApplyFunction2(evaluator, function, function.value, first, stack[index + 3].value);
            break;
        default:
            ApplyFunction3(evaluator, function, function.value, first, stack[index + 3].value,
                           stack[index + 5].value);
    }
    TurnIntoValue(function, stack[evaluator.top]);
    evaluator.top -= 2 * argumentCount;
}

void ReduceOnRightParen(FormulaEvaluator& evaluator, const FormulaToken& token) {
    ReduceAllOperators(evaluator);
    if (evaluator.error != FormulaErrorNone) {
        return;
    }
    const TokenKind below = StackKind(evaluator, 1);
    const bool afterFunction = StackKind(evaluator, 2) == TokenFunction;
    if (below == TokenSeparator || (below == TokenLeftParen && afterFunction)) {
        CallFunction(evaluator, token);
    } else if (below == TokenLeftParen) {
        FormulaToken& value = evaluator.stack[evaluator.top];
        FormulaToken& paren = evaluator.stack[evaluator.top - 1];
        TurnIntoValue(paren, value);
        std::swap(paren.value, value.value);
        evaluator.top--;
    } else {
        SetFormulaError(evaluator, FormulaErrorLeftParenMissing, token);
    }
}

}  // namespace

void ReduceOnToken(FormulaEvaluator& evaluator, const FormulaToken& token) {
    TALLYMERE_REQUIRE(StackKind(evaluator, 0) == TokenValue);
    if (token.kind == TokenOperator) {
        ReduceOnOperator(evaluator, token);
    } else if (token.kind == TokenRightParen) {
        ReduceOnRightParen(evaluator, token);
    } else if (token.kind == TokenSeparator) {
        ReduceOnSeparator(evaluator, token);
    } else {
        ReduceAllOperators(evaluator);
    }
}

void ApplyOperator(FormulaEvaluator& evaluator) {
    TALLYMERE_REQUIRE(StackKind(evaluator, 0) == TokenValue);
    TALLYMERE_REQUIRE(StackKind(evaluator, 1) == TokenOperator);
    FormulaToken& right = evaluator.stack[evaluator.top];
    FormulaToken& operation = evaluator.stack[evaluator.top - 1];
    const TokenKind below = StackKind(evaluator, 2);
    if (below == TokenValue) {
        FormulaToken& left = evaluator.stack[evaluator.top - 2];
        ApplyBinaryOperator(evaluator, operation.operation, left.value, right.value);
        TurnIntoValue(left, right);
        evaluator.top -= 2;
    } else if (below == TokenNone || below == TokenLeftParen || below == TokenSeparator) {
        const SignRoutine sign = OperatorOf(operation.operation).sign;
        if (sign == nullptr) {
            SetFormulaError(evaluator, FormulaErrorSyntax, operation);
            return;
        }
        sign(right.value);
        TurnIntoValue(operation, right);
        std::swap(operation.value, right.value);
        evaluator.top--;
    } else {
        SetFormulaError(evaluator, FormulaErrorSyntax, evaluator.stack[evaluator.top - 2]);
    }
}

}  // namespace tallymere
