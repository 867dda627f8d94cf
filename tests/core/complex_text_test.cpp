#include "core/complex_text.h"

#include <gtest/gtest.h>

#include <string>

#include "core/complex_arithmetic.h"
#include "core/real_text.h"
#include "support/complex_testing.h"
#include "support/decimal_text.h"
#include "support/text_outcomes.h"
#include "values/number_text.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr uint32_t AcceptAll = TextGroup | TextPlainSeparators | TextAcceptInfinity | TextAcceptNaN;

std::string WithCode(const std::string& text, CalcError code) {
    return PlainText(Outcome{text, code});
}

std::string Read(std::u16string_view text, uint32_t flags = AcceptAll) {
    return PlainText(ReadComplex(text, flags));
}

TEST(ComplexFromText, ReadsRealPartImaginaryPartOrBoth) {
    for (int64_t p : AllPrecisions) {
        if (p < 3) {
            continue;
        }
        PrecisionScope scope(p);
        EXPECT_EQ(Read(u"12.5"), "1.25e1 0");
        EXPECT_EQ(Read(u"-12.5"), "-1.25e1 0");
        EXPECT_EQ(Read(u"12.5i"), "0 1.25e1");
        EXPECT_EQ(Read(u"-12.5i"), "0 -1.25e1");
        EXPECT_EQ(Read(u"+12.5i"), "0 1.25e1");
        EXPECT_EQ(Read(u"1+2i"), "1e0 2e0");
        EXPECT_EQ(Read(u"1-2i"), "1e0 -2e0");
        EXPECT_EQ(Read(u"-1-2i"), "-1e0 -2e0");
        EXPECT_EQ(Read(u"+1+2i"), "1e0 2e0");
        EXPECT_EQ(Read(u"0-0i"), "0 -0");
        EXPECT_EQ(Read(u"-0+0i"), "-0 0");
        EXPECT_EQ(Read(u"1'200-3'400i"), "1.2e3 -3.4e3");
    }
}

TEST(ComplexFromText, TakesAUnitAloneForOne) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(Read(u"i"), "0 1e0");
        EXPECT_EQ(Read(u"+i"), "0 1e0");
        EXPECT_EQ(Read(u"-i"), "0 -1e0");
        EXPECT_EQ(Read(u"2+i"), "2e0 1e0");
        EXPECT_EQ(Read(u"2-i"), "2e0 -1e0");
        EXPECT_EQ(Read(u"i", 16), "0 1e0");
    }
}

TEST(ComplexFromText, PassesOverTheSignsOfExponents) {
    PrecisionScope scope(20);
    EXPECT_EQ(Read(u"1e-5i"), "0 1e-5");
    EXPECT_EQ(Read(u"1E+5i"), "0 1e5");
    EXPECT_EQ(Read(u"-1e-5i"), "0 -1e-5");
    EXPECT_EQ(Read(u"2e-3+1e-5i"), "2e-3 1e-5");
    EXPECT_EQ(Read(u"2e-3-1E+5i"), "2e-3 -1e5");
    EXPECT_EQ(Read(u"2e+3+i"), "2e3 1e0");
    EXPECT_EQ(Read(u"2e5+3i"), "2e5 3e0");
    // Behind an exponent mark there is no unit alone.
    EXPECT_EQ(Read(u"2e+i"), "0 nan CalcErrorSyntax");
}

TEST(ComplexFromText, KnowsEveryExponentCharacterOfTheContext) {
    PrecisionScope scope(20);
    FieldScope third(numberContext.exponentChars[2], u'^');
    EXPECT_EQ(Read(u"3^-5i"), "0 3e-5");
    EXPECT_EQ(Read(u"1+3^+5i"), "1e0 3e5");
}

TEST(ComplexFromText, UnwrapsOnePairOfParentheses) {
    PrecisionScope scope(20);
    EXPECT_EQ(Read(u"(2)i"), "0 2e0");
    EXPECT_EQ(Read(u"-(2e+20)i"), "0 -2e20");
    EXPECT_EQ(Read(u"1-(2e-20)i"), "1e0 -2e-20");
    EXPECT_EQ(Read(u"1+( 2 )i"), "1e0 2e0");
    EXPECT_EQ(Read(u"((2))i"), "0 nan CalcErrorSyntax");
    EXPECT_EQ(Read(u"()i"), "0 nan CalcErrorSyntax");
    EXPECT_EQ(Read(u"()i", 16), "0 nan CalcErrorSyntax");
    EXPECT_EQ(Read(u"(i"), "0 nan CalcErrorSyntax");
    EXPECT_EQ(Read(u")i"), "0 nan CalcErrorSyntax");
    EXPECT_EQ(Read(u"(2i"), "0 nan CalcErrorSyntax");
    EXPECT_EQ(Read(u"2)i"), "0 nan CalcErrorSyntax");
    EXPECT_EQ(Read(u"1+(2i)"), "nan 0 CalcErrorSyntax");
    EXPECT_EQ(Read(u"(1)+2i"), "nan 2e0 CalcErrorSyntax");
    // The sign of the imaginary part stands before the parentheses.
    EXPECT_EQ(Read(u"1+(-2)i"), "nan nan CalcErrorSyntax");
    EXPECT_EQ(Read(u"(+2)i"), "nan nan CalcErrorSyntax");
}

TEST(ComplexFromText, TakesALetterBeforeTheUnitForAWord) {
    PrecisionScope scope(20);
    FieldScope second(numberContext.imaginaryChars[1], u'f');
    for (const char16_t* word : {u"pi", u"2+pi", u"Zi", u"zi", u"1+ai", u"1+Ai", u"2ei", u"infi"}) {
        EXPECT_EQ(Read(word), "nan 0 CalcErrorSyntax") << NarrowText(word);
    }
    EXPECT_EQ(Read(u"inf"), "inf 0");
    EXPECT_EQ(Read(u"-inf"), "-inf 0");
    EXPECT_EQ(Read(u"2f"), "0 2e0");
    EXPECT_EQ(Read(u"(inf)f"), "0 inf");
}

TEST(ComplexFromText, KnowsBothImaginaryCharacters) {
    PrecisionScope scope(16);
    EXPECT_EQ(Read(u"2j"), "nan 0 CalcErrorSyntax");
    EXPECT_EQ(Read(u"2I"), "nan 0 CalcErrorSyntax");
    FieldScope second(numberContext.imaginaryChars[1], u'j');
    EXPECT_EQ(Read(u"2j"), "0 2e0");
    EXPECT_EQ(Read(u"1-2i"), "1e0 -2e0");
    EXPECT_EQ(Read(u"1-j"), "1e0 -1e0");
    EXPECT_EQ(Read(u"ij"), "nan 0 CalcErrorSyntax");
    EXPECT_EQ(Read(u"2\u00B2i"), "0 nan CalcErrorSyntax");
}

TEST(ComplexFromText, PassesOverSpacesRoundTheTextAndRoundNumbers) {
    PrecisionScope scope(16);
    EXPECT_EQ(Read(u"   5  "), "5e0 0");
    EXPECT_EQ(Read(u"   -5i  "), "0 -5e0");
    EXPECT_EQ(Read(u" 1 + 2 i "), "1e0 2e0");
    // A magnitude of spaces is something written, and no number.
    EXPECT_EQ(Read(u"1 + i"), "1e0 nan CalcErrorSyntax");
    EXPECT_EQ(Read(u"- i"), "0 nan CalcErrorSyntax");
    EXPECT_EQ(Read(u"(2) i"), "0 nan CalcErrorSyntax");
    EXPECT_EQ(Read(u"\t5i"), "0 nan CalcErrorSyntax");
}

TEST(ComplexFromText, NeedsText) {
    PrecisionScope scope(38);
    for (uint32_t flags : {0u, 10u, 16u}) {
        EXPECT_EQ(Read(u"", flags), "nan 0 CalcErrorSyntax");
        EXPECT_EQ(Read(u"    ", flags), "nan 0 CalcErrorSyntax");
    }
}

TEST(ComplexFromText, ReadsEachPartByTheRulesOfRealNumbers) {
    PrecisionScope scope(16);
    EXPECT_EQ(Read(u"5", 2), "nan 0 CalcErrorBadParameter");
    EXPECT_EQ(Read(u"5+7i", 16), "nan nan CalcErrorBadParameter");
    EXPECT_EQ(Read(u"5+7i", 10), "5e0 7e0");
    EXPECT_EQ(Read(u"x+7i"), "nan 7e0 CalcErrorSyntax");
    EXPECT_EQ(Read(u"5+xi"), "nan 0 CalcErrorSyntax");
    EXPECT_EQ(Read(u"5+.7i"), "5e0 nan CalcErrorSyntax");
    EXPECT_EQ(Read(u"5--7i"), "nan -7e0 CalcErrorSyntax");
    EXPECT_EQ(Read(u"--7i"), "nan -7e0 CalcErrorSyntax");
    EXPECT_EQ(Read(u"3i+2"), "nan 0 CalcErrorSyntax");
    EXPECT_EQ(Read(u"ii"), "nan 0 CalcErrorSyntax");
    EXPECT_EQ(Read(u"1'5i", TextPlainSeparators), "0 nan CalcErrorSyntax");
    EXPECT_EQ(Read(u"1e99999999999999999999-2i"), "inf -2e0 CalcErrorOverflow");
    EXPECT_EQ(Read(u"1-1e99999999999999999999i"), "1e0 -inf CalcErrorOverflow");
    EXPECT_EQ(Read(u"1-1e-99999999999999999999i"), "1e0 -0");
    EXPECT_EQ(Read(u"1e99999999999999999999+xi"), "nan 0 CalcErrorSyntax");
    EXPECT_EQ(Read(u"1e99999999999999999999+.i"), "inf nan CalcErrorOverflow");
}

TEST(ComplexFromText, ReadsInfinityAndNaNWhereTheyAreAccepted) {
    PrecisionScope scope(57);
    EXPECT_EQ(Read(u"NaN"), "nan 0");
    EXPECT_EQ(Read(u"1-(NaN)i"), "1e0 nan");
    EXPECT_EQ(Read(u"-(inf)i"), "0 -inf");
    EXPECT_EQ(Read(u"\u221E-\u221Ei"), "inf -inf");
    EXPECT_EQ(Read(u"NaN-(\u221E)i"), "nan -inf");
    EXPECT_EQ(Read(u"inf-i"), "inf -1e0");
    EXPECT_EQ(Read(u"\u221Ei", TextAcceptNaN), "0 nan CalcErrorSyntax");
    EXPECT_EQ(Read(u"(NaN)i", TextAcceptInfinity), "0 nan CalcErrorSyntax");
}

TEST(ComplexFromText, UsesTheSeparatorsOfTheContext) {
    PrecisionScope scope(16);
    FieldScope point(numberContext.decimalSeparators[0], u',');
    FieldScope mark(numberContext.groupSeparators[0], u'.');
    FieldScope point1(numberContext.decimalSeparators[1], u',');
    FieldScope point2(numberContext.decimalSeparators[2], u',');
    EXPECT_EQ(Read(u"1.234,5-2,5i", TextGroup), "1.2345e3 -2.5e0");
    EXPECT_EQ(Read(u"1'234.5-2.5i"), "1.2345e3 -2.5e0");
}

TEST(ComplexFromText, RoundsEachPartByTheFirstSurplusDigit) {
    PrecisionScope scope(3);
    EXPECT_EQ(Read(u"1.235-1.2349i"), "1.24e0 -1.23e0");
    EXPECT_EQ(Read(u"9.995+(9.996)i"), "1e1 1e1");
    FieldScope truncating(numberContext.noRounding, uint8_t{1});
    EXPECT_EQ(Read(u"1.235-1.239i"), "1.23e0 -1.23e0");
}

// What ComplexToText leaves in a buffer of capacity + 1 characters, and the code if there is one.
std::string Write(const ComplexBuffer& z, uint32_t flags = 0, int64_t capacity = 30'000) {
    std::u16string buffer(static_cast<size_t>(capacity) + 2, u'#');
    const int64_t length = ComplexToText(buffer.data(), capacity, z, flags);
    EXPECT_LE(length, capacity);
    EXPECT_EQ(buffer.back(), u'#');
    EXPECT_EQ(buffer[static_cast<size_t>(length)] == u'\0', (flags & TextNoTerminator) == 0);
    const CalcError code = TakeCode();
    return WithCode(NarrowText({buffer.data(), static_cast<size_t>(length)}), code);
}
std::string Write(std::string_view parts, uint32_t flags = 0, int64_t capacity = 30'000) {
    return Write(ComplexBuffer(parts), flags, capacity);
}

TEST(ComplexToText, LeavesOutAZeroPart) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(Write("0 0"), "0");
        EXPECT_EQ(Write("-0 -0"), "0");
        EXPECT_EQ(Write("5 -0"), "5");
        EXPECT_EQ(Write("-5 0"), "-5");
        EXPECT_EQ(Write("0 5"), "5i");
        EXPECT_EQ(Write("-0 -5"), "-5i");
        EXPECT_EQ(Write("7 5"), "7+5i");
        EXPECT_EQ(Write("-7 -5"), "-7-5i");
    }
}

TEST(ComplexToText, LeavesOutAMagnitudeOfOne) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(Write("0 1"), "i");
        EXPECT_EQ(Write("0 -1"), "-i");
        EXPECT_EQ(Write("2 1"), "2+i");
        EXPECT_EQ(Write("1 -1"), "1-i");
    }
    PrecisionScope scope(3);
    EXPECT_EQ(Write("0 10"), "10i");
    EXPECT_EQ(Write("0 1.5"), "1.5i");
    EXPECT_EQ(Write("0 0.1"), "0.1i");
    EXPECT_EQ(Write("0 1", TextFixed), "1.00i");
    EXPECT_EQ(Write("0 1", TextFixed | TextStripZeros), "i");
    EXPECT_EQ(Write("0 -1", TextKeepFraction), "-1.0i");
}

TEST(ComplexToText, WrapsAnImaginaryPartWithAnExponentOrWithoutAFiniteValue) {
    PrecisionScope scope(20);
    EXPECT_EQ(Write("0 2e20"), "(2e+20)i");
    EXPECT_EQ(Write("0 -2e-20"), "-(2e-20)i");
    EXPECT_EQ(Write("3e30 -1e20"), "3e+30-(1e+20)i");
    EXPECT_EQ(Write("3 2e20", TextNoExponentPlus), "3+(2e20)i");
    EXPECT_EQ(Write("0 1", TextScientific | TextStripZeros), "(1e+0)i");
    EXPECT_EQ(Write("1 inf"), "1+(~)i");
    EXPECT_EQ(Write("0 -inf"), "-(~)i");
    EXPECT_EQ(Write("inf nan"), "~+(NaN)i");
    EXPECT_EQ(Write("nan 0"), "NaN");
    EXPECT_EQ(Write("nan 2"), "NaN+2i");
    FieldScope sign(numberContext.useInfinitySign, uint8_t{0});
    EXPECT_EQ(Write("-inf -inf"), "-inf-(inf)i");
    EXPECT_EQ(Write("0 inf"), "(inf)i");
}

TEST(ComplexToText, WritesTheUnitAndTheMarksOfTheContext) {
    PrecisionScope scope(9);
    FieldScope unit(numberContext.imaginaryChars[0], u'j');
    FieldScope mark(numberContext.exponentChars[0], u'^');
    FieldScope point(numberContext.decimalSeparators[0], u',');
    FieldScope group(numberContext.groupSeparators[0], u'_');
    EXPECT_EQ(Write("1234.5 -1"), "1234,5-j");
    EXPECT_EQ(Write("1234.5 -12345.5", TextGroup), "1_234,5-12_345,5j");
    EXPECT_EQ(Write("1234.5 -12345.5", TextGroup | TextPlainSeparators), "1'234.5-12'345.5j");
    EXPECT_EQ(Write("0 2e20"), "(2^+20)j");
}

TEST(ComplexToText, HoldsTheFlagsForBothParts) {
    PrecisionScope scope(3);
    EXPECT_EQ(Write("5 2", TextAlwaysSign), "+5+2i");
    EXPECT_EQ(Write("5 0", TextAlwaysSign), "+5");
    EXPECT_EQ(Write("0 2", TextAlwaysSign), "+2i");
    EXPECT_EQ(Write("0 1", TextAlwaysSign), "+i");
    EXPECT_EQ(Write("-0 0", TextAlwaysSign), "-0");
    EXPECT_EQ(Write("5 2", TextKeepFraction), "5.0+2.0i");
    EXPECT_EQ(Write("5 2", TextFixed), "5.00+2.00i");
    EXPECT_EQ(Write("5 2", TextScientific), "5.00e+0+(2.00e+0)i");
    EXPECT_EQ(Write("5 -2", TextScientific | TextStripZeros | TextNoExponentPlus), "5e0-(2e0)i");
    EXPECT_EQ(Write("5 2", 10), "5+2i");
}

TEST(ComplexToText, MarksWhatItCannotWrite) {
    PrecisionScope scope(20);
    EXPECT_EQ(Write("5 2", 16), "[P]+([P])i CalcErrorBadParameter");
    EXPECT_EQ(Write("0 2", 16), "([P])i CalcErrorBadParameter");
    ComplexBuffer z("5 2");
    RealLimbs(ImaginaryPart(z.Get()))[1] = LimbBase;
    EXPECT_EQ(Write(z), "5+[?]i CalcErrorMalformed");
    RealLimbs(RealPart(z.Get()))[0] = 0;
    EXPECT_EQ(Write(z), "[?]+[?]i CalcErrorMalformed");
}

TEST(ComplexToText, EndsATextThatDoesNotFitWithTheMarkForIt) {
    PrecisionScope scope(5);
    for (uint32_t flags : {uint32_t{0}, uint32_t{TextNoTerminator}}) {
        for (const char* text : {"12345 0", "0 1234.5", "1 1", "-1 -1", "2e20 -3e-20", "0 1"}) {
            const std::string whole = Write(text, flags);
            // Zeros that are stripped need room for a moment, and so does a magnitude that goes.
            constexpr int64_t Room = 12;
            const int64_t length = static_cast<int64_t>(whole.size());
            for (int64_t capacity = 0; capacity < length; capacity++) {
                EXPECT_EQ(Write(text, flags, capacity),
                          capacity < 3 ? " CalcErrorTextTooLong" : "[$] CalcErrorTextTooLong")
                    << text << " " << capacity;
            }
            EXPECT_EQ(Write(text, flags, length + Room), whole);
        }
        EXPECT_EQ(Write("12345 -2e20", flags, 14), "12345-(2e+20)i");
        EXPECT_EQ(Write("12345 -2e20", flags, 13), "[$] CalcErrorTextTooLong");
        EXPECT_EQ(Write("1e4611686018427387903 1", flags | TextFixed, 100),
                  "[$] CalcErrorTextTooLong");
        EXPECT_EQ(Write("1 1e4611686018427387903", flags | TextFixed, 100),
                  "[$] CalcErrorTextTooLong");
        EXPECT_EQ(Write("1e4611686018427387903 0", flags | TextFixed, 2), " CalcErrorTextTooLong");
    }
}

TEST(ComplexToText, TellsTheCapacityWhenThereIsNoBuffer) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        const ComplexBuffer z("1 1");
        for (uint32_t flags : {uint32_t{0}, uint32_t{TextGroup}}) {
            const int64_t capacity = ComplexToText(nullptr, 0, z, flags);
            EXPECT_EQ(capacity, 2 * RealTextCapacity(flags) + 1);
            const std::string nines = std::string(static_cast<size_t>(p), '9');
            const std::string longest = "-" + nines + "e-4611686018427380000";
            EXPECT_EQ(Write(longest + " " + longest, flags | TextScientific, capacity).find("$"),
                      std::string::npos);
        }
    }
}

TEST(NumberToText, WritesComplexNumbers) {
    PrecisionScope scope(16);
    FieldScope type(numberContext.numberType, NumberTypeComplex);
    const ComplexBuffer z("1.5 -1");
    char16_t buffer[64];
    EXPECT_EQ(NumberToText(buffer, 63, z.Words(), 0), 5);
    EXPECT_EQ(std::u16string(buffer), u"1.5-i");
    EXPECT_EQ(NumberToText(buffer, 4, z.Words(), 0), 3);
    EXPECT_EQ(std::u16string(buffer), u"[$]");
    EXPECT_EQ(TakeCode(), CalcErrorTextTooLong);
    EXPECT_EQ(NumberToText(nullptr, 0, z.Words(), TextGroup),
              ComplexToText(nullptr, 0, z, TextGroup));
}

TEST(NumberRoundDigits, RoundsBothPartsOfComplexNumbers) {
    PrecisionScope scope(16);
    FieldScope type(numberContext.numberType, NumberTypeComplex);
    const ComplexBuffer z("1.25 -9.96e5");
    ComplexBuffer rounded;
    NumberRoundDigits(rounded.Words(), z.Words(), 2);
    EXPECT_EQ(OutcomeOf(rounded), Silent("1.3e0 -1e6"));
    NumberRoundDigits(rounded.Words(), z.Words(), 0);
    EXPECT_EQ(OutcomeOf(rounded), (Outcome{"nan 0", CalcErrorUndefined}));
}

// The text of one part by the routine of real numbers, in any room.
std::string PartText(const RealNumber* x, uint32_t flags) {
    std::u16string buffer(30'000, u'#');
    TextWriter writer = {0, 30'000, buffer.data()};
    RealToText(writer, x, flags);
    EXPECT_FALSE(WriterOverflowed(writer));
    return NarrowText({buffer.data(), static_cast<size_t>(writer.position)});
}

// The text of a value put together from the texts of its parts.
std::string AssembledText(const ComplexBuffer& z, uint32_t flags) {
    if (ComplexIsReal(z)) {
        return PartText(RealPart(z.Get()), flags);
    }
    const bool alone = RealIsZero(RealPart(z.Get()));
    std::string head = alone ? "" : PartText(RealPart(z.Get()), flags);
    std::string magnitude =
        PartText(ImaginaryPart(z.Get()), alone ? flags : flags | uint32_t{TextAlwaysSign});
    if (magnitude[0] == '-' || magnitude[0] == '+') {
        head += magnitude[0];
        magnitude.erase(0, 1);
    }
    if (magnitude == "1") {
        magnitude.clear();
    } else if (magnitude.find_first_of("eNaN~+-") != std::string::npos) {
        magnitude = "(" + magnitude + ")";
    }
    return head + magnitude + "i";
}

// A value whose parts are often small integers, ones and zeros, else as RandomComplex.
ComplexBuffer RandomWritten(RandomSource& random, int64_t exponentRange) {
    if (random.Below(3) == 0) {
        return ComplexBuffer(std::to_string(random.Between(-2, 2)) + " " +
                             std::to_string(random.Between(-2, 2)));
    }
    return RandomComplex(random, exponentRange);
}

uint32_t RandomFlags(RandomSource& random) {
    uint32_t flags = 0;
    for (uint32_t flag : {TextGroup, TextPlainSeparators, TextAlwaysSign, TextNoExponentPlus,
                          TextKeepFraction, TextStripZeros}) {
        flags |= random.Below(3) == 0 ? flag : 0;
    }
    const uint64_t notation = random.Below(3);
    return flags | (notation == 1 ? uint32_t{TextFixed} : 0) |
           (notation == 2 ? uint32_t{TextScientific} : 0);
}

TEST(ComplexTextRandom, PutsTheTextsOfThePartsTogetherAndReadsThemBack) {
    RandomSource random;
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        for (int round = TestRounds(p > 100 ? 20 : 2'000); round > 0 && !HasFailure(); round--) {
            ComplexBuffer z = RandomWritten(random, 40);
            const uint32_t flags = RandomFlags(random);
            const std::string text = AssembledText(z, flags);
            ASSERT_EQ(Write(z, flags), text);

            std::u16string wide(text.begin(), text.end());
            for (char16_t& c : wide) {
                c = c == u'~' ? InfinitySign : c;
            }
            ComplexBuffer back;
            ComplexFromText(
                back, wide.data(), static_cast<int64_t>(wide.size()),
                flags | uint32_t{TextGroup} | uint32_t{TextAcceptInfinity | TextAcceptNaN});
            ASSERT_EQ(TakeCode(), CalcErrorNone) << text;
            // The sign of a zero is not written.
            for (RealNumber* part : {RealPart(z.Get()), ImaginaryPart(z.Get()),
                                     RealPart(back.Get()), ImaginaryPart(back.Get())}) {
                if (RealIsZero(part)) {
                    RealSetZero(part, 0);
                }
            }
            ASSERT_EQ(back, z) << text;
        }
    }
}

TEST(ComplexTextRandom, FitsOrSaysSoInEveryCapacity) {
    RandomSource random;
    int fitted = 0;
    int overflowed = 0;
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (int round = TestRounds(1'000); round > 0 && !HasFailure(); round--) {
            const ComplexBuffer z = RandomWritten(random, 12);
            const uint32_t flags = RandomFlags(random);
            const int64_t capacity = random.Between(0, 2 * p + 40);
            const std::string text = Write(z, flags, capacity);
            const bool overflow = text.find(" CalcErrorTextTooLong") != std::string::npos;
            (overflow ? overflowed : fitted)++;
            if (overflow) {
                ASSERT_EQ(text,
                          capacity < 3 ? " CalcErrorTextTooLong" : "[$] CalcErrorTextTooLong");
            } else {
                ASSERT_EQ(text, AssembledText(z, flags));
            }
        }
    }
    EXPECT_GT(fitted, 500);
    EXPECT_GT(overflowed, 500);
}

// What a text is as a complex number of p digits with plain separators and groups, cut into parts
// by operations on strings.
std::string ReadByStrings(std::u16string text, int64_t p) {
    const size_t first = text.find_first_not_of(u' ');
    text = first == std::u16string::npos
               ? u""
               : text.substr(first, text.find_last_not_of(u' ') + 1 - first);
    const auto read = [p](std::u16string_view part) { return ReadDecimal(part, p, u'.', u'\''); };
    const std::u16string letters = u"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    const bool imaginary =
        !text.empty() && text.back() == u'i' &&
        (text.size() == 1 || letters.find(text[text.size() - 2]) == std::u16string::npos);
    if (!imaginary) {
        const ReadResult whole = read(text);
        return WithCode(whole.plain + " 0", whole.code);
    }
    text.pop_back();
    size_t split = text.find_last_of(u"+-");
    while (split != std::u16string::npos && split > 0 &&
           (text[split - 1] == u'e' || text[split - 1] == u'E')) {
        split = text.find_last_of(u"+-", split - 1);
    }
    const bool negative = split != std::u16string::npos && text[split] == u'-';
    std::u16string before;
    if (split != std::u16string::npos) {
        before = text.substr(0, split);
        text = text.substr(split + 1);
    }
    const ReadResult realPart = before.empty() ? ReadResult{"0", CalcErrorNone} : read(before);
    if (text.size() >= 2 && text.front() == u'(' && text.back() == u')') {
        text = text.substr(1, text.size() - 2);
    } else if (text.empty()) {
        text = u"1";
    }
    ReadResult magnitude = read(text);
    if (negative && magnitude.plain != "nan") {
        magnitude.plain.insert(0, "-");
    }
    return WithCode(realPart.plain + " " + magnitude.plain,
                    realPart.code != CalcErrorNone ? realPart.code : magnitude.code);
}

TEST(ComplexTextRandom, ReadsManyTextsAsByOperationsOnStrings) {
    RandomSource random;
    const std::u16string_view pieces[] = {u"1",   u"25",       u"1'000",
                                          u"2.5", u"0",        u"0.001",
                                          u"1e5", u"1e-5",     u"2E+3",
                                          u"i",   u"+",        u"-",
                                          u"(",   u")",        u" ",
                                          u"e",   u"e-",       u"inf",
                                          u"NaN", u"\u221E",   u"(2)i",
                                          u"-3i", u"+(7e-3)i", u".",
                                          u"'",   u"pi",       u"1e99999999999999999999"};
    int values = 0;
    int refused = 0;
    for (int64_t p : {1, 19, 20, 57}) {
        PrecisionScope scope(p);
        for (int round = TestRounds(20'000); round > 0 && !HasFailure(); round--) {
            std::u16string text;
            for (uint64_t count = random.Below(6); count > 0; count--) {
                text += pieces[random.Below(std::size(pieces))];
            }
            text += random.Below(2) == 0 ? u"i" : u"";
            const std::string expected = ReadByStrings(text, p);
            ASSERT_EQ(Read(text), expected) << NarrowText(text);
            (expected.find(CodeName(CalcErrorSyntax)) == std::string::npos ? values : refused)++;
        }
    }
    EXPECT_GT(values, 1'000);
    EXPECT_GT(refused, 1'000);
}

}  // namespace
}  // namespace tallymere
