#include "formula/formula_variables.h"

#include "core/number_context.h"
#include "core/scratch.h"
#include "formula/formula_driver.h"
#include "formula/formula_lexer.h"
#include "formula/used_variables.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

void CollectUsedVariables(FormulaEvaluator& evaluator) {
    FormulaToken token{};
    uint64_t position = 0;
    do {
        NextFormulaToken(evaluator, token, position);
        if (token.kind == TokenIdentifier) {
            NoteUsedVariable(evaluator, token);
        }
    } while (evaluator.error == FormulaErrorNone && !EndsFormula(token.kind));
}

void EvaluateUsedVariable(FormulaEvaluator& outer, UsedVariable& used) {
    used.value =
        ScratchTake(CurrentScratchStack(), static_cast<int64_t>(SizeOfNumber()) / BytesPerWord);
    FormulaEvaluator inner{};
    inner.text = used.valueText;
    inner.flags = outer.flags;
    inner.result = used.value;
    RunFormula(inner);
    if (inner.error != FormulaErrorNone) {
        SetFormulaError(outer, FormulaErrorVariableFailed, used.position, used.length);
        return;
    }
    if (inner.inexactResult) {
        outer.inexactResult = true;
    }
}

}  // namespace

void ResolveUsedVariables(FormulaEvaluator& evaluator) {
    evaluator.usedCount = 0;
    evaluator.usedVariables = nullptr;
    if (evaluator.variableCount == 0) {
        return;
    }
    constexpr int64_t rowWords = int64_t{sizeof(UsedVariable)} / BytesPerWord;
    evaluator.usedVariables = reinterpret_cast<UsedVariable*>(
        ScratchTake(CurrentScratchStack(), rowWords * evaluator.variableCount));
    CollectUsedVariables(evaluator);
    for (int64_t i = 0; i < evaluator.usedCount && evaluator.error == FormulaErrorNone; i++) {
        if (evaluator.usedVariables[i].value == nullptr) {
            EvaluateUsedVariable(evaluator, evaluator.usedVariables[i]);
        }
    }
}

}  // namespace tallymere
