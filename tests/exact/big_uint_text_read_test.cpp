#include <gtest/gtest.h>

#include <string>

#include "core/number_bases.h"
#include "core/number_scanner.h"
#include "exact/big_uint_text.h"
#include "support/decimal_text.h"
#include "support/exact_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;
using namespace std::string_literals;

// What BigUintFromText makes of a text at the width in force.
Outcome Read(std::u16string_view text, uint32_t flags = 0) {
    UintBuffer dest;
    BigUintFromText(dest, text.data(), static_cast<int64_t>(text.size()), flags);
    return TakeOutcome(dest);
}

Outcome Read(const std::string& text, uint32_t flags = 0) {
    return Read(std::u16string_view(WideText(text)), flags);
}

void ExpectSyntaxErrors(std::initializer_list<std::u16string_view> texts, uint32_t flags = 0) {
    for (std::u16string_view text : texts) {
        EXPECT_EQ(Read(text, flags), Refused(CalcErrorSyntax)) << '"' << NarrowText(text) << '"';
    }
}

TEST(BigUintFromText, ReadsDigitsInEveryBase) {
    WidthScope scope(2);
    EXPECT_EQ(Read(u"0"), Silent("0"));
    EXPECT_EQ(Read(u"1234567890123456789012"), Silent("1234567890123456789012"));
    EXPECT_EQ(Read(u"255", 10), Silent("255"));
    EXPECT_EQ(Read(u"11111111", 2), Silent("255"));
    EXPECT_EQ(Read(u"377", 8), Silent("255"));
    EXPECT_EQ(Read(u"FF", 16), Silent("255"));
    EXPECT_EQ(Read(u"ff", 16), Silent("255"));
    EXPECT_EQ(Read(u"aB9", 16), Silent("2745"));
    EXPECT_EQ(Read(u"1e5", 16), Silent("485"));
}

TEST(BigUintFromText, PassesOverSpacesAtBothEndsAndALeadingPlus) {
    WidthScope scope(2);
    EXPECT_EQ(Read(u"  17 "), Silent("17"));
    EXPECT_EQ(Read(u" +17"), Silent("17"));
    EXPECT_EQ(Read(u"+ff", 16), Silent("255"));
    ExpectSyntaxErrors({u"++17", u"+ 17", u"1 7", u"\t17", u"17\u00A0"});
}

TEST(BigUintFromText, TakesTheLengthFromTheTerminatorOrAsCounted) {
    WidthScope scope(1);
    UintBuffer dest;
    BigUintFromText(dest, u"123456", 3, 0);
    EXPECT_EQ(TakeOutcome(dest), Silent("123"));
    BigUintFromText(dest, u" 123 \0 45", TextUntilZero, 0);
    EXPECT_EQ(TakeOutcome(dest), Silent("123"));
    EXPECT_EQ(Read(std::u16string_view(u"1\0", 2)), Refused(CalcErrorSyntax));
}

TEST(BigUintFromText, RefusesWhatIsNoUnsignedInteger) {
    WidthScope scope(2);
    ExpectSyntaxErrors({u"",       u"   ", u"+",  u"-",   u"-1",   u"-0",    u"abc",
                        u"1x",     u"x1",  u"1-", u"1+1", u"1/2",  u"i",     u"inf",
                        u"\u221E", u"NaN", u".5", u"5.",  u"1..0", u"1.0.0", u"\u0661"});
    ExpectSyntaxErrors({u"", u"-1", u"12", u"1.0", u"1e1", u"0b1"}, 2);
    ExpectSyntaxErrors({u"", u"8", u"78", u"1.0", u"1e1"}, 8);
    ExpectSyntaxErrors({u"", u"g", u"1g", u"1.0", u"0x1", u"f-1", u"-f"}, 16);
    ExpectSyntaxErrors({u"\u221E", u"NaN"}, TextAcceptInfinity | TextAcceptNaN);
}

TEST(BigUintFromText, KnowsTheBasesOfTheTable) {
    WidthScope scope(1);
    for (uint32_t base = 0; base <= TextBaseMask; base++) {
        const bool known = base == 0 || FindNumberBase(base) != nullptr;
        EXPECT_EQ(Read(u"1", base), known ? Silent("1") : Refused(CalcErrorBadParameter)) << base;
        // A base that is none comes before a text that is none.
        EXPECT_EQ(Read(u"", base), Refused(known ? CalcErrorSyntax : CalcErrorBadParameter));
    }
}

TEST(BigUintFromText, TakesGroupSeparatorsWhereverADigitFollows) {
    WidthScope scope(2);
    ContextCheck check;
    FieldScope mark(numberContext.groupSeparators[1], u',');
    EXPECT_EQ(Read(u"1,000", TextGroup), Silent("1000"));
    EXPECT_EQ(Read(u"1,2'3", TextGroup), Silent("123"));
    EXPECT_EQ(Read(u"0,0,1", TextGroup), Silent("1"));
    EXPECT_EQ(Read(u"F,F", TextGroup | 16), Silent("255"));
    EXPECT_EQ(Read(u"1111'1111", TextGroup | 2), Silent("255"));
    EXPECT_EQ(Read(u"3,7'7", TextGroup | 8), Silent("255"));
    EXPECT_EQ(Read(u"1,0.0,0e0,0", TextGroup), Silent("10"));
    EXPECT_EQ(Read(u"1e1,0", TextGroup), Silent("10000000000"));
    ExpectSyntaxErrors({u"1,", u",1", u"1,,0", u"1,.0", u"1.,0", u"1_0"}, TextGroup);
    ExpectSyntaxErrors({u"1,000", u"1'000"});
    ExpectSyntaxErrors({u"1,000"}, TextGroup | TextPlainSeparators);
    EXPECT_EQ(Read(u"1'000", TextGroup | TextPlainSeparators), Silent("1000"));
}

// In base 8 an "a" is no digit, and so it may separate groups.
TEST(BigUintFromText, TakesADigitOfALargerBaseAsAGroupSeparator) {
    WidthScope scope(1);
    ContextCheck check;
    FieldScope mark0(numberContext.groupSeparators[0], u'a');
    FieldScope mark1(numberContext.groupSeparators[1], u'9');
    EXPECT_EQ(Read(u"1a7", TextGroup | 8), Silent("15"));
    EXPECT_EQ(Read(u"1911a1", TextGroup | 2), Silent("15"));
    EXPECT_EQ(Read(u"1a9", TextGroup), Silent("19"));
    EXPECT_EQ(Read(u"1a9", TextGroup | 16), Silent("425"));
}

TEST(BigUintFromText, TakesTheDecimalSeparatorsOfTheContextOrTheNeutralOne) {
    WidthScope scope(1);
    ContextCheck check;
    FieldScope separator0(numberContext.decimalSeparators[0], u',');
    FieldScope separator1(numberContext.decimalSeparators[1], u';');
    FieldScope separator2(numberContext.decimalSeparators[2], u',');
    EXPECT_EQ(Read(u"1,5e1"), Silent("15"));
    EXPECT_EQ(Read(u"1;5e1"), Silent("15"));
    EXPECT_EQ(Read(u"1.5e1"), Refused(CalcErrorSyntax));
    EXPECT_EQ(Read(u"1,5e1", TextPlainSeparators), Refused(CalcErrorSyntax));
    EXPECT_EQ(Read(u"1.5e1", TextPlainSeparators), Silent("15"));
}

// The scanner has taken the character for a group separator, and an exponent changes nothing.
TEST(BigUintFromText, TakesACharacterThatSeparatesBothAsAGroupSeparator) {
    WidthScope scope(1);
    ContextCheck check;
    FieldScope decimal(numberContext.decimalSeparators[1], u',');
    FieldScope group(numberContext.groupSeparators[1], u',');
    EXPECT_EQ(Read(u"1,5", TextGroup), Silent("15"));
    EXPECT_EQ(Read(u"1,5e1", TextGroup), Silent("150"));
    EXPECT_EQ(Read(u"1,5.0,0e1", TextGroup), Silent("150"));
    EXPECT_EQ(Read(u"1,5e1"), Silent("15"));
}

TEST(BigUintFromText, ReadsFractionsAndExponentsThatDenoteAnInteger) {
    WidthScope scope(2);
    EXPECT_EQ(Read(u"1.5e1"), Silent("15"));
    EXPECT_EQ(Read(u"100e-2"), Silent("1"));
    EXPECT_EQ(Read(u"1e3"), Silent("1000"));
    EXPECT_EQ(Read(u"1E+3"), Silent("1000"));
    EXPECT_EQ(Read(u"1e0"), Silent("1"));
    EXPECT_EQ(Read(u"1e-0"), Silent("1"));
    EXPECT_EQ(Read(u"15.0"), Silent("15"));
    EXPECT_EQ(Read(u"15.000000000000000000000000"), Silent("15"));
    EXPECT_EQ(Read(u"150.0e-1"), Silent("15"));
    EXPECT_EQ(Read(u"1.5e4"), Silent("15000"));
    EXPECT_EQ(Read(u"1.23000e2"), Silent("123"));
    EXPECT_EQ(Read(u"0.00012e5"), Silent("12"));
    EXPECT_EQ(Read(u"0.0"), Silent("0"));
    EXPECT_EQ(Read(u"12.34567890123456789012345e23"), Silent("1234567890123456789012345"));
    EXPECT_EQ(Read(u"12345678901234567890123400000000000000e-14"),
              Silent("123456789012345678901234"));
}

TEST(BigUintFromText, RefusesWhatLeavesAFraction) {
    WidthScope scope(2);
    ExpectSyntaxErrors({u"1.5", u"1e-1", u"1.50", u"0.1", u"1.25e1", u"1.5e-1", u"10.5e-1",
                        u"1.5e0", u"105e-1", u"1000e-4", u"1.00000000000000000000000001",
                        u"0.0000001e6", u"1234567890123456789000e-20"});
}

TEST(BigUintFromText, RefusesAnExponentThatIsNoInteger) {
    WidthScope scope(1);
    ExpectSyntaxErrors({u"1e", u"1e+", u"1e-", u"1e++1", u"1e1.0", u"1e.1", u"1e1e1", u"1e 1",
                        u"1ee1", u"1e1x", u"1e1-", u"0e", u"e1", u"1 e1"});
    EXPECT_EQ(Read(u" 1e1 "), Silent("10"));
}

TEST(BigUintFromText, TakesAllExponentCharsOfTheContext) {
    WidthScope scope(1);
    ContextCheck check;
    FieldScope mark(numberContext.exponentChars[3], u'\u23E8');
    EXPECT_EQ(Read(u"1\u23E82"), Silent("100"));
    EXPECT_EQ(Read(u"1e2"), Silent("100"));
    EXPECT_EQ(Read(u"1E2"), Silent("100"));
}

TEST(BigUintFromText, RefusesExponentsOf2ToThe63) {
    WidthScope scope(2);
    const auto digits = [](const char* mantissa, const char* sign, const std::string& exponent) {
        return Read(mantissa + "e"s + sign + exponent);
    };
    const std::string largest = "9223372036854775807";
    EXPECT_EQ(digits("0", "", largest), Silent("0"));
    EXPECT_EQ(digits("0", "+", largest), Silent("0"));
    EXPECT_EQ(digits("0", "-", largest), Silent("0"));
    EXPECT_EQ(digits("0.000", "", largest), Silent("0"));
    EXPECT_EQ(digits("0.000", "-", largest), Silent("0"));
    EXPECT_EQ(digits("0", "", "000000000000000000000" + largest), Silent("0"));
    EXPECT_EQ(digits("1", "", largest), Refused(CalcErrorOverflow));
    EXPECT_EQ(digits("0.01", "", largest), Refused(CalcErrorOverflow));
    EXPECT_EQ(digits("1", "-", largest), Refused(CalcErrorSyntax));
    EXPECT_EQ(digits("100000000000000000000000000000000000", "-", largest),
              Refused(CalcErrorSyntax));
    for (const char* tooLarge :
         {"9223372036854775808", "9999999999999999999", "18446744073709551615",
          "18446744073709551616", "18446744073709551617", "100000000000000000000",
          "36893488147419103233", "1000000000000000000000000000000000000000"}) {
        for (const char* sign : {"", "+", "-"}) {
            EXPECT_EQ(digits("0", sign, tooLarge), Refused(CalcErrorSyntax)) << tooLarge;
            EXPECT_EQ(digits("1", sign, tooLarge), Refused(CalcErrorSyntax)) << tooLarge;
        }
    }
}

TEST(BigUintFromText, ReadsUpToTheLargestValueOfTheWidth) {
    {
        WidthScope scope(1);
        EXPECT_EQ(Read(u"18446744073709551615"), Silent("18446744073709551615"));
        EXPECT_EQ(Read(u"1.8446744073709551615e19"), Silent("18446744073709551615"));
        EXPECT_EQ(Read(u"18446744073709551615.000"), Silent("18446744073709551615"));
        EXPECT_EQ(Read(u"1e19"), Silent("10000000000000000000"));
        EXPECT_EQ(Read(u"ffffffffffffffff", 16), Silent("18446744073709551615"));
        EXPECT_EQ(Read(u"1777777777777777777777", 8), Silent("18446744073709551615"));
        EXPECT_EQ(Read(std::string(64, '1'), 2), Silent("18446744073709551615"));
        EXPECT_EQ(Read(u"18446744073709551616"), Refused(CalcErrorOverflow));
        EXPECT_EQ(Read(u"1.8446744073709551616e19"), Refused(CalcErrorOverflow));
        EXPECT_EQ(Read(u"184467440737095516150"), Refused(CalcErrorOverflow));
        EXPECT_EQ(Read(u"1e20"), Refused(CalcErrorOverflow));
        EXPECT_EQ(Read(u"10000000000000000", 16), Refused(CalcErrorOverflow));
        EXPECT_EQ(Read(u"2000000000000000000000", 8), Refused(CalcErrorOverflow));
        EXPECT_EQ(Read("1" + std::string(64, '0'), 2), Refused(CalcErrorOverflow));
    }
    for (int64_t width : AllUintWidths) {
        WidthScope scope(width);
        const std::string most = UintText(UintBuffer(TwoTo(64 * width, "-1")));
        EXPECT_EQ(Read(most), Silent(most));
        std::string more = most;
        more.back()++;
        EXPECT_EQ(Read(more), Refused(CalcErrorOverflow));
        EXPECT_EQ(Read(most + "0"), Refused(CalcErrorOverflow));
        const std::string zeros(most.size() - 1, '0');
        EXPECT_EQ(Read("1e" + std::to_string(zeros.size())), Silent("1" + zeros));
        EXPECT_EQ(Read("1" + zeros + "e-" + std::to_string(zeros.size())), Silent("1"));
        EXPECT_EQ(Read("1e" + std::to_string(zeros.size() + 1)), Refused(CalcErrorOverflow));
        const auto digits = static_cast<size_t>(64 * width);
        EXPECT_EQ(Read(std::string(digits, '1'), 2), Silent(most));
        EXPECT_EQ(Read("1" + std::string(digits, '0'), 2), Refused(CalcErrorOverflow));
        EXPECT_EQ(Read(std::string(digits / 4, 'f'), 16), Silent(most));
        EXPECT_EQ(Read("1" + std::string(digits / 4, '0'), 16), Refused(CalcErrorOverflow));
    }
}

TEST(BigUintFromText, NeverOverflowsOfLeadingZeros) {
    WidthScope scope(1);
    const std::string zeros(70'000, '0');
    EXPECT_EQ(Read(zeros), Silent("0"));
    EXPECT_EQ(Read(zeros + "7"), Silent("7"));
    EXPECT_EQ(Read(zeros + "7e2"), Silent("700"));
    EXPECT_EQ(Read(zeros + "." + zeros), Silent("0"));
    EXPECT_EQ(Read("0." + zeros + "7e70001"), Silent("7"));
    EXPECT_EQ(Read(zeros + "1", 2), Silent("1"));
    EXPECT_EQ(Read(zeros + "7", 8), Silent("7"));
    EXPECT_EQ(Read(zeros + "7", 16), Silent("7"));
}

// A text that is no number at all is refused before its digits are looked at; then the walk goes
// from the left and the first failure counts.
TEST(BigUintFromText, NotesTheFailureThatComesFirst) {
    WidthScope scope(1);
    const std::string large(30, '9');
    EXPECT_EQ(Read(large + "x"), Refused(CalcErrorSyntax));
    EXPECT_EQ(Read(large + "'"), Refused(CalcErrorSyntax));
    EXPECT_EQ(Read(large + "e"), Refused(CalcErrorSyntax));
    EXPECT_EQ(Read(large + "e99999999999999999999"), Refused(CalcErrorSyntax));
    EXPECT_EQ(Read(large + "g", 16), Refused(CalcErrorSyntax));
    EXPECT_EQ(Read("-" + large), Refused(CalcErrorSyntax));
    EXPECT_EQ(Read(large, 3), Refused(CalcErrorBadParameter));
    EXPECT_EQ(Read(large + ".5"), Refused(CalcErrorOverflow));
    EXPECT_EQ(Read(large + "e-40"), Refused(CalcErrorOverflow));
    EXPECT_EQ(Read("1." + large + "1e30"), Refused(CalcErrorOverflow));
    EXPECT_EQ(Read("1.5e-99"), Refused(CalcErrorSyntax));
    // The digits of the mantissa have to fit, also where the quotient would.
    EXPECT_EQ(Read("1" + std::string(20, '0') + "e-20"), Refused(CalcErrorOverflow));
    EXPECT_EQ(Read("1" + std::string(19, '0') + "e-19"), Silent("1"));
}

TEST(BigUintFromText, KeepsACodeThatWasNotedBefore) {
    WidthScope scope(1);
    for (const char* text : {"12", "x", "99999999999999999999999", "1e-1"}) {
        UintBuffer dest;
        SetCalcError(CalcErrorCancelled);
        const std::u16string wide = WideText(text);
        BigUintFromText(dest, wide.data(), static_cast<int64_t>(wide.size()), 0);
        EXPECT_EQ(TakeOutcome(dest), (Outcome{text == "12"s ? "12" : "0", CalcErrorCancelled}));
    }
}

}  // namespace
}  // namespace tallymere
