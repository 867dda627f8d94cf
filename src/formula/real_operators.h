// The operators of formulas in the number type real.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// a = a (operator) b for OperatorAdd to OperatorMod, rounded. Products and quotients with a
/// machine integer go by one pass over the limbs instead of a full product or a reciprocal. The
/// remainder of mod has the sign of the quotient, so 7 mod (-2) is -1. Powers are those of
/// RealApplyPower. NaN and code 102 for an operator without an operation.
void RealApplyOperator(uint32_t operatorId, RealNumber* a, const RealNumber* b);

}  // namespace tallymere
