// What is known of the result of a calculation with polynomials before any of its digits is: how
// large the terms are that make it up, and which numbers it can be.
#pragma once

#include <cstdint>

#include "algebra/magnitude.h"
#include "algebra/polynomial_calculation.h"

namespace tallymere {

/// Exponents that the bounds can be found for. A quotient adds up a hundred of them, within 64
/// bits.
inline constexpr int64_t MaxBoundedExponent = 10'000'000'000'000'000;

/// Of each part of a true coefficient N / D.
struct CoefficientBounds {
    Magnitude size;           ///< the sum of the sizes of the terms; 0 for a coefficient that is 0
    PartSizes carried;        ///< what the errors of the operands leave each part off, at most
    int64_t numeratorGrid;    ///< N is a multiple of 10 to that power
    int64_t denominatorGrid;  ///< D likewise
    int64_t denominatorExponent;  ///< |D| <= 10 to that power; D is 1 but in quotients
};

struct PolynomialBounds {
    CoefficientBounds result[PolyCoefficients];
    CoefficientBounds remainder[PolyCoefficients];
};

/// True when all parts of the operands are finite, with exponents within MaxBoundedExponent.
bool OperandsAreBounded(const PolyCalculation& calculation);

/// The bounds of a calculation in real or cplx whose operands are bounded and all taken. The
/// divisor of a quotient is not 0. Parts that are 0 have no error, and others are larger than
/// theirs. Sizes are those of |x| + |y|. Method: the operation itself, on sizes, and on errors: a
/// product a * b is off by |a| times the error of b, and so on; quotients by powers of the highest
/// coefficient of the divisor, which in cplx are made real.
PolynomialBounds FindPolynomialBounds(const PolyCalculation& calculation);

}  // namespace tallymere
