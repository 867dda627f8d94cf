#include "formula/formula_evaluation.h"

#include "core/contract.h"
#include "core/number_context.h"
#include "core/scratch.h"
#include "formula/formula_driver.h"
#include "formula/formula_variables.h"
#include "values/value_operations.h"

namespace tallymere {

void EvaluateFormula(FormulaEvaluator& evaluator) {
    TALLYMERE_REQUIRE(evaluator.text != nullptr && evaluator.result != nullptr);
    ScratchStackScope scope;
    numberContext.calcError = CalcErrorNone;
    evaluator.elementSize = SizeOfNumber();
    evaluator.inexactResult = false;
    ResolveUsedVariables(evaluator);
    if (evaluator.error == FormulaErrorNone) {
        RunFormula(evaluator);
    } else {
        ValueZero(evaluator.result);
        evaluator.usedCount = 0;
        evaluator.usedVariables = nullptr;
    }
    numberContext.calcError = CalcErrorNone;
}

}  // namespace tallymere
