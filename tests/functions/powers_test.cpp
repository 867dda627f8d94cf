#include "functions/powers.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "core/real_add.h"
#include "core/real_divide.h"
#include "core/real_integer.h"
#include "functions/function_testing.h"
#include "functions/guard_digits.h"
#include "functions/root_testing.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr int64_t LeastInt = std::numeric_limits<int64_t>::min();
constexpr int64_t LargestInt = std::numeric_limits<int64_t>::max();

Outcome PowerInt(std::string_view x, int64_t n) {
    return ResultOf([n](RealNumber* dest, const RealNumber* a) { RealPowerIntRounded(dest, a, n); },
                    x);
}

Outcome Power(std::string_view x, std::string_view y) {
    return ResultOf(RealPowerRounded, x, y);
}

Outcome PowerOfTwo(int64_t n) {
    RealBuffer dest;
    RealPowerOfTwoRounded(dest, n);
    return {PlainText(dest), TakeCode()};
}

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

template <int64_t N>
void PowerRounded(RealNumber* dest, const RealNumber* x) {
    RealPowerIntRounded(dest, x, N);
}
template <int64_t N>
Limb InnerPower(RealNumber* dest, const RealNumber* x) {
    return RealPowerInt(dest, x, N);
}
template <int64_t N>
void ExpectPowerGuardDigits(int64_t g) {
    ExpectGuardDigits(
        PowerRounded<N>, InnerPower<N>, [g](const RealNumber*) { return g; }, -3, 3);
}

TEST(RealPowerInt, WorksWithGuardDigitsForItsProducts) {
    ExpectPowerGuardDigits<97>(3);
    ExpectPowerGuardDigits<-97>(3);
    ExpectPowerGuardDigits<101>(4);
    ExpectPowerGuardDigits<99'999>(6);
    ExpectPowerGuardDigits<-100'001>(7);
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

// Real exponents. The rows of RealPower's special values, one test each.

TEST(RealPower, OfNaNIsNaNForEveryExponentButZero) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (const char* y : {"1", "-2", "0.5", "inf", "-inf", "nan", "1e-900"}) {
            EXPECT_EQ(Power("nan", y), Silent("nan")) << y;
        }
    }
}

TEST(RealPower, WithExponentZeroIsOneForEverythingButAnInfinity) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (const char* y : {"0", "-0"}) {
            EXPECT_EQ(Power("inf", y), Undefined);
            EXPECT_EQ(Power("-inf", y), Undefined);
            for (const char* x : {"0", "-0", "1", "-2", "7e-40", "nan"}) {
                EXPECT_EQ(Power(x, y), Silent("1e0")) << x;
            }
        }
    }
}

TEST(RealPower, WithExponentNaNIsNaN) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (const char* x : {"0", "-0", "1", "-2", "0.5", "inf", "-inf"}) {
            EXPECT_EQ(Power(x, "nan"), Silent("nan")) << x;
        }
    }
}

TEST(RealPower, KnowsInfiniteExponents) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (const char* x : {"0", "-0", "-1", "-0.5", "-3e40", "-inf"}) {
            EXPECT_EQ(Power(x, "inf"), Undefined) << x;
            EXPECT_EQ(Power(x, "-inf"), Undefined) << x;
        }
        for (const char* x : {"1", "0.5", "3e40", "1e-900", "inf"}) {
            EXPECT_EQ(Power(x, "inf"), Silent("inf")) << x;
            EXPECT_EQ(Power(x, "-inf"), Silent("0")) << x;
        }
    }
}

TEST(RealPower, KnowsPowersOfInfinities) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (const char* y : {"1", "2", "0.5", "7e30", "1e-900"}) {
            EXPECT_EQ(Power("inf", y), Silent("inf")) << y;
            EXPECT_EQ(Power("inf", "-" + std::string(y)), Silent("0")) << y;
        }
        for (const char* y : {"1", "3"}) {
            EXPECT_EQ(Power("-inf", y), Silent("-inf")) << y;
            EXPECT_EQ(Power("-inf", "-" + std::string(y)), Silent("-0")) << y;
        }
        for (const char* y : {"2", "7e30"}) {
            EXPECT_EQ(Power("-inf", y), Silent("inf")) << y;
            EXPECT_EQ(Power("-inf", "-" + std::string(y)), Silent("0")) << y;
        }
        for (const char* y : {"0.5", "-0.5", "1e-900"}) {
            EXPECT_EQ(Power("-inf", y), Undefined) << y;
        }
    }
}

TEST(RealPower, KnowsPowersOfZero) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        const auto expect = [](const std::string& y, const char* powerOfMinusZero) {
            EXPECT_EQ(Power("0", y), Silent("0")) << y;
            EXPECT_EQ(Power("-0", y), Silent(powerOfMinusZero)) << y;
            EXPECT_EQ(Power("0", "-" + y), Undefined) << y;
            EXPECT_EQ(Power("-0", "-" + y), Undefined) << y;
        };
        expect("1", "-0");
        expect("3", "-0");
        expect("2", "0");
        expect("0.5", "0");
        expect("7e30", "0");
        expect("1e-900", "0");
    }
}

TEST(RealPower, OfNegativeNumbersWantsAnInteger) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(Power("-8", "0.5"), Undefined);
        EXPECT_EQ(Power("-8", "-0.2"), Undefined);
        EXPECT_EQ(Power("-1", "1e-900"), Undefined);
        EXPECT_EQ(Power("-2", "3"), Silent("-8e0"));
        EXPECT_EQ(Power("-2", "2"), Silent("4e0"));
        EXPECT_EQ(Power("-2", "-1"), Silent("-5e-1"));
        // No units digit is left to be odd.
        EXPECT_EQ(Power("-1", "7e900"), Silent("1e0"));
        RealBuffer third("1");
        RealDiv(third, third, RealBuffer("3"));
        RealBuffer root("-8");
        RealPowerRounded(root, root, third);
        EXPECT_EQ(PlainText(root), "nan");
        EXPECT_EQ(TakeCode(), CalcErrorUndefined);
    }
}

TEST(RealPower, KeepsExactPowersExact) {
    for (int64_t p : {3, 9, 16, 18, 19, 20, 37, 38, 39, 57, 100}) {
        PrecisionScope scope(p);
        EXPECT_EQ(Power("9", "0.5"), Silent("3e0"));
        EXPECT_EQ(Power("4", "1.5"), Silent("8e0"));
        EXPECT_EQ(Power("6.25", "-0.5"), Silent("4e-1"));
        EXPECT_EQ(Power("2", "9"), Silent("5.12e2"));
        EXPECT_EQ(Power("1", "1e30"), Silent("1e0"));
        EXPECT_EQ(Power("10", "345"), Silent("1e345"));
        EXPECT_EQ(Power("1e-4", "2.5"), Silent("1e-10"));
    }
}

TEST(RealPower, HasTheKnownDigits) {
    PrecisionScope scope(57);
    EXPECT_EQ(Power("2", "0.3"),
              Silent("1.23114441334491628449939306916774310987613776110081779434e0"));
    EXPECT_EQ(Power("1.7", "-123.456"),
              Silent("3.5456671385757786808929696116943562870181758555844670292e-29"));
}

TEST(RealPower, EndsInInfinityAndZeroOutsideTheRange) {
    for (int64_t p : {20, 37, 57}) {
        PrecisionScope scope(p);
        EXPECT_EQ(Power("10", "1e19"), (Outcome{"inf", CalcErrorOverflow}));
        EXPECT_EQ(Power("10", "-1e19"), Silent("0"));
        EXPECT_EQ(Power("-10", "10000000000000000001"), (Outcome{"-inf", CalcErrorOverflow}));
        EXPECT_EQ(Power("-10", "-10000000000000000001"), Silent("-0"));
        EXPECT_EQ(Power("0.1", "1e30"), Silent("0"));
        EXPECT_EQ(Power("0.1", "-1e30"), (Outcome{"inf", CalcErrorOverflow}));
        FieldScope<uint8_t> quiet(numberContext.reportOverflow, 0);
        FieldScope<uint8_t> report(numberContext.reportUnderflow, 1);
        EXPECT_EQ(Power("10", "1e19"), Silent("inf"));
        EXPECT_EQ(Power("10", "-1e19"), (Outcome{"0", CalcErrorUnderflow}));
    }
}

// y ln x leaves the range by itself before the exponential sees on which side.
TEST(RealPower, NotesAnOverflowOfItsExponentWhateverTheResult) {
    for (int64_t p : {20, 37, 57}) {
        PrecisionScope scope(p);
        EXPECT_EQ(Power("0.1", "9e4611686018427387902"), Silent("0"));
        EXPECT_EQ(Power("0.1", "9e4611686018427387903"), (Outcome{"0", CalcErrorOverflow}));
        EXPECT_EQ(Power("10", "-9e4611686018427387903"), (Outcome{"0", CalcErrorOverflow}));
        FieldScope<uint8_t> quiet(numberContext.reportOverflow, 0);
        FieldScope<uint8_t> report(numberContext.reportUnderflow, 1);
        EXPECT_EQ(Power("0.1", "9e4611686018427387902"), (Outcome{"0", CalcErrorUnderflow}));
        EXPECT_EQ(Power("0.1", "9e4611686018427387903"), Silent("0"));
    }
}

TEST(RealPower, WorksWithGuardDigitsForTheExponent) {
    ExpectBinaryGuardDigits(
        RealPowerRounded, RealPower,
        [](const RealNumber*, const RealNumber* y) { return PowerGuardDigits(y); },
        [](RandomSource& random, RealNumber* x, RealNumber* y) {
            FillPositive(random, x, -3, 3);
            FillReal(random, y, 0);
            RealSetExponent(y, random.Between(-3, 12));
        });
}

TEST(RealPower, OfANumberByItselfMayOverwriteIt) {
    PrecisionScope scope(20);
    RealBuffer x("3");
    RealPowerRounded(x, x, x);
    EXPECT_EQ(PlainText(x), "2.7e1");
}

// Expects two numbers that differ by no more than one unit in the last place.
void ExpectNeighbours(const RealBuffer& a, const RealBuffer& b) {
    RealBuffer difference;
    RealSub(difference, a, b);
    EXPECT_TRUE(RealIsZero(difference) ||
                RealExponent(difference) <= RealExponent(a) - (numberContext.precisionDigits - 1))
        << PlainText(a) << "\n"
        << PlainText(b);
}

TEST(RealPower, AgreesWithProductsForIntegerExponents) {
    RandomSource random;
    for (int round = 0; round < TestRounds(1000); round++) {
        PrecisionScope scope(random.Between(3, 100));
        const int64_t n = random.Between(-99, 99);
        RealBuffer x;
        FillReal(random, x, 3);
        RealBuffer byProducts;
        RealPowerIntRounded(byProducts, x, n);
        RealBuffer y;
        RealFromInt(y, n);
        RealBuffer power;
        RealPowerRounded(power, x, y);
        EXPECT_EQ(RealSign(power), RealSign(byProducts));
        ExpectNeighbours(power, byProducts);
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    }
}

// An integer power is off by one half of a unit in the last place, and with three guard digits each
// of n products may add a hundredth.
TEST(RealPowerInt, IsRightForRandomNumbers) {
    RandomSource random;
    for (int round = 0; round < TestRounds(1000); round++) {
        const int64_t p = random.Between(1, 60);
        PrecisionScope scope(p);
        const int64_t n = random.Between(1, 40);
        RealBuffer x;
        FillReal(random, x, 9);
        RealSetSign(x, 0);
        RealBuffer power;
        RealPowerIntRounded(power, x, n);
        const RealLayout layout = CurrentRealLayout();
        RealLayoutScope wide;
        InstallRealLayout(LayoutForDigits(n * p + 4));
        RealBuffer wideX;
        RealConvertLayout(wideX, x, layout);
        RealBuffer exact;
        RaiseExactly(exact, wideX, n);
        ExpectWideRootWithin(power, layout, exact, 1, 50 + static_cast<uint64_t>(n));
    }
}

}  // namespace
}  // namespace tallymere
