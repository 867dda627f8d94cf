#include <gtest/gtest.h>

#include <string>

#include "core/digit_format.h"
#include "core/real_text.h"
#include "support/decimal_text.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// What RealToText writes into a writer of that capacity: the text, or "overflow", followed by the
// code if there is one.
std::string Write(const RealNumber* x, uint32_t flags, int64_t capacity = 40'000) {
    std::u16string buffer(static_cast<size_t>(capacity) + 1, u'#');
    TextWriter writer = {0, capacity, buffer.data()};
    RealToText(writer, x, flags);
    EXPECT_EQ(buffer.back(), u'#');
    const CalcError code = TakeCode();
    std::string text = "overflow";
    if (WriterOverflowed(writer)) {
        EXPECT_EQ(writer.position, capacity + 1);
    } else {
        text = NarrowText({buffer.data(), static_cast<size_t>(writer.position)});
    }
    return PlainText(Outcome{text, code});
}

std::string Write(std::string_view plain, uint32_t flags = 0, int64_t capacity = 40'000) {
    const RealBuffer x(plain);
    const RealBuffer before = x;
    const std::string text = Write(x.Get(), flags, capacity);
    EXPECT_EQ(x, before);
    return text;
}

TEST(RealToText, ChoosesFixedNotationInsideTheWindowAndScientificOutside) {
    PrecisionScope scope(16);
    EXPECT_EQ(Write("1.5e-3"), "0.0015");
    EXPECT_EQ(Write("1.5e-4"), "1.5e-4");
    EXPECT_EQ(Write("1.5e9"), "1500000000");
    EXPECT_EQ(Write("1.5e10"), "1.5e+10");
    EXPECT_EQ(Write("-1.5"), "-1.5");
    FieldScope low(numberContext.fixedExponentLow, int64_t{-1});
    FieldScope high(numberContext.fixedExponentHigh, int64_t{2});
    EXPECT_EQ(Write("15"), "15");
    EXPECT_EQ(Write("1.5e2"), "1.5e+2");
    EXPECT_EQ(Write("1.5"), "1.5");
    EXPECT_EQ(Write("1.5e-1"), "1.5e-1");
    FieldScope empty(numberContext.fixedExponentHigh, int64_t{-1});
    EXPECT_EQ(Write("0"), "0e+0");
}

TEST(RealToText, StripsZerosOfItselfOnlyInAutomaticNotation) {
    PrecisionScope scope(5);
    EXPECT_EQ(Write("1.2"), "1.2");
    EXPECT_EQ(Write("100"), "100");
    EXPECT_EQ(Write("1.2e20"), "1.2e+20");
    EXPECT_EQ(Write("1e20"), "1e+20");
    EXPECT_EQ(Write("1.2", TextFixed), "1.2000");
    EXPECT_EQ(Write("100", TextFixed), "100.00");
    EXPECT_EQ(Write("1.2", TextScientific), "1.2000e+0");
    EXPECT_EQ(Write("1.2", TextFixed | TextStripZeros), "1.2");
    EXPECT_EQ(Write("100", TextFixed | TextStripZeros), "100");
    EXPECT_EQ(Write("12345", TextFixed | TextStripZeros), "12345");
    EXPECT_EQ(Write("123450", TextFixed | TextStripZeros), "123450");
    EXPECT_EQ(Write("1.2", TextScientific | TextStripZeros), "1.2e+0");
    EXPECT_EQ(Write("100", TextScientific | TextStripZeros), "1e+2");
}

TEST(RealToText, LetsFixedWinOverScientific) {
    PrecisionScope scope(3);
    EXPECT_EQ(Write("1e12", TextFixed | TextScientific), "1000000000000");
}

TEST(RealToText, WritesFixedNotationAroundTheLastDigit) {
    PrecisionScope scope(4);
    EXPECT_EQ(Write("1.234e2", TextFixed), "123.4");
    EXPECT_EQ(Write("1.234e3", TextFixed), "1234");
    EXPECT_EQ(Write("1.234e4", TextFixed), "12340");
    EXPECT_EQ(Write("1.234e8", TextFixed), "123400000");
    EXPECT_EQ(Write("1.234e-1", TextFixed), "0.1234");
    EXPECT_EQ(Write("1.234e-5", TextFixed), "0.00001234");
    EXPECT_EQ(Write("0", TextFixed), "0.000");
    EXPECT_EQ(Write("0", TextScientific), "0.000e+0");
}

TEST(RealToText, WritesNoSeparatorForASingleDigit) {
    PrecisionScope scope(1);
    EXPECT_EQ(Write("5", TextScientific), "5e+0");
    EXPECT_EQ(Write("5", TextFixed), "5");
    EXPECT_EQ(Write("5e3", TextFixed), "5000");
    EXPECT_EQ(Write("5e-2", TextFixed), "0.05");
    EXPECT_EQ(Write("0", TextFixed), "0");
}

TEST(RealToText, GroupsTheFixedIntegerPartInThrees) {
    PrecisionScope scope(7);
    constexpr uint32_t Flags = TextFixed | TextGroup | TextPlainSeparators;
    EXPECT_EQ(Write("1e6", Flags), "1'000'000");
    EXPECT_EQ(Write("1.234567e6", Flags), "1'234'567");
    EXPECT_EQ(Write("1.234567e5", Flags), "123'456.7");
    EXPECT_EQ(Write("1.234567e2", Flags), "123.4567");
    EXPECT_EQ(Write("1.234567e3", Flags), "1'234.567");
    EXPECT_EQ(Write("1.234567e7", Flags), "12'345'670");
    EXPECT_EQ(Write("1.234567e9", Flags), "1'234'567'000");
    EXPECT_EQ(Write("-1.234567e11", Flags), "-123'456'700'000");
    EXPECT_EQ(Write("1.234567e-3", Flags), "0.001234567");
    EXPECT_EQ(Write("1.234567e6", TextScientific | TextGroup | TextPlainSeparators), "1.234567e+6");
    EXPECT_EQ(Write("1.234567e9", TextGroup | TextPlainSeparators), "1'234'567'000");
    EXPECT_EQ(Write("1.234567e9", 0), "1234567000");
}

TEST(RealToText, WritesTheFirstSeparatorsOfTheContextUnlessNeutral) {
    PrecisionScope scope(7);
    FieldScope point(numberContext.decimalSeparators[0], u',');
    FieldScope mark(numberContext.groupSeparators[0], u'.');
    FieldScope exponent(numberContext.exponentChars[0], u'E');
    EXPECT_EQ(Write("1.234567e3", TextGroup), "1.234,567");
    EXPECT_EQ(Write("1.234567e3", TextGroup | TextPlainSeparators), "1'234.567");
    EXPECT_EQ(Write("1.5e20"), "1,5E+20");
    EXPECT_EQ(Write("1.5e20", TextPlainSeparators), "1.5E+20");
    EXPECT_EQ(Write("1", TextKeepFraction), "1,0");
}

TEST(RealToText, ShowsTheSignOfNegativeNumbersAndOfAllIfAsked) {
    PrecisionScope scope(16);
    EXPECT_EQ(Write("-5"), "-5");
    EXPECT_EQ(Write("5", TextAlwaysSign), "+5");
    EXPECT_EQ(Write("-5", TextAlwaysSign), "-5");
    EXPECT_EQ(Write("0"), "0");
    EXPECT_EQ(Write("-0"), "0");
    EXPECT_EQ(Write("0", TextAlwaysSign), "+0");
    EXPECT_EQ(Write("-0", TextAlwaysSign), "-0");
    EXPECT_EQ(Write("-0", TextScientific | TextStripZeros), "0e+0");
}

TEST(RealToText, KeepsOneFractionDigitIfAsked) {
    PrecisionScope scope(4);
    EXPECT_EQ(Write("12", TextKeepFraction), "12.0");
    EXPECT_EQ(Write("12.5", TextKeepFraction), "12.5");
    EXPECT_EQ(Write("1e20", TextKeepFraction), "1.0e+20");
    EXPECT_EQ(Write("1234", TextFixed | TextKeepFraction), "1234.0");
    EXPECT_EQ(Write("12", TextFixed | TextKeepFraction), "12.00");
    EXPECT_EQ(Write("12", TextFixed | TextStripZeros | TextKeepFraction), "12.0");
    EXPECT_EQ(Write("0", TextKeepFraction), "0.0");
    PrecisionScope single(1);
    EXPECT_EQ(Write("5", TextScientific | TextKeepFraction), "5.0e+0");
}

TEST(RealToText, WritesTheExponentWithItsSign) {
    PrecisionScope scope(2);
    EXPECT_EQ(Write("1.5e12"), "1.5e+12");
    EXPECT_EQ(Write("1.5e12", TextNoExponentPlus), "1.5e12");
    EXPECT_EQ(Write("1.5e-12", TextNoExponentPlus), "1.5e-12");
    EXPECT_EQ(Write("1.5", TextScientific | TextNoExponentPlus), "1.5e0");
    EXPECT_EQ(Write("1.5e4611686018427387903"), "1.5e+4611686018427387903");
    EXPECT_EQ(Write("-1.5e-4611686018427387903"), "-1.5e-4611686018427387903");
}

TEST(RealToText, WritesInfinityAndNaN) {
    PrecisionScope scope(57);
    EXPECT_EQ(Write("inf"), "~");
    EXPECT_EQ(Write("-inf"), "-~");
    EXPECT_EQ(Write("inf", TextAlwaysSign), "+~");
    EXPECT_EQ(Write("nan"), "NaN");
    EXPECT_EQ(Write("nan", TextAlwaysSign), "+NaN");
    EXPECT_EQ(Write("inf", TextFixed | TextKeepFraction | TextGroup), "~");
    EXPECT_EQ(Write("nan", TextScientific | TextKeepFraction), "NaN");
    RealBuffer negativeNaN("nan");
    RealSetSign(negativeNaN, 1);
    EXPECT_EQ(Write(negativeNaN, 0), "-NaN");
    EXPECT_EQ(Write(negativeNaN, TextAlwaysSign), "-NaN");
    FieldScope letters(numberContext.useInfinitySign, uint8_t{0});
    EXPECT_EQ(Write("inf"), "inf");
    EXPECT_EQ(Write("-inf", TextAlwaysSign), "-inf");
}

TEST(RealToText, RefusesRecordsOutsideTheNormalForm) {
    for (int64_t p : {1, 18, 19, 20, 57}) {
        PrecisionScope scope(p);
        Limb nextPower = 1;
        for (int64_t i = 0; i < numberContext.topLimbDigits; i++) {
            nextPower *= 10;
        }
        for (Limb first : {Limb{0}, nextPower / 10 - 1, nextPower, UINT64_MAX}) {
            RealBuffer x("-1");
            x.Limbs()[0] = first;
            EXPECT_EQ(Write(x, 0), "[?] CalcErrorMalformed");
            EXPECT_EQ(Write(x, TextAlwaysSign), "+[?] CalcErrorMalformed");
            EXPECT_EQ(Write(x, 7), "[?] CalcErrorMalformed");
        }
        for (int64_t i = 1; i < numberContext.realLimbs; i++) {
            RealBuffer x("1");
            x.Limbs()[i] = 10'000'000'000'000'000'000u;
            EXPECT_EQ(Write(x, 0), "[?] CalcErrorMalformed");
            RealBuffer zero("0");
            zero.Limbs()[i] = 1;
            EXPECT_EQ(Write(zero, 0), "[?] CalcErrorMalformed");
        }
        RealBuffer special("0");
        special.Limbs()[0] = 3;
        EXPECT_EQ(Write(special, 0), "[?] CalcErrorMalformed");
    }
}

TEST(RealToText, AcceptsOnlyBaseTen) {
    PrecisionScope scope(16);
    EXPECT_EQ(Write("12", 10), "12");
    for (uint32_t base = 1; base <= 255; base++) {
        if (base != 10) {
            EXPECT_EQ(Write("-12", base), "[P] CalcErrorBadParameter");
            EXPECT_EQ(Write("-12", base | TextAlwaysSign), "+[P] CalcErrorBadParameter");
            EXPECT_EQ(Write("nan", base), "[P] CalcErrorBadParameter");
        }
    }
}

TEST(RealToText, DecidesAtOnceThatAHugeExponentDoesNotFitInFixedNotation) {
    for (int64_t p : {1, 19, 20, 10005}) {
        PrecisionScope scope(p);
        for (const char* exponent :
             {"e4611686018427387903", "e-4611686018427387903", "e3458764513820540928",
              "e2147483647", "e2147483648", "e-2147483648", "e-4294967296", "e41000", "e-41000"}) {
            for (uint32_t flags : {0u, uint32_t{TextGroup}, uint32_t{TextStripZeros},
                                   uint32_t{TextKeepFraction}, uint32_t{TextAlwaysSign}}) {
                EXPECT_EQ(Write("-1" + std::string(exponent), TextFixed | flags), "overflow");
            }
        }
    }
}

TEST(RealToText, DecidesAtOnceInAWindowThatLetsHugeExponentsIn) {
    PrecisionScope scope(16);
    FieldScope low(numberContext.fixedExponentLow, INT64_MIN);
    FieldScope high(numberContext.fixedExponentHigh, INT64_MAX);
    EXPECT_EQ(Write("1e4611686018427387903"), "overflow");
    EXPECT_EQ(Write("1e-4611686018427387903"), "overflow");
    EXPECT_EQ(Write("1.5e12"), "1500000000000");
}

TEST(RealToText, FitsExactlyOrOverflows) {
    PrecisionScope scope(4);
    struct Case {
        const char* plain;
        uint32_t flags;
        const char* text;
    };
    for (const Case& c :
         {Case{"-1.234e2", TextFixed, "-123.4"},
          Case{"1.234e6", TextFixed | TextGroup, "1'234'000"},
          Case{"1.234e-3", TextFixed, "0.001234"}, Case{"1.234e-12", TextScientific, "1.234e-12"},
          Case{"1.234e3", TextFixed | TextKeepFraction, "1234.0"},
          Case{"inf", TextAlwaysSign, "+~"}, Case{"nan", 0, "NaN"}}) {
        const int64_t length = static_cast<int64_t>(std::string(c.text).size());
        for (int64_t capacity = 0; capacity < length; capacity++) {
            EXPECT_EQ(Write(c.plain, c.flags, capacity), "overflow");
        }
        EXPECT_EQ(Write(c.plain, c.flags, length), c.text);
    }
    RealBuffer broken("1");
    broken.Limbs()[0] = 0;
    EXPECT_EQ(Write(broken, 0, 3), "[?] CalcErrorMalformed");
    EXPECT_EQ(Write(broken, 0, 2), "overflow CalcErrorMalformed");
    EXPECT_EQ(Write("1", 16, 2), "overflow CalcErrorBadParameter");
}

// Zeros are written before they are stripped, so they need room for a moment. RealTextCapacity
// provides it; a caller with a smaller buffer is told at once that it is too small.
TEST(RealToText, NeedsRoomForTheZerosThatItStrips) {
    PrecisionScope scope(10);
    EXPECT_EQ(Write("1.5", 0, 11), "1.5");
    EXPECT_EQ(Write("1.5", 0, 10), "overflow");
    EXPECT_EQ(Write("1.5e20", 0, 11), "1.5e+20");
    EXPECT_EQ(Write("1.5e20", 0, 10), "overflow");
    EXPECT_EQ(Write("1.5e9", 0, 10), "1500000000");
}

TEST(RealToText, AppendsToWhatTheWriterHolds) {
    PrecisionScope scope(3);
    std::u16string buffer(20, u'#');
    TextWriter writer = {0, 20, buffer.data()};
    WriteChars(writer, u"x=00", 4);
    RealToText(writer, RealBuffer("1e2"), TextStripZeros | TextFixed);
    RealToText(writer, RealBuffer("0"), 0);
    EXPECT_EQ(NarrowText({buffer.data(), static_cast<size_t>(writer.position)}), "x=001000");
}

TEST(RealTextCapacity, CountsAtLeastTwentyDigitsAndTheirGroups) {
    for (int64_t p : {1, 19, 20}) {
        PrecisionScope scope(p);
        EXPECT_EQ(RealTextCapacity(0), 20 + 24 + 19);
        EXPECT_EQ(RealTextCapacity(TextGroup), 20 + 24 + 19 + 6);
    }
    PrecisionScope scope(10'005);
    EXPECT_EQ(RealTextCapacity(TextPlainSeparators), 10'005 + 24 + 19);
    EXPECT_EQ(RealTextCapacity(TextGroup), 10'005 + 24 + 19 + 3335);
}

TEST(RealTextCapacity, SufficesForAutomaticAndScientificNotation) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        const std::string nines(static_cast<size_t>(p), '9');
        for (std::string exponent :
             {"e-4611686018427387903", "e4611686018427387000", "e-4", "e-3", "e0", "e9", "e10"}) {
            RealBuffer x("-" + nines);
            x.Get()->header = RealBuffer("-1" + exponent).Get()->header;
            for (uint32_t notation : {0u, uint32_t{TextScientific}}) {
                const uint32_t flags = notation | TextGroup | TextKeepFraction | TextAlwaysSign;
                EXPECT_NE(Write(x, flags, RealTextCapacity(flags)), "overflow");
                EXPECT_NE(Write(x, notation, RealTextCapacity(notation)), "overflow");
            }
        }
    }
}

std::string Format(std::u16string_view digits, bool negative, int64_t exponent, uint32_t flags) {
    std::u16string buffer(100, u'#');
    TextWriter writer = {0, 100, buffer.data()};
    FormatDigits(writer, digits.data(), static_cast<int64_t>(digits.size()), negative, exponent,
                 flags);
    return WriterOverflowed(writer)
               ? "overflow"
               : NarrowText({buffer.data(), static_cast<size_t>(writer.position)});
}

TEST(FormatDigits, TakesAnyCountOfDigitsWhateverThePrecision) {
    PrecisionScope scope(1);
    EXPECT_EQ(Format(u"12345", true, 2, 0), "-123.45");
    EXPECT_EQ(Format(u"12345", false, 20, 0), "1.2345e+20");
    EXPECT_EQ(Format(u"5", false, 0, 0), "5");
}

TEST(FormatDigits, WritesAZeroBelowTheUnitsWithAllItsDigits) {
    EXPECT_EQ(Format(u"000", false, -3, TextFixed), "0.00000");
    EXPECT_EQ(Format(u"000", true, -3, TextFixed | TextStripZeros), "0");
    EXPECT_EQ(Format(u"000", true, -3, TextFixed | TextAlwaysSign), "-0.00000");
}

TEST(WriteInteger, GroupsFromTheRightInAnySize) {
    auto write = [](std::u16string_view digits, int64_t length, int64_t groupSize) {
        std::u16string buffer(40, u'#');
        TextWriter writer = {0, 40, buffer.data()};
        WriteInteger(writer, digits.data(), static_cast<int64_t>(digits.size()), length, groupSize,
                     u'_');
        return NarrowText({buffer.data(), static_cast<size_t>(writer.position)});
    };
    EXPECT_EQ(write(u"1234567", 7, 0), "1234567");
    EXPECT_EQ(write(u"1234567", 7, 3), "1_234_567");
    EXPECT_EQ(write(u"1234567", 7, 4), "123_4567");
    EXPECT_EQ(write(u"12345678", 8, 4), "1234_5678");
    EXPECT_EQ(write(u"1234567", 2, 3), "12");
    EXPECT_EQ(write(u"12", 7, 3), "1_200_000");
    EXPECT_EQ(write(u"1", 1, 3), "1");
}

}  // namespace
}  // namespace tallymere
