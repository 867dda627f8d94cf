#include "core/real_compare.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

int Compare(std::string_view a, std::string_view b, bool ignoreSign = false) {
    const RealBuffer x(a);
    const RealBuffer y(b);
    const RealBuffer xBefore = x;
    const RealBuffer yBefore = y;
    const int result = RealCompare(x, y, ignoreSign);
    EXPECT_EQ(x, xBefore);
    EXPECT_EQ(y, yBefore);
    return result;
}

TEST(RealCompare, OrdersAllKindsOfValues) {
    // Each is below all that follow it; values on one line are equal.
    const std::vector<std::vector<const char*>> ascending = {
        {"-inf"}, {"-2e9"}, {"-1e9"}, {"-2"},  {"-1"},  {"-9e-5"}, {"0", "-0"},
        {"9e-5"}, {"1"},    {"2"},    {"1e9"}, {"2e9"}, {"inf"},
    };
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (size_t i = 0; i < ascending.size(); i++) {
            for (size_t j = 0; j < ascending.size(); j++) {
                for (const char* a : ascending[i]) {
                    for (const char* b : ascending[j]) {
                        EXPECT_EQ(Compare(a, b), i < j ? -1 : i > j ? 1 : 0) << a << " " << b;
                    }
                }
            }
        }
    }
}

TEST(RealCompare, GivesOneForNaNOnEitherSide) {
    PrecisionScope scope(20);
    for (const char* other : {"nan", "0", "-0", "1", "-1", "inf", "-inf"}) {
        for (bool ignoreSign : {false, true}) {
            EXPECT_EQ(Compare("nan", other, ignoreSign), 1);
            EXPECT_EQ(Compare(other, "nan", ignoreSign), 1);
        }
    }
}

TEST(RealCompare, TakesSignsAsPositiveWhenTheyAreIgnored) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(Compare("-1", "1", true), 0);
        EXPECT_EQ(Compare("-2", "1", true), 1);
        EXPECT_EQ(Compare("1", "-2", true), -1);
        EXPECT_EQ(Compare("-inf", "inf", true), 0);
        EXPECT_EQ(Compare("-inf", "5", true), 1);
        EXPECT_EQ(Compare("-5", "-inf", true), -1);
        EXPECT_EQ(Compare("0", "-5", true), -1);
        EXPECT_EQ(Compare("-5", "-0", true), 1);
        EXPECT_EQ(Compare("-0", "0", true), 0);
    }
}

TEST(RealCompare, SeesADifferenceInEveryLimb) {
    PrecisionScope scope(100);
    RandomSource random;
    for (int64_t limb = 0; limb < numberContext.realLimbs; limb++) {
        RealBuffer a("5");
        FillLimbs(random, a.Limbs() + 1, numberContext.realLimbs - 1);
        a.Limbs()[limb] = 1'234;
        if (limb != 0) {
            a.Limbs()[0] = 50'000;
        }
        RealBuffer b = a;
        if (limb == 0) {
            a.Limbs()[0] = 12'345;
            b.Limbs()[0] = 12'346;
        } else {
            // Limbs as large as they can be, compared as unsigned words.
            a.Limbs()[limb] = LimbBase - 2;
            b.Limbs()[limb] = LimbBase - 1;
        }
        EXPECT_EQ(RealCompare(a, b), -1);
        EXPECT_EQ(RealCompare(b, a), 1);
        RealNegate(a);
        RealNegate(b);
        EXPECT_EQ(RealCompare(a, b), 1);
        EXPECT_EQ(RealCompare(a, a), 0);
    }
}

// Comparisons with integers.

int CompareInt(std::string_view text, int64_t k) {
    return RealCompareInt(RealBuffer(text), k);
}
int CompareUint(std::string_view text, uint64_t k, bool ignoreSign = false) {
    return RealCompareUint(RealBuffer(text), k, ignoreSign);
}
int CompareScaled(std::string_view text, uint64_t k, int64_t e, bool ignoreSign = false) {
    return RealCompareScaled(RealBuffer(text), k, e, ignoreSign);
}

TEST(RealCompareWithIntegers, KnowSpecialValues) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (uint64_t k : {uint64_t{0}, uint64_t{3}, ~uint64_t{0}}) {
            EXPECT_EQ(CompareUint("nan", k), 1);
            EXPECT_EQ(CompareUint("nan", k, true), 1);
            EXPECT_EQ(CompareUint("inf", k), 1);
            EXPECT_EQ(CompareUint("-inf", k), -1);
            EXPECT_EQ(CompareUint("-inf", k, true), 1);
        }
        for (int64_t k : {int64_t{0}, int64_t{3}, int64_t{-3}, INT64_MAX, INT64_MIN}) {
            EXPECT_EQ(CompareInt("nan", k), 1);
            EXPECT_EQ(CompareInt("inf", k), 1);
            EXPECT_EQ(CompareInt("-inf", k), -1);
        }
        for (uint64_t k : {uint64_t{0}, uint64_t{11}}) {
            EXPECT_EQ(CompareScaled("nan", k, 0), 1);
            EXPECT_EQ(CompareScaled("inf", k, MaxExponent), 1);
            EXPECT_EQ(CompareScaled("-inf", k, 0), -1);
            EXPECT_EQ(CompareScaled("-inf", k, 0, true), 1);
        }
    }
}

TEST(RealCompareWithIntegers, CompareZeroBySign) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (const char* zero : {"0", "-0"}) {
            EXPECT_EQ(CompareInt(zero, 0), 0);
            EXPECT_EQ(CompareUint(zero, 0), 0);
            EXPECT_EQ(CompareScaled(zero, 0, 5), 0);
            EXPECT_EQ(CompareInt(zero, 7), -1);
            EXPECT_EQ(CompareInt(zero, -7), 1);
            EXPECT_EQ(CompareUint(zero, 7), -1);
            EXPECT_EQ(CompareScaled(zero, 7, -3), -1);
        }
        EXPECT_EQ(CompareInt("1e-50", 0), 1);
        EXPECT_EQ(CompareInt("-1e-50", 0), -1);
        EXPECT_EQ(CompareUint("9", 0), 1);
        EXPECT_EQ(CompareUint("-9", 0), -1);
        EXPECT_EQ(CompareUint("-9", 0, true), 1);
        EXPECT_EQ(CompareScaled("-9e9", 0, 0), -1);
    }
}

TEST(RealCompareWithIntegers, DecideBySignThenExponentThenDigits) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(CompareInt("7", 7), 0);
        EXPECT_EQ(CompareInt("-7", -7), 0);
        EXPECT_EQ(CompareInt("-7", 7), -1);
        EXPECT_EQ(CompareInt("7", -7), 1);
        EXPECT_EQ(CompareInt("7", 8), -1);
        EXPECT_EQ(CompareInt("-7", -8), 1);
        EXPECT_EQ(CompareInt("7", 70), -1);
        EXPECT_EQ(CompareInt("7e1", 7), 1);
        EXPECT_EQ(CompareInt("-7e1", -7), -1);
        EXPECT_EQ(CompareUint("-7", 7), -1);
        EXPECT_EQ(CompareUint("-7", 7, true), 0);
        EXPECT_EQ(CompareUint("-8", 7, true), 1);
        EXPECT_EQ(CompareUint("6", 7), -1);
        EXPECT_EQ(CompareScaled("-7e5", 7, 5), -1);
        EXPECT_EQ(CompareScaled("-7e5", 7, 5, true), 0);
        EXPECT_EQ(CompareScaled("7e5", 7, 6), -1);
        EXPECT_EQ(CompareScaled("7e5", 7, 4), 1);
        EXPECT_EQ(CompareScaled("7e-5", 70, -5), 0);
    }
}

TEST(RealCompareUint, ComparesAllDigitsOfTheInteger) {
    for (int64_t p : {20, 37, 38, 39, 57, 100}) {
        PrecisionScope scope(p);
        for (uint64_t k :
             {uint64_t{12'345'678'901'234'567'890u}, uint64_t{18'446'744'073'709'551'614u},
              uint64_t{9'999'999'999'999'999'999u}, uint64_t{1'000'000'000'000'000'001u}}) {
            SCOPED_TRACE(k);
            const std::string text = std::to_string(k);
            EXPECT_EQ(CompareUint(text, k), 0);
            EXPECT_EQ(CompareUint(text, k - 1), 1);
            EXPECT_EQ(CompareUint(text, k + 1), -1);
            EXPECT_EQ(CompareUint("-" + text, k, true), 0);
            if (static_cast<size_t>(p) > text.size()) {
                // Any digit behind makes x the larger.
                EXPECT_EQ(CompareUint(
                              text + "." +
                                  std::string(static_cast<size_t>(p) - text.size() - 1, '0') + "1",
                              k),
                          1);
            }
        }
    }
}

TEST(RealCompareUint, ComparesDigitsThatTheNumberCannotHold) {
    PrecisionScope scope(2);
    EXPECT_EQ(CompareUint("120", 123), -1);
    EXPECT_EQ(CompareUint("120", 120), 0);
    EXPECT_EQ(CompareUint("130", 123), 1);
}

TEST(RealCompareInt, CutsTheIntegerToTheDigitsOfTheFirstLimb) {
    {
        PrecisionScope scope(20);  // 1 digit in the first limb
        EXPECT_EQ(CompareInt("10", 19), 0);
        EXPECT_EQ(CompareInt("11", 19), 1);
        EXPECT_EQ(CompareInt("20", 19), 1);
        EXPECT_EQ(CompareInt("-10", -19), 0);
        EXPECT_EQ(CompareInt("-11", -19), -1);
        EXPECT_EQ(CompareInt("9", 19), -1);
        EXPECT_EQ(CompareInt("9000000000000000000", INT64_MAX), 0);
        EXPECT_EQ(CompareInt("-9000000000000000000", INT64_MIN), 0);
    }
    {
        PrecisionScope scope(22);  // 3 digits
        EXPECT_EQ(CompareInt("1230", 1239), 0);
        EXPECT_EQ(CompareInt("1231", 1239), 1);
        EXPECT_EQ(CompareInt("123", 123), 0);
    }
    {
        PrecisionScope scope(38);  // 19 digits, all that a signed integer has
        EXPECT_EQ(CompareInt("9223372036854775807", INT64_MAX), 0);
        EXPECT_EQ(CompareInt("-9223372036854775808", INT64_MIN), 0);
        EXPECT_EQ(CompareInt("9223372036854775806", INT64_MAX), -1);
    }
}

TEST(RealCompareScaled, ReadsTheDigitsAsAMantissa) {
    PrecisionScope scope(20);
    EXPECT_EQ(CompareScaled("1.1", 11, 0), 0);
    EXPECT_EQ(CompareScaled("1.1000000000000000001", 11, 0), 1);
    EXPECT_EQ(CompareScaled("1.0999999999999999999", 11, 0), -1);
    EXPECT_EQ(CompareScaled("1.23456789012345678e-9", 123'456'789'012'345'678, -9), 0);
    EXPECT_EQ(CompareScaled("1.23456789012345677e-9", 123'456'789'012'345'678, -9), -1);
}

TEST(RealCompareScaled, RefusesMoreThanEighteenDigits) {
    PrecisionScope scope(20);
    EXPECT_EQ(CompareScaled("1", 999'999'999'999'999'999u, 0), -1);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    EXPECT_EQ(CompareScaled("1", 1'000'000'000'000'000'000u, 1), 1);
    EXPECT_EQ(TakeCode(), CalcErrorUndefined);
}

TEST(RealCompareUint, LooksAtEveryLimbBehindTheInteger) {
    PrecisionScope scope(100);
    for (int64_t limb = 1; limb < numberContext.realLimbs; limb++) {
        RealBuffer x("7");
        x.Limbs()[limb] = 1;
        EXPECT_EQ(RealCompareUint(x, 7), 1);
        EXPECT_EQ(RealCompareInt(x, 7), 1);
        RealNegate(x);
        EXPECT_EQ(RealCompareUint(x, 7, true), 1);
        EXPECT_EQ(RealCompareInt(x, -7), -1);
    }
}

}  // namespace
}  // namespace tallymere
