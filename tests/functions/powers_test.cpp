#include "functions/powers.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "core/real_multiply.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr int64_t LeastInt = std::numeric_limits<int64_t>::min();
constexpr int64_t LargestInt = std::numeric_limits<int64_t>::max();

Outcome PowerInt(std::string_view text, int64_t n) {
    const RealBuffer x(text);
    RealBuffer dest;
    RealPowerIntRounded(dest, x, n);
    RealBuffer same = x;
    RealPowerIntRounded(same, same, n);
    EXPECT_EQ(dest, same) << "with the destination as operand";
    return {PlainText(dest), TakeCode()};
}

Outcome PowerOfTwo(int64_t n) {
    RealBuffer dest;
    RealPowerOfTwoRounded(dest, n);
    return {PlainText(dest), TakeCode()};
}

const Outcome Undefined = {"nan", CalcErrorUndefined};

TEST(RealPowerInt, OfAnythingButInfinityIsOneForAnExponentOfZero) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (const char* x : {"0", "-0", "1", "-3", "7e-90", "5e4611686018427387903"}) {
            EXPECT_EQ(PowerInt(x, 0), Silent("1e0")) << x;
        }
        EXPECT_EQ(PowerInt("nan", 0), Silent("nan"));
        EXPECT_EQ(PowerInt("inf", 0), Undefined);
        EXPECT_EQ(PowerInt("-inf", 0), Undefined);
    }
}

TEST(RealPowerInt, KnowsSpecialValues) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (int64_t n : {int64_t{1}, int64_t{2}, int64_t{-1}, int64_t{-2}, LeastInt, LargestInt}) {
            EXPECT_EQ(PowerInt("nan", n), Silent("nan")) << n;
        }
        EXPECT_EQ(PowerInt("inf", 3), Silent("inf"));
        EXPECT_EQ(PowerInt("inf", 4), Silent("inf"));
        EXPECT_EQ(PowerInt("-inf", 3), Silent("-inf"));
        EXPECT_EQ(PowerInt("-inf", 4), Silent("inf"));
        EXPECT_EQ(PowerInt("inf", -3), Silent("0"));
        EXPECT_EQ(PowerInt("-inf", -3), Silent("-0"));
        EXPECT_EQ(PowerInt("-inf", -4), Silent("0"));
        EXPECT_EQ(PowerInt("-inf", LeastInt), Silent("0"));
        EXPECT_EQ(PowerInt("-inf", LargestInt), Silent("-inf"));
        EXPECT_EQ(PowerInt("0", 3), Silent("0"));
        EXPECT_EQ(PowerInt("-0", 3), Silent("-0"));
        EXPECT_EQ(PowerInt("-0", 4), Silent("0"));
        for (const char* zero : {"0", "-0"}) {
            EXPECT_EQ(PowerInt(zero, -3), Undefined);
            EXPECT_EQ(PowerInt(zero, -4), Undefined);
            EXPECT_EQ(PowerInt(zero, LeastInt), Undefined);
        }
    }
}

TEST(RealPowerInt, KeepsExactPowersExact) {
    for (int64_t p : {19, 20, 37, 38, 57, 100, 1000}) {
        PrecisionScope scope(p);
        EXPECT_EQ(PowerInt("2", 10), Silent("1.024e3"));
        EXPECT_EQ(PowerInt("-2", 11), Silent("-2.048e3"));
        EXPECT_EQ(PowerInt("-2", 12), Silent("4.096e3"));
        EXPECT_EQ(PowerInt("2", -10), Silent("9.765625e-4"));
        EXPECT_EQ(PowerInt("-2", -11), Silent("-4.8828125e-4"));
        EXPECT_EQ(PowerInt("3", 39), Silent("4.052555153018976267e18"));
        EXPECT_EQ(PowerInt("1.1", 5), Silent("1.61051e0"));
        EXPECT_EQ(PowerInt("-7e-3", 1), Silent("-7e-3"));
        EXPECT_EQ(PowerInt("8", -1), Silent("1.25e-1"));
        EXPECT_EQ(PowerInt("1e5", 99), Silent("1e495"));
        EXPECT_EQ(PowerInt("1e5", -100), Silent("1e-500"));
    }
}

TEST(RealPowerInt, TakesTheLargestExponents) {
    PrecisionScope scope(20);
    EXPECT_EQ(PowerInt("1", LargestInt), Silent("1e0"));
    EXPECT_EQ(PowerInt("-1", LargestInt), Silent("-1e0"));
    EXPECT_EQ(PowerInt("-1", LeastInt), Silent("1e0"));
    EXPECT_EQ(PowerInt("-1", LeastInt + 1), Silent("-1e0"));
    EXPECT_EQ(PowerInt("10", LargestInt / 2), Silent("1e4611686018427387903"));
}

TEST(RealPowerInt, EndsInInfinityAndZeroOutsideTheRange) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(PowerInt("1e4611686018427387903", 2), (Outcome{"inf", CalcErrorOverflow}));
        EXPECT_EQ(PowerInt("-1e4611686018427387903", 3), (Outcome{"-inf", CalcErrorOverflow}));
        EXPECT_EQ(PowerInt("-1e-4611686018427387903", 3), Silent("-0"));
        EXPECT_EQ(PowerInt("1e-4611686018427387903", 2), Silent("0"));
        EXPECT_EQ(PowerInt("-7", LargestInt), (Outcome{"-inf", CalcErrorOverflow}));
        EXPECT_EQ(PowerInt("-0.7", LargestInt).text.substr(0, 1), "-");
        EXPECT_EQ(PowerInt("-1e-9", LargestInt), Silent("-0"));
    }
}

// The codes of x^|n| stay: a power that falls below the range has gone over it on the way, and one
// that goes over it has been divided by zero.
TEST(RealPowerInt, NotesTheCodesOfItsWayForNegativeExponents) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(PowerInt("1e3000000000000000000", -2), (Outcome{"0", CalcErrorOverflow}));
        EXPECT_EQ(PowerInt("-1e3000000000000000000", -3), (Outcome{"-0", CalcErrorOverflow}));
        EXPECT_EQ(PowerInt("1e-3000000000000000000", -2), (Outcome{"inf", CalcErrorOverflow}));
        EXPECT_EQ(PowerInt("-1e-3000000000000000000", -3), (Outcome{"-inf", CalcErrorOverflow}));
        FieldScope<uint8_t> quiet(numberContext.reportOverflow, 0);
        EXPECT_EQ(PowerInt("1e3000000000000000000", 2), Silent("inf"));
        EXPECT_EQ(PowerInt("1e3000000000000000000", -2), Silent("0"));
        FieldScope<uint8_t> report(numberContext.reportUnderflow, 1);
        EXPECT_EQ(PowerInt("1e-3000000000000000000", 2), (Outcome{"0", CalcErrorUnderflow}));
    }
}

TEST(RealPowerInt, MakesNoSquareThatItDoesNotNeed) {
    PrecisionScope scope(20);
    // The square of x^2 is out of range.
    EXPECT_EQ(PowerInt("1e1500000000000000000", 3), Silent("1e4500000000000000000"));
    EXPECT_EQ(PowerInt("1e1500000000000000000", 2), Silent("1e3000000000000000000"));
}

TEST(RealPowerInt, RoundsTheLastDigit) {
    // (1 + 10^-k)^n for which the binomial terms do not overlap.
    PrecisionScope scope(20);
    EXPECT_EQ(PowerInt("1.00001", 3), Silent("1.000030000300001e0"));
    EXPECT_EQ(PowerInt("1.00000001", 3), Silent("1.0000000300000003e0"));
    EXPECT_EQ(PowerInt("1.0000000000000000001", 7), Silent("1.0000000000000000007e0"));
    EXPECT_EQ(PowerInt("3", 50), Silent("7.1789798769185258877e23"));
    EXPECT_EQ(PowerInt("3", -50), Silent("1.3929555690985383463e-24"));
    EXPECT_EQ(PowerInt("-7", 99), Silent("-4.6206807280353685591e83"));
}

TEST(RealPowerOfTwo, IsExactWhereTheDigitsFit) {
    PrecisionScope scope(300);
    for (int64_t n = -420; n <= 420; n++) {
        EXPECT_EQ(PowerOfTwo(n), PowerInt("2", n)) << n;
    }
    EXPECT_EQ(PowerOfTwo(0), Silent("1e0"));
    EXPECT_EQ(PowerOfTwo(63), Silent("9.223372036854775808e18"));
    EXPECT_EQ(PowerOfTwo(64), Silent("1.8446744073709551616e19"));
    EXPECT_EQ(PowerOfTwo(127), Silent("1.70141183460469231731687303715884105728e38"));
    EXPECT_EQ(PowerOfTwo(128), Silent("3.40282366920938463463374607431768211456e38"));
    EXPECT_EQ(PowerOfTwo(-1), Silent("5e-1"));
    EXPECT_EQ(PowerOfTwo(-64), Silent("5.42101086242752217003726400434970855712890625e-20"));
}

TEST(RealPowerOfTwo, RoundsAtEveryPrecision) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        for (int64_t n : {0, 1, 3, 63, 64, 65, 127, 128, 129, 191, 192, 1000, 12345}) {
            EXPECT_EQ(PowerOfTwo(n), PowerInt("2", n)) << n;
            EXPECT_EQ(PowerOfTwo(-n), PowerInt("2", -n)) << -n;
        }
    }
}

TEST(RealPowerOfTwo, TakesTheLargestExponents) {
    PrecisionScope scope(20);
    EXPECT_EQ(PowerOfTwo(LargestInt), Silent("6.9046614899002713248e2776511644261678565"));
    EXPECT_EQ(PowerOfTwo(LeastInt), Silent("7.2414846221117472434e-2776511644261678567"));
    for (int64_t n : {LargestInt, LeastInt, LargestInt - 63, LeastInt + 64}) {
        EXPECT_EQ(PowerOfTwo(n), PowerInt("2", n)) << n;
    }
}

}  // namespace
}  // namespace tallymere
