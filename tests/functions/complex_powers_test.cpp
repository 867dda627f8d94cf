#include "functions/complex_powers.h"

#include <gtest/gtest.h>

#include <string>

#include "core/complex_arithmetic.h"
#include "functions/powers.h"
#include "support/complex_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

const Outcome Undefined = {"nan 0", CalcErrorUndefined};

Outcome PowerInt(const ComplexBuffer& z, int64_t n) {
    return UnaryOutcome(
        [n](ComplexNumber* dest, const ComplexNumber* x) { ComplexPowerInt(dest, x, n); }, z);
}
Outcome PowerInt(std::string_view z, int64_t n) {
    return PowerInt(ComplexBuffer(z), n);
}

Outcome Power(std::string_view z, std::string_view y) {
    return BinaryOutcome(ComplexPower, ComplexBuffer(z), ComplexBuffer(y));
}

// Without the signs of zeros.
void ExpectEqual(const Outcome& outcome, std::string_view expected) {
    EXPECT_EQ(outcome.code, CalcErrorNone);
    EXPECT_EQ(ComplexCompare(ComplexBuffer(outcome.text), ComplexBuffer(expected)), 0)
        << outcome.text << " is not " << expected;
}

TEST(ComplexPowerInt, TurnsTheUnitByQuarters) {
    const char* expected[] = {"1 0", "0 1", "-1 0", "0 -1"};
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        for (int64_t n = -9; n <= 9; n++) {
            ExpectEqual(PowerInt("0 1", n), expected[n & 3]);
        }
        ExpectEqual(PowerInt("0 1", INT64_MAX), "0 -1");
        ExpectEqual(PowerInt("0 1", INT64_MIN), "1 0");
        ExpectEqual(PowerInt("0 -1", INT64_MIN + 1), "0 -1");
    }
}

TEST(ComplexPowerInt, IsExactWhereEveryProductFits) {
    for (int64_t p : {16, 19, 20, 38, 100, 1000, 10005}) {
        PrecisionScope scope(p);
        int64_t x = 1;
        int64_t y = 0;
        for (int64_t n = 0; n <= 20; n++) {
            ExpectEqual(PowerInt("2 -3", n), std::to_string(x) + " " + std::to_string(y));
            const int64_t next = 2 * x + 3 * y;
            y = 2 * y - 3 * x;
            x = next;
        }
        ExpectEqual(PowerInt("1 1", -2), "0 -0.5");
        ExpectEqual(PowerInt("1 1", -3), "-0.25 -0.25");
    }
}

TEST(ComplexPowerInt, GoesByTheRealPowerForRealValues) {
    RandomSource random;
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        for (int round = TestRounds(p > 100 ? 3 : 50); round > 0 && !HasFailure(); round--) {
            RealBuffer x;
            FillReal(random, x, 3);
            const int64_t n = random.Between(-200, 200);
            const ComplexBuffer z(x, RealBuffer(random.Below(2) == 0 ? "0" : "-0"));
            RealBuffer power;
            RealPowerIntRounded(power, x, n);
            EXPECT_EQ(PowerInt(z, n), Silent(PlainText(power) + " 0"));
        }
        EXPECT_EQ(PowerInt("0 0", -1), Undefined);
        EXPECT_EQ(PowerInt("0 -0", 0), Silent("1e0 0"));
        EXPECT_EQ(PowerInt("-0 0", 3), Silent("-0 0"));
        EXPECT_EQ(PowerInt("inf 0", 0), Undefined);
        EXPECT_EQ(PowerInt("nan 0", 0), Silent("nan 0"));
    }
}

TEST(ComplexPowerInt, GoesByTheRealPartForTheExponentZero) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(PowerInt("0 1", 0), Silent("1e0 0"));
        EXPECT_EQ(PowerInt("5 -7", 0), Silent("1e0 0"));
        EXPECT_EQ(PowerInt("inf -7", 0), Undefined);
        EXPECT_EQ(PowerInt("5 nan", 0), Silent("1e0 0"));
        EXPECT_EQ(PowerInt("nan 5", 0), Silent("nan 0"));
    }
}

TEST(ComplexPowerInt, CopiesTheFirstPower) {
    PrecisionScope scope(20);
    EXPECT_EQ(PowerInt("0 1", 1), Silent("0 1e0"));
    EXPECT_EQ(PowerInt("-0 -7", 1), Silent("-0 -7e0"));
    EXPECT_EQ(PowerInt("inf -7", 1), Silent("inf -7e0"));
    EXPECT_EQ(PowerInt("nan -7", 1), Silent("nan -7e0"));
}

TEST(ComplexPowerInt, FollowsTheRulesOfSpecialValuesInItsProducts) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (int64_t n : {-3, -2, -1, 2, 3}) {
            for (const char* z : {"nan 1", "1 nan", "nan nan", "inf nan"}) {
                EXPECT_EQ(PowerInt(z, n), Silent("nan nan")) << z << " " << n;
            }
        }
        EXPECT_EQ(PowerInt("inf 1", 2), Silent("inf inf"));
        EXPECT_EQ(PowerInt("inf 1", 3), (Outcome{"nan inf", CalcErrorUndefined}));
        EXPECT_EQ(PowerInt("inf 1", -1), (Outcome{"nan -0", CalcErrorUndefined}));
    }
}

TEST(ComplexPowerInt, SquaresNoMoreThanItNeeds) {
    PrecisionScope scope(20);
    EXPECT_EQ(PowerInt("1e2000000000000000000 1", 2).code, CalcErrorNone);
    EXPECT_EQ(PowerInt("1e2000000000000000000 1e2000000000000000000", 2),
              Silent("0 2e4000000000000000000"));
    EXPECT_EQ(PowerInt("1e2000000000000000000 1e2000000000000000000", 3),
              (Outcome{"-inf inf", CalcErrorOverflow}));
    // The cube is in range, the fourth power is not.
    EXPECT_EQ(PowerInt("1e1200000000000000000 1e1200000000000000000", 3),
              Silent("-2e3600000000000000000 2e3600000000000000000"));
}

// x from 1 on, multiplied by the powers of z for each bit of n: what a finite z must give but for
// the signs of zeros.
ComplexBuffer PlainPower(const ComplexBuffer& z, int64_t n) {
    ComplexBuffer power("1 0");
    ComplexBuffer base = z;
    for (int64_t rest = n < 0 ? -n : n; rest != 0; rest >>= 1) {
        if (rest % 2 != 0) {
            ComplexMul(power, power, base);
        }
        ComplexMul(base, base, base);
    }
    if (n < 0) {
        ComplexReciprocal(power, power);
    }
    return power;
}

TEST(ComplexPowerInt, MultipliesFromTheLowestBitOn) {
    RandomSource random;
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        for (int round = TestRounds(p > 100 ? 3 : 100); round > 0 && !HasFailure(); round--) {
            ComplexBuffer z;
            FillReal(random, RealPart(z.Get()), 3);
            FillReal(random, ImaginaryPart(z.Get()), 3);
            const int64_t n = random.Between(1, 200) * (random.Below(2) == 0 ? 1 : -1);
            const Outcome expected = OutcomeOf(PlainPower(z, n));
            ASSERT_EQ(expected.code, CalcErrorNone);
            ExpectEqual(PowerInt(z, n), expected.text);
        }
    }
}

TEST(ComplexPower, IsTheRealPowerOfRealValues) {
    RandomSource random;
    for (int64_t p : {1, 18, 19, 20, 57, 100, 1000}) {
        PrecisionScope scope(p);
        for (int round = TestRounds(p > 100 ? 2 : 30); round > 0 && !HasFailure(); round--) {
            RealBuffer x;
            FillReal(random, x, 3);
            RealBuffer y;
            FillReal(random, y, 2);
            RealBuffer expected;
            RealPowerRounded(expected, x, y);
            const CalcError code = TakeCode();
            EXPECT_EQ(BinaryOutcome(ComplexPower, ComplexBuffer(x, RealBuffer("-0")),
                                    ComplexBuffer(y, RealBuffer("0"))),
                      (Outcome{PlainText(expected) + " 0", code}));
        }
        EXPECT_EQ(Power("4 0", "5e-1 0"), Silent("2e0 0"));
        EXPECT_EQ(Power("-8 0", "5e-1 0"), Undefined);
        EXPECT_EQ(Power("0 0", "-1 0"), Undefined);
        EXPECT_EQ(Power("2 0", "inf 0"), Silent("inf 0"));
        EXPECT_EQ(Power("2 0", "-inf 0"), Silent("0 0"));
        EXPECT_EQ(Power("-2 0", "inf 0"), Undefined);
        EXPECT_EQ(Power("2 0", "nan 0"), Silent("nan 0"));
        EXPECT_EQ(Power("nan 0", "0 0"), Silent("1e0 0"));
        EXPECT_EQ(Power("inf 0", "0 0"), Undefined);
    }
}

TEST(ComplexPower, RefusesAnExponentThatIsNotReal) {
    const Outcome refused = {"nan 0", CalcErrorComplexNotAllowed};
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(Power("2 0", "1 1"), refused);
        EXPECT_EQ(Power("2 1", "0 1"), refused);
        EXPECT_EQ(Power("2 1", "2 nan"), refused);
    }
}

TEST(ComplexPower, TakesIntegersAsExponentsOfOtherValues) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        ExpectEqual(Power("0 2", "2 -0"), "-4 0");
        ExpectEqual(Power("0 1", "-1 0"), "0 -1");
        EXPECT_EQ(Power("0 1", "0 0"), Silent("1e0 0"));
        for (const char* exponent : {"5e-1 0", "-2e-1 0", "1e19 0", "-1e19 0", "inf 0", "nan 0"}) {
            EXPECT_EQ(Power("0 1", exponent), Undefined) << exponent;
        }
    }
    PrecisionScope scope(20);
    ExpectEqual(Power("0 1", "9223372036854775807 0"), "0 -1");
    ExpectEqual(Power("0 1", "-9223372036854775808 0"), "1 0");
    EXPECT_EQ(Power("0 1", "9223372036854775808 0"), Undefined);
    EXPECT_EQ(Power("0 1", "-9223372036854775809 0"), Undefined);
    EXPECT_EQ(Power("0 1", "2.5 0"), Undefined);
}

}  // namespace
}  // namespace tallymere
