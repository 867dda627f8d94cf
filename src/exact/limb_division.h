// Division of bare arrays of 64-bit limbs of any length, least significant limb first, by a divisor
// that is made ready once: what quotients, greatest common divisors and modular powers are made of.
// UintLimbs... work on such arrays; Limbs... of core/limb_tools are for limbs of base 10^19.
#pragma once

#include <cstdint>

#include "core/limb.h"

namespace tallymere {

/// floor((2^192 - 1) / d) - 2^64 for a d with its highest bit set.
/// Method: Moller and Granlund, "Improved division by invariant integers", algorithm 6.
constexpr uint64_t WideReciprocal(Wide d) {
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

/// A quotient limb and the two limbs that remain.
struct WideQuotient {
    uint64_t quotient;
    Wide remainder;
};

/// The three limbs (high, low) divided by a d with its highest bit set, for high < d;
/// `reciprocal` is WideReciprocal(d).
/// Method: Moller and Granlund, algorithm 5.
constexpr WideQuotient DivideByWide(Wide high, uint64_t low, Wide d, uint64_t reciprocal) {
    const Wide estimate = wide::Add(wide::Multiply(reciprocal, high.high), high);
    uint64_t quotient = estimate.high + 1;
    Wide remainder = {high.low - estimate.high * d.high, low};
    remainder = wide::Subtract(remainder, wide::Multiply(estimate.high, d.low));
    remainder = wide::Subtract(remainder, d);
    // Needed in a good part of all cases, and unpredictable: better without a branch.
    const uint64_t tooLarge = remainder.high >= estimate.low ? ~uint64_t{0} : 0;
    quotient += tooLarge;
    remainder = wide::Add(remainder, {tooLarge & d.high, tooLarge & d.low});
    if (AtLeast(remainder, d)) [[unlikely]] {
        quotient++;
        remainder = wide::Subtract(remainder, d);
    }
    return {quotient, remainder};
}

/// Shifts n >= 1 limbs left by 0 <= shift <= 63 bits; returns the bits that leave at the top. dest
/// may be src, or overlap it from above.
uint64_t UintLimbsShiftLeft(uint64_t* dest, const uint64_t* src, int64_t n, int shift);

/// Shifts n >= 1 limbs right by 0 <= shift <= 63 bits; the bits that leave are lost. dest may be
/// src, or overlap it from below.
void UintLimbsShiftRight(uint64_t* dest, const uint64_t* src, int64_t n, int shift);

/// r += k b over n >= 0 limbs; returns the limb above. For rows that are often short.
uint64_t UintLimbsAddProduct(uint64_t* r, const uint64_t* b, int64_t n, uint64_t k);

/// r -= b over n >= 0 limbs; returns what is borrowed from above, 0 or 1.
uint64_t UintLimbsSubtract(uint64_t* r, const uint64_t* b, int64_t n);

/// A divisor b of n >= 1 limbs, made ready.
struct UintLimbDivisor {
    const uint64_t* limbs;  ///< n of them: b shifted left by `shift` bits, its highest bit then set
    int64_t count;          ///< n
    int shift;              ///< 0 to 63
    uint64_t reciprocal;    ///< WideReciprocal of the highest two limbs; WordReciprocal of one
};

/// Makes a divisor of n limbs ready, of which the highest is not 0. `store` takes its n limbs and
/// may be b.
UintLimbDivisor PrepareDivisor(uint64_t* store, const uint64_t* b, int64_t n);

/// Divides the m + n limbs of r by the n limbs of the divisor as it was shifted left, for m >= 0
/// and the highest n limbs of r below the divisor. quotient, which may be null, gets m limbs and
/// must not overlap r; what remains is the lowest n limbs of r, and those above are without
/// meaning.
void UintLimbsDivide(uint64_t* quotient, uint64_t* r, int64_t m, const UintLimbDivisor& divisor);

}  // namespace tallymere
