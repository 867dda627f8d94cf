// The functions of formulas in the number type rat: exact, or refused.
//
// What is no fraction is +0/1 with the code of its routine; 102 for a function that rat does not
// have.
#pragma once

#include "exact/rational_number.h"

namespace tallymere {

/// dest = function(x); dest may be x.
///
/// "round" is trunc(x) where the fraction is below 1/2 in magnitude. Where it is not, it is x
/// itself moved away from 0 by 1, so round(5/2) is 7/2.
void RationalApplyFunction1(uint32_t functionId, RationalNumber* dest, const RationalNumber* x);

/// dest = function(a, b). root(n; x) and logx(base; x) have x last.
void RationalApplyFunction2(uint32_t functionId, RationalNumber* dest, const RationalNumber* a,
                            const RationalNumber* b);

}  // namespace tallymere
