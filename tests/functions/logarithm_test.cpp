#include "functions/logarithm.h"

#include <gtest/gtest.h>

#include <string>

#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_divide.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "functions/function_testing.h"
#include "functions/stored_constants.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr RealRoundedUnary Logarithms[] = {RealLnRounded, RealLog2Rounded, RealLog10Rounded};

// 101 digits, cut off.
constexpr const char* LnOf3 =
    "1.098612288668109691395245236922525704647490557822749451734694333637494293218608"
    "9668736157548137320887e0";
constexpr const char* LgOf2 =
    "3.010299956639811952137388947244930267681898814621085413104274611271081892744245"
    "0948692725211818617204e-1";
constexpr const char* Log2Of3 =
    "1.584962500721156181453738943947816508759814407692481060455752654541098227794358"
    "5625222804749180882420e0";
constexpr const char* Log3Of7 =
    "1.771243749161422260067928307082457718066471334594243479368992577279886198702812"
    "2108343009893375089763e0";

TEST(Logarithms, KnowSpecialValues) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        for (RealRoundedUnary function : Logarithms) {
            EXPECT_EQ(ResultOf(function, "nan"), Silent("nan"));
            EXPECT_EQ(ResultOf(function, "inf"), Silent("inf"));
            EXPECT_EQ(ResultOf(function, "0"), (Outcome{"-inf", CalcErrorOverflow}));
            EXPECT_EQ(ResultOf(function, "-0"), (Outcome{"-inf", CalcErrorOverflow}));
            EXPECT_EQ(ResultOf(function, "-inf"), Undefined);
            EXPECT_EQ(ResultOf(function, "-1"), Undefined);
            EXPECT_EQ(ResultOf(function, "-1e-900"), Undefined);
            EXPECT_EQ(ResultOf(function, "1"), Silent("0"));
        }
    }
}

TEST(Logarithms, OfZeroAreSilentUnlessOverflowIsReported) {
    PrecisionScope scope(20);
    FieldScope<uint8_t> quiet(numberContext.reportOverflow, 0);
    for (RealRoundedUnary function : Logarithms) {
        EXPECT_EQ(ResultOf(function, "0"), Silent("-inf"));
        EXPECT_EQ(ResultOf(function, "-3"), Undefined);
    }
    EXPECT_EQ(ResultOf(RealLogRounded, "2", "0"), Silent("-inf"));
}

TEST(Logarithms, HaveTheDigitsOfTheirFunctions) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(ResultOf(RealLnRounded, "3"), Silent(RoundedText(LnOf3, p)));
        EXPECT_EQ(ResultOf(RealLog10Rounded, "2"), Silent(RoundedText(LgOf2, p)));
        EXPECT_EQ(ResultOf(RealLog2Rounded, "3"), Silent(RoundedText(Log2Of3, p)));
        EXPECT_EQ(ResultOf(RealLogRounded, "3", "7"), Silent(RoundedText(Log3Of7, p)));
    }
}

TEST(Logarithms, OfPowersOfTheBaseAreIntegers) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(ResultOf(RealLog10Rounded, "10"), Silent("1e0"));
        EXPECT_EQ(ResultOf(RealLog10Rounded, "0.001"), Silent("-3e0"));
        EXPECT_EQ(ResultOf(RealLog10Rounded, "1e90"), Silent("9e1"));
        EXPECT_EQ(ResultOf(RealLog2Rounded, "2"), Silent("1e0"));
        EXPECT_EQ(ResultOf(RealLog2Rounded, "0.5"), Silent("-1e0"));
        EXPECT_EQ(ResultOf(RealLogRounded, "3", "9"), Silent("2e0"));
    }
}

// ln 10 is the stored constant alone, with nothing left for the series.
TEST(RealLn, OfTenIsTheStoredConstant) {
    PrecisionScope scope(30);
    EXPECT_EQ(ResultOf(RealLnRounded, "10"), Silent("2.30258509299404568401799145468e0"));
    EXPECT_EQ(ResultOf(RealLnRounded, "0.1"), Silent("-2.30258509299404568401799145468e0"));
}

TEST(RealLn, ReachesBothEndsOfTheRange) {
    PrecisionScope scope(30);
    // (2^62 - 1) ln 10.
    EXPECT_EQ(ResultOf(RealLnRounded, "1e4611686018427387903"),
              Silent("1.06187994795999672526128024284e19"));
    EXPECT_EQ(ResultOf(RealLnRounded, "1e-4611686018427387903"),
              Silent("-1.06187994795999672526128024284e19"));
    // 9.5 rounds up to the next power of ten, which has no exponent of its own.
    EXPECT_EQ(ResultOf(RealLog10Rounded, "9.5e4611686018427387903"),
              Silent("4.61168601842738790397772360529e18"));
}

TEST(RealLn, KeepsItsDigitsNextToOne) {
    PrecisionScope scope(20);
    EXPECT_EQ(ResultOf(RealLnRounded, "1.0000000001"), Silent("9.9999999995e-11"));
    EXPECT_EQ(ResultOf(RealLnRounded, "0.9999999999"), Silent("-1.00000000005e-10"));
    EXPECT_EQ(ResultOf(RealLnRounded, "1.0000000000000000001"),
              Silent("9.9999999999999999995e-20"));
}

// Both sides of the thresholds of every reduction step, and of the square root of ten, where the
// power of ten changes.
TEST(RealLn, AgreesOnBothSidesOfEveryThreshold) {
    const char* const thresholds[] = {
        "1.09544511",  "1.31453413",  "1.57744096",  "1.89292915",  "2.27151499",
        "2.72581798",  "0.912870929", "0.760725774", "0.633938145", "0.528281787",
        "0.440234823", "0.366862352", "1.00498756",  "1.01503743",  "1.02518781",
        "1.03543969",  "1.04579408",  "1.05625202",  "1.06681454",  "1.07748269",
        "1.08825752",  "0.995037190", "0.985185336", "0.975431026", "0.965773293",
        "0.956211181", "0.946743744", "0.937370043", "0.928089152", "0.918900150",
        "3.16227766",  "3.16227767",  "0.316227766", "0.316227767", "1"};
    for (int64_t p : {30, 100}) {
        PrecisionScope scope(p);
        const RealBuffer one("1");
        const RealBuffer ratio("1.00000000000001");
        RealBuffer logarithmOfRatio;
        RealLnRounded(logarithmOfRatio, ratio);
        for (const char* text : thresholds) {
            SCOPED_TRACE(text);
            RealBuffer below(text);
            RealSub(below, below, RealBuffer("5e-15"));
            RealBuffer above;
            RealMul(above, below, ratio);
            RealLnRounded(below, below);
            RealLnRounded(above, above);
            RealSub(above, above, below);
            RealSub(above, above, logarithmOfRatio);
            EXPECT_TRUE(RealIsZero(above) || RealExponent(above) < -(p - 2)) << PlainText(above);
        }
    }
}

// The inner forms of the binary and the decimal logarithm.
Limb LnByLn2(RealNumber* dest, const RealNumber* x) {
    RealBuffer ln2;
    LoadConstant(ln2, ConstLn2);
    RealLn(dest, x);
    return RealDivRaw(dest, dest, ln2);
}
Limb LnTimesLog10E(RealNumber* dest, const RealNumber* x) {
    RealBuffer log10E;
    LoadConstant(log10E, ConstLog10E);
    RealLn(dest, x);
    return RealMulRaw(dest, dest, log10E);
}

TEST(Logarithms, WorkWithThreeGuardDigitsAndFourToABase) {
    const auto three = [](const RealNumber*) { return int64_t{3}; };
    ExpectGuardDigits(RealLnRounded, RealLn, three, -3, 3, true);
    ExpectGuardDigits(RealLog2Rounded, LnByLn2, three, -3, 3, true);
    ExpectGuardDigits(RealLog10Rounded, LnTimesLog10E, three, -3, 3, true);
    ExpectBinaryGuardDigits(
        RealLogRounded, RealLog, [](const RealNumber*, const RealNumber*) { return int64_t{4}; },
        [](RandomSource& random, RealNumber* base, RealNumber* x) {
            FillPositive(random, base, -3, 3);
            FillPositive(random, x, -3, 3);
        });
}

TEST(RealLnSmall, KnowsSpecialValues) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(ResultOf(RealLnSmall, "nan"), Silent("nan"));
        EXPECT_EQ(ResultOf(RealLnSmall, "0"), Silent("0"));
        EXPECT_EQ(ResultOf(RealLnSmall, "-0"), Silent("-0"));
        EXPECT_EQ(ResultOf(RealLnSmall, "inf"), Undefined);
        EXPECT_EQ(ResultOf(RealLnSmall, "-inf"), Undefined);
    }
}

// Whatever the sign, though ln(1 + y) is defined up to any y and down to -1.
TEST(RealLnSmall, RefusesOneHalfAndMore) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (const char* text : {"0.5", "-0.5", "0.9", "-0.9", "1", "-1", "2e9"}) {
            EXPECT_EQ(ResultOf(RealLnSmall, text), Undefined) << text;
        }
        for (const char* text : {"0.4", "-0.4", "0.09", "-0.09", "1e-900"}) {
            EXPECT_EQ(ResultOf(RealLnSmall, text).code, CalcErrorNone) << text;
        }
    }
}

TEST(RealLnSmall, HasTheDigitsOfItsFunction) {
    PrecisionScope scope(30);
    const auto shown = [](std::string_view text) {
        RealBuffer dest;
        RealLnSmall(dest, RealBuffer(text));
        RealRoundDigits(dest, dest, 25);
        return PlainText(dest);
    };
    EXPECT_EQ(shown("0.2"), "1.82321556793954626211718e-1");
    EXPECT_EQ(shown("-0.2"), "-2.231435513142097557662951e-1");
    EXPECT_EQ(shown("1e-12"), "9.999999999995000000000003e-13");
}

TEST(RealLog, KnowsItsTable) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        const Outcome undefined = {"nan", CalcErrorUndefined};
        for (const char* x : {"0", "0.5", "1", "7", "-7", "inf", "-inf"}) {
            SCOPED_TRACE(x);
            EXPECT_EQ(ResultOf(RealLogRounded, "nan", x), Silent("nan"));
            for (const char* base : {"0", "-0", "1", "-1", "-2", "inf", "-inf"}) {
                EXPECT_EQ(ResultOf(RealLogRounded, base, x), undefined) << base;
            }
        }
        for (const char* base : {"nan", "0", "1", "-2", "inf", "2"}) {
            EXPECT_EQ(ResultOf(RealLogRounded, base, "nan"), Silent("nan")) << base;
        }
        // Also for a base below 1.
        for (const char* base : {"2", "0.5", "1e90"}) {
            SCOPED_TRACE(base);
            EXPECT_EQ(ResultOf(RealLogRounded, base, "0"), (Outcome{"-inf", CalcErrorOverflow}));
            EXPECT_EQ(ResultOf(RealLogRounded, base, "-0"), (Outcome{"-inf", CalcErrorOverflow}));
            EXPECT_EQ(ResultOf(RealLogRounded, base, "inf"), Silent("inf"));
            EXPECT_EQ(ResultOf(RealLogRounded, base, "-inf"), undefined);
            EXPECT_EQ(ResultOf(RealLogRounded, base, "-7"), undefined);
        }
        EXPECT_EQ(ResultOf(RealLogRounded, "2", "1"), Silent("0"));
        EXPECT_EQ(ResultOf(RealLogRounded, "0.5", "1"), Silent("-0"));
    }
}

}  // namespace
}  // namespace tallymere
