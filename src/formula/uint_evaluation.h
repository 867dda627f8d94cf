// The functions of formulas in the number type uint.
//
// Roots and logarithms are rounded down and note in the evaluator's inexactResult that they were.
// What has no answer is 0 with the code of its routine; 102 for a function that uint does not have.
#pragma once

#include "formula/formula_evaluator.h"

namespace tallymere {

void UintApplyFunction1(FormulaEvaluator& evaluator, uint32_t functionId, uint64_t* dest,
                        const uint64_t* x);
void UintApplyFunction2(FormulaEvaluator& evaluator, uint32_t functionId, uint64_t* dest,
                        const uint64_t* a, const uint64_t* b);
void UintApplyFunction3(uint32_t functionId, uint64_t* dest, const uint64_t* a, const uint64_t* b,
                        const uint64_t* c);

}  // namespace tallymere
