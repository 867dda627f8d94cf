// Lehmer's step: what many steps of Euclid's algorithm do to two numbers, found by their leading
// limbs alone and then done to all limbs in one pass.
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

/// Two numbers x and y become keepX x - takeY y and keepY y - takeX x. All four are below 2^63, and
/// keepX keepY - takeX takeY is 1, so that the greatest common divisor stays.
struct LehmerFactors {
    uint64_t keepX;
    uint64_t takeY;
    uint64_t keepY;
    uint64_t takeX;
    bool swaps;  ///< which of the two results is then the larger: the one in place of y
};

/// The factors of as many steps as the leading limbs of x >= y, taken at the same place with
/// x.high > 0, are sure of: the results are positive for every x and y with these limbs, and
/// different. False if that is no step.
bool FindLehmerFactors(LehmerFactors& factors, LeadingLimbs x, LeadingLimbs y);

/// Applies the factors to all n limbs of x and y. The results must be below 2^(64 n) and not
/// negative.
void ApplyLehmerFactors(uint64_t* x, uint64_t* y, int64_t n, const LehmerFactors& factors);

}  // namespace tallymere
