// The operator ^ of formulas in the number type real.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// a = a ^ b, rounded. An exponent that is an integer of the signed 64-bit range multiplies, and
/// so takes negative bases; with the base 10 it makes an exact power of ten. Other exponents go
/// through the exponentials to the bases 2 and 10, or through the logarithm of a. Codes as those
/// routines set them; a power of ten outside the exponent range is an infinity (code 200 if
/// reportOverflow) or a zero.
void RealApplyPower(RealNumber* a, const RealNumber* b);

}  // namespace tallymere
