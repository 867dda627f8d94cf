// All complex roots of a polynomial of degree 1 to 10, to a number of significant digits.
#pragma once

#include <cstdint>

#include "algebra/coefficient_errors.h"
#include "algebra/solution_set.h"

namespace tallymere {

/// The digits that coefficients must have when roots are asked for to so many digits, 1 or more:
/// enough for an m-fold root to keep its digits, although the error of a coefficient moves it by
/// the m-th root of that error. Here and below the degree is 0 or more, and one above
/// MaxEquationDegree counts as that.
int64_t RootWorkingDigits(int64_t degree, int64_t digits);

/// The digits that coefficients are to be read with: these more than the working digits, but
/// MaxDigits at most. They tell numbers that end before, such as long integers and their products,
/// from rounded ones.
int64_t RootInputDigits(int64_t degree, int64_t digits);
inline constexpr int64_t ExtraCoefficientDigits = 350;

/// Which parts of coefficients count as rounded, and up to which digit these count as right: a
/// formula may cancel some of the last digits, which it then fills with others.
CoefficientDigits RootCoefficientDigits(int64_t degree, int64_t digits);

/// The most digits that roots can be asked for to: 2000 up to degree 4, 1000 up to degree 7, 750
/// above. Their working digits are at most MaxDigits.
int64_t MaxRootDigits(int64_t degree);

/// Fills `solutions` with the roots of `list`, sorted, each part rounded to `digits` significant
/// digits, at least 1, half away from zero, with empty exact texts; see SortRoots. Unless
/// KeepEqualRoots is set, MergeEqualRoots makes one entry of equal roots. With KeepRealRootsOnly
/// only real roots stay.
///
/// The coefficients are taken as they are, with all digits in force, which should be
/// RootInputDigits. Parts with more than the exact digits of RootCoefficientDigits are taken as
/// rounded numbers, and all others as exact; with ExactCoefficients all are exact.
///
/// A part that is below about 10^-1,000,000 of the other part of the same root may be taken as 0:
/// the box of the root is not made smaller without an end.
///
/// NotConverged for a coefficient that is no finite number. Also where a coefficient is above
/// 10^ScaledExponents (exponent_scaling.h) when x is scaled so that the highest and the lowest
/// coefficient are of about the same size, near 1.
///
/// Stopped when the stop request was raised. A root beyond the range of exponents is infinite, and
/// CalcErrorOverflow is noted.
///
/// Internal for more digits than are in force, for working digits above MaxDigits, for a degree
/// outside 0 to MaxEquationDegree and for a highest coefficient of 0. Except after Found, the count
/// is -1. The layout in force is as before, and no other code is noted. Memory is taken
/// from the ScratchStack.
RootOutcome SolvePolynomial(SolutionSet& solutions, const CoefficientList& list, int64_t digits,
                            uint32_t flags);

}  // namespace tallymere
