// Lehmer's step for greatest common divisors. Many steps of Euclid's algorithm are found from the
// leading limbs of two numbers alone, and then applied to all their limbs in one pass.
//
// Source: Knuth, "The Art of Computer Programming" 2, 4.5.2, algorithm L, here with leading parts
// of two limbs.
#pragma once

#include <cstdint>

namespace tallymere {

/// Three limbs of a number, highest first.
struct LeadingLimbs {
    uint64_t high;
    uint64_t middle;
    uint64_t low;
};

/// Two numbers x and y become keepX x - takeY y and keepY y - takeX x. All four factors are below
/// 2^63. keepX keepY - takeX takeY is 1, so the greatest common divisor does not change.
struct LehmerFactors {
    uint64_t keepX;
    uint64_t takeY;
    uint64_t keepY;
    uint64_t takeX;
    bool swaps;  ///< the result in the place of y is the larger one
};

/// True when `factors` has the invariant above.
bool LehmerFactorsAreWellFormed(const LehmerFactors& factors);

/// Finds the factors of several steps of Euclid for x >= y. The limbs of both are taken at the same
/// place, and x.high > 0. For all numbers with these leading limbs the results are positive and
/// different. Returns false when not even one step is certain; `factors` is unchanged then.
bool FindLehmerFactors(LehmerFactors& factors, LeadingLimbs x, LeadingLimbs y);

/// Applies the factors to all n limbs of x and y, which do not overlap. Both results must be at
/// least 0 and below 2^(64 n).
void ApplyLehmerFactors(uint64_t* x, uint64_t* y, int64_t n, const LehmerFactors& factors);

}  // namespace tallymere
