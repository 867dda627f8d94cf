// What tests of exact roots share: polynomials with memory of their own.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "algebra/exact_polynomial.h"
#include "numtheory/factorize_number.h"
#include "support/equation_testing.h"
#include "support/exact_testing.h"
#include "support/rational_testing.h"

namespace tallymere::testing_support {

/// Works at a precision and at the width of exact equations for its life.
struct EquationScope {
    explicit EquationScope(int64_t precision, int64_t limbs = FactorLimbs)
        : real(precision), width(limbs) {}
    PrecisionScope real;
    WidthScope width;
};

/// The decimal text of a number up to 2^192 as UintTextOf reads it, whatever the width in force.
inline std::string LongText(std::string_view plainText) {
    WidthScope scope(3);
    return UintTextOf(plainText);
}

/// A polynomial of the width in force at its making.
class PolynomialBuffer {
public:
    /// The coefficients from the highest down, in the form of RationalFromPlainText.
    explicit PolynomialBuffer(const std::vector<std::string>& coefficients)
        : records_(coefficients.rbegin(), coefficients.rend()) {
        Point();
    }
    /// Filled with junk.
    explicit PolynomialBuffer(int64_t degree) : records_(static_cast<size_t>(degree) + 1) {
        Point();
    }
    PolynomialBuffer(const PolynomialBuffer&) = delete;
    PolynomialBuffer& operator=(const PolynomialBuffer&) = delete;

    operator ExactPolynomial&() { return polynomial_; }
    operator const ExactPolynomial&() const { return polynomial_; }

    /// The coefficients from the highest down, with a space between them.
    std::string Text() const {
        std::string text;
        for (int64_t i = polynomial_.degree; i >= 0; i--) {
            text += RationalPlainText(polynomial_.coefficients[i]) + (i > 0 ? " " : "");
        }
        return text;
    }

private:
    void Point() {
        polynomial_.degree = static_cast<int64_t>(records_.size()) - 1;
        for (size_t i = 0; i < records_.size(); i++) {
            polynomial_.coefficients[i] = records_[i];
        }
    }

    std::vector<RationalBuffer> records_;
    ExactPolynomial polynomial_{};
};

using Lines = std::vector<std::string>;

}  // namespace tallymere::testing_support
