// PARI as the judge of polynomials: their factors over the rational numbers, and their roots.
// Native only.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/gmp_oracle.h"

namespace tallymere::testing_support {

/// A polynomial with integers as coefficients, index 0 the constant one; the last is not 0.
using IntegerPolynomial = std::vector<Integer>;

/// An irreducible polynomial without a common factor of its coefficients, the last of which is
/// positive, and its exponent.
struct PolynomialFactor {
    IntegerPolynomial polynomial;
    uint64_t multiplicity;
};

/// The factors of a polynomial of degree 1 or more, without the constant one.
std::vector<PolynomialFactor> FactorsOfPolynomial(const IntegerPolynomial& polynomial);

/// All roots, equal ones as often as they are there: both parts to about so many digits, in the
/// form of RealFromPlainText with a space between them. The imaginary part of a real root is "0".
std::vector<std::string> RootsOfPolynomial(const IntegerPolynomial& polynomial, int64_t digits);

}  // namespace tallymere::testing_support
