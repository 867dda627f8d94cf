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

/// True when all that the root has is well-formed, and neither q nor r is one of those that it
/// cannot have; square factors are not looked for.
bool ExactRootIsWellFormed(const ExactRoot& root);

/// The root that is this fraction.
inline ExactRoot FractionRoot(const RationalNumber* p) {
    return {p, nullptr, nullptr, false};
}

/// dest = the root, both parts rounded once to so many digits, 1 to the precision in force. A part
/// that is zero is +0. A root that is very near to the middle between two numbers may be rounded to
/// the wrong side if the width in force is above FactorLimbs (numtheory/factorize_number.h), and
/// above 4,600 digits if it has a square root.
void ExactRootToComplex(ComplexNumber* dest, const ExactRoot& root, int64_t digits);

/// Puts text and value of the root into the slot, one of those in use, the value as
/// ExactRootToComplex gives it. Returns Found, or TextOverflow when the text had to be cut.
RootOutcome PutExactRoot(SolutionSet& solutions, int64_t slot, const ExactRoot& root,
                         int64_t digits);

}  // namespace tallymere
