// Shifts, sums and differences of bare limb arrays, most significant limb first.
//
// Arrays hold m limbs. A guard limb is the base-10^19 digit directly below the last limb; every
// shift takes one in where digits can come from below, and returns the one that lies below its
// result. `dest` may be `src` or an operand itself, but may not overlap it otherwise.
#pragma once

#include <cstdint>
#include <functional>

#include "core/limb.h"

namespace tallymere {

/// True when two arrays of n words are one and the same, or have no word in common.
inline bool SameOrApart(const uint64_t* a, const uint64_t* b, int64_t n) {
    const auto placeA = reinterpret_cast<uintptr_t>(a);
    const auto placeB = reinterpret_cast<uintptr_t>(b);
    const uintptr_t distance = placeA < placeB ? placeB - placeA : placeA - placeB;
    return distance == 0 || distance >= static_cast<uintptr_t>(n) * sizeof(uint64_t);
}

/// The same for arrays of different lengths: true when both begin at the same word, or have no word
/// in common.
inline bool SameOrApart(const uint64_t* a, int64_t countA, const uint64_t* b, int64_t countB) {
    return SameOrApart(a, b, std::less<>()(a, b) ? countA : countB);
}

/// Shifts right by 0 <= k <= 19 digits, zeros coming in at the top. Returns the digits that fall
/// off the bottom, with the top digits of `guard` behind them. The first limb may be any 64-bit
/// value.
Limb LimbsShiftRightDigits(Limb* dest, const Limb* src, int64_t m, int64_t k, Limb guard);

/// Shifts left by 0 <= k <= 19 digits, filling from the top of `guard`; digits that leave at the
/// top are lost. Returns the digits of `guard` that are left, moved up.
Limb LimbsShiftLeftDigits(Limb* dest, const Limb* src, int64_t m, int64_t k, Limb guard);

/// Shifts right by any k >= 0 digits, with nothing below the last limb. A k that takes everything
/// past the guard limb clears dest and gives 0.
Limb LimbsShiftRightFar(Limb* dest, const Limb* src, int64_t m, int64_t k);

/// Shifts left by any k >= 0 digits; `guard` follows the last limb, and zeros follow the guard.
Limb LimbsShiftLeftFar(Limb* dest, const Limb* src, int64_t m, int64_t k, Limb guard);

/// Moves the first non-zero limb to the front with t = topLimbDigits digits in it and writes to
/// `count` by how many digits it moved left. The count is negative where the first limb holds more
/// than t digits. An array of zeros with a guard of 0 gives count 0. The first limb may be any
/// 64-bit value. Returns the new guard limb.
Limb LimbsNormalise(Limb* dest, const Limb* src, int64_t m, int64_t* count, Limb guard);

/// a + b over n limbs; returns the carry out of the first limb, 0 or 1.
Limb LimbsAdd(Limb* dest, const Limb* a, const Limb* b, int64_t n);

/// a - b - (guard != 0) over n limbs, for a >= b + (guard != 0): the difference of a and of b with
/// `guard` below its last limb. Returns the guard limb of the difference, 10^19 - guard or 0.
Limb LimbsSubtract(Limb* dest, const Limb* a, const Limb* b, int64_t n, Limb guard);

/// What LimbsDivideUint can divide by lies below this.
inline constexpr uint64_t UintDivisorLimit = uint64_t{1} << 30;

/// Divides the number that is made of `remainder` and behind it the m limbs of src and `zeros`
/// limbs that are 0, by 1 <= d < UintDivisorLimit, for remainder < d: writes m + zeros limbs of
/// the quotient and returns the remainder. dest may be src, or overlap it from below.
uint64_t LimbsDivideUint(Limb* dest, const Limb* src, int64_t m, int64_t zeros, uint64_t d,
                         uint64_t remainder);

/// Sets n limbs to 0.
void LimbsClear(Limb* dest, int64_t n);

/// Copies n limbs; the arrays may overlap.
void LimbsCopy(Limb* dest, const Limb* src, int64_t n);

/// True when all n limbs are 0.
bool LimbsAreZero(const Limb* limbs, int64_t n);

/// -1, 0 or 1 as the n limbs of a are below, equal to or above those of b.
int LimbsCompare(const Limb* a, const Limb* b, int64_t n);

}  // namespace tallymere
