#include "formula/used_variables.h"

#include "formula/formula_names.h"

namespace tallymere {

const UsedVariable* FindUsedVariable(const FormulaEvaluator& evaluator, const FormulaToken& token) {
    for (int64_t i = 0; i < evaluator.usedCount; i++) {
        const UsedVariable& used = evaluator.usedVariables[i];
        if (NameEquals(used.name, evaluator.text + token.position, token.length)) {
            return &used;
        }
    }
    return nullptr;
}

void NoteUsedVariable(FormulaEvaluator& evaluator, const FormulaToken& token) {
    if (FindUsedVariable(evaluator, token) != nullptr) {
        return;
    }
    for (int64_t i = 0; i < evaluator.variableCount; i++) {
        const VariableRow& row = evaluator.variables[i];
        if (!NameEquals(row.name, evaluator.text + token.position, token.length)) {
            continue;
        }
        if (evaluator.usedCount >= evaluator.variableCount) {
            SetFormulaError(evaluator, FormulaErrorInternal, token);
            return;
        }
        evaluator.usedVariables[evaluator.usedCount++] = {row.name, row.valueText, row.value,
                                                          token.position, token.length};
        return;
    }
    SetFormulaError(evaluator, FormulaErrorUndefinedName, token);
}

}  // namespace tallymere
