// Conversions between RealNumber and machine integers, and access to the leading digits.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// dest = k; raw. The guard limb is what did not fit in a one-limb number.
Limb RealFromUint(RealNumber* dest, uint64_t k);

/// dest = k, rounded.
void RealFromInt(RealNumber* dest, int64_t k);

/// What conversions to machine integers let pass.
enum IntegerFlags : uint32_t {
    IntegerExact = 0,
    AllowFraction = 0x200000,  ///< a fraction is dropped; otherwise it is a failure
    AllowNegative = 0x400000,  ///< a negative value gives its magnitude; otherwise it is a failure
};

/// Writes the integer value of x to *out and returns true, or writes 0 and returns false: for
/// infinity and NaN, for values that do not fit, and for what `flags` (bits of IntegerFlags) does
/// not allow.
bool RealToUint(uint64_t* out, const RealNumber* x, uint32_t flags);

/// The same for the signed 64-bit range, where AllowNegative makes no difference.
bool RealToInt(int64_t* out, const RealNumber* x, uint32_t flags);

/// The first k mantissa digits as an integer, 1 <= k <= 19, from the limbs of a finite non-zero
/// number; zeros stand in for digits beyond its precision.
uint64_t RealLeadingDigits(const Limb* limbs, int64_t k);

/// Writes the 19-digit integer v (10^18 <= v < 10^19) as the leading digits and zeros behind them;
/// digits beyond the precision are dropped.
void RealSetLeading(Limb* limbs, uint64_t v);

}  // namespace tallymere
