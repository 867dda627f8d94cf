// Which coefficients are taken as rounded, and what their errors may move.
//
// Coefficients have more digits than they need. A part that ends before is exact. One that goes on
// behind the digits that are needed, such as 0.33...3, is the rounded value of a number that nobody
// sees. Roots that would be one root, and a part of a root that would be 0, for some other
// polynomial within these errors are taken as such.
#pragma once

#include "algebra/polynomial.h"

namespace tallymere {

/// How far the parts of each coefficient may be off.
struct CoefficientErrors {
    bool any;
    int64_t knownDigits;  ///< a rounded part may be off by a unit of the last one of so many
    Magnitude real[MaxEquationDegree + 1];
    Magnitude imaginary[MaxEquationDegree + 1];
};

/// A part is a rounded one when not all of its digits behind the first `knownDigits`, 1 or more,
/// are 0. Where it has no more than these, it is exact.
CoefficientErrors FindCoefficientErrors(const Polynomial& polynomial, int64_t knownDigits);

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
