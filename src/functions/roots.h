// Square and cube root, by Newton's iteration from a seed in machine arithmetic.
//
// The argument is scaled by a small square or cube, so that the iteration runs in [1, 4) or [1, 8)
// and a perfect power of few digits stays exact.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// dest = the square root of x at the current precision; raw, good to a few units in the last
/// place. A zero and +infinity give themselves; a negative x gives NaN and code 203.
Limb RealSqrt(RealNumber* dest, const RealNumber* x);

/// The same with 2 guard digits, rounded.
void RealSqrtRounded(RealNumber* dest, const RealNumber* x);

/// dest = the cube root of x, with its sign, at the current precision; raw, good to a few units in
/// the last place. Zeros and infinities give themselves.
Limb RealCbrt(RealNumber* dest, const RealNumber* x);

/// The same with 3 guard digits, rounded.
void RealCbrtRounded(RealNumber* dest, const RealNumber* x);

}  // namespace tallymere
