// All complex roots of a polynomial of degree 1 to 10, to a number of significant digits.
#pragma once

#include <cstdint>

#include "algebra/solution_set.h"

namespace tallymere {

/// The digits that coefficients are read and taken with when roots are asked for to so many digits,
/// 1 or more: enough for an m-fold root to keep its digits, although the error of a coefficient
/// moves it by the m-th root of that error. A degree above 10 counts as 10.
int64_t RootWorkingDigits(int64_t degree, int64_t digits);

/// The most digits that roots can be asked for to: 2000 up to degree 4, 1000 up to degree 7, 750
/// above. Their working digits are at most MaxDigits.
int64_t MaxRootDigits(int64_t degree);

/// Fills `solutions` with the roots of `list`, sorted, each part rounded to `digits` significant
/// digits, at least 1, half away from zero, with empty exact texts; see SortRoots. Unless
/// KeepEqualRoots is set, MergeEqualRoots makes one entry of equal roots. With KeepRealRootsOnly
/// only real roots stay.
///
/// Internal for more digits than are in force, for working digits above MaxDigits, for a degree
/// outside 0 to MaxEquationDegree and for a highest coefficient of 0. Except after Found, the count
/// is -1. The layout in force and the error noted in the context are as before.
RootOutcome SolvePolynomial(SolutionSet& solutions, const CoefficientList& list, int64_t digits,
                            uint32_t flags);

}  // namespace tallymere
