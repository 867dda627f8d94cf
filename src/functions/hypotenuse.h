// The hypotenuse, without overflow on the way.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// dest = the square root of a^2 + b^2 at the current precision; raw, the square root of a rounded
/// sum. The larger magnitude alone where the exponents differ by more than the precision. An
/// infinity beside anything but NaN gives +infinity.
Limb RealHypot(RealNumber* dest, const RealNumber* a, const RealNumber* b);

/// The same with 3 guard digits, rounded; within UsualErrorBound (functions/error_bounds.h).
void RealHypotRounded(RealNumber* dest, const RealNumber* a, const RealNumber* b);

}  // namespace tallymere
