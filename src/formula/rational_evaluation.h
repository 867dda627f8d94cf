// The functions of formulas in the number type rat: exact, or refused.
//
// What is no fraction is 0/1 with the code of its routine; 102 for a function that rat does not
// have.
#pragma once

#include "exact/rational_number.h"

namespace tallymere {

void RationalApplyFunction1(uint32_t functionId, RationalNumber* dest, const RationalNumber* x);
void RationalApplyFunction2(uint32_t functionId, RationalNumber* dest, const RationalNumber* a,
                            const RationalNumber* b);

}  // namespace tallymere
