// What polynomials are called. LabelOfCoefficient in equation_run.h names their coefficients.
#pragma once

#include <cstdint>

#include "algebra/polynomial_calculation.h"
#include "core/contract.h"

namespace tallymere {

/// The name of a polynomial, 0 to MaxPolynomials - 1, such as "P1(x)".
struct PolynomialName {
    char16_t text[7];
};
constexpr PolynomialName NameOfPolynomial(int32_t polynomial) {
    TALLYMERE_REQUIRE(polynomial >= 0 && polynomial < MaxPolynomials);
    const auto ones = static_cast<char16_t>(u'0' + polynomial % 10);
    return polynomial < 10 ? PolynomialName{{u'P', ones, u'(', u'x', u')'}}
                           : PolynomialName{{u'P', static_cast<char16_t>(u'0' + polynomial / 10),
                                             ones, u'(', u'x', u')'}};
}

}  // namespace tallymere
