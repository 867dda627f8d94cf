// The operators of formulas in the number type uint.
#pragma once

#include "formula/formula_evaluator.h"

namespace tallymere {

/// a = a (operator) b for OperatorAdd to OperatorMod. A quotient is rounded down, and a remainder
/// that is lost is noted in the evaluator's inexactResult. What has no unsigned integer as its
/// answer is 0 with the code of its routine: 200 for a result out of range, a negative one
/// included, 202 for a division by 0; 102 for an operator without an operation.
void UintApplyOperator(FormulaEvaluator& evaluator, uint32_t operatorId, uint64_t* a,
                       const uint64_t* b);

}  // namespace tallymere
