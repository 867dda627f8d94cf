#include "formula/formula_reduction.h"

#include <utility>

#include "formula/formula_keywords.h"
#include "formula/formula_stack.h"
#include "formula/operation_dispatch.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

// True when the operator on the stack is applied before the one that comes.
bool BindsFirst(uint32_t onStack, uint32_t coming) {
    return IsSignId(onStack) ? IsSignId(coming) : coming != OperatorPower;
}

void ReduceOnOperator(FormulaEvaluator& evaluator, const FormulaToken& token) {
    while (IsOperatorId(StackId(evaluator, 1)) && BindsFirst(StackId(evaluator, 1), token.id)) {
        ApplyOperator(evaluator, token);
        if (evaluator.error != FormulaErrorNone) {
            return;
        }
    }
    PushFormulaToken(evaluator, token);
}

void ReduceAllOperators(FormulaEvaluator& evaluator, const FormulaToken& token) {
    while (IsOperatorId(StackId(evaluator, 1)) && evaluator.error == FormulaErrorNone) {
        ApplyOperator(evaluator, token);
    }
}

void ReduceOnSeparator(FormulaEvaluator& evaluator, const FormulaToken& token) {
    ReduceAllOperators(evaluator, token);
    if (evaluator.error != FormulaErrorNone) {
        return;
    }
    const uint32_t below = StackId(evaluator, 1);
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
    while (index >= 0 && stack[index].id == TokenSeparator) {
        argumentCount++;
        if (index == 0 || stack[index - 1].id != TokenValue) {
            SetFormulaError(evaluator, FormulaErrorSyntax, stack[index == 0 ? 0 : index - 1]);
            return;
        }
        index -= 2;
    }
    const FormulaKeyword* keyword = nullptr;
    if (index >= 1 && stack[index].id == TokenLeftParen) {
        keyword = FindKeywordById(stack[index - 1].id);
    }
    if (keyword == nullptr) {
        SetFormulaError(evaluator, FormulaErrorInternal, token);
        return;
    }
    FormulaToken& function = stack[index - 1];
    if (keyword->argumentCount != argumentCount) {
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
    ReduceAllOperators(evaluator, token);
    if (evaluator.error != FormulaErrorNone) {
        return;
    }
    const uint32_t below = StackId(evaluator, 1);
    const bool afterFunction = IsFunctionId(StackId(evaluator, 2));
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
    if (IsOperatorId(token.id)) {
        ReduceOnOperator(evaluator, token);
    } else if (token.id == TokenRightParen) {
        ReduceOnRightParen(evaluator, token);
    } else if (token.id == TokenSeparator) {
        ReduceOnSeparator(evaluator, token);
    } else {
        ReduceAllOperators(evaluator, token);
    }
}

void ApplyOperator(FormulaEvaluator& evaluator, const FormulaToken& token) {
    FormulaToken& right = evaluator.stack[evaluator.top];
    FormulaToken& operation = evaluator.stack[evaluator.top - 1];
    if (operation.id < OperatorAdd || operation.id > OperatorMod) {
        SetFormulaError(evaluator, FormulaErrorInternal, token);
        return;
    }
    const uint32_t below = StackId(evaluator, 2);
    if (below == TokenValue) {
        FormulaToken& left = evaluator.stack[evaluator.top - 2];
        ApplyBinaryOperator(evaluator, operation.id, left.value, right.value);
        TurnIntoValue(left, right);
        evaluator.top -= 2;
    } else if (below == TokenNone || below == TokenLeftParen || below == TokenSeparator) {
        if (!IsSignId(operation.id)) {
            SetFormulaError(evaluator, FormulaErrorSyntax, operation);
            return;
        }
        if (operation.id == OperatorSubtract) {
            ValueNegate(right.value, right.value);
        }
        TurnIntoValue(operation, right);
        std::swap(operation.value, right.value);
        evaluator.top--;
    } else {
        SetFormulaError(evaluator, FormulaErrorSyntax, evaluator.stack[evaluator.top - 2]);
    }
}

}  // namespace tallymere
