#include "core/real_integer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "core/real_rounding.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

std::string FromUint(uint64_t k) {
    RealBuffer x;
    const Limb guard = RealFromUint(x, k);
    EXPECT_TRUE(numberContext.realLimbs == 1 || guard == 0);
    RealRound(x, guard);
    return PlainText(x);
}

TEST(RealFromUint, GivesTheIntegerWhereItFits) {
    for (int64_t p : {20, 21, 37, 38, 39, 57, 1000}) {
        PrecisionScope scope(p);
        EXPECT_EQ(FromUint(0), "0");
        uint64_t power = 1;
        for (int k = 0; k <= 19; k++, power *= 10) {
            for (uint64_t v : {power, power - 1, power + 1, power * 3}) {
                if (v != 0) {
                    EXPECT_EQ(FromUint(v), PlainText(RealBuffer(std::to_string(v))));
                }
            }
        }
        EXPECT_EQ(FromUint(~uint64_t{0}), PlainText(RealBuffer("18446744073709551615")));
    }
}

TEST(RealFromUint, LeavesInTheGuardLimbWhatDoesNotFit) {
    PrecisionScope scope(3);
    RealBuffer x;
    EXPECT_EQ(RealFromUint(x, 12'345), 4'500'000'000'000'000'000u);
    EXPECT_EQ(PlainText(x), "1.23e4");
    EXPECT_EQ(RealFromUint(x, 18'446'744'073'709'551'615u), 4'674'407'370'955'161'500u);
    EXPECT_EQ(PlainText(x), "1.84e19");
    EXPECT_EQ(RealFromUint(x, 123), 0u);
    EXPECT_EQ(FromUint(9'995), "1e4");
}

TEST(RealFromInt, RoundsAndTakesTheSign) {
    {
        PrecisionScope scope(19);
        RealBuffer x;
        RealFromInt(x, INT64_MIN);
        EXPECT_EQ(PlainText(x), "-9.223372036854775808e18");
        RealFromInt(x, INT64_MAX);
        EXPECT_EQ(PlainText(x), "9.223372036854775807e18");
        RealFromInt(x, 0);
        EXPECT_EQ(PlainText(x), "0");
    }
    PrecisionScope scope(2);
    RealBuffer x;
    RealFromInt(x, -995);
    EXPECT_EQ(PlainText(x), "-1e3");
    RealFromInt(x, -994);
    EXPECT_EQ(PlainText(x), "-9.9e2");
}

// To machine integers, and the leading digits.

// The integer, or "fails" and the output 0.
std::string ToUint(std::string_view text, uint32_t flags) {
    uint64_t out = 77;
    if (RealToUint(&out, RealBuffer(text), flags)) {
        return std::to_string(out);
    }
    EXPECT_EQ(out, 0u);
    return "fails";
}
std::string ToInt(std::string_view text, uint32_t flags) {
    int64_t out = 77;
    if (RealToInt(&out, RealBuffer(text), flags)) {
        return std::to_string(out);
    }
    EXPECT_EQ(out, 0);
    return "fails";
}

TEST(RealToUint, KnowsSpecialValues) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (uint32_t flags : {0u, 0x200000u, 0x400000u, 0x600000u}) {
            EXPECT_EQ(ToUint("0", flags), "0");
            EXPECT_EQ(ToUint("-0", flags), "0");
            EXPECT_EQ(ToUint("inf", flags), "fails");
            EXPECT_EQ(ToUint("-inf", flags), "fails");
            EXPECT_EQ(ToUint("nan", flags), "fails");
            EXPECT_EQ(ToInt("-0", flags), "0");
            EXPECT_EQ(ToInt("-inf", flags), "fails");
            EXPECT_EQ(ToInt("nan", flags), "fails");
        }
    }
}

TEST(RealToUint, DropsAFractionOnlyWhereAllowed) {
    EXPECT_EQ(AllowFraction, 0x200000u);
    EXPECT_EQ(AllowNegative, 0x400000u);
    for (int64_t p : {2, 18, 19, 20, 38, 39}) {
        PrecisionScope scope(p);
        EXPECT_EQ(ToUint("1.5", IntegerExact), "fails");
        EXPECT_EQ(ToUint("1.5", AllowFraction), "1");
        EXPECT_EQ(ToUint("0.5", IntegerExact), "fails");
        EXPECT_EQ(ToUint("0.5", AllowFraction), "0");
        EXPECT_EQ(ToUint("9.9e-99", AllowFraction), "0");
        EXPECT_EQ(ToInt("-1.5", IntegerExact), "fails");
        EXPECT_EQ(ToInt("-1.5", AllowFraction), "-1");
        EXPECT_EQ(ToInt("-0.5", AllowFraction), "0");
    }
}

TEST(RealToUint, DeliversAMagnitudeOnlyWhereAllowed) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(ToUint("-3", IntegerExact), "fails");
        EXPECT_EQ(ToUint("-3", AllowFraction), "fails");
        EXPECT_EQ(ToUint("-3", AllowNegative), "3");
        EXPECT_EQ(ToUint("-0.5", AllowNegative | AllowFraction), "0");
        EXPECT_EQ(ToUint("-0.5", AllowNegative), "fails");
        EXPECT_EQ(ToInt("-3", IntegerExact), "-3");
    }
}

TEST(RealToUint, ReadsEveryExponentFromOneOrTwoLimbs) {
    const std::string digits = "1234567890123456789";
    for (int64_t p : {1, 2, 9, 18, 19, 20, 21, 30, 37, 38, 39, 57}) {
        PrecisionScope scope(p);
        for (size_t count = 1; count <= 19; count++) {
            // As many digits as the precision has, then zeros.
            std::string text = digits.substr(0, std::min(count, static_cast<size_t>(p)));
            text.append(count - text.size(), '0');
            EXPECT_EQ(ToUint(text, IntegerExact), text);
            EXPECT_EQ(ToInt("-" + text, IntegerExact), "-" + text);
            if (static_cast<size_t>(p) > count) {
                EXPECT_EQ(ToUint(text + ".9", AllowFraction), text);
                EXPECT_EQ(ToUint(text + ".9", IntegerExact), "fails");
            }
        }
    }
}

TEST(RealToUint, FitsTwentyDigitsUpToTheLargestWord) {
    for (int64_t p : {20, 21, 38, 39, 57}) {
        PrecisionScope scope(p);
        EXPECT_EQ(ToUint("18446744073709551615", IntegerExact), "18446744073709551615");
        EXPECT_EQ(ToUint("18446744073709551616", IntegerExact), "fails");
        EXPECT_EQ(ToUint("10000000000000000001", IntegerExact), "10000000000000000001");
        EXPECT_EQ(ToUint("18446744073709551609", IntegerExact), "18446744073709551609");
        EXPECT_EQ(ToUint("99999999999999999999", IntegerExact), "fails");
        if (p > 20) {
            EXPECT_EQ(ToUint("18446744073709551615.5", IntegerExact), "fails");
            EXPECT_EQ(ToUint("18446744073709551615.5", AllowFraction), "18446744073709551615");
        }
    }
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(ToUint("1e19", IntegerExact), "10000000000000000000");
        EXPECT_EQ(ToUint("2e19", IntegerExact), "fails");
        EXPECT_EQ(ToUint("1e20", IntegerExact), "fails");
        EXPECT_EQ(ToUint("1e300", AllowFraction), "fails");
    }
}

TEST(RealToInt, FitsTheSignedRange) {
    for (int64_t p : {19, 20, 38, 39}) {
        PrecisionScope scope(p);
        EXPECT_EQ(ToInt("9223372036854775807", IntegerExact), "9223372036854775807");
        EXPECT_EQ(ToInt("9223372036854775808", IntegerExact), "fails");
        EXPECT_EQ(ToInt("-9223372036854775808", IntegerExact), "-9223372036854775808");
        EXPECT_EQ(ToInt("-9223372036854775809", IntegerExact), "fails");
        EXPECT_EQ(ToInt("1e19", IntegerExact), "fails");
    }
}

TEST(RealLeadingDigits, ReadsUpToNineteenDigits) {
    for (int64_t p : {1, 2, 18, 19, 20, 21, 37, 38, 39, 57}) {
        PrecisionScope scope(p);
        std::string digits;
        for (int64_t i = 0; i < p; i++) {
            digits += static_cast<char>('1' + i % 9);
        }
        const RealBuffer x("-" + digits);
        digits.append(19, '0');
        for (int64_t k = 1; k <= 19; k++) {
            EXPECT_EQ(std::to_string(RealLeadingDigits(x.Limbs(), k)),
                      digits.substr(0, static_cast<size_t>(k)));
        }
    }
}

TEST(RealSetLeading, WritesNineteenDigitsAndZeros) {
    const std::string digits = "9876543210123456789";
    for (int64_t p : {1, 2, 18, 19, 20, 21, 37, 38, 39, 57}) {
        PrecisionScope scope(p);
        RealBuffer x;
        RealSetLeading(x.Limbs(), 9'876'543'210'123'456'789u);
        x.Get()->header = 0;
        const std::string kept = digits.substr(0, static_cast<size_t>(std::min<int64_t>(p, 19)));
        EXPECT_EQ(PlainText(x), PlainText(RealBuffer(kept.substr(0, 1) + "." + kept.substr(1))));
    }
}

}  // namespace
}  // namespace tallymere
