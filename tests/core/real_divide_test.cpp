#include "core/real_divide.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/real_layout.h"
#include "core/real_rounding.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// Quotients by a machine integer.

Outcome DividedByUint(std::string_view text, uint64_t d) {
    RealBuffer x(text);
    RealRound(x, RealDivUint(x, x, d));
    return {PlainText(x), TakeCode()};
}

TEST(RealDivUint, DoesNotTakeTheLargestWordForAPowerOfTwo) {
    PrecisionScope scope(20);
    RealBuffer x("5");
    RealRound(x, RealDivUint(x, x, ~uint64_t{0}));
    EXPECT_EQ(PlainText(x), "2.7105054312137610852e-19");
}

TEST(RealDivUint, KnowsSpecialValuesAndZero) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(DividedByUint("nan", 0), (Outcome{"nan", CalcErrorNone}));
        EXPECT_EQ(DividedByUint("nan", 3), (Outcome{"nan", CalcErrorNone}));
        EXPECT_EQ(DividedByUint("0", 0), (Outcome{"nan", CalcErrorUndefined}));
        EXPECT_EQ(DividedByUint("-0", 0), (Outcome{"nan", CalcErrorUndefined}));
        EXPECT_EQ(DividedByUint("1", 0), (Outcome{"inf", CalcErrorOverflow}));
        EXPECT_EQ(DividedByUint("-4e-9", 0), (Outcome{"-inf", CalcErrorOverflow}));
        EXPECT_EQ(DividedByUint("inf", 0), (Outcome{"inf", CalcErrorOverflow}));
        EXPECT_EQ(DividedByUint("-inf", 0), (Outcome{"-inf", CalcErrorOverflow}));
        EXPECT_EQ(DividedByUint("inf", 7), (Outcome{"inf", CalcErrorNone}));
        EXPECT_EQ(DividedByUint("-inf", 7), (Outcome{"-inf", CalcErrorNone}));
        EXPECT_EQ(DividedByUint("0", 7), (Outcome{"0", CalcErrorNone}));
        EXPECT_EQ(DividedByUint("-0", 7), (Outcome{"-0", CalcErrorNone}));
    }
}

TEST(RealDivUint, IsSilentOverZeroUnlessOverflowIsReported) {
    PrecisionScope scope(20);
    FieldScope<uint8_t> quiet(numberContext.reportOverflow, 0);
    EXPECT_EQ(DividedByUint("-1", 0), (Outcome{"-inf", CalcErrorNone}));
    EXPECT_EQ(DividedByUint("0", 0), (Outcome{"nan", CalcErrorUndefined}));
}

TEST(RealDivUint, DividesByEveryPowerOfTwo) {
    for (int64_t p : {1, 19, 20, 57, 100}) {
        PrecisionScope scope(p);
        for (int k = 0; k < 64; k++) {
            // x is 2^k where it fits, so that the quotient is 1.
            const uint64_t power = uint64_t{1} << k;
            if (std::to_string(power).size() <= static_cast<size_t>(p)) {
                EXPECT_EQ(DividedByUint("-" + std::to_string(power), power),
                          (Outcome{"-1e0", CalcErrorNone}));
            }
            EXPECT_EQ(DividedByUint("0", power), (Outcome{"0", CalcErrorNone}));
        }
    }
}

TEST(RealDivUint, KeepsTheSignAndAllDigits) {
    PrecisionScope scope(38);
    EXPECT_EQ(DividedByUint("-1", 3),
              (Outcome{"-3." + std::string(37, '3') + "e-1", CalcErrorNone}));
    EXPECT_EQ(DividedByUint("2", 3),
              (Outcome{"6." + std::string(36, '6') + "7e-1", CalcErrorNone}));
    EXPECT_EQ(DividedByUint("1", LimbBase), (Outcome{"1e-19", CalcErrorNone}));
}

TEST(RealDivUint, UnderflowsToZeroBelowTheRange) {
    PrecisionScope scope(20);
    const std::string least = "-1e" + std::to_string(MinExponent);
    EXPECT_EQ(DividedByUint(least, 2), (Outcome{"-0", CalcErrorNone}));
    FieldScope<uint8_t> report(numberContext.reportUnderflow, 1);
    EXPECT_EQ(DividedByUint(least, 2), (Outcome{"-0", CalcErrorUnderflow}));
}

// Quotients of two numbers, and reciprocals.

Outcome Quotient(std::string_view a, std::string_view b) {
    const RealBuffer x(a);
    const RealBuffer y(b);
    RealBuffer quotient;
    RealDiv(quotient, x, y);
    const CalcError code = TakeCode();
    RealBuffer inPlace = x;
    RealDiv(inPlace, inPlace, y);
    EXPECT_EQ(inPlace, quotient);
    inPlace = y;
    RealDiv(inPlace, x, inPlace);
    EXPECT_EQ(inPlace, quotient);
    TakeCode();
    return {PlainText(quotient), code};
}

Outcome RawQuotient(std::string_view a, std::string_view b) {
    RealBuffer quotient;
    RealDivRaw(quotient, RealBuffer(a), RealBuffer(b));
    return {PlainText(quotient), TakeCode()};
}

TEST(RealDiv, FollowsTheTableOfSpecialValues) {
    struct Row {
        const char* a;
        const char* b;
        Outcome expected;
    };
    const std::vector<Row> rows = {
        {"nan", "1", {"nan", CalcErrorNone}},
        {"1", "nan", {"nan", CalcErrorNone}},
        {"nan", "nan", {"nan", CalcErrorNone}},
        {"nan", "0", {"nan", CalcErrorNone}},
        {"0", "nan", {"nan", CalcErrorNone}},
        {"inf", "nan", {"nan", CalcErrorNone}},
        {"inf", "inf", {"nan", CalcErrorUndefined}},
        {"-inf", "inf", {"nan", CalcErrorUndefined}},
        {"inf", "2", {"inf", CalcErrorNone}},
        {"inf", "-2", {"-inf", CalcErrorNone}},
        {"-inf", "-2", {"inf", CalcErrorNone}},
        {"inf", "0", {"inf", CalcErrorNone}},
        {"inf", "-0", {"-inf", CalcErrorNone}},
        {"-inf", "0", {"-inf", CalcErrorNone}},
        {"0", "0", {"nan", CalcErrorUndefined}},
        {"0", "-0", {"nan", CalcErrorUndefined}},
        {"0", "5", {"0", CalcErrorNone}},
        {"-0", "5", {"-0", CalcErrorNone}},
        {"0", "-5", {"-0", CalcErrorNone}},
        {"-0", "-5", {"0", CalcErrorNone}},
        {"0", "inf", {"0", CalcErrorNone}},
        {"0", "-inf", {"-0", CalcErrorNone}},
        {"1", "0", {"inf", CalcErrorOverflow}},
        {"1", "-0", {"-inf", CalcErrorOverflow}},
        {"-1", "0", {"-inf", CalcErrorOverflow}},
        {"3", "inf", {"0", CalcErrorNone}},
        {"-3", "inf", {"-0", CalcErrorNone}},
        {"3", "-inf", {"-0", CalcErrorNone}},
    };
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (const Row& row : rows) {
            SCOPED_TRACE(std::string(row.a) + " / " + row.b);
            EXPECT_EQ(Quotient(row.a, row.b), row.expected);
            EXPECT_EQ(RawQuotient(row.a, row.b), row.expected);
        }
    }
}

TEST(RealDiv, IsSilentOverZeroUnlessOverflowIsReported) {
    PrecisionScope scope(20);
    FieldScope<uint8_t> quiet(numberContext.reportOverflow, 0);
    EXPECT_EQ(Quotient("-1", "0"), (Outcome{"-inf", CalcErrorNone}));
    EXPECT_EQ(Quotient("0", "0"), (Outcome{"nan", CalcErrorUndefined}));
}

TEST(RealDiv, DividesSmallIntegers) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(Quotient("6", "-2"), (Outcome{"-3e0", CalcErrorNone}));
        EXPECT_EQ(Quotient("-1", "8e2"), (Outcome{p == 1   ? "-1e-3"
                                                  : p == 2 ? "-1.3e-3"
                                                           : "-1.25e-3",
                                                  CalcErrorNone}));
        const std::string third =
            p == 1 ? "3e-1" : "3." + std::string(static_cast<size_t>(p - 1), '3') + "e-1";
        EXPECT_EQ(Quotient("1", "3"), (Outcome{third, CalcErrorNone}));
    }
}

TEST(RealReciprocal, KnowsSpecialValues) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        const auto reciprocals = [](std::string_view text) {
            const RealBuffer x(text);
            RealBuffer any;
            RealReciprocalAny(any, x);
            const CalcError code = TakeCode();
            RealBuffer rounded;
            RealReciprocal(rounded, x);
            EXPECT_EQ(TakeCode(), code);
            EXPECT_EQ(rounded, any);
            return Outcome{PlainText(any), code};
        };
        EXPECT_EQ(reciprocals("0"), (Outcome{"inf", CalcErrorOverflow}));
        EXPECT_EQ(reciprocals("-0"), (Outcome{"-inf", CalcErrorOverflow}));
        EXPECT_EQ(reciprocals("inf"), (Outcome{"0", CalcErrorNone}));
        EXPECT_EQ(reciprocals("-inf"), (Outcome{"-0", CalcErrorNone}));
        EXPECT_EQ(reciprocals("nan"), (Outcome{"nan", CalcErrorNone}));
        FieldScope<uint8_t> quiet(numberContext.reportOverflow, 0);
        EXPECT_EQ(reciprocals("-0"), (Outcome{"-inf", CalcErrorNone}));
    }
}

TEST(RealReciprocal, OfAPowerOfTenIsExact) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        for (const char* power : {"1", "-1e5", "1e-12"}) {
            RealBuffer x(power);
            RealBuffer raw;
            EXPECT_EQ(RealReciprocalRaw(raw, x), 0u);
            RealBuffer expected("1");
            expected.Get()->header = MakeHeader(-RealExponent(x), RealSign(x));
            EXPECT_EQ(raw, expected);
            RealReciprocal(x, x);
            EXPECT_EQ(x, expected);
        }
    }
}

TEST(RealReciprocal, UnderflowsAtTheTopOfTheExponentRange) {
    PrecisionScope scope(20);
    FieldScope<uint8_t> report(numberContext.reportUnderflow, 1);
    RealBuffer x("-2e" + std::to_string(MaxExponent));
    RealReciprocal(x, x);
    EXPECT_EQ(PlainText(x), "-0");
    EXPECT_EQ(TakeCode(), CalcErrorUnderflow);
    RealBuffer least("1e" + std::to_string(MinExponent));
    RealReciprocal(least, least);
    EXPECT_EQ(PlainText(least), "1e" + std::to_string(MaxExponent));
}

TEST(RealDiv, IsZeroWhereTheReciprocalOfTheDivisorIsBelowTheRange) {
    PrecisionScope scope(20);
    FieldScope<uint8_t> report(numberContext.reportUnderflow, 1);
    const RealBuffer most("2e" + std::to_string(MaxExponent));
    RealBuffer x;
    RealDiv(x, most, most);
    EXPECT_EQ(PlainText(x), "0");
    EXPECT_EQ(TakeCode(), CalcErrorUnderflow);
    // One step inside the range the same quotient has its value.
    const RealBuffer inside("2e" + std::to_string(MaxExponent - 1));
    RealDiv(x, inside, inside);
    EXPECT_EQ(PlainText(x), "1e0");
}

TEST(RealDiv, KeepsTheFirstCode) {
    PrecisionScope scope(20);
    SetCalcError(CalcErrorSyntax);
    RealBuffer x;
    RealDiv(x, RealBuffer("0"), RealBuffer("0"));
    RealDiv(x, RealBuffer("1"), RealBuffer("0"));
    EXPECT_EQ(TakeCode(), CalcErrorSyntax);
}

}  // namespace
}  // namespace tallymere
