#include "functions/exponential.h"

#include <gtest/gtest.h>

#include <string>

#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_divide.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "functions/function_testing.h"
#include "functions/guard_digits.h"
#include "functions/logarithm.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

Outcome Exp(std::string_view text) {
    return ResultOf(RealExpRounded, text);
}
Outcome Exp2(std::string_view text) {
    return ResultOf(RealExp2Rounded, text);
}
Outcome Exp10(std::string_view text) {
    return ResultOf(RealExp10Rounded, text);
}

constexpr RealRoundedUnary Exponentials[] = {RealExpRounded, RealExp2Rounded, RealExp10Rounded};

TEST(Exponentials, KnowSpecialValues) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        for (RealRoundedUnary function : Exponentials) {
            EXPECT_EQ(ResultOf(function, "nan"), Silent("nan"));
            EXPECT_EQ(ResultOf(function, "0"), Silent("1e0"));
            EXPECT_EQ(ResultOf(function, "-0"), Silent("1e0"));
            EXPECT_EQ(ResultOf(function, "inf"), Silent("inf"));
            EXPECT_EQ(ResultOf(function, "-inf"), Silent("0"));
        }
    }
}

TEST(Exponentials, OverflowToInfinityAndUnderflowToZero) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (RealRoundedUnary function : Exponentials) {
            for (const char* text : {"1e30", "2e20", "9e4611686018427387903"}) {
                EXPECT_EQ(ResultOf(function, text), (Outcome{"inf", CalcErrorOverflow})) << text;
            }
            for (const char* text : {"-1e30", "-2e20", "-9e4611686018427387903"}) {
                EXPECT_EQ(ResultOf(function, text), Silent("0")) << text;
            }
        }
    }
}

TEST(Exponentials, ReportWhatTheFlagsAskFor) {
    PrecisionScope scope(20);
    FieldScope<uint8_t> overflow(numberContext.reportOverflow, 0);
    FieldScope<uint8_t> underflow(numberContext.reportUnderflow, 1);
    for (RealRoundedUnary function : Exponentials) {
        EXPECT_EQ(ResultOf(function, "1e30"), Silent("inf"));
        EXPECT_EQ(ResultOf(function, "-1e30"), (Outcome{"0", CalcErrorUnderflow}));
    }
}

TEST(Exponentials, ReachBothEndsOfTheRange) {
    PrecisionScope scope(30);
    EXPECT_EQ(Exp10("4611686018427387903"), Silent("1e4611686018427387903"));
    EXPECT_EQ(Exp10("4611686018427387904"), (Outcome{"inf", CalcErrorOverflow}));
    EXPECT_EQ(Exp10("-4611686018427387903"), Silent("1e-4611686018427387903"));
    EXPECT_EQ(Exp10("-4611686018427387904"), Silent("0"));
    // Beyond the range of numbers, within that of 64-bit integers and at its ends.
    for (const char* text : {"9223372036854775807", "9223372036854775808", "18446744073709551615",
                             "18446744073709551616"}) {
        EXPECT_EQ(Exp10(text), (Outcome{"inf", CalcErrorOverflow}));
        EXPECT_EQ(Exp10(std::string("-") + text), Silent("0"));
    }
}

// A reduction that first steps too far takes the exponent out of the range for a moment: ln(1.105)
// is nearer to ln 1.2 than to 0, and the way back goes by steps of 1.01.
TEST(Exponentials, DoNotLeaveTheRangeOnTheWayToAResultWithinIt) {
    PrecisionScope scope(30);
    EXPECT_EQ(Exp10("4611686018427387903.04321").text.substr(0, 6), "1.1046");
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    EXPECT_EQ(Exp10("-4611686018427387902.04321").text.substr(0, 6), "9.0529");
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

TEST(Exponentials, OfTinyArgumentsAreOne) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (RealRoundedUnary function : Exponentials) {
            EXPECT_EQ(ResultOf(function, "1e-4611686018427387903"), Silent("1e0"));
            EXPECT_EQ(ResultOf(function, "9e-200"), Silent("1e0"));
        }
    }
}

// 101 digits, cut off.
constexpr const char* E =
    "2.718281828459045235360287471352662497757247093699959574966967627724076630353547"
    "5945713821785251664274e0";
constexpr const char* RootOfTwo =
    "1.414213562373095048801688724209698078569671875376948073176679737990732478462107"
    "0388503875343276415727e0";
constexpr const char* RootOfTen =
    "3.162277660168379331998893544432718533719555139325216826857504852792594438639238"
    "2213442481083793002951e0";

TEST(Exponentials, HaveTheDigitsOfTheirFunctions) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(Exp("1"), Silent(RoundedText(E, p)));
        EXPECT_EQ(Exp2("0.5"), Silent(RoundedText(RootOfTwo, p)));
        EXPECT_EQ(Exp10("0.5"), Silent(RoundedText(RootOfTen, p)));
    }
}

TEST(Exponentials, OfIntegersAreExactForBasesTwoAndTen) {
    for (int64_t p : {16, 19, 20, 38, 100}) {
        PrecisionScope scope(p);
        EXPECT_EQ(Exp10("3"), Silent("1e3"));
        EXPECT_EQ(Exp10("-3"), Silent("1e-3"));
        EXPECT_EQ(Exp10("123456789012345"), Silent("1e123456789012345"));
        EXPECT_EQ(Exp2("10"), Silent("1.024e3"));
        EXPECT_EQ(Exp2("-2"), Silent("2.5e-1"));
    }
}

// The thresholds of both reductions, of which the second sees some of the first as well.
TEST(Exponentials, AgreeOnBothSidesOfEveryThreshold) {
    const char* const thresholds[] = {
        "0.0911607784", "0.273482335",  "0.455803892",  "0.638125449",   "0.820447006",
        "1.00276856",   "1.18509012",   "1.36741168",   "1.54973323",    "1.73205479",
        "1.91437635",   "2.09669790",   "2.27901946",   "0.00497516543", "0.0149254963",
        "0.0248758271", "0.0348261580", "0.0447764888", "0.0547268197",  "0.0646771505",
        "0.0746274814", "0.0845778123"};
    for (int64_t p : {30, 100}) {
        PrecisionScope scope(p);
        const RealBuffer step("1e-15");
        RealBuffer factor;
        RealExpRounded(factor, step);
        for (const char* text : thresholds) {
            for (const char* sign : {"", "-"}) {
                SCOPED_TRACE(std::string(sign) + text);
                const RealBuffer at(std::string(sign) + text);
                RealBuffer below;
                RealBuffer above;
                RealBuffer x;
                RealSub(x, at, step);
                RealExpRounded(below, x);
                RealAdd(x, at, step);
                RealExpRounded(above, x);
                // e^(x + h) = e^(x - h) e^h e^h.
                RealMul(below, below, factor);
                RealMul(below, below, factor);
                RealSub(below, below, above);
                RealDiv(below, below, above);
                EXPECT_TRUE(RealIsZero(below) || RealExponent(below) < -(p - 2))
                    << PlainText(below);
                RealLnRounded(above, above);
                RealSub(above, above, x);
                EXPECT_TRUE(RealIsZero(above) || RealExponent(above) < -(p - 2))
                    << PlainText(above);
            }
        }
    }
}

// 2^x and 10^x are e^(x ln 2) and e^(x ln 10); e^x e^-x is 1.
TEST(Exponentials, AgreeWithOneAnother) {
    RandomSource random;
    for (int64_t p : {1, 2, 9, 19, 20, 38, 57, 100}) {
        PrecisionScope scope(p);
        for (int round = 0; round < TestRounds(300); round++) {
            RealBuffer x;
            FillReal(random, x, 3);
            if (RealExponent(x) > 2) {
                x.Get()->header = MakeHeader(2, RealSign(x));
            }
            for (RealRoundedUnary function : Exponentials) {
                RealBuffer a;
                RealBuffer b;
                function(a, x);
                RealNegate(x);
                function(b, x);
                RealNegate(x);
                RealMul(a, a, b);
                RealSub(a, a, RealBuffer("1"));
                EXPECT_TRUE(RealIsZero(a) || RealExponent(a) < 2 - p)
                    << PlainText(x) << " leaves " << PlainText(a);
            }
        }
    }
}

template <ExpMode Mode>
Limb ExpBase(RealNumber* dest, const RealNumber* x) {
    return RealExpBase(dest, x, Mode);
}

// The digits before the decimal point are lost to the reduction.
TEST(Exponentials, WorkWithGuardDigitsForTheArgument) {
    ExpectGuardDigits(RealExpRounded, ExpBase<ExpOfE>, ArgumentGuardDigits, -3, 12);
    ExpectGuardDigits(RealExp2Rounded, ExpBase<ExpOfTwo>, ArgumentGuardDigits, -3, 12);
    ExpectGuardDigits(RealExp10Rounded, ExpBase<ExpOfTen>, ArgumentGuardDigits, -3, 12);
}

// The inner form names its power by a number.
TEST(RealExpBase, ServesThreeBases) {
    PrecisionScope scope(20);
    const auto leading = [](ExpMode mode) {
        RealBuffer dest;
        RealExpBase(dest, RealBuffer("1"), mode);
        RealRoundDigits(dest, dest, 12);
        return PlainText(dest);
    };
    EXPECT_EQ(static_cast<int>(ExpOfTen), 0);
    EXPECT_EQ(static_cast<int>(ExpOfE), 1);
    EXPECT_EQ(static_cast<int>(ExpOfTwo), 2);
    EXPECT_EQ(leading(ExpOfTen), "1e1");
    EXPECT_EQ(leading(ExpOfE), "2.71828182846e0");
    EXPECT_EQ(leading(ExpOfTwo), "2e0");
}

TEST(Exponentials, ReachTheLongestPrecision) {
    PrecisionScope scope(MaxPrecisionDigits);
    RealBuffer y;
    RealExpRounded(y, RealBuffer("1"));
    EXPECT_EQ(PlainText(y).substr(0, 12), "2.7182818284");
    RealLnRounded(y, y);
    RealSub(y, y, RealBuffer("1"));
    EXPECT_TRUE(RealIsZero(y) || RealExponent(y) < -MaxPrecisionDigits + 4) << PlainText(y);
}

}  // namespace
}  // namespace tallymere
