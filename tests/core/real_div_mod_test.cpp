#include "core/real_div_mod.h"

#include <gtest/gtest.h>

#include <string>

#include "core/scratch.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// Quotient, remainder and code in one line.
std::string DivMod(std::string_view a, std::string_view b) {
    const RealBuffer x(a);
    const RealBuffer y(b);
    RealBuffer quotient;
    RealBuffer remainder;
    RealDivMod(quotient, remainder, x, y);
    const CalcError code = TakeCode();
    // Either output alone gives the same.
    RealBuffer alone;
    RealDivMod(alone, nullptr, x, y);
    EXPECT_EQ(alone, quotient);
    EXPECT_EQ(TakeCode(), code);
    RealDivMod(nullptr, alone, x, y);
    EXPECT_EQ(alone, remainder);
    EXPECT_EQ(TakeCode(), code);
    RealDivMod(nullptr, nullptr, x, y);
    EXPECT_EQ(TakeCode(), code);
    return PlainText(Outcome{PlainText(quotient) + " rest " + PlainText(remainder), code});
}

TEST(RealDivMod, GivesTheRemainderTheSignOfTheQuotient) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(DivMod("7", "2"), "3e0 rest 1e0");
        EXPECT_EQ(DivMod("-7", "2"), "-3e0 rest -1e0");
        EXPECT_EQ(DivMod("7", "-2"), "-3e0 rest -1e0");
        EXPECT_EQ(DivMod("-7", "-2"), "3e0 rest 1e0");
        EXPECT_EQ(DivMod("6", "-2"), "-3e0 rest -0");
        EXPECT_EQ(DivMod("-6", "-2"), "3e0 rest 0");
    }
}

TEST(RealDivMod, CopiesADividendBelowTheDivisor) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(DivMod("1", "3"), "0 rest 1e0");
        EXPECT_EQ(DivMod("-1", "3"), "-0 rest -1e0");
        EXPECT_EQ(DivMod("1", "-3"), "-0 rest 1e0");
        EXPECT_EQ(DivMod("-1", "-3"), "0 rest -1e0");
        EXPECT_EQ(DivMod("-2e-30", "1e30"), "-0 rest -2e-30");
    }
}

TEST(RealDivMod, TruncatesTheQuotientAndKeepsTheRemainderExact) {
    PrecisionScope scope(16);
    EXPECT_EQ(DivMod("1e30", "3"), "3." + std::string(15, '3') + "e29 rest 1e0");
    EXPECT_EQ(DivMod("1e31", "7"), "1.428571428571428e30 rest 3e0");
    EXPECT_EQ(DivMod("1e300", "0.7"), "1.428571428571428e300 rest 3e-1");
}

TEST(RealDivMod, FollowsTheRulesOfSpecialValues) {
    const std::string undefined = "nan rest nan CalcErrorUndefined";
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (const char* other : {"nan", "0", "-0", "1", "-1", "inf", "-inf"}) {
            EXPECT_EQ(DivMod("nan", other), "nan rest nan");
            EXPECT_EQ(DivMod(other, "nan"), "nan rest nan");
        }
        EXPECT_EQ(DivMod("0", "3"), "0 rest 0");
        EXPECT_EQ(DivMod("-0", "3"), "-0 rest -0");
        EXPECT_EQ(DivMod("0", "-3"), "-0 rest -0");
        EXPECT_EQ(DivMod("-0", "-3"), "0 rest 0");
        for (const char* a : {"0", "-0", "3", "-3", "inf", "-inf"}) {
            for (const char* b : {"0", "-0", "inf", "-inf"}) {
                EXPECT_EQ(DivMod(a, b), undefined) << a << " " << b;
            }
        }
        EXPECT_EQ(DivMod("inf", "3"), undefined);
        EXPECT_EQ(DivMod("-inf", "3"), undefined);
    }
}

TEST(RealDivMod, ReportsAQuotientAboveTheRange) {
    PrecisionScope scope(20);
    EXPECT_EQ(DivMod("1e4611686018427387903", "1e-1"), "nan rest nan CalcErrorOverflow");
    FieldScope<uint8_t> quiet(numberContext.reportOverflow, 0);
    EXPECT_EQ(DivMod("1e4611686018427387903", "1e-1"), "nan rest nan");
}

TEST(RealDivMod, FindsEveryDigit) {
    for (int64_t p : {10, 18, 19, 20, 38, 57}) {
        PrecisionScope scope(p);
        EXPECT_EQ(DivMod("9876543210", "1"), "9.87654321e9 rest 0");
        for (int digit = 1; digit <= 9; digit++) {
            EXPECT_EQ(DivMod(std::to_string(digit) + "8", "1e1"),
                      std::to_string(digit) + "e0 rest 8e0");
            // The quotient's digit just reached and just missed.
            const std::string product = std::to_string(digit * 987);
            const std::string under = std::to_string(digit * 987 - 1);
            EXPECT_EQ(DivMod(product, "987"), std::to_string(digit) + "e0 rest 0");
            EXPECT_EQ(DivMod(under, "987"),
                      (digit == 1 ? "0" : std::to_string(digit - 1) + "e0") + " rest 9.86e2");
        }
    }
}

TEST(RealDivMod, StopsAtTheByteThatAsksForIt) {
    PrecisionScope scope(20);
    uint8_t stop = 1;
    FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    // A quotient of 4 * 10^18 digits ends at once.
    EXPECT_EQ(DivMod("1e4611686018427387902", "3"), "nan rest nan CalcErrorCancelled");
    EXPECT_EQ(DivMod("7", "2"), "nan rest nan CalcErrorCancelled");
    // Where no digit is made the byte is not looked at.
    EXPECT_EQ(DivMod("1", "3"), "0 rest 1e0");
    EXPECT_EQ(DivMod("0", "3"), "0 rest 0");
    EXPECT_EQ(DivMod("inf", "3"), "nan rest nan CalcErrorUndefined");

    SetCalcError(CalcErrorOverflow);
    RealBuffer x("7");
    RealDivMod(x, nullptr, x, RealBuffer("2"));
    EXPECT_EQ(TakeCode(), CalcErrorOverflow);
}

TEST(RealDivMod, LooksAtTheByteBeforeEveryLimb) {
    PrecisionScope scope(20);
    // The byte lies in the first block that the operation takes, its quotient: it is the highest of
    // the second limb, which is not 0 when that limb is 333... The third limb is not made.
    auto* const quotientWords = reinterpret_cast<uint8_t*>(numberContext.scratchTop);
    FieldScope<uint8_t*> flag(numberContext.abortFlag, quotientWords + 2 * BytesPerWord + 7);
    EXPECT_EQ(DivMod("1e1", "3"), "3e0 rest 1e0");
    EXPECT_EQ(DivMod("1e20", "3"), "3.3333333333333333333e19 rest 1e0");
    EXPECT_EQ(DivMod("1e21", "3"), "nan rest nan CalcErrorCancelled");
}

#ifndef TALLYMERE_CHECKED_SCRATCH
// The byte lies where nothing has been taken yet, which checked memory does not allow.
TEST(RealDivMod, LooksAtTheByteBeforeEveryProduct) {
    PrecisionScope scope(38);
    // The byte lies behind quotient, divisor, remainder and product, in the power of 10: it is the
    // highest of its first limb, which is 0 at first.
    const int64_t n = numberContext.realLimbs;
    ASSERT_EQ(n, 2);
    uint64_t* const power =
        numberContext.scratchTop + RealWords() + (n + 1) + (n + 2) + (2 * n + 1);
    power[0] = 0;
    FieldScope<uint8_t*> flag(numberContext.abortFlag, reinterpret_cast<uint8_t*>(power) + 7);
    RealBuffer remainder;
    RealDivMod(nullptr, remainder, RealBuffer("1e38"), RealBuffer("9.7e37"));
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    RealDivMod(nullptr, remainder, RealBuffer("1e4000"),
               RealBuffer("9.7000000000000000000000000000000000001e37"));
    EXPECT_EQ(PlainText(remainder), "nan");
    EXPECT_EQ(TakeCode(), CalcErrorCancelled);
}
#endif

TEST(RealDivMod, RemainderBelowTheRangeIsZero) {
    PrecisionScope scope(20);
    FieldScope<uint8_t> report(numberContext.reportUnderflow, 1);
    RealBuffer quotient;
    RealBuffer remainder;
    const RealBuffer a("1.9e-4611686018427387903");
    const RealBuffer b("1e-4611686018427387903");
    RealDivMod(quotient, remainder, a, b);
    EXPECT_EQ(PlainText(quotient), "1e0");
    EXPECT_EQ(PlainText(remainder), "0");
    EXPECT_EQ(TakeCode(), CalcErrorUnderflow);
    // A remainder that nobody wants is not reported.
    RealDivMod(quotient, nullptr, a, b);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

}  // namespace
}  // namespace tallymere
