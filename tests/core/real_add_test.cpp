#include "core/real_add.h"

#include <gtest/gtest.h>

#include <string>

#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// The rounded sum or difference, the same wherever it goes.
Outcome Sum(std::string_view a, std::string_view b, bool subtract = false) {
    const RealBuffer x(a);
    const RealBuffer y(b);
    RealBuffer result;
    (subtract ? RealSub : RealAdd)(result, x, y);
    const CalcError code = TakeCode();
    for (int where = 0; where < 2; where++) {
        RealBuffer left = x;
        RealBuffer right = y;
        RealBuffer& dest = where == 0 ? left : right;
        (subtract ? RealSub : RealAdd)(dest, left, right);
        EXPECT_EQ(TakeCode(), code);
        EXPECT_EQ(dest, result);
    }
    return {PlainText(result), code};
}
Outcome Difference(std::string_view a, std::string_view b) {
    return Sum(a, b, true);
}

TEST(RealAdd, FollowsTheRulesOfSpecialValues) {
    const Outcome undefined = {"nan", CalcErrorUndefined};
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (const char* other : {"0", "-0", "1", "-1", "inf", "-inf", "nan"}) {
            for (bool subtract : {false, true}) {
                EXPECT_EQ(Sum("nan", other, subtract), Silent("nan"));
                EXPECT_EQ(Sum(other, "nan", subtract), Silent("nan"));
            }
        }
        EXPECT_EQ(Sum("0", "0"), Silent("0"));
        EXPECT_EQ(Sum("0", "-0"), Silent("-0"));
        EXPECT_EQ(Sum("-0", "0"), Silent("0"));
        EXPECT_EQ(Sum("-0", "-0"), Silent("-0"));
        EXPECT_EQ(Difference("0", "0"), Silent("-0"));
        EXPECT_EQ(Difference("0", "-0"), Silent("0"));
        EXPECT_EQ(Difference("-0", "0"), Silent("-0"));
        EXPECT_EQ(Sum("0", "-7"), Silent("-7e0"));
        EXPECT_EQ(Difference("-0", "-7"), Silent("7e0"));
        EXPECT_EQ(Sum("-7", "0"), Silent("-7e0"));
        EXPECT_EQ(Difference("-7", "-0"), Silent("-7e0"));
        EXPECT_EQ(Sum("0", "-inf"), Silent("-inf"));
        EXPECT_EQ(Difference("0", "-inf"), Silent("inf"));
        EXPECT_EQ(Sum("-inf", "0"), Silent("-inf"));
        EXPECT_EQ(Sum("5", "inf"), Silent("inf"));
        EXPECT_EQ(Difference("5", "inf"), Silent("-inf"));
        EXPECT_EQ(Sum("5", "-inf"), Silent("-inf"));
        EXPECT_EQ(Difference("5", "-inf"), Silent("inf"));
        EXPECT_EQ(Sum("inf", "-5"), Silent("inf"));
        EXPECT_EQ(Difference("-inf", "-5"), Silent("-inf"));
        EXPECT_EQ(Sum("inf", "inf"), Silent("inf"));
        EXPECT_EQ(Sum("-inf", "-inf"), Silent("-inf"));
        EXPECT_EQ(Difference("inf", "-inf"), Silent("inf"));
        EXPECT_EQ(Difference("-inf", "inf"), Silent("-inf"));
        EXPECT_EQ(Sum("inf", "-inf"), undefined);
        EXPECT_EQ(Sum("-inf", "inf"), undefined);
        EXPECT_EQ(Difference("inf", "inf"), undefined);
        EXPECT_EQ(Difference("-inf", "-inf"), undefined);
    }
}

TEST(RealAdd, KeepsTheFirstOperandsSignInExactCancellation) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(Sum("1", "-1"), Silent("0"));
        EXPECT_EQ(Sum("-1", "1"), Silent("-0"));
        EXPECT_EQ(Difference("1", "1"), Silent("0"));
        EXPECT_EQ(Difference("-1", "-1"), Silent("-0"));
    }
}

TEST(RealAdd, CarriesADigitIntoTheExponent) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        const std::string nines(static_cast<size_t>(p), '9');
        EXPECT_EQ(Sum("5", "5"), Silent("1e1"));
        EXPECT_EQ(Sum("-9e7", "-9e7"), Silent(p == 1 ? "-2e8" : "-1.8e8"));
        EXPECT_EQ(Sum(nines, "1").text, "1e" + std::to_string(p));
        EXPECT_EQ(Sum("1", nines).text, "1e" + std::to_string(p));
        // 1.99...98 to p digits.
        EXPECT_EQ(Sum(nines, nines).text, "2e" + std::to_string(p));
    }
}

TEST(RealAdd, CancelsDownToTheLastDigit) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        const std::string nines(static_cast<size_t>(p), '9');
        EXPECT_EQ(Sum("-" + nines, "1e" + std::to_string(p)), Silent("1e0"));
        EXPECT_EQ(Difference(nines, "1e" + std::to_string(p)), Silent("-1e0"));
    }
}

TEST(RealAdd, RoundsByTheDigitsThatFallOff) {
    PrecisionScope scope(3);
    EXPECT_EQ(Sum("100", "0.5"), Silent("1.01e2"));
    EXPECT_EQ(Sum("100", "0.499"), Silent("1e2"));
    EXPECT_EQ(Sum("-100", "-0.5"), Silent("-1.01e2"));
    EXPECT_EQ(Difference("100", "0.05"), Silent("1e2"));
    EXPECT_EQ(Difference("100", "0.051"), Silent("9.99e1"));
    EXPECT_EQ(Sum("999", "0.5"), Silent("1e3"));
}

TEST(RealAdd, LeavesTheLargerOperandAtAnyDistance) {
    PrecisionScope scope(20);
    for (const char* far : {"1e100", "1e2147483648", "1e4611686018427387903"}) {
        EXPECT_EQ(Sum(far, "-1"), Silent(far));
        EXPECT_EQ(Difference("1", far).text, "-" + std::string(far));
    }
    EXPECT_EQ(Sum("1e4611686018427387903", "1e-4611686018427387903"),
              Silent("1e4611686018427387903"));
}

TEST(RealAdd, OverflowsAndUnderflowsAtTheEndsOfTheRange) {
    PrecisionScope scope(20);
    const std::string top = "9e4611686018427387903";
    EXPECT_EQ(Sum(top, top), (Outcome{"inf", CalcErrorOverflow}));
    EXPECT_EQ(Sum("-" + top, "-" + top), (Outcome{"-inf", CalcErrorOverflow}));
    const std::string least = "1e-4611686018427387903";
    EXPECT_EQ(Difference("1.1e-4611686018427387903", least), Silent("0"));
    EXPECT_EQ(Sum("-1.1e-4611686018427387903", least), Silent("-0"));
    {
        FieldScope<uint8_t> quiet(numberContext.reportOverflow, 0);
        EXPECT_EQ(Sum(top, top), Silent("inf"));
    }
    FieldScope<uint8_t> report(numberContext.reportUnderflow, 1);
    EXPECT_EQ(Difference("1.1e-4611686018427387903", least), (Outcome{"0", CalcErrorUnderflow}));
}

TEST(RealAdd, TruncatesUnderNoRounding) {
    PrecisionScope scope(3);
    FieldScope<uint8_t> truncate(numberContext.noRounding, 1);
    EXPECT_EQ(Sum("100", "0.999"), Silent("1e2"));
}

TEST(RealAdd, KeepsTheFirstCode) {
    PrecisionScope scope(3);
    SetCalcError(CalcErrorSyntax);
    RealBuffer x("inf");
    RealSub(x, x, x);
    EXPECT_EQ(PlainText(x), "nan");
    EXPECT_EQ(TakeCode(), CalcErrorSyntax);
}

}  // namespace
}  // namespace tallymere
