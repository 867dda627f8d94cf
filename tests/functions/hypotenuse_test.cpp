#include "functions/hypotenuse.h"

#include <gtest/gtest.h>

#include <string>

#include "functions/error_bounds.h"
#include "functions/function_testing.h"
#include "functions/root_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

Outcome Hypotenuse(std::string_view a, std::string_view b) {
    const Outcome outcome = ResultOf(RealHypotRounded, a, b);
    EXPECT_EQ(ResultOf(RealHypotRounded, b, a), outcome) << "with the operands swapped";
    return outcome;
}

TEST(RealHypot, KnowsSpecialValues) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        for (const char* x : {"nan", "inf", "-inf", "0", "-0", "-7"}) {
            EXPECT_EQ(Hypotenuse("nan", x), Silent("nan")) << x;
        }
        for (const char* x : {"inf", "-inf", "0", "-0", "-7"}) {
            EXPECT_EQ(Hypotenuse("inf", x), Silent("inf")) << x;
            EXPECT_EQ(Hypotenuse("-inf", x), Silent("inf")) << x;
        }
        for (const char* zero : {"0", "-0"}) {
            EXPECT_EQ(Hypotenuse(zero, "0"), Silent("0"));
            EXPECT_EQ(Hypotenuse(zero, "-0"), Silent("0"));
            EXPECT_EQ(Hypotenuse(zero, "7"), Silent("7e0"));
            EXPECT_EQ(Hypotenuse(zero, "-7e-900"), Silent("7e-900"));
        }
    }
}

TEST(RealHypot, IsExactForPythagoreanTriples) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(Hypotenuse("3", "4"), Silent("5e0"));
        EXPECT_EQ(Hypotenuse("-3", "4"), Silent("5e0"));
        EXPECT_EQ(Hypotenuse("-3e-50", "-4e-50"), Silent("5e-50"));
        EXPECT_EQ(Hypotenuse("6e99", "8e99"), Silent("1e100"));
        if (p > 1) {
            EXPECT_EQ(Hypotenuse("5", "12"), Silent("1.3e1"));
            EXPECT_EQ(Hypotenuse("0.9", "4"), Silent("4.1e0"));
        }
        if (p > 2) {
            EXPECT_EQ(Hypotenuse("696", "-697"), Silent("9.85e2"));
        }
    }
}

TEST(RealHypot, HasTheKnownDigits) {
    PrecisionScope scope(57);
    EXPECT_EQ(Hypotenuse("12345.678", "0.0098765"),
              Silent("1.23456780000039505830400721771981110917551215303846497835e4"));
    EXPECT_EQ(Hypotenuse("1", "1"),
              Silent("1.41421356237309504880168872420969807856967187537694807318e0"));
}

TEST(RealHypot, OfANumberWithItselfMayOverwriteIt) {
    PrecisionScope scope(20);
    RealBuffer x("-5e30");
    RealHypotRounded(x, x, x);
    EXPECT_EQ(PlainText(x), "7.071067811865475244e30");
}

// Beyond the precision in force the smaller operand is not looked at: the larger magnitude comes
// back as it is, at any distance.
TEST(RealHypot, OfFarExponentsIsTheLargerMagnitude) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        for (int64_t distance : {p, p + 1, p + 3, p + 4, 2 * p + 50, int64_t{1} << 61}) {
            const std::string small = "9e-" + std::to_string(distance);
            EXPECT_EQ(Hypotenuse("-3", small), Silent("3e0")) << distance;
        }
        EXPECT_EQ(Hypotenuse("-7e4611686018427387903", "9e-4611686018427387903"),
                  Silent("7e4611686018427387903"));
    }
}

// At p digits of distance the inner form still takes the root, which truncation shows; one digit
// further it does not.
TEST(RealHypot, TakesNoRootBeyondThePrecision) {
    PrecisionScope scope(20);
    const RealBuffer large("-7.777777777777777777");
    RealBuffer dest;
    for (const bool swapped : {false, true}) {
        const auto hypotenuse = [&](const char* small) {
            const RealBuffer other(small);
            RealHypot(dest, swapped ? other : large, swapped ? large : other);
            return PlainText(dest);
        };
        EXPECT_EQ(hypotenuse("9e-21"), "7.777777777777777777e0");
        EXPECT_NE(hypotenuse("9e-20"), "7.777777777777777777e0");
    }
}

TEST(RealHypot, WorksWithThreeGuardDigits) {
    ExpectBinaryGuardDigits(
        RealHypotRounded, RealHypot,
        [](const RealNumber*, const RealNumber*) { return int64_t{3}; },
        [](RandomSource& random, RealNumber* a, RealNumber* b) {
            FillReal(random, a, 5);
            FillReal(random, b, 5);
        });
}

TEST(RealHypot, DoesNotLeaveTheRangeOnItsWay) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(Hypotenuse("3e4611686018427387903", "4e4611686018427387903"),
                  Silent("5e4611686018427387903"));
        EXPECT_EQ(Hypotenuse("3e-4611686018427387903", "-4e-4611686018427387903"),
                  Silent("5e-4611686018427387903"));
        EXPECT_EQ(Hypotenuse("8e4611686018427387903", "6e4611686018427387903"),
                  (Outcome{"inf", CalcErrorOverflow}));
        FieldScope<uint8_t> quiet(numberContext.reportOverflow, 0);
        EXPECT_EQ(Hypotenuse("8e4611686018427387903", "6e4611686018427387903"), Silent("inf"));
    }
}

TEST(RealHypot, IsTheRootOfTheSumOfSquares) {
    // In hundredths of a unit in the last place.
    constexpr uint64_t hypotenuseError = static_cast<uint64_t>(100 * UsualErrorBound + 0.5);
    RandomSource random;
    for (int round = 0; round < TestRounds(3000); round++) {
        const int64_t p = random.Between(1, 120);
        PrecisionScope scope(p);
        RealBuffer a;
        RealBuffer b;
        FillReal(random, a, 30);
        FillPartner(random, b, a, 30);
        RealBuffer root;
        RealHypotRounded(root, a, b);
        const RealLayout layout = CurrentRealLayout();
        // Room for the exact sum, whose terms lie up to 2 (p + 60) digits apart.
        RealLayoutScope wide;
        InstallRealLayout(LayoutForDigits(4 * p + 160));
        RealBuffer wideA;
        RealBuffer wideB;
        RealConvertLayout(wideA, a, layout);
        RealConvertLayout(wideB, b, layout);
        RealMulRaw(wideA, wideA, wideA);
        RealMulRaw(wideB, wideB, wideB);
        RealBuffer sum;
        RealAddRaw(sum, wideA, wideB, false);
        ExpectWideRootWithin(root, layout, sum, 2, hypotenuseError);
    }
}

}  // namespace
}  // namespace tallymere
