#include <gtest/gtest.h>

#include <string>

#include "core/real_rounding.h"
#include "core/real_text.h"
#include "support/decimal_text.h"
#include "support/real_testing.h"
#include "support/text_outcomes.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr uint32_t AcceptAll = TextGroup | TextPlainSeparators | TextAcceptInfinity | TextAcceptNaN;

std::string Read(std::u16string_view text, uint32_t flags = AcceptAll) {
    return PlainText(ReadReal(text, flags));
}

TEST(RealFromText, ReadsIntegersFractionsAndExponents) {
    for (int64_t p : AllPrecisions) {
        if (p < 4) {
            continue;
        }
        PrecisionScope scope(p);
        EXPECT_EQ(Read(u"1"), "1e0");
        EXPECT_EQ(Read(u"120"), "1.2e2");
        EXPECT_EQ(Read(u"-12.75"), "-1.275e1");
        EXPECT_EQ(Read(u"+12.75"), "1.275e1");
        EXPECT_EQ(Read(u"1e5"), "1e5");
        EXPECT_EQ(Read(u"1E+5"), "1e5");
        EXPECT_EQ(Read(u"1e-5"), "1e-5");
        EXPECT_EQ(Read(u"0.125e3"), "1.25e2");
        EXPECT_EQ(Read(u"1e0005"), "1e5");
    }
}

TEST(RealFromText, LeavesOutLeadingZeros) {
    PrecisionScope scope(16);
    EXPECT_EQ(Read(u"001.500"), "1.5e0");
    EXPECT_EQ(Read(u"0.001"), "1e-3");
    EXPECT_EQ(Read(u"00000000000000000000000000001"), "1e0");
    EXPECT_EQ(Read(u"000.00000000000000000000000001"), "1e-26");
    EXPECT_EQ(Read(std::u16string(5000, u'0') + u"12." + std::u16string(3000, u'0') + u"5"),
              "1.2e1");
    EXPECT_EQ(Read(u"0." + std::u16string(5000, u'0') + u"5"), "5e-5001");
}

TEST(RealFromText, GivesASignedZeroForDigitsThatAreAllZero) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(Read(u"0"), "0");
        EXPECT_EQ(Read(u"-0"), "-0");
        EXPECT_EQ(Read(u"0.000"), "0");
        EXPECT_EQ(Read(u"-0.000e5"), "-0");
        EXPECT_EQ(Read(u"0e99999999999999999999"), "0");
        EXPECT_EQ(Read(u"-0e-99999999999999999999"), "-0");
        EXPECT_EQ(Read(std::u16string(20'000, u'0')), "0");
        EXPECT_EQ(Read(u"0." + std::u16string(20'000, u'0')), "0");
    }
}

TEST(RealFromText, RoundsByTheFirstDigitThatDoesNotFit) {
    PrecisionScope scope(3);
    EXPECT_EQ(Read(u"1.235"), "1.24e0");
    EXPECT_EQ(Read(u"1.2349"), "1.23e0");
    EXPECT_EQ(Read(u"1.23499999999999999999999999"), "1.23e0");
    EXPECT_EQ(Read(u"-1.235"), "-1.24e0");
    EXPECT_EQ(Read(u"1.23'5"), "1.24e0");
    EXPECT_EQ(Read(u"123.5"), "1.24e2");
    EXPECT_EQ(Read(u"9995"), "1e4");
    EXPECT_EQ(Read(u"0.0009995"), "1e-3");
    EXPECT_EQ(Read(u"9994999"), "9.99e6");
}

TEST(RealFromText, ReturnsTheFirstSurplusDigitAsTheGuardLimb) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        for (char16_t surplus = u'0'; surplus <= u'9'; surplus++) {
            std::u16string text(static_cast<size_t>(p), u'7');
            text += surplus;
            text += u"999";
            RealBuffer x;
            const Limb guard = RealFromText(x, text.c_str(), TextUntilZero, 0);
            EXPECT_EQ(guard, (surplus - u'0') * 1'000'000'000'000'000'000u);
            std::string digits(static_cast<size_t>(p), '7');
            EXPECT_EQ(x, RealBuffer(digits + "e4"));
        }
        std::u16string fits(static_cast<size_t>(p), u'7');
        RealBuffer x;
        EXPECT_EQ(RealFromText(x, fits.c_str(), TextUntilZero, 0), 0u);
    }
}

TEST(RealFromText, CountsDigitsBehindTheLastLimbAndFindsTheSeparatorThere) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        const std::u16string digits(static_cast<size_t>(p), u'1');
        const std::string plain = PlainText(RealBuffer(std::string(static_cast<size_t>(p), '1')));
        const std::string mantissa = plain.substr(0, plain.find('e'));
        EXPECT_EQ(Read(digits + u"0"), mantissa + "e" + std::to_string(p));
        EXPECT_EQ(Read(digits + u"0000.0000"), mantissa + "e" + std::to_string(p + 3));
        EXPECT_EQ(Read(digits + u".4"), mantissa + "e" + std::to_string(p - 1));
        EXPECT_EQ(Read(digits + u"4'0.0'4e-2"), mantissa + "e" + std::to_string(p - 1));
        EXPECT_EQ(Read(digits + u"4."), "nan CalcErrorSyntax");
    }
}

TEST(RealFromText, PadsALimbForWhichTheDigitsRunOut) {
    for (int64_t p : {20, 38, 39, 57, 100}) {
        PrecisionScope scope(p);
        for (int64_t count = 1; count <= p; count++) {
            const std::string digits(static_cast<size_t>(count), '3');
            RealBuffer x;
            EXPECT_EQ(RealFromText(x, WideText(digits).c_str(), count, 0), 0u);
            EXPECT_EQ(x, RealBuffer(digits));
        }
    }
}

TEST(RealFromText, PassesOverGroupSeparatorsWhereverALimbEnds) {
    for (int64_t p : {1, 18, 19, 20, 57}) {
        PrecisionScope scope(p);
        for (size_t at = 1; at < 60; at++) {
            std::u16string text(60, u'2');
            const std::string whole = Read(text);
            EXPECT_EQ(Read(std::u16string(text).insert(at, u"'")), whole);
            text.insert(30, u".");
            const std::string half = Read(text);
            if (at != 30) {
                EXPECT_EQ(Read(text.insert(at < 30 ? at : at + 1, u"'")), half);
            }
        }
    }
}

TEST(RealFromText, StripsSpacesAtBothEndsOnly) {
    PrecisionScope scope(16);
    EXPECT_EQ(Read(u"   1.5 "), "1.5e0");
    EXPECT_EQ(Read(u" -1.5"), "-1.5e0");
    EXPECT_EQ(Read(u"- 1.5"), "nan CalcErrorSyntax");
    EXPECT_EQ(Read(u"1 000"), "nan CalcErrorSyntax");
    EXPECT_EQ(Read(u"1e 5"), "nan CalcErrorSyntax");
    EXPECT_EQ(Read(u"\t1"), "nan CalcErrorSyntax");
}

TEST(RealFromText, RefusesWhatIsNoNumber) {
    PrecisionScope scope(16);
    for (std::u16string_view text :
         {u"",        u" ",        u"     ", u"+",     u"-",      u"--1",    u"+-1",
          u"1-",      u"1.",       u".5",    u"1..5",  u"1.5.5",  u"1e",     u"1e+",
          u"1e-",     u"1e+-5",    u"1e1.5", u"1e5e5", u"e5",     u"1x",     u"x1",
          u"0x1",     u"1/2",      u"i",     u"2i",    u"pi",     u"1'",     u"'1",
          u"1''0",    u"1'.5",     u"1.'5",  u"1,5",   u"infx",   u"inf1",   u"1inf",
          u"\u221E1", u"\u221Ee5", u"NaN1",  u"nan",   u"Inf",    u"+ inf",  u"\u22121",
          u"\uFF11",  u"1e'5",     u"1'e5",  u"1e5'",  u"inf e5", u"NaN NaN"}) {
        EXPECT_EQ(Read(text), "nan CalcErrorSyntax") << NarrowText(text);
    }
}

TEST(RealFromText, EndsAtTheTerminatorOrAtTheCountedLength) {
    PrecisionScope scope(16);
    RealBuffer x;
    RealFromText(x, u" 12 \0 34", TextUntilZero, 0);
    EXPECT_EQ(PlainText(x), "1.2e1");
    RealFromText(x, u"1234", 2, 0);
    EXPECT_EQ(PlainText(x), "1.2e1");
    RealFromText(x, nullptr, 0, 0);
    EXPECT_EQ(PlainText(x), "nan");
    EXPECT_EQ(TakeCode(), CalcErrorSyntax);
    EXPECT_EQ(Read({u"12\0", 3}), "nan CalcErrorSyntax");
    EXPECT_EQ(Read({u"1\0002", 3}), "nan CalcErrorSyntax");
    RealFromText(x, u"", TextUntilZero, 0);
    EXPECT_EQ(PlainText(x), "nan");
    EXPECT_EQ(TakeCode(), CalcErrorSyntax);
}

TEST(RealFromText, AcceptsOnlyBaseTen) {
    PrecisionScope scope(16);
    EXPECT_EQ(Read(u"12", 0), "1.2e1");
    EXPECT_EQ(Read(u"12", 10), "1.2e1");
    for (uint32_t base = 1; base <= 255; base++) {
        if (base != 10) {
            EXPECT_EQ(Read(u"12", base), "nan CalcErrorBadParameter");
            EXPECT_EQ(Read(u"junk", base), "nan CalcErrorBadParameter");
            EXPECT_EQ(Read(u"  ", base), "nan CalcErrorSyntax");
        }
    }
}

TEST(RealFromText, AcceptsInfinityAndNaNOnlyWithTheirFlags) {
    PrecisionScope scope(57);
    for (std::u16string_view text : {u"inf", u"in", u"\u221E"}) {
        EXPECT_EQ(Read(text, TextAcceptInfinity), "inf");
        EXPECT_EQ(Read(std::u16string(u"-").append(text), TextAcceptInfinity), "-inf");
        EXPECT_EQ(Read(std::u16string(u" +").append(text), TextAcceptInfinity), "inf");
        EXPECT_EQ(Read(text, TextAcceptNaN), "nan CalcErrorSyntax");
    }
    for (std::u16string_view text : {u"NaN", u"Na", u"N"}) {
        EXPECT_EQ(Read(text, TextAcceptNaN), "nan");
        EXPECT_EQ(Read(std::u16string(u"-").append(text), TextAcceptNaN), "nan");
        EXPECT_EQ(Read(text, TextAcceptInfinity), "nan CalcErrorSyntax");
    }
}

TEST(RealFromText, AcceptsGroupSeparatorsOnlyWithTheirFlag) {
    PrecisionScope scope(16);
    EXPECT_EQ(Read(u"1'000", TextGroup), "1e3");
    EXPECT_EQ(Read(u"1'0.0'05e1'0", TextGroup), "1.0005e11");
    EXPECT_EQ(Read(u"1'000", 0), "nan CalcErrorSyntax");
    EXPECT_EQ(Read(u"1'000", TextPlainSeparators), "nan CalcErrorSyntax");
}

TEST(RealFromText, ReadsTheContextsSeparatorsUnlessNeutral) {
    PrecisionScope scope(16);
    FieldScope point(numberContext.decimalSeparators[1], u',');
    FieldScope mark(numberContext.groupSeparators[2], u'\u202F');
    EXPECT_EQ(Read(u"1\u202F000,5", TextGroup), "1.0005e3");
    EXPECT_EQ(Read(u"1'000.5", TextGroup), "1.0005e3");
    EXPECT_EQ(Read(u"1,5", TextPlainSeparators), "nan CalcErrorSyntax");
    EXPECT_EQ(Read(u"1\u202F0", TextPlainSeparators | TextGroup), "nan CalcErrorSyntax");
}

TEST(RealFromText, ReadsTheNeutralFormWhateverTheContextsSeparators) {
    PrecisionScope scope(16);
    FieldScope point0(numberContext.decimalSeparators[0], u',');
    FieldScope point1(numberContext.decimalSeparators[1], u',');
    FieldScope point2(numberContext.decimalSeparators[2], u',');
    FieldScope mark(numberContext.groupSeparators[0], u'.');
    EXPECT_EQ(Read(u"1'000.5", TextGroup | TextPlainSeparators), "1.0005e3");
    EXPECT_EQ(Read(u"0.05", TextPlainSeparators), "5e-2");
    EXPECT_EQ(Read(u"1.000,5", TextGroup), "1.0005e3");
}

// A user may choose one character for both. The scanner then takes it as a group separator and the
// digits around it as one run; in that run it still is the decimal separator, and the last one
// counts.
TEST(RealFromText, LetsTheLastSeparatorCountWhenItIsAlsoTheGroupSeparator) {
    PrecisionScope scope(16);
    FieldScope mark(numberContext.groupSeparators[0], u'.');
    EXPECT_EQ(Read(u"1.5", TextGroup), "1.5e0");
    EXPECT_EQ(Read(u"1.234.5", TextGroup), "1.2345e3");
    EXPECT_EQ(Read(u"0.0.05", TextGroup), "5e-2");
    EXPECT_EQ(Read(u"1.234.5", 0), "nan CalcErrorSyntax");
}

TEST(RealFromText, AcceptsExponentsUpToTheLimitsOfTheRange) {
    for (int64_t p : {1, 16, 19, 57}) {
        PrecisionScope scope(p);
        EXPECT_EQ(Read(u"1e4611686018427387903"), "1e4611686018427387903");
        EXPECT_EQ(Read(u"-1e-4611686018427387903"), "-1e-4611686018427387903");
        EXPECT_EQ(Read(u"10e4611686018427387902"), "1e4611686018427387903");
        EXPECT_EQ(Read(u"0.01e4611686018427387905"), "1e4611686018427387903");
        EXPECT_EQ(Read(u"1000e-4611686018427387906"), "1e-4611686018427387903");
        EXPECT_EQ(Read(u"1e4611686018427387904"), "inf CalcErrorOverflow");
        EXPECT_EQ(Read(u"-10e4611686018427387903"), "-inf CalcErrorOverflow");
        EXPECT_EQ(Read(u"1e-4611686018427387904"), "0");
        EXPECT_EQ(Read(u"-0.1e-4611686018427387903"), "-0");
    }
}

TEST(RealFromText, MayRoundUpOutOfTheRange) {
    PrecisionScope scope(3);
    EXPECT_EQ(Read(u"9.994e4611686018427387903"), "9.99e4611686018427387903");
    EXPECT_EQ(Read(u"9.995e4611686018427387903"), "inf CalcErrorOverflow");
    EXPECT_EQ(Read(u"9.995e-4611686018427387904"), "0");
}

TEST(RealFromText, TakesHugeExponentsForOverflowAndUnderflow) {
    PrecisionScope scope(16);
    for (std::u16string_view exponent :
         {u"9223372034707292160", u"9223372034707292161", u"9223372036854775807",
          u"9223372036854775808", u"9999999999999999999", u"18446744073709551615",
          u"18446744073709551616", u"36893488147419103233", u"99999999999999999999",
          u"00000000000000000000099999999999999999999"}) {
        const std::u16string text(exponent);
        EXPECT_EQ(Read(u"1e" + text), "inf CalcErrorOverflow") << NarrowText(text);
        EXPECT_EQ(Read(u"-1e+" + text), "-inf CalcErrorOverflow");
        EXPECT_EQ(Read(u"1e-" + text), "0");
        EXPECT_EQ(Read(u"-1e-" + text), "-0");
        EXPECT_EQ(Read(u"0e" + text), "0");
        EXPECT_EQ(Read(u"1e-" + text + u"x"), "nan CalcErrorSyntax");
    }
    const std::u16string endless(5000, u'9');
    EXPECT_EQ(Read(u"1e" + endless), "inf CalcErrorOverflow");
    EXPECT_EQ(Read(u"0." + std::u16string(5000, u'0') + u"1e" + endless), "inf CalcErrorOverflow");
    EXPECT_EQ(Read(std::u16string(5000, u'1') + u"e-" + endless), "0");
}

TEST(RealFromText, DoesNotCountLeadingZerosOfTheExponent) {
    PrecisionScope scope(16);
    EXPECT_EQ(Read(u"1e0000000000000000000000000005"), "1e5");
    EXPECT_EQ(Read(u"1e-" + std::u16string(5000, u'0') + u"7"), "1e-7");
    EXPECT_EQ(Read(u"1e" + std::u16string(5000, u'0')), "1e0");
}

TEST(RealFromText, ReportsOverflowAndUnderflowAsTheContextAsks) {
    PrecisionScope scope(16);
    {
        FieldScope silent(numberContext.reportOverflow, uint8_t{0});
        EXPECT_EQ(Read(u"1e5000000000000000000"), "inf");
        EXPECT_EQ(Read(u"1e99999999999999999999"), "inf");
    }
    FieldScope loud(numberContext.reportUnderflow, uint8_t{1});
    EXPECT_EQ(Read(u"1e-5000000000000000000"), "0 CalcErrorUnderflow");
    EXPECT_EQ(Read(u"-1e-99999999999999999999"), "-0 CalcErrorUnderflow");
    EXPECT_EQ(Read(u"0e-99999999999999999999"), "0");
}

TEST(RealFromText, KeepsAnEarlierCode) {
    PrecisionScope scope(16);
    SetCalcError(CalcErrorUndefined);
    EXPECT_EQ(Read(u"junk"), "nan CalcErrorUndefined");
    SetCalcError(CalcErrorUndefined);
    EXPECT_EQ(Read(u"5"), "5e0 CalcErrorUndefined");
}

TEST(DigitsToLimbs, GivesLimbsExponentAndGuard) {
    PrecisionScope scope(20);
    Limb limbs[2];
    int64_t exponent = 0;
    Limb guard = DigitsToLimbs(limbs, &exponent, u"00'12.3", 7, true);
    EXPECT_EQ(limbs[0], 1u);
    EXPECT_EQ(limbs[1], 2'300'000'000'000'000'000u);
    EXPECT_EQ(exponent, 1);
    EXPECT_EQ(guard, 0u);
    guard = DigitsToLimbs(limbs, &exponent, u"123456789012345678906789", 24, true);
    EXPECT_EQ(limbs[0], 1u);
    EXPECT_EQ(limbs[1], 2'345'678'901'234'567'890u);
    EXPECT_EQ(exponent, 23);
    EXPECT_EQ(guard, 6'000'000'000'000'000'000u);
    guard = DigitsToLimbs(limbs, &exponent, u"0.00", 4, true);
    EXPECT_EQ(limbs[0], 0u);
    EXPECT_EQ(limbs[1], 0u);
    EXPECT_EQ(guard, 0u);
}

}  // namespace
}  // namespace tallymere
