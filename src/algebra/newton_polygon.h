// Start values for the roots of a polynomial from the Newton polygon of its coefficients.
//
// Each edge of the upper hull of the points (i, log |a_i|), from i to j, stands for j - i roots of
// about the size (|a_i| / |a_j|)^(1 / (j - i)). They start on a circle of that radius, evenly and
// askew to the axes. Source: D. A. Bini, Numerical computation of polynomial zeros by means of
// Aberth's method, Numerical Algorithms 13 (1996).
#pragma once

#include "algebra/magnitude.h"

namespace tallymere {

/// Fills starts[0 .. count-1], in the layout in force, for the `count` smallest roots of the
/// polynomial whose coefficients have these sizes, index 0 the constant. sizes[0] and sizes[count]
/// must not be 0.
void ChooseStarts(ComplexNumber* const* starts, const Magnitude* sizes, int64_t count);

}  // namespace tallymere
