// The functions of formulas in the number type real.
#pragma once

#include "core/real_number.h"
#include "formula/formula_evaluator.h"

namespace tallymere {

/// dest = function(x), for a function of one argument, rounded; dest may be x. NaN and code 102 for
/// one that real does not have. A tangent at an odd multiple of the quarter turn is error 10203 at
/// the function, without a code; all else that fails notes the code of its routine.
void RealApplyFunction1(FormulaEvaluator& evaluator, const FormulaToken& function, RealNumber* dest,
                        const RealNumber* x);

/// dest = function(a, b), for a function of two arguments, rounded. root(n; x) and logx(base; x)
/// have x last. NaN and code 102 for one that real does not have.
void RealApplyFunction2(uint32_t functionId, RealNumber* dest, const RealNumber* a,
                        const RealNumber* b);

}  // namespace tallymere
