#include "core/real_number.h"

#include <gtest/gtest.h>

#include <string>

#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

TEST(RealNumber, OneHasOneDigitInFront) {
    {
        PrecisionScope scope(25);
        RealBuffer x;
        RealSetOne(x);
        EXPECT_EQ(x.Get()->header, 0u);
        EXPECT_EQ(x.Limbs()[0], 100'000u);
        EXPECT_EQ(x.Limbs()[1], 0u);
    }
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        RealBuffer x;
        RealSetOne(x);
        EXPECT_EQ(PlainText(x), "1e0");
    }
}

TEST(RealNumber, SpecialValuesHaveTheirHeadersAndMarks) {
    PrecisionScope scope(39);
    RealBuffer x;
    for (uint64_t sign : {0, 1}) {
        RealSetZero(x, sign);
        EXPECT_EQ(x.Get()->header, 0x8000000000000000u | sign);
        EXPECT_EQ(PlainText(x), sign != 0 ? "-0" : "0");
        EXPECT_TRUE(RealIsZero(x));
        EXPECT_FALSE(RealIsInfinite(x));
        EXPECT_FALSE(RealIsNaN(x));
        RealSetInfinity(x, sign);
        EXPECT_EQ(x.Get()->header, 0x8000000000000000u | sign);
        EXPECT_EQ(PlainText(x), sign != 0 ? "-inf" : "inf");
        EXPECT_TRUE(RealIsInfinite(x));
        EXPECT_FALSE(RealIsZero(x));
    }
    RealSetNaN(x);
    EXPECT_EQ(x.Get()->header, 0x8000000000000000u);
    EXPECT_EQ(PlainText(x), "nan");
    EXPECT_TRUE(RealIsNaN(x));
    EXPECT_TRUE(RealIsSpecial(x));
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    RealSetNaN(x, CalcErrorUndefined);
    EXPECT_EQ(PlainText(x), "nan");
    EXPECT_EQ(TakeCode(), CalcErrorUndefined);
    RealSetOne(x);
    EXPECT_FALSE(RealIsSpecial(x));
}

TEST(RealNumber, SignsAreSetAndFlipped) {
    PrecisionScope scope(20);
    const auto negated = [](std::string_view text) {
        RealBuffer x(text);
        RealNegate(x);
        return PlainText(x);
    };
    EXPECT_EQ(negated("1.5"), "-1.5e0");
    EXPECT_EQ(negated("-1.5e-7"), "1.5e-7");
    EXPECT_EQ(negated("0"), "-0");
    EXPECT_EQ(negated("-inf"), "inf");
    EXPECT_EQ(negated("nan"), "nan");
    RealBuffer x("-2e5");
    EXPECT_EQ(RealSign(x), 1u);
    EXPECT_EQ(RealExponent(x), 5);
    RealSetSign(x, 0);
    EXPECT_EQ(PlainText(x), "2e5");
    RealSetSign(x, 1);
    EXPECT_EQ(PlainText(x), "-2e5");
}

TEST(RealCopy, CopiesHeaderAndLimbs) {
    RandomSource random;
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        RealBuffer x;
        FillReal(random, x, 99);
        RealBuffer copy;
        RealCopy(copy, x);
        EXPECT_EQ(copy, x);
    }
}

TEST(RealAbs, TakesTheSignOff) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        const auto magnitude = [](std::string_view text) {
            const RealBuffer x(text);
            RealBuffer dest;
            RealAbs(dest, x);
            RealBuffer same = x;
            RealAbs(same, same);
            EXPECT_EQ(same, dest);
            return PlainText(dest);
        };
        EXPECT_EQ(magnitude("-3e-7"), "3e-7");
        EXPECT_EQ(magnitude("3e-7"), "3e-7");
        EXPECT_EQ(magnitude("-0"), "0");
        EXPECT_EQ(magnitude("-inf"), "inf");
        EXPECT_EQ(magnitude("nan"), "nan");
    }
}

TEST(RealIsWellFormed, HoldsRecordsToTheNormalForm) {
    PrecisionScope scope(39);  // 1, 19 and 19 digits
    EXPECT_EQ(RealWords(), 4);
    for (const char* text : {"0", "-0", "inf", "-inf", "nan", "1", "-9.9e99"}) {
        EXPECT_TRUE(RealIsWellFormed(RealBuffer(text))) << text;
    }
    const auto with = [](std::string_view text, int64_t limb, Limb value) {
        RealBuffer x(text);
        x.Limbs()[limb] = value;
        return RealIsWellFormed(x);
    };
    EXPECT_TRUE(with("1", 2, LimbBase - 1));
    EXPECT_FALSE(with("1", 2, LimbBase));
    EXPECT_FALSE(with("1", 1, LimbBase));
    EXPECT_FALSE(with("1", 0, 0));
    EXPECT_FALSE(with("1", 0, 10));
    EXPECT_FALSE(with("0", 0, 3));
    EXPECT_FALSE(with("0", 2, 1));
    EXPECT_FALSE(with("inf", 1, 1));
    RealBuffer negativeNaN("nan");
    negativeNaN.Get()->header |= 1;
    EXPECT_TRUE(RealIsWellFormed(negativeNaN));
}

TEST(RealSetExponent, KeepsTheSignAndReportsTheRange) {
    PrecisionScope scope(20);
    const std::string top = std::to_string((int64_t{1} << 62) - 1);
    const auto check = [](int64_t exponent, bool inRange, const std::string& expected,
                          CalcError code) {
        for (uint64_t sign : {0, 1}) {
            const std::string text = (sign != 0 ? "-" : "") + expected;
            RealBuffer x(sign != 0 ? "-1.25" : "1.25");
            EXPECT_EQ(RealSetExponent(x, exponent), inRange);
            EXPECT_EQ(PlainText(x), text);
            EXPECT_EQ(TakeCode(), code);
            RealBuffer y("1.25");
            EXPECT_EQ(RealSetExponentAndSign(y, exponent, sign), inRange);
            EXPECT_EQ(PlainText(y), text);
            EXPECT_EQ(TakeCode(), code);
        }
    };
    const int64_t most = (int64_t{1} << 62) - 1;
    check(7, true, "1.25e7", CalcErrorNone);
    check(most, true, "1.25e" + top, CalcErrorNone);
    check(-most, true, "1.25e-" + top, CalcErrorNone);
    check(most + 1, false, "inf", CalcErrorOverflow);
    check(INT64_MAX, false, "inf", CalcErrorOverflow);
    check(-most - 1, false, "0", CalcErrorNone);
    check(INT64_MIN, false, "0", CalcErrorNone);
    FieldScope<uint8_t> underflow(numberContext.reportUnderflow, 1);
    FieldScope<uint8_t> overflow(numberContext.reportOverflow, 0);
    check(most + 1, false, "inf", CalcErrorNone);
    check(-most - 1, false, "0", CalcErrorUnderflow);
}

TEST(RealSetExponentAndSign, TakesTheSignFromItsArgument) {
    PrecisionScope scope(20);
    RealBuffer x("-1");
    EXPECT_TRUE(RealSetExponentAndSign(x, 3, 0));
    EXPECT_EQ(PlainText(x), "1e3");
}

}  // namespace
}  // namespace tallymere
