// The exact roots of equations of degree 1 and 2, by formula.
//
// Both functions put texts and values into slots of the solutions, which are in use. Where a number
// on the way does not fit the width in force, FactorLimbs (numtheory/factorize_number.h), the texts
// become empty and the values stay: there is no exact value then, and that is no failure. CalcError
// is as before.
#pragma once

#include <cstdint>

#include "algebra/exact_polynomial.h"
#include "algebra/solution_set.h"

namespace tallymere {

/// The root of an equation of degree 1, -a0 / a1. `digits` are those of its value, 1 to the
/// precision in force. Returns Found.
RootOutcome SolveExactLinear(SolutionSet& solutions, const ExactPolynomial& list, int64_t slot,
                             int64_t digits);

/// The roots p + q sqrt(r) and p - q sqrt(r) of an equation of degree 2, in this order, in two
/// different slots; q has the
/// sign of a2. `digits` are those of the values, 1 to the precision in force. Returns Found. Or
/// TextOverflow when a text had to be cut. Or Stopped: the texts are empty.
RootOutcome SolveExactQuadratic(SolutionSet& solutions, const ExactPolynomial& list, int64_t slot1,
                                int64_t slot2, int64_t digits);

}  // namespace tallymere
