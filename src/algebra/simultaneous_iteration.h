// All roots of a group at once, at few digits.
#pragma once

#include "algebra/polynomial.h"

namespace tallymere {

/// Roots that belong together, and the polynomial in whose variable they are small. All numbers are
/// in the layout in force.
struct RootFrame {
    Polynomial polynomial;
    /// How far each coefficient may be off, rounding in sweeps and expansions included.
    Magnitude errors[MaxEquationDegree + 1];
    int64_t count;  ///< of the smallest roots that are wanted, 1 to the degree
};

/// Moves `count` approximations to the smallest roots of the frame's polynomial until each of them
/// is as good as the errors of the coefficients let it be, or further sweeps do not help. False
/// when a stop was requested. Method: the simultaneous iteration of Ehrlich and Aberth, where a new
/// value replaces the old one at once.
bool IterateRoots(ComplexNumber* const* roots, const RootFrame& frame);

}  // namespace tallymere
