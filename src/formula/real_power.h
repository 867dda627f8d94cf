// The operator ^ of formulas in the number type real.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// a = a ^ b, rounded. Where b is an integer of the signed 64-bit range, the power is a product, so
/// that negative bases have one, or an exact power of ten. For other exponents it is an exponential
/// to the base 2 or 10, or it comes from the logarithm of a, which must be positive then. Codes are
/// those of these routines. A power of ten above the exponent range is an infinity and, with
/// reportOverflow, CalcErrorOverflow; one below the range is 0.
void RealApplyPower(RealNumber* a, const RealNumber* b);

}  // namespace tallymere
