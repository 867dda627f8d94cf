// Division of bare limb arrays of any length, least significant limb first, by a divisor that is
// made ready once: what quotients, greatest common divisors and modular powers are made of.
//
// Method: Knuth, "The Art of Computer Programming" 2, 4.3.1, algorithm D, with the quotient limb
// taken from three limbs by two through a reciprocal (Moller and Granlund, "Improved division by
// invariant integers", algorithms 3 to 6), which is then at most one too large.
#pragma once

#include <cstdint>

#include "core/limb.h"

namespace tallymere {

/// floor((2^128 - 1) / d) - 2^64 for a d with its highest bit set.
constexpr uint64_t WordReciprocal(uint64_t d) {
    return wide::Divide({~d, ~uint64_t{0}}, d);
}

/// value divided by d, for value.high < d and a d with its highest bit set, with
/// reciprocal = WordReciprocal(d).
constexpr LimbQuotient DivideByWord(Wide value, uint64_t d, uint64_t reciprocal) {
    const Wide estimate = wide::Add(wide::Multiply(reciprocal, value.high), value);
    uint64_t quotient = estimate.high + 1;
    uint64_t remainder = value.low - quotient * d;
    const uint64_t tooLarge = remainder > estimate.low ? ~uint64_t{0} : 0;
    quotient += tooLarge;
    remainder += tooLarge & d;
    if (remainder >= d) [[unlikely]] {
        quotient++;
        remainder -= d;
    }
    return {quotient, remainder};
}

/// floor((2^192 - 1) / d) - 2^64 for a d with its highest bit set.
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

/// (high, low) divided by d, for high < d and a d with its highest bit set, with
/// reciprocal = WideReciprocal(d).
constexpr WideQuotient DivideByWide(Wide high, uint64_t low, Wide d, uint64_t reciprocal) {
    const Wide estimate = wide::Add(wide::Multiply(reciprocal, high.high), high);
    uint64_t quotient = estimate.high;
    Wide remainder = {high.low - quotient * d.high, low};
    remainder = wide::Subtract(remainder, wide::Multiply(quotient, d.low));
    remainder = wide::Subtract(remainder, d);
    quotient++;
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

/// Moves n limbs left by 0 <= shift <= 63 bits; returns the bits that leave at the top. dest may be
/// src, or lie above it.
uint64_t LimbsMoveLeft(uint64_t* dest, const uint64_t* src, int64_t n, int shift);

/// Moves n limbs right by 0 <= shift <= 63 bits, `above` coming in at the top. dest may be src, or
/// lie below it.
void LimbsMoveRight(uint64_t* dest, const uint64_t* src, int64_t n, int shift, uint64_t above);

/// r -= k * b over n limbs; returns the limb that is to be taken from the next.
uint64_t LimbsSubtractProduct(uint64_t* r, const uint64_t* b, int64_t n, uint64_t k);

/// A divisor b of n >= 2 limbs, made ready.
struct LimbDivisor {
    const uint64_t* limbs;  ///< n of them: b moved left by `shift` bits, its highest bit then set
    int64_t count;          ///< n
    int shift;              ///< 0 to 63
    uint64_t reciprocal;    ///< WideReciprocal of the highest two of `limbs`
};

/// Makes b of n >= 2 limbs ready, its highest limb not being 0. `store` takes n limbs and may be b.
LimbDivisor PrepareDivisor(uint64_t* store, const uint64_t* b, int64_t n);

/// Divides the m + n limbs of r by the divisor's `limbs`, for m >= 0 and the highest n limbs of r
/// below them: quotient, which may be null, gets m limbs, and what remains is the lowest n limbs of
/// r.
void LimbsDivide(uint64_t* quotient, uint64_t* r, int64_t m, const LimbDivisor& divisor);

}  // namespace tallymere
