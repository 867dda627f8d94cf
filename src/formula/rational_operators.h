// The operators of formulas in the number type rat.
#pragma once

#include "exact/rational_number.h"

namespace tallymere {

/// a = a (operator) b for OperatorAdd to OperatorMod, exact. The remainder of mod has the sign of
/// the quotient, so 7 mod (-2) is -1. 0/0 is 0, by the way of small divisors. What is no fraction
/// is +0/1 with the code of its routine; 102 for an operator without an operation.
void RationalApplyOperator(uint32_t operatorId, RationalNumber* a, const RationalNumber* b);

}  // namespace tallymere
