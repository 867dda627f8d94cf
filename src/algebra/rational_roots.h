// The search for the roots of an equation that are fractions, by their numeric values.
#pragma once

#include <cstdint>

#include "algebra/exact_polynomial.h"
#include "algebra/solution_set.h"

namespace tallymere {

/// Values are rounded to so many digits less before they are taken for integers.
inline constexpr int64_t ExactRoundingGap = 2;

/// The fewest digits with which a fraction is found.
inline constexpr int64_t MinExactDigits = ExactRoundingGap + 1;

/// Puts texts and values of exact roots into `solutions`, whose entries are the roots of `list` to
/// so many significant digits, equal ones included, with empty texts. `digits` are from
/// MinExactDigits to the precision in force, which is that of the entries. The width in force is
/// FactorLimbs (numtheory/factorize_number.h).
///
/// First come the fractions. A value stands for one if it, or its product with the highest
/// coefficient, is an integer when it is rounded to ExactRoundingGap digits less; exact division
/// proves it. So a fraction is not found if these digits do not show that integer. What is left of
/// degree 1 or 2 is solved by formula. Roots of what is left of a higher degree stay as they are,
/// and so do all when the denominators cannot be cleared within the width.
///
/// Returns Found. Or Stopped or TextOverflow, see SolveExactQuadratic. Or Internal when fewer
/// entries are left than roots. CalcError is as before.
RootOutcome FindExactRoots(SolutionSet& solutions, const ExactPolynomial& list, int64_t digits);

}  // namespace tallymere
