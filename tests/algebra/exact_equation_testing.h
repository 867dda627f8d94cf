// What tests of exact roots share: polynomials and solutions with memory of their own.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "algebra/exact_polynomial.h"
#include "algebra/solution_set.h"
#include "numtheory/factorize_number.h"
#include "support/complex_testing.h"
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

/// Solutions of the precision in force at their making, with memory for MaxEquationDegree roots.
class SolutionBuffer {
public:
    /// No roots.
    SolutionBuffer() : values_(MaxEquationDegree), texts_(MaxEquationDegree) {
        for (size_t i = 0; i < values_.size(); i++) {
            texts_[i].assign(size_t{ExactTextCapacity} + 2, u'#');
            texts_[i][0] = u'\0';
            solutions_.values[i] = values_[i];
            solutions_.exactTexts[i] = texts_[i].data();
            solutions_.multiplicities[i] = 1;
        }
    }
    /// Roots with these values, in the form of ComplexBuffer, and without texts.
    explicit SolutionBuffer(const std::vector<std::string>& values) : SolutionBuffer() {
        for (const std::string& value : values) {
            const size_t i = static_cast<size_t>(solutions_.count++);
            values_[i] = ComplexBuffer(value);
            solutions_.values[i] = values_[i];
        }
    }
    ~SolutionBuffer() {
        for (const std::u16string& text : texts_) {
            EXPECT_EQ(text.back(), u'#');
        }
    }
    SolutionBuffer(const SolutionBuffer&) = delete;
    SolutionBuffer& operator=(const SolutionBuffer&) = delete;

    operator SolutionSet&() { return solutions_; }
    int64_t Count() const { return solutions_.count; }
    int64_t Multiplicity(int64_t i) const { return solutions_.multiplicities[i]; }
    const ComplexNumber* Value(int64_t i) const { return solutions_.values[i]; }

    /// The exact text, as plain text.
    std::string Text(int64_t i) const {
        const std::u16string_view text = solutions_.exactTexts[i];
        return std::string(text.begin(), text.end());
    }

    /// "text = value" of each root, and " [multiplicity]" if that is not 1. The value is as
    /// PlainText shows it.
    std::vector<std::string> Lines() const {
        std::vector<std::string> lines;
        for (int64_t i = 0; i < solutions_.count; i++) {
            const std::string multiplicity =
                Multiplicity(i) == 1 ? "" : " [" + std::to_string(Multiplicity(i)) + "]";
            lines.push_back(Text(i) + " = " + PlainText(Value(i)) + multiplicity);
        }
        return lines;
    }

private:
    std::vector<ComplexBuffer> values_;
    std::vector<std::u16string> texts_;
    SolutionSet solutions_{};
};

using Lines = std::vector<std::string>;

}  // namespace tallymere::testing_support
