// The exact solutions of an equation with fractions as coefficients.
#pragma once

#include <cstdint>

#include "algebra/exact_polynomial.h"
#include "algebra/solution_set.h"

namespace tallymere {

/// Fills `solutions` with the roots of `list`, of degree 1 to MaxEquationDegree, sorted. `digits`
/// are the significant digits of their values, from MinExactDigits to the precision in force.
/// `flags` are bits of EquationFlags, as for SolvePolynomial. The width in force is FactorLimbs
/// (numtheory/factorize_number.h).
///
/// Each root that is a fraction has its exact text. If what is left when these are divided out has
/// degree 2, its roots have a text as well (exact_root_text.h). All other roots have their value
/// alone, and so has a root for which a number on the way does not fit the width. Values beside a
/// text are rounded from the exact root. Real roots whose values are equal stand in the order of
/// their texts' meaning; where only one of them has a text, the order is left open.
///
/// The outcomes are those of SolvePolynomial, and TextOverflow. Except after Found, the count is
/// -1. CalcError is as SolvePolynomial leaves it. The stop request is heard as SolvePolynomial and
/// SplitSquareFactor hear it.
///
/// No coefficient is rounded: as decimal numbers, cleared of the denominators, they lie on the
/// ScratchStack.
RootOutcome SolveExactEquation(SolutionSet& solutions, const ExactPolynomial& list, int64_t digits,
                               uint32_t flags);

}  // namespace tallymere
