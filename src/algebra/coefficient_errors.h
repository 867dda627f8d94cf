// Which coefficients are taken as rounded, and what their errors may move.
//
// A part of a coefficient that fills its digits, such as 0.33...3, is taken as the rounded value of
// a number that nobody sees; any other is exact, and so is one like 1.0...01 or 0.9...98, whose
// digits nearly all are alike for another reason. Roots that would be one root, and a part of a
// root that would be 0, for some other polynomial within these errors are taken as such.
#pragma once

#include "algebra/polynomial.h"

namespace tallymere {

/// A part fills its digits when not all of its last digits, so many, are 0.
inline constexpr int64_t SpareDigits = 3;

/// Nor does one with a run of zeros or of nines that is at least the n-th part of its digits, and 4
/// digits, and ends before the last digit.
inline constexpr int64_t LongRunPart = 3;
inline constexpr int64_t LongRunDigits = 4;

/// The error that a rounded part may have, in units of its last digit: enough for a rounded number
/// that was doubled.
inline constexpr double RoundedPartError = 1;

/// How far the parts of each coefficient may be off.
struct CoefficientErrors {
    bool any;
    Magnitude real[MaxEquationDegree + 1];
    Magnitude imaginary[MaxEquationDegree + 1];
};

CoefficientErrors FindCoefficientErrors(const Polynomial& polynomial);

/// The sizes of the errors of whole coefficients.
void TakeErrorSizes(Magnitude* sizes, const CoefficientErrors& errors, int64_t degree);

/// How far such errors may move the parts of the root z, with 1 / f'(z) in `inverse`, where f is
/// the derivative of the polynomial, of order `order`, divided by the factorial of it. z and
/// `inverse` are in the layout in force.
struct PartShifts {
    Magnitude real;
    Magnitude imaginary;
};
PartShifts FindPartShifts(const CoefficientErrors& errors, int64_t degree, int64_t order,
                          const ComplexNumber* z, const ComplexNumber* inverse);

}  // namespace tallymere
