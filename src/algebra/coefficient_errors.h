// Which coefficients are taken as rounded, and what their errors may move.
//
// Coefficients have some hundred digits more than they need. A part that ends before is exact,
// such as a decimal number as it was typed. One that goes on through all of them, such as 0.33...3,
// is the rounded value of a number that nobody sees. Roots that would be one root, and a part of a
// root that would be 0, for some other polynomial within these errors are taken as such.
#pragma once

#include "algebra/polynomial.h"

namespace tallymere {

/// What numbers of digits tell of the parts of coefficients.
struct CoefficientDigits {
    int64_t exact;  ///< a part with more digits than so many is a rounded one
    int64_t known;  ///< a rounded part counts as right up to so many, 1 or more, `exact` at most
};

/// How far the parts of each coefficient may be off.
struct CoefficientErrors {
    bool any;
    int64_t knownDigits;  ///< a rounded part may be off by a unit of the last one of so many
    Magnitude real[MaxEquationDegree + 1];
    Magnitude imaginary[MaxEquationDegree + 1];
};

/// A part is a rounded one when not all of its digits behind the first `counts.exact` are 0. In a
/// layout of no more digits than these, it is exact.
CoefficientErrors FindCoefficientErrors(const Polynomial& polynomial, CoefficientDigits counts);

/// sizes[0 .. degree] = how far whole coefficients may be off.
void FindErrorSizes(Magnitude* sizes, const CoefficientErrors& errors, int64_t degree);

/// How far such errors may move the parts of the root z, with 1 / f'(z) in `inverse`, where f is
/// the derivative of the polynomial, of order `order`, 0 to the degree, divided by the factorial of
/// it. z and `inverse` are in the layout in force.
PartSizes FindPartShifts(const CoefficientErrors& errors, int64_t degree, int64_t order,
                         const ComplexNumber* z, const ComplexNumber* inverse);

}  // namespace tallymere
