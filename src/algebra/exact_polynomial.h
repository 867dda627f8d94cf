// Polynomials with fractions as coefficients, and their exact division by a factor x - root.
#pragma once

#include <cstdint>

#include "algebra/solution_set.h"
#include "core/scratch.h"
#include "exact/rational_number.h"

namespace tallymere {

/// Coefficients of the width in force, index 0 being the constant one. The memory is the caller's.
struct ExactPolynomial {
    int64_t degree;  ///< 0 to MaxEquationDegree
    RationalNumber* coefficients[MaxEquationDegree + 1];
};

/// True when the degree is in its range, the coefficients up to it are well-formed and in lowest
/// terms, and the highest of them is not 0.
bool ExactPolynomialIsWellFormed(const ExactPolynomial& polynomial);

/// A polynomial of that degree with its memory from the scope; the coefficients are undefined.
ExactPolynomial TakeExactPolynomial(ScratchScope& scratch, int64_t degree);

/// dest = a multiple of the polynomial whose coefficients are integers, and returns true. dest has
/// memory for the degree; its coefficients are apart from those of the polynomial. Returns false
/// when a coefficient does not fit; dest has no meaning then. CalcError is as before.
bool ClearDenominators(ExactPolynomial& dest, const ExactPolynomial& polynomial);

/// True when root is a root of the polynomial, of degree 1 or more. quotient is then the polynomial
/// divided by x - root. Otherwise, and where a coefficient does not fit, the result is false and
/// quotient has no meaning. quotient has memory for the degree of the polynomial, apart from it.
/// CalcError is as before, so that an attempt that fails leaves no trace.
/// Method: synthetic division.
bool DeflateByRoot(ExactPolynomial& quotient, const ExactPolynomial& polynomial,
                   const RationalNumber* root);

}  // namespace tallymere
