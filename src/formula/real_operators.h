// The operators of formulas in the number type real that need more than a routine of core/.
//
// The operator ^ is in real_power.h. operator_table.cpp says which operator has which routine.
#pragma once

#include "core/real_number.h"

namespace tallymere {

// a = a (operator) b, rounded. Products and quotients with a machine integer go by one pass over
// the limbs instead of a full product or a reciprocal.

void RealMultiplyBy(RealNumber* a, const RealNumber* b);

/// x/0 is an infinity and CalcErrorOverflow, 0/0 NaN and CalcErrorUndefined.
void RealDivideBy(RealNumber* a, const RealNumber* b);

/// a = the remainder of a / b, with the sign of the quotient: 7 mod (-2) is -1. NaN and
/// CalcErrorUndefined for b = 0.
void RealReduceModulo(RealNumber* a, const RealNumber* b);

}  // namespace tallymere
