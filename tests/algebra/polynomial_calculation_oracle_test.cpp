// Random calculations with polynomials, against exact fractions of GMP: every digit is right.
//
// TALLYMERE_POLYNOMIAL_ROUNDS asks for so many rounds of each operation, such as 100000.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "algebra/polynomial_exact_oracle.h"
#include "algebra/polynomial_random.h"

namespace tallymere {
namespace {

using namespace testing_support;

int Rounds(int usual) {
    const char* wanted = std::getenv("TALLYMERE_POLYNOMIAL_ROUNDS");
    return wanted == nullptr ? TestRounds(usual) : std::atoi(wanted);
}

// Makes an operand that cancels against an earlier one: its coefficients once more, the other way
// round, with changed signs.
void FillWithEcho(RandomSource& random, PolyNumbers& dest, const PolyNumbers& source,
                  int64_t degree) {
    ClearPolynomial(dest);
    for (int64_t i = 0; i <= degree; i++) {
        const int64_t from = random.Below(8) == 0 ? i : degree - i;
        ValueCopy(dest.coefficients[i], source.coefficients[from]);
        if (i % 2 == 0) {
            ValueNegate(dest.coefficients[i], dest.coefficients[i]);
        }
    }
}

// A dividend whose quotient by the divisor is a polynomial of few terms, but for the rounding of
// its coefficients and, now and then, a remainder.
void FillWithMultiple(RandomSource& random, PolyNumbers& dest, const PolyNumbers& divisor) {
    ScratchStackScope scope;
    PolyNumbers cofactor = AllocPolynomial(scope);
    const int64_t degree = std::max(PolyDegree(divisor), 0);
    FillPolynomial(random, cofactor, random.Between(0, std::min<int64_t>(20 - degree, 4)));
    MultiplyPolynomials(dest, divisor, cofactor, numberContext.precisionDigits);
    if (random.Below(3) == 0) {
        SetValue(dest.coefficients[0], RandomValue(random));
    }
}

struct Figures {
    int64_t parts = 0;
    int64_t plainlyWrong = 0;  // parts that the plain way has not right
};

void CheckParts(Figures& figures, const PolyNumbers& found, const ExactPoly& plain,
                const ExactPoly& exact, int64_t digits) {
    const bool rounds = !ValuesAreExact();
    const ExactPoly got = ExactOf(found);
    const auto check = [&](const mpq_class& part, const mpq_class& before, const mpq_class& value) {
        const mpq_class expected = rounds ? RoundedTo(value, digits) : value;
        figures.parts++;
        figures.plainlyWrong += before != expected ? 1 : 0;
        ASSERT_TRUE(part == expected) << part.get_d() << " for " << expected.get_d();
    };
    for (size_t i = 0; i < got.size(); i++) {
        check(got[i].re, plain[i].re, exact[i].re);
        check(got[i].im, plain[i].im, exact[i].im);
    }
}

std::string Describe(const PolyCalculation& calculation) {
    std::string text = "operator " + std::to_string(static_cast<int>(calculation.operation));
    for (int32_t k = 0; k < calculation.count; k++) {
        text += "\n" + PolynomialText(calculation.operands[k]);
    }
    return text;
}

// One calculation with random operands, some of which cancel.
void CheckOne(RandomSource& random, Figures& figures, PolyOperator operation, int64_t digits) {
    ScratchStackScope scope;
    const bool takesTwo = operation == PolyOperator::Divide || operation == PolyOperator::Power;
    const auto count =
        static_cast<int32_t>(takesTwo || random.Below(3) != 0 ? 2 : random.Between(3, 12));
    const bool isExact = ValuesAreExact();
    int64_t most = operation == PolyOperator::Times ? MaxPolyDegree / count
                   : isExact && takesTwo            ? 5
                                                    : MaxPolyDegree;
    if (random.Below(4) != 0) {
        most = std::min<int64_t>(most, 4);
    }
    PolyCalculation calculation = TakePolyCalculation(scope, operation, count, digits);
    PolyNumbers divisor = AllocPolynomial(scope);
    FillPolynomial(random, divisor, random.Between(0, most));
    if (PolyDegree(divisor) < 0) {
        ValueFromUnsigned(divisor.coefficients[0], 3);
    }
    uint64_t exponent = 0;
    for (int32_t k = 0; k < count; k++) {
        PolyNumbers& operand = NextOperand(calculation);
        const int64_t degree = random.Between(0, most);
        if (operation == PolyOperator::Power && k == 1) {
            ClearPolynomial(operand);
            const int32_t base = std::max(PolyDegree(calculation.operands[0]), 1);
            exponent = random.Below(static_cast<uint64_t>(20 / base) + 1);
            ValueFromUnsigned(operand.coefficients[0], exponent);
        } else if (operation == PolyOperator::Divide && k == 1) {
            CopyPolynomial(operand, divisor);
        } else if (operation == PolyOperator::Divide && random.Below(2) == 0) {
            FillWithMultiple(random, operand, divisor);
        } else if (k > 0 && random.Below(2) == 0) {
            FillWithEcho(random, operand, calculation.operands[0],
                         std::max(PolyDegree(calculation.operands[0]), 0));
        } else {
            FillPolynomial(random, operand, degree);
        }
        ASSERT_EQ(ApplyOperand(calculation), PolyOutcome::Done);
    }
    const ExactPoly plain = ExactOf(calculation.result);
    const ExactPoly plainRemainder = ExactOf(calculation.remainder);
    ASSERT_EQ(RefinePolynomials(calculation), PolyOutcome::Done);
    ASSERT_EQ(TakeCode(), CalcErrorNone);
    const ExactResult exact = ExactCalculation(calculation);
    CheckParts(figures, calculation.result, plain, exact.result, digits);
    if (operation == PolyOperator::Divide) {
        CheckParts(figures, calculation.remainder, plainRemainder, exact.remainder, digits);
    }
    if (testing::Test::HasFatalFailure()) {
        ADD_FAILURE() << Describe(calculation);
    }
}

void CheckMany(NumberType type, int64_t digits, int rounds) {
    for (const PolyOperator operation : PolyOperators) {
        FormulaScope scope =
            type == NumberTypeRational ? FormulaScope(type, 26) : FormulaScope(digits + 3, type);
        RandomSource random;
        Figures figures;
        for (int i = 0; i < rounds && !testing::Test::HasFailure(); i++) {
            CheckOne(random, figures, operation, digits);
        }
        EXPECT_GT(figures.parts, 0);
        if (rounds >= 200) {
            std::printf("operator %d: of %lld parts the plain way has %lld wrong\n",
                        static_cast<int>(operation), static_cast<long long>(figures.parts),
                        static_cast<long long>(figures.plainlyWrong));
        }
    }
}

TEST(PolynomialCalculationOracle, HasTheRealDigits) {
    CheckMany(NumberTypeReal, 10, Rounds(400));
}

TEST(PolynomialCalculationOracle, HasTheComplexDigits) {
    CheckMany(NumberTypeComplex, 10, Rounds(200));
}

TEST(PolynomialCalculationOracle, HasTheFractions) {
    CheckMany(NumberTypeRational, 10, Rounds(200));
}

TEST(PolynomialCalculationOracle, HasTheDigitsOfEveryPrecision) {
    for (const int64_t digits : {5, 6, 16, 17, 35, 38, 100}) {
        SCOPED_TRACE(digits);
        CheckMany(NumberTypeReal, digits, TestRounds(60));
        CheckMany(NumberTypeComplex, digits, TestRounds(30));
    }
}

}  // namespace
}  // namespace tallymere
