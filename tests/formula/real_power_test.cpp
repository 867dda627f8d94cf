#include "formula/real_power.h"

#include <gtest/gtest.h>

#include <string_view>

#include "core/real_integer.h"
#include "functions/exponential.h"
#include "functions/powers.h"
#include "support/formula_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

RealBuffer Power(const RealBuffer& a, const RealBuffer& b) {
    RealBuffer result = a;
    const RealBuffer exponent = b;
    RealApplyPower(result, exponent);
    EXPECT_EQ(exponent, b) << "the exponent stays";
    return result;
}

RealBuffer Power(std::string_view a, std::string_view b) {
    return Power(RealBuffer(a), RealBuffer(b));
}

TEST(RealPowers, OfTwoAndTenWithIntegerExponentsAreExact) {
    PrecisionScope scope(20);
    EXPECT_EQ(Power("2", "10"), RealBuffer("1024"));
    EXPECT_EQ(Power("2", "-3"), RealBuffer("0.125"));
    EXPECT_EQ(Power("2", "0"), RealBuffer("1"));
    EXPECT_EQ(Power("2", "-0"), RealBuffer("1"));
    EXPECT_EQ(Power("10", "0"), RealBuffer("1"));
    EXPECT_EQ(Power("10", "123456789"), RealBuffer("1e123456789"));
    EXPECT_EQ(Power("10", "-123456789"), RealBuffer("1e-123456789"));
}

TEST(RealPowers, OfTenReachTheEndsOfTheRange) {
    PrecisionScope scope(20);
    EXPECT_EQ(Power("10", "4611686018427387903"), RealBuffer("1e4611686018427387903"));
    EXPECT_EQ(Power("10", "-4611686018427387903"), RealBuffer("1e-4611686018427387903"));
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    for (const char* b : {"4611686018427387904", "9223372036854775807", "1e19"}) {
        EXPECT_EQ(Power("10", b), RealBuffer("inf")) << b;
        EXPECT_EQ(TakeCode(), CalcErrorOverflow) << b;
    }
    for (const char* b : {"-4611686018427387904", "-9223372036854775808", "-1e19"}) {
        EXPECT_EQ(Power("10", b), RealBuffer("0")) << b;
        EXPECT_EQ(TakeCode(), CalcErrorNone) << b;
    }
}

TEST(RealPowers, WithIntegerExponentsMultiply) {
    PrecisionScope scope(20);
    EXPECT_EQ(Power("3", "4"), RealBuffer("81"));
    EXPECT_EQ(Power("-2", "3"), RealBuffer("-8"));
    EXPECT_EQ(Power("-10", "2"), RealBuffer("100"));
    EXPECT_EQ(Power("1.5", "2"), RealBuffer("2.25"));
    EXPECT_EQ(Power("4", "-1"), RealBuffer("0.25"));
    EXPECT_EQ(Power("0", "0"), RealBuffer("1"));
    EXPECT_EQ(Power("-0", "3"), RealBuffer("-0"));
    EXPECT_EQ(Power("1", "-9223372036854775808"), RealBuffer("1"));
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    EXPECT_EQ(Power("0", "-1"), RealBuffer("nan"));
    EXPECT_EQ(TakeCode(), CalcErrorUndefined);
    EXPECT_EQ(Power("7", "9223372036854775807"), RealBuffer("inf"));
    EXPECT_EQ(TakeCode(), CalcErrorOverflow);
}

// One way of computing is one routine, with the guard digits that belong to it.
TEST(RealPowers, AreTheRoutinesOfTheirKind) {
    RandomSource random;
    for (const int64_t p : {1, 3, 19, 20, 38, 57, 100}) {
        PrecisionScope scope(p);
        const int rounds = TestRounds(200);
        for (int i = 0; i < rounds; i++) {
            RealBuffer x;
            RealBuffer y;
            FillReal(random, x, 3);
            FillReal(random, y, 3);
            RealSetSign(x, 0);
            RealBuffer expected;
            const int64_t n = random.Between(-300, 300);
            RealBuffer exponent;
            RealFromInt(exponent, n);
            int64_t readBack = 0;
            if (RealToInt(&readBack, exponent, IntegerExact)) {
                RealPowerOfTwoRounded(expected, readBack);
                EXPECT_EQ(Power(RealBuffer("2"), exponent), expected);
                RealPowerIntRounded(expected, x, readBack);
                EXPECT_EQ(Power(x, exponent), expected);
                RealSetSign(x, 1);
                RealPowerIntRounded(expected, x, readBack);
                EXPECT_EQ(Power(x, exponent), expected);
                RealSetSign(x, 0);
            }
            if (RealToInt(&readBack, y, IntegerExact)) {
                continue;
            }
            RealExp2Rounded(expected, y);
            EXPECT_EQ(Power(RealBuffer("2"), y), expected);
            RealExp10Rounded(expected, y);
            EXPECT_EQ(Power(RealBuffer("1e1"), y), expected);
            int64_t base = 0;
            if (RealToInt(&base, x, IntegerExact) && (base == 2 || base == 10)) {
                continue;  // the last digit may differ
            }
            RealPowerRounded(expected, x, y);
            EXPECT_EQ(Power(x, y), expected);
        }
        TakeCode();
    }
}

TEST(RealPowers, WithOtherExponentsNeedAPositiveBase) {
    PrecisionScope scope(20);
    EXPECT_EQ(Power("4", "0.5"), RealBuffer("2"));
    EXPECT_EQ(Power("4", "-0.5"), RealBuffer("0.5"));
    EXPECT_EQ(Power("0", "0.5"), RealBuffer("0"));
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    for (const char* base : {"-8", "-2", "-10"}) {
        EXPECT_EQ(Power(base, "0.33333333333333333333"), RealBuffer("nan"));
        EXPECT_EQ(TakeCode(), CalcErrorUndefined) << base;
    }
}

// Integers beyond 64 bits with sign go through the logarithm, so a negative base still has powers.
TEST(RealPowers, WithIntegersBeyondTheMachineGoThroughTheLogarithm) {
    PrecisionScope scope(20);
    EXPECT_EQ(Power("-1", "9223372036854775808"), RealBuffer("1"));
    EXPECT_EQ(Power("-1", "9223372036854775809"), RealBuffer("-1"));
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    EXPECT_EQ(Power("2", "9223372036854775808"),
              RealBuffer("1.380932297980054265e2776511644261678566"));
}

TEST(RealPowers, BindFromRightToLeftInFormulas) {
    FormulaScope scope;
    EXPECT_EQ(Evaluate(u"2^3^2"), Value("512"));
    EXPECT_EQ(Evaluate(u"-2^2"), Value("-4"));
    EXPECT_EQ(Evaluate(u"(-2)^2"), Value("4"));
    EXPECT_EQ(Evaluate(u"2^(-1)"), Value("0.5"));
    EXPECT_EQ(Evaluate(u"2*3^2"), Value("18"));
    EXPECT_EQ(Evaluate(u"10^(-3)*2"), Value("0.002"));
    EXPECT_EQ(Evaluate(u"0^(-1)+1"), Failure(FormulaErrorOperationFailed, 7, 1));
    EXPECT_EQ(Evaluate(u"(-8)^(1/3)"), Failure(FormulaErrorOperationFailed, 11, 0));
}

}  // namespace
}  // namespace tallymere
