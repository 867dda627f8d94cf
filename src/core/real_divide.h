// Quotients: by a machine integer, and of two numbers through the Newton reciprocal.
#pragma once

#include "core/real_number.h"
#include "core/word_division.h"

namespace tallymere {

/// dest = x / d with the sign of x; raw. `reciprocal` is DivisorReciprocal(d), or 0 to have it
/// looked up. 0 / 0 gives NaN and code 203; x / 0 gives an infinity and code 200 if reportOverflow.
Limb RealDivUint(RealNumber* dest, const RealNumber* x, uint64_t d, uint64_t reciprocal = 0);

/// dest = 1 / x for finite non-zero x, by Newton's iteration y <- y (2 - x y) from a seed of about
/// 15 digits; raw, good to a few units in the last place.
Limb RealReciprocalRaw(RealNumber* dest, const RealNumber* x);

/// The same for all values: 1 / 0 is an infinity and code 200 if reportOverflow, 1 / infinity is 0.
Limb RealReciprocalAny(RealNumber* dest, const RealNumber* x);

/// dest = 1 / x with 2 guard digits, rounded.
void RealReciprocal(RealNumber* dest, const RealNumber* x);

/// dest = a / b at the current precision; raw, good to a few units in the last place. 0 / 0 and
/// infinity / infinity give NaN and code 203; finite / 0 an infinity and code 200 if
/// reportOverflow.
Limb RealDivRaw(RealNumber* dest, const RealNumber* a, const RealNumber* b);

/// dest = a / b with 3 guard digits, rounded.
void RealDiv(RealNumber* dest, const RealNumber* a, const RealNumber* b);

}  // namespace tallymere
