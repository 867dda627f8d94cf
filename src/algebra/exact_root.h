// The exact value of a root: a fraction, or a fraction and a multiple of a square root.
#pragma once

#include <cstdint>

#include "algebra/solution_set.h"
#include "core/complex_number.h"
#include "exact/rational_number.h"

namespace tallymere {

/// p + q sqrt(r), or p + q sqrt(r) i when `imaginary` is true. All are of the width in force.
struct ExactRoot {
    const RationalNumber* p;
    const RationalNumber* q;  ///< not 0; null when the root is p
    const uint64_t* r;        ///< 2 or more, without a square factor; also 1 if `imaginary`
    bool imaginary;
};

/// The root that is this fraction.
inline ExactRoot FractionRoot(const RationalNumber* p) {
    return {p, nullptr, nullptr, false};
}

/// dest = the root, both parts rounded once to so many digits, 1 to the precision in force. A part
/// that is zero is +0. The width in force is at most 2 limbs. Above 4,600 digits a root with a
/// square root may be rounded to the wrong side if it is very near to the middle between two
/// numbers.
void ExactRootToComplex(ComplexNumber* dest, const ExactRoot& root, int64_t digits);

/// Puts text and value of the root into the slot, the value as ExactRootToComplex gives it.
/// Returns Found, or TextOverflow when the text had to be cut.
RootOutcome PutExactRoot(SolutionSet& solutions, int64_t slot, const ExactRoot& root,
                         int64_t digits);

}  // namespace tallymere
