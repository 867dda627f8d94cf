#include "functions/angle_units.h"

#include <gtest/gtest.h>

#include <string>

#include "core/real_divide.h"
#include "core/real_multiply.h"
#include "functions/function_testing.h"
#include "functions/stored_constants.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr RealRoundedUnary AllConversions[] = {RealDegToRad, RealGonToRad, RealRadToDeg,
                                               RealRadToGon};

TEST(AngleUnits, KeepSpecialValues) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (RealRoundedUnary f : AllConversions) {
            for (const char* text : {"0", "-0", "inf", "-inf", "nan"}) {
                EXPECT_EQ(ResultOf(f, text), Silent(text));
            }
        }
    }
}

TEST(AngleUnits, HoldHalfATurnAsPi) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        RealBuffer pi;
        RealPi(pi);
        RealBuffer dest;
        if (p >= 2) {  // one digit does not hold 180
            RealDegToRad(dest, RealBuffer("180"));
            EXPECT_EQ(dest, pi);
        }
        RealGonToRad(dest, RealBuffer("-200"));
        RealNegate(dest);
        EXPECT_EQ(dest, pi);
    }
}

TEST(AngleUnits, KnowDigits) {
    for (int64_t p : {1, 2, 3, 9, 16, 18, 19, 20, 37, 38, 39, 57, 100}) {
        PrecisionScope scope(p);
        EXPECT_EQ(
            ResultOf(RealDegToRad, "1"),
            Digits("0.0174532925199432957692369076848861271344287188854172545609719144017100911"
                   "46034494436822415696345094822"));
        EXPECT_EQ(
            ResultOf(RealGonToRad, "-1"),
            Digits("-0.015707963267948966192313216916397514420985846996875529104874722961539082"
                   "03143104499314017412671058534"));
        EXPECT_EQ(
            ResultOf(RealRadToDeg, "-1"),
            Digits("-57.29577951308232087679815481410517033240547246656432154916024386120284714"
                   "832155263244096899585111094418"));
        EXPECT_EQ(
            ResultOf(RealRadToGon, "1"),
            Digits("63.661977236758134307553505349005744813783858296182579499066937623558719053"
                   "69061403604552110650123438243"));
    }
}

template <uint64_t UnitsPerOctant>
Limb PlainToRadians(RealNumber* dest, const RealNumber* x) {
    RealBuffer quarterPi;
    LoadConstant(quarterPi, ConstPiQuarter);
    RealDivUint(dest, x, UnitsPerOctant);
    return RealMulRaw(dest, dest, quarterPi);
}

template <uint64_t UnitsPerOctant>
Limb PlainFromRadians(RealNumber* dest, const RealNumber* x) {
    RealBuffer quarterPi;
    LoadConstant(quarterPi, ConstPiQuarter);
    RealMulUint(dest, x, UnitsPerOctant);
    return RealDivRaw(dest, dest, quarterPi);
}

TEST(AngleUnits, WorkWithTwoGuardDigits) {
    const auto two = [](const RealNumber*) { return int64_t{2}; };
    ExpectGuardDigits(RealDegToRad, PlainToRadians<45>, two, -3, 3);
    ExpectGuardDigits(RealGonToRad, PlainToRadians<50>, two, -3, 3);
    ExpectGuardDigits(RealRadToDeg, PlainFromRadians<45>, two, -3, 3);
    ExpectGuardDigits(RealRadToGon, PlainFromRadians<50>, two, -3, 3);
}

TEST(AngleUnits, LeadBackToWhereTheyCameFrom) {
    RandomSource random;
    for (int round = 0; round < TestRounds(1000); round++) {
        PrecisionScope scope(random.Between(1, 200));
        RealBuffer x;
        FillReal(random, x, 20);
        RealBuffer y;
        // Half a unit of the value between, carried over, and the unit of the result.
        RealDegToRad(y, x);
        RealRadToDeg(y, y);
        ExpectWithin(6, y, x);
        RealGonToRad(y, x);
        RealRadToGon(y, y);
        ExpectWithin(6, y, x);
    }
}

TEST(AngleUnits, LeaveTheRangeWithACode) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        const Outcome overflow = {"inf", CalcErrorOverflow};
        EXPECT_EQ(ResultOf(RealRadToDeg, "9e4611686018427387903"), overflow);
        EXPECT_EQ(ResultOf(RealRadToGon, "9e4611686018427387903"), overflow);
        EXPECT_EQ(ResultOf(RealDegToRad, "1e-4611686018427387903"), Silent("0"));
        EXPECT_EQ(ResultOf(RealGonToRad, "-1e-4611686018427387903"), Silent("-0"));
        FieldScope<uint8_t> quiet(numberContext.reportOverflow, 0);
        EXPECT_EQ(ResultOf(RealRadToDeg, "-9e4611686018427387903"), Silent("-inf"));
        FieldScope<uint8_t> loud(numberContext.reportUnderflow, 1);
        EXPECT_EQ(ResultOf(RealDegToRad, "1e-4611686018427387903"),
                  (Outcome{"0", CalcErrorUnderflow}));
    }
}

}  // namespace
}  // namespace tallymere
