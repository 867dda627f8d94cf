// The functions of formulas in the number type uint.
//
// Roots and logarithms are rounded down and note in the evaluator's inexactResult that they were.
// What has no answer is 0 with the code of its routine; 102 for a function that uint does not have.
#pragma once

#include "formula/formula_evaluator.h"

namespace tallymere {

/// dest = function(x); dest is not x.
///
/// "round" does nothing at all: dest stays as it is. "frac" is that of rat on the words of x as if
/// they were a fraction's sign, numerator and denominator with zeros behind, which is a division by
/// 0: always 0 and code 202.
void UintApplyFunction1(FormulaEvaluator& evaluator, uint32_t functionId, uint64_t* dest,
                        const uint64_t* x);

/// dest = function(a, b). root(n; x) and logx(base; x) have x last.
void UintApplyFunction2(FormulaEvaluator& evaluator, uint32_t functionId, uint64_t* dest,
                        const uint64_t* a, const uint64_t* b);

/// powmod: dest = a^b mod c.
void UintApplyFunction3(uint32_t functionId, uint64_t* dest, const uint64_t* a, const uint64_t* b,
                        const uint64_t* c);

}  // namespace tallymere
