// The arithmetic of polynomials on the records of each number type, step by step as it is promised;
// the results must be the same word for word, with the same outcomes.
#pragma once

#include <vector>

#include "algebra/polynomial_arithmetic.h"

namespace tallymere::reference {

/// One value in words, of the number type in force; PolyCoefficients of them, the constant first.
using TwinValue = std::vector<uint64_t>;
using TwinPolynomial = std::vector<TwinValue>;

TwinPolynomial TwinSum(const TwinPolynomial& a, const TwinPolynomial& b, bool subtract,
                       int64_t digits);

/// The terms that were added before DegreeTooHigh are not looked at.
PolyOutcome TwinProduct(TwinPolynomial& product, const TwinPolynomial& a, const TwinPolynomial& b,
                        int64_t digits);

PolyOutcome TwinQuotient(TwinPolynomial& quotient, TwinPolynomial& remainder,
                         const TwinPolynomial& a, const TwinPolynomial& b, int64_t digits);

PolyOutcome TwinPower(TwinPolynomial& power, const TwinPolynomial& a, uint64_t exponent,
                      int64_t digits);

}  // namespace tallymere::reference
