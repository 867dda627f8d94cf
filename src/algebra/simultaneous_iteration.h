// All roots of a polynomial, or the smallest ones, at once and at few digits.
#pragma once

#include "algebra/polynomial.h"

namespace tallymere {

/// The search for the smallest roots of a polynomial whose coefficients may be off.
struct RootProblem {
    Polynomial polynomial;  ///< in the layout in force
    /// How far each coefficient may be off, rounding in sweeps and expansions included.
    Magnitude errors[MaxEquationDegree + 1];
    int64_t count;  ///< of the roots that are wanted, 1 to the degree
};

/// True when the polynomial is well-formed and in the layout in force, and the count in its range.
bool ProblemIsWellFormed(const RootProblem& problem);

/// Moves `count` approximations, in the layout in force, to the smallest roots until each of them
/// is as good as the errors of the coefficients let it be, or further sweeps do not help. False
/// when a stop was requested. Method: the simultaneous iteration of Ehrlich and Aberth, where a new
/// value replaces the old one at once.
bool IterateRoots(ComplexNumber* const* roots, const RootProblem& problem);

}  // namespace tallymere
