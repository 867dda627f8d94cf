// Division of bare arrays of 64-bit limbs, of any length, least significant limb first. A divisor
// is prepared once and used often. Quotients, greatest common divisors and modular powers stand on
// this.
//
// UintLimbs... work on 64-bit limbs. Limbs... of core/limb_tools work on limbs of base 10^19.
#pragma once

#include <cstdint>

#include "core/contract.h"
#include "core/limb.h"

namespace tallymere {

/// floor((2^192 - 1) / d) - 2^64 for a d with its highest bit set.
/// Method: Moller and Granlund, "Improved division by invariant integers", algorithm 6.
constexpr uint64_t WideReciprocal(Wide d) {
    TALLYMERE_REQUIRE(d.high >> 63 != 0);
    uint64_t reciprocal = WordReciprocal(d.high);
    uint64_t rest = d.high * reciprocal + d.low;
    if (rest < d.low) {
        reciprocal--;
        if (rest >= d.high) {
            reciprocal--;
            rest -= d.high;
        }
        rest -= d.high;
    }
    const Wide product = wide::Multiply(reciprocal, d.low);
    rest += product.high;
    if (rest < product.high) {
        reciprocal--;
        if (AtLeast({rest, product.low}, d)) {
            reciprocal--;
        }
    }
    return reciprocal;
}

/// A quotient of one limb and a remainder of two.
struct WideQuotient {
    uint64_t quotient;
    Wide remainder;
};

/// The three limbs (high, low) divided by d, for high < d. The highest bit of d is set.
/// `reciprocal` is WideReciprocal(d).
/// Method: Moller and Granlund, algorithm 5.
constexpr WideQuotient DivideByWide(Wide high, uint64_t low, Wide d, uint64_t reciprocal) {
    TALLYMERE_REQUIRE(d.high >> 63 != 0 && !AtLeast(high, d));
    const Wide estimate = wide::Add(wide::Multiply(reciprocal, high.high), high);
    uint64_t quotient = estimate.high + 1;
    Wide remainder = {high.low - estimate.high * d.high, low};
    remainder = wide::Subtract(remainder, wide::Multiply(estimate.high, d.low));
    remainder = wide::Subtract(remainder, d);
    // This correction is needed often and cannot be predicted, so it does without a branch.
    const uint64_t tooLarge = remainder.high >= estimate.low ? ~uint64_t{0} : 0;
    quotient += tooLarge;
    remainder = wide::Add(remainder, {tooLarge & d.high, tooLarge & d.low});
    if (AtLeast(remainder, d)) [[unlikely]] {
        quotient++;
        remainder = wide::Subtract(remainder, d);
    }
    return {quotient, remainder};
}

/// True when aCount limbs at a and bCount limbs at b do not overlap; no count is negative.
bool UintLimbsAreApart(const uint64_t* a, int64_t aCount, const uint64_t* b, int64_t bCount);

/// Shifts n limbs left by `shift` bits, n >= 1, 0 <= shift <= 63. Returns the bits that leave at
/// the top. dest may be src, or overlap it from above.
uint64_t UintLimbsShiftLeft(uint64_t* dest, const uint64_t* src, int64_t n, int shift);

/// Shifts n limbs right by `shift` bits, n >= 1, 0 <= shift <= 63. The bits that leave are lost.
/// dest may be src, or overlap it from below.
void UintLimbsShiftRight(uint64_t* dest, const uint64_t* src, int64_t n, int shift);

/// r += k b over n limbs, n >= 0. Returns the carry limb. Fast for short rows too.
uint64_t UintLimbsAddProduct(uint64_t* r, const uint64_t* b, int64_t n, uint64_t k);

/// r -= b over n limbs, n >= 0. Returns the borrow, 0 or 1.
uint64_t UintLimbsSubtract(uint64_t* r, const uint64_t* b, int64_t n);

/// A prepared divisor b of n limbs, n >= 1.
struct UintLimbDivisor {
    const uint64_t* limbs;  ///< n limbs: b shifted left by `shift` bits, so its highest bit is set
    int64_t count;          ///< n
    int shift;              ///< 0 to 63
    uint64_t reciprocal;    ///< WideReciprocal of the highest two limbs; WordReciprocal of one
};

/// True when the record has the invariants above.
bool UintLimbDivisorIsWellFormed(const UintLimbDivisor& divisor);

/// Prepares the divisor b of n limbs, n >= 1. Its highest limb is not 0. The shifted limbs go to
/// `store`, which has room for n limbs, may be b, and must live as long as the result.
UintLimbDivisor PrepareDivisor(uint64_t* store, const uint64_t* b, int64_t n);

/// Divides r of m + n limbs by the n limbs of the shifted divisor, m >= 0. The highest n limbs of r
/// must be below the divisor. The quotient has m limbs; it may be null. Quotient, r and divisor
/// must not overlap. The remainder is left in the lowest n limbs of r. The limbs of r above it have
/// no meaning then.
void UintLimbsDivide(uint64_t* quotient, uint64_t* r, int64_t m, const UintLimbDivisor& divisor);

}  // namespace tallymere
