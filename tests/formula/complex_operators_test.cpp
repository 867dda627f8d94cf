#include "formula/complex_operators.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "formula/operation_dispatch.h"
#include "formula/real_power.h"
#include "support/complex_testing.h"
#include "support/formula_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

ComplexBuffer Make(std::string_view realPart, std::string_view imaginaryPart) {
    return {RealBuffer(realPart), RealBuffer(imaginaryPart)};
}

// a (operator) b as text.
std::string Apply(OperatorId id, ComplexBuffer a, const ComplexBuffer& b) {
    const ComplexBuffer right = b;
    FormulaEvaluator evaluator{};
    ApplyBinaryOperator(evaluator, id, a.Words(), right.Words());
    EXPECT_EQ(right, b) << "the right operand stays";
    return PlainText(RealPart(a)) + ", " + PlainText(ImaginaryPart(a));
}

class ComplexOperators : public ::testing::Test {
protected:
    FormulaScope scope_{20, NumberTypeComplex};
};

TEST_F(ComplexOperators, AddAndSubtractByParts) {
    EXPECT_EQ(Apply(OperatorId::Add, Make("1.5", "2"), Make("-4", "0.5")), "-2.5e0, 2.5e0");
    EXPECT_EQ(Apply(OperatorId::Subtract, Make("1.5", "2"), Make("-4", "2")), "5.5e0, 0");
}

TEST_F(ComplexOperators, MultiplyAndDivide) {
    EXPECT_EQ(Apply(OperatorId::Multiply, Make("1", "2"), Make("3", "4")), "-5e0, 1e1");
    EXPECT_EQ(Apply(OperatorId::Divide, Make("-5", "10"), Make("3", "4")), "1e0, 2e0");
    EXPECT_EQ(Apply(OperatorId::Divide, Make("1", "0"), Make("0", "1")), "0, -1e0");
    EXPECT_EQ(Apply(OperatorId::Multiply, Make("1.5", "0"), Make("2.5", "0")), "3.75e0, 0");
    EXPECT_EQ(Apply(OperatorId::Divide, Make("1", "0"), Make("0.75", "0")),
              "1.3333333333333333333e0, 0");
}

TEST_F(ComplexOperators, TakeTheSmallWayWithARealIntegerOnEitherSide) {
    EXPECT_EQ(Apply(OperatorId::Multiply, Make("3", "0"), Make("1.5", "-2")), "4.5e0, -6e0");
    EXPECT_EQ(Apply(OperatorId::Multiply, Make("1.5", "-2"), Make("-3", "0")), "-4.5e0, 6e0");
    EXPECT_EQ(Apply(OperatorId::Divide, Make("1", "-3"), Make("-4", "-0")), "-2.5e-1, 7.5e-1");
    EXPECT_EQ(Apply(OperatorId::Divide, Make("1", "1"), Make("3", "0")),
              "3.3333333333333333333e-1, 3.3333333333333333333e-1");
    EXPECT_EQ(Apply(OperatorId::Divide, Make("2", "-5"), Make("3", "0")),
              "6.6666666666666666667e-1, -1.6666666666666666667e0")
        << "both parts rounded";
    // Zeros tell the ways apart: the full product would have +0 - (-0) for a real part.
    EXPECT_EQ(Apply(OperatorId::Multiply, Make("-0", "0"), Make("0", "1")), "-0, -0");
    EXPECT_EQ(Apply(OperatorId::Multiply, Make("2", "1e-9"), Make("0", "1")), "-1e-9, 2e0")
        << "not real, so no small operand";
}

// The small way multiplies by the magnitude and then negates the whole value, and with it the zero
// of a real product.
TEST_F(ComplexOperators, NegateTheZeroBesideARealProductOfANegativeInteger) {
    EXPECT_EQ(Apply(OperatorId::Multiply, Make("-2", "0"), Make("3.5", "0")), "-7e0, -0");
    EXPECT_EQ(Apply(OperatorId::Divide, Make("7", "0"), Make("-2", "0")), "-3.5e0, -0");
    EXPECT_EQ(Apply(OperatorId::Multiply, Make("2", "0"), Make("3.5", "-0")), "7e0, 0");
    // Of two integers the left one is the factor.
    EXPECT_EQ(Apply(OperatorId::Multiply, Make("2", "0"), Make("-3", "0")), "-6e0, 0");
    EXPECT_EQ(Apply(OperatorId::Multiply, Make("-2", "0"), Make("3", "0")), "-6e0, -0");
}

TEST_F(ComplexOperators, DivideByZero) {
    EXPECT_EQ(Apply(OperatorId::Divide, Make("6", "0"), Make("0", "0")), "inf, 0");
    EXPECT_EQ(TakeCode(), CalcErrorOverflow);
    EXPECT_EQ(Apply(OperatorId::Divide, Make("6", "-1"), Make("0", "0")), "inf, -inf");
    EXPECT_EQ(TakeCode(), CalcErrorOverflow);
    EXPECT_EQ(Apply(OperatorId::Divide, Make("0", "0"), Make("0", "0")), "nan, 0");
    EXPECT_EQ(TakeCode(), CalcErrorUndefined);
}

TEST_F(ComplexOperators, TakeRemaindersOfRealValues) {
    EXPECT_EQ(Apply(OperatorId::Mod, Make("7", "-0"), Make("-2", "0")), "-1e0, 0");
    EXPECT_EQ(Apply(OperatorId::Mod, Make("7.5", "0"), Make("2", "0")), "1.5e0, 0");
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    EXPECT_EQ(Apply(OperatorId::Mod, Make("7", "1"), Make("2", "0")), "nan, 0");
    EXPECT_EQ(TakeCode(), CalcErrorComplexNotAllowed);
    EXPECT_EQ(Apply(OperatorId::Mod, Make("7", "0"), Make("2", "1")), "nan, 0");
    EXPECT_EQ(TakeCode(), CalcErrorComplexNotAllowed);
}

TEST_F(ComplexOperators, RaiseRealValuesAsTheTypeRealDoes) {
    EXPECT_EQ(Apply(OperatorId::Power, Make("2", "0"), Make("10", "0")), "1.024e3, 0");
    EXPECT_EQ(Apply(OperatorId::Power, Make("2", "-0"), Make("-3", "-0")), "1.25e-1, 0");
    EXPECT_EQ(Apply(OperatorId::Power, Make("10", "0"), Make("-7", "0")), "1e-7, 0");
    EXPECT_EQ(Apply(OperatorId::Power, Make("-3", "0"), Make("3", "0")), "-2.7e1, 0");
    EXPECT_EQ(Apply(OperatorId::Power, Make("4", "0"), Make("0.5", "0")), "2e0, 0");
    EXPECT_EQ(Apply(OperatorId::Power, Make("2", "0"), Make("0.5", "0")),
              "1.4142135623730950488e0, 0");
    EXPECT_EQ(Apply(OperatorId::Power, Make("10", "0"), Make("0.5", "0")),
              "3.162277660168379332e0, 0");
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    EXPECT_EQ(Apply(OperatorId::Power, Make("-4", "0"), Make("0.5", "0")), "nan, 0");
    EXPECT_EQ(TakeCode(), CalcErrorUndefined);
    EXPECT_EQ(Apply(OperatorId::Power, Make("0", "0"), Make("-1", "0")), "nan, 0");
    EXPECT_EQ(TakeCode(), CalcErrorUndefined);
}

// Digit for digit: each of the ways of that type rounds differently.
TEST_F(ComplexOperators, RaiseRealValuesByTheRoutinesOfTheTypeReal) {
    RandomSource random;
    const int rounds = TestRounds(500);
    for (int i = 0; i < rounds; i++) {
        RealBuffer y;
        FillReal(random, y, 3);
        RealBuffer x;
        FillReal(random, x, 3);
        for (const RealBuffer& base : {RealBuffer("2"), RealBuffer("1e1"), x}) {
            RealBuffer expected = base;
            RealApplyPower(expected, y);
            const CalcError code = TakeCode();
            EXPECT_EQ(Apply(OperatorId::Power, {base, RealBuffer("-0")}, {y, RealBuffer("0")}),
                      PlainText(expected) + ", 0");
            EXPECT_EQ(TakeCode(), code);
        }
    }
}

TEST_F(ComplexOperators, RaiseOtherValuesToIntegers) {
    EXPECT_EQ(Apply(OperatorId::Power, Make("1", "2"), Make("2", "0")), "-3e0, 4e0");
    EXPECT_EQ(Apply(OperatorId::Power, Make("1", "2"), Make("0", "0")), "1e0, 0");
    EXPECT_EQ(Apply(OperatorId::Power, Make("0", "1"), Make("-1", "0")), "0, -1e0");
    EXPECT_EQ(Apply(OperatorId::Power, Make("2", "1"), Make("3", "0")), "2e0, 1.1e1");
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    for (const char* exponent : {"0.5", "9223372036854775808", "1e30"}) {
        EXPECT_EQ(Apply(OperatorId::Power, Make("1", "2"), Make(exponent, "0")), "nan, 0");
        EXPECT_EQ(TakeCode(), CalcErrorUndefined) << exponent;
    }
}

TEST_F(ComplexOperators, RefuseExponentsThatAreNotReal) {
    for (const char* base : {"2", "10", "3", "0.5"}) {
        for (const char* imaginaryPart : {"0", "1"}) {
            for (const char* exponent : {"2", "0.5"}) {
                EXPECT_EQ(Apply(OperatorId::Power, Make(base, imaginaryPart), Make(exponent, "1")),
                          "nan, 0");
                EXPECT_EQ(TakeCode(), CalcErrorComplexNotAllowed);
            }
        }
    }
}

// Formulas in cplx.

TEST_F(ComplexOperators, AreReadInFormulas) {
    EXPECT_EQ(Evaluate(u"(1+2i)*(3+4i)"), Value("-5", "10"));
    EXPECT_EQ(Evaluate(u"1/i"), Value("0", "-1"));
    EXPECT_EQ(Evaluate(u"i^2"), Value("-1", "0"));
    EXPECT_EQ(Evaluate(u"-2i"), Value("-0", "-2"));
    EXPECT_EQ(Evaluate(u"2-3i"), Value("2", "-3"));
    EXPECT_EQ(Evaluate(u"(1+2)i"), Value("0", "3"));
    EXPECT_EQ(Evaluate(u"1.5e1i"), Value("0", "15"));
    EXPECT_EQ(Evaluate(u"1'000.5i-2'000"), Value("-2000", "1000.5"));
    EXPECT_EQ(Evaluate(u"2i^2"), Value("-4", "0")) << "i belongs to its number";
    EXPECT_EQ(Evaluate(u"pi i"), Value("0", "3.1415926535897932385"));
    EXPECT_EQ(Evaluate(u"sqrt(4)i"), Value("0", "2"));
    EXPECT_EQ(Evaluate(u"x i", {{u"x", u"2"}}), Value("0", "2"));
    EXPECT_EQ(Evaluate(u"x*x", {{u"x", u"1-2i"}}), Value("-3", "-4"));
}

TEST_F(ComplexOperators, FailWithTheErrorsOfFormulas) {
    EXPECT_EQ(Evaluate(u"(1+i)i"), Failure(FormulaErrorBadNumber, 6, 1));
    EXPECT_EQ(Evaluate(u"2^3i"), Failure(FormulaErrorOperationFailed, 5, 0));
    EXPECT_EQ(Evaluate(u"(1+i) mod 2+1"), Failure(FormulaErrorOperationFailed, 12, 1));
    EXPECT_EQ(Evaluate(u"exp(1+i)"), Failure(FormulaErrorOperationFailed, 8, 1));
    EXPECT_EQ(Evaluate(u"(1+i)/0"), Failure(FormulaErrorOperationFailed, 8, 0));
    EXPECT_EQ(Evaluate(u"(1+i)^0.5"), Failure(FormulaErrorOperationFailed, 10, 0));
    EXPECT_EQ(Evaluate(u"0x1F"), Failure(FormulaErrorBadNumber, 1, 4));
    EXPECT_EQ(Evaluate(u"1e99999999999999999999"), Failure(FormulaErrorBadNumber, 1, 22));
    EXPECT_EQ(Evaluate(u"x", {{u"x", u"exp(i)"}}), Failure(FormulaErrorVariableFailed, 1, 1));
}

}  // namespace
}  // namespace tallymere
