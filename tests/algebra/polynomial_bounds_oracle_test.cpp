// The bounds of calculations with polynomials against exact fractions of GMP: they hold for the
// true result, and for what it becomes when the operands are off as far as they may be.
#include "algebra/polynomial_bounds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "algebra/polynomial_exact_oracle.h"
#include "algebra/polynomial_random.h"

namespace tallymere {
namespace {

using namespace testing_support;

mpq_class ExactOf(Magnitude a) {
    return mpq_class(a.mantissa) * TenTo(a.exponent);
}

// With the margin that a bound needs.
mpq_class Most(Magnitude a) {
    return ExactOf(a) * (1 + mpq_class(MagnitudeMargin));
}

void ExpectAtMost(const mpq_class& value, const mpq_class& bound) {
    EXPECT_TRUE(abs(value) <= bound) << value.get_d() << " with the bound " << bound.get_d();
}

bool IsMultiple(const mpq_class& value, int64_t grid) {
    return value == 0 || mpq_class(value * TenTo(-grid)).get_den() == 1;
}

class BoundsCheck {
public:
    BoundsCheck(RandomSource& random, PolyOperator operation)
        : random_(random), operation_(operation) {}

    void CheckOne() {
        ScratchStackScope scope;
        const bool takesTwo =
            operation_ == PolyOperator::Divide || operation_ == PolyOperator::Power;
        const auto count = static_cast<int32_t>(takesTwo ? 2 : random_.Between(2, 4));
        const int64_t most = operation_ == PolyOperator::Times ? MaxPolyDegree / count : 6;
        PolyCalculation calculation = TakePolyCalculation(scope, operation_, count, 10);
        for (int32_t k = 0; k < count; k++) {
            PolyNumbers& operand = NextOperand(calculation);
            FillPolynomial(random_, operand, random_.Between(0, most));
            if (operation_ == PolyOperator::Power && k == 1) {
                ClearPolynomial(operand);
                ValueFromUnsigned(operand.coefficients[0], random_.Between(1, 3));
            } else {
                ChooseErrors(NextErrors(calculation), operand);
            }
            if (operation_ == PolyOperator::Divide && k == 1 && PolyDegree(operand) < 0) {
                ValueFromUnsigned(operand.coefficients[2], 30);
            }
            ASSERT_EQ(ApplyOperand(calculation), PolyOutcome::Done);
        }
        ASSERT_TRUE(OperandsAreBounded(calculation));
        bounds_ = FindPolynomialBounds(calculation);
        const std::vector<ExactPoly> operands = ExactOperands(calculation);
        const ExactResult exact = Calculate(operands, calculation.exponent);
        CheckSizes(exact.result, bounds_.result);
        CheckSizes(exact.remainder, bounds_.remainder);
        CheckGrids(exact, operands);
        for (int i = 0; i < 3; i++) {
            const ExactResult moved = Calculate(Moved(operands, calculation), calculation.exponent);
            CheckCarried(exact.result, moved.result, bounds_.result);
            CheckCarried(exact.remainder, moved.remainder, bounds_.remainder);
        }
    }

private:
    // Of most parts that are not 0; up to half their size.
    void ChooseErrors(PartSizes* errors, const PolyNumbers& operand) {
        const auto choose = [&](const mpq_class& part) -> Magnitude {
            if (part == 0 || random_.Below(3) == 0) {
                return {};
            }
            const double share = random_.Below(4) == 0 ? 0.5 : 1e-9;
            return MakeMagnitude(share * std::abs(part.get_d()));
        };
        for (size_t i = 0; i < PolyCoefficients; i++) {
            const ExactComplex value = testing_support::ExactOf(operand.coefficients[i]);
            errors[i] = {choose(value.re), choose(value.im)};
        }
    }

    static std::vector<ExactPoly> ExactOperands(const PolyCalculation& calculation) {
        std::vector<ExactPoly> operands;
        for (int32_t k = 0; k < calculation.count; k++) {
            operands.push_back(testing_support::ExactOf(calculation.operands[k]));
        }
        return operands;
    }

    // Operands that are off, often as far as they may be.
    std::vector<ExactPoly> Moved(std::vector<ExactPoly> operands,
                                 const PolyCalculation& calculation) {
        const auto move = [&](mpq_class& part, Magnitude error) {
            const int64_t tenths = random_.Below(2) == 0 ? 10 : random_.Between(0, 10);
            part += ExactOf(error) * mpq_class(random_.Below(2) == 0 ? -tenths : tenths, 10);
        };
        for (size_t k = 0; k < operands.size(); k++) {
            for (size_t i = 0; i < PolyCoefficients; i++) {
                const PartSizes& errors = calculation.errors[k][i];
                move(operands[k][i].re, errors.real);
                move(operands[k][i].im, errors.imaginary);
            }
        }
        return operands;
    }

    ExactResult Calculate(const std::vector<ExactPoly>& operands, uint64_t exponent) const {
        ExactResult exact;
        if (operation_ == PolyOperator::Divide) {
            ExactDivision(exact, operands[0], operands[1]);
            return exact;
        }
        exact.result = operands[0];
        if (operation_ == PolyOperator::Power) {
            for (uint64_t k = 1; k < exponent; k++) {
                exact.result = ExactProduct(exact.result, operands[0]);
            }
            return exact;
        }
        for (size_t k = 1; k < operands.size(); k++) {
            if (operation_ == PolyOperator::Times) {
                exact.result = ExactProduct(exact.result, operands[k]);
                continue;
            }
            for (size_t i = 0; i < PolyCoefficients; i++) {
                exact.result[i] = operation_ == PolyOperator::Plus
                                      ? exact.result[i] + operands[k][i]
                                      : exact.result[i] - operands[k][i];
            }
        }
        return exact;
    }

    static void CheckSizes(const ExactPoly& exact, const CoefficientBounds* bounds) {
        for (size_t i = 0; i < PolyCoefficients; i++) {
            ExpectAtMost(exact[i].re, Most(bounds[i].size));
            ExpectAtMost(exact[i].im, Most(bounds[i].size));
        }
    }

    static void CheckCarried(const ExactPoly& exact, const ExactPoly& moved,
                             const CoefficientBounds* bounds) {
        for (size_t i = 0; i < PolyCoefficients; i++) {
            const ExactComplex distance = moved[i] - exact[i];
            ExpectAtMost(distance.re, Most(bounds[i].carried.real));
            ExpectAtMost(distance.im, Most(bounds[i].carried.imaginary));
        }
    }

    // `denominator` is what the coefficient was divided by.
    static void CheckGrid(const ExactComplex& exact, const mpq_class& denominator,
                          const CoefficientBounds& bounds) {
        EXPECT_TRUE(IsMultiple(exact.re * denominator, bounds.numeratorGrid));
        EXPECT_TRUE(IsMultiple(exact.im * denominator, bounds.numeratorGrid));
        EXPECT_TRUE(IsMultiple(denominator, bounds.denominatorGrid));
        ExpectAtMost(denominator, TenTo(bounds.denominatorExponent));
    }

    void CheckGrids(const ExactResult& exact, const std::vector<ExactPoly>& operands) const {
        if (operation_ != PolyOperator::Divide) {
            for (size_t i = 0; i < PolyCoefficients; i++) {
                CheckGrid(exact.result[i], 1, bounds_.result[i]);
            }
            return;
        }
        const int degree = DegreeOf(operands[0]);
        const int divisorDegree = DegreeOf(operands[1]);
        const ExactComplex highest = operands[1][static_cast<size_t>(divisorDegree)];
        const mpq_class factor = numberContext.numberType == NumberTypeComplex
                                     ? mpq_class(highest.re * highest.re + highest.im * highest.im)
                                     : highest.re;
        mpq_class denominator = 1;
        for (int k = degree; k >= divisorDegree; k--) {
            denominator *= factor;
            const auto at = static_cast<size_t>(k - divisorDegree);
            CheckGrid(exact.result[at], denominator, bounds_.result[at]);
        }
        for (size_t i = 0; i < PolyCoefficients; i++) {
            CheckGrid(exact.remainder[i], denominator, bounds_.remainder[i]);
        }
    }

    RandomSource& random_;
    PolyOperator operation_;
    PolynomialBounds bounds_{};
};

TEST(PolynomialBoundsOracle, HoldForTrueResults) {
    for (const int64_t precision : {8, 20, 57}) {
        for (const NumberType type : {NumberTypeReal, NumberTypeComplex}) {
            FormulaScope scope(precision, type);
            RandomSource random;
            for (const PolyOperator operation : PolyOperators) {
                SCOPED_TRACE(std::string("operator ") +
                             std::to_string(static_cast<int>(operation)) + ", type " +
                             std::to_string(type) + ", " + std::to_string(precision) + " digits");
                BoundsCheck check(random, operation);
                for (int i = 0; i < TestRounds(15) && !testing::Test::HasFailure(); i++) {
                    check.CheckOne();
                }
            }
        }
    }
}

}  // namespace
}  // namespace tallymere
