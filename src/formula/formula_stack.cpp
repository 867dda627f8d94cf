#include "formula/formula_stack.h"

#include <algorithm>

#include "core/number_context.h"
#include "core/scratch.h"
#include "values/value_operations.h"

namespace tallymere {

void StartFormulaStack(FormulaEvaluator& evaluator) {
    constexpr int64_t stackBytes = ProductStackEntries * int64_t{sizeof(FormulaToken)};
    static_assert(stackBytes % BytesPerWord == 0);
    evaluator.stack = reinterpret_cast<FormulaToken*>(
        ScratchTake(CurrentScratchStack(), stackBytes / BytesPerWord));
    evaluator.top = -1;
    evaluator.slotMark = -1;
    evaluator.elementSize = SizeOfNumber();
}

bool PushFormulaToken(FormulaEvaluator& evaluator, const FormulaToken& token) {
    if (evaluator.top + 1 >= FormulaStackEntries) {
        SetFormulaError(evaluator, FormulaErrorTooComplicated, token);
        return false;
    }
    evaluator.top++;
    FormulaToken& entry = evaluator.stack[evaluator.top];
    uint64_t* slot = entry.value;
    entry = token;
    entry.value = slot;
    if (evaluator.top > evaluator.slotMark) {
        const auto words = static_cast<int64_t>(evaluator.elementSize) / BytesPerWord;
        entry.value = ScratchTake(CurrentScratchStack(), words);
        std::fill_n(entry.value, words, 0);
        evaluator.slotMark = evaluator.top;
    }
    return true;
}

}  // namespace tallymere
