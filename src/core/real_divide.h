// Quotients: by a machine integer, and of two numbers through the Newton reciprocal.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// Stands for the reciprocal of a power of two in Divide128 and RealDivUint.
inline constexpr uint64_t PowerOfTwoReciprocal = 0x8000000000000000u;

/// What Divide128 needs to know of d >= 1: PowerOfTwoReciprocal if d is a power of two, else
/// floor(2^(64 + floor(log2 d)) / d).
constexpr uint64_t ComputeDivisorReciprocal(uint64_t d) {
    return (d & (d - 1)) == 0 ? PowerOfTwoReciprocal
                              : wide::Divide({uint64_t{1} << HighestBit(d), 0}, d);
}

/// The same, up to 2000 from a table.
uint64_t DivisorReciprocal(uint64_t d);

/// The quotient of the 128-bit value (high, low) by d, for high < d; writes the remainder.
/// `reciprocal` is DivisorReciprocal(d).
uint64_t Divide128(uint64_t* remainder, uint64_t high, uint64_t low, uint64_t d,
                   uint64_t reciprocal);

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
