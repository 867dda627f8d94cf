#include <gtest/gtest.h>

#include <string>

#include "core/number_bases.h"
#include "exact/big_uint_text.h"
#include "support/decimal_text.h"
#include "support/exact_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr int64_t Ample = 100'000;

Outcome Write(const uint64_t* a, uint32_t flags = 0, int64_t capacity = Ample) {
    return WrittenOutcome(flags, capacity, [&](char16_t* buffer, int64_t room) {
        return BigUintToText(buffer, room, a, flags);
    });
}

Outcome Write(std::string_view plain, uint32_t flags = 0, int64_t capacity = Ample) {
    return Write(UintBuffer(plain), flags, capacity);
}

TEST(BigUintToText, WritesZeroWithOneDigit) {
    for (int64_t width : {1, 26}) {
        WidthScope scope(width);
        for (uint32_t base : {0, 2, 8, 10, 16}) {
            EXPECT_EQ(Write("0", base), Silent("0")) << base;
            EXPECT_EQ(Write("0", base | TextGroup), Silent("0")) << base;
        }
        EXPECT_EQ(Write("0", TextScientific), Silent("0e+0"));
        EXPECT_EQ(Write("0", TextScientific | TextStripZeros), Silent("0e+0"));
    }
}

TEST(BigUintToText, WritesEveryBase) {
    WidthScope scope(2);
    EXPECT_EQ(Write("255"), Silent("255"));
    EXPECT_EQ(Write("255", 10), Silent("255"));
    EXPECT_EQ(Write("255", 2), Silent("11111111"));
    EXPECT_EQ(Write("255", 8), Silent("377"));
    EXPECT_EQ(Write("255", 16), Silent("FF"));
    EXPECT_EQ(Write("255", 16 | TextLowerHex), Silent("ff"));
    EXPECT_EQ(Write("0x123456789abcdef0", 16), Silent("123456789ABCDEF0"));
    EXPECT_EQ(Write("0x123456789abcdef0", 16 | TextLowerHex), Silent("123456789abcdef0"));
    EXPECT_EQ(Write("255", TextLowerHex), Silent("255"));
    EXPECT_EQ(Write("2^64", 16), Silent("10000000000000000"));
    EXPECT_EQ(Write("2^64", 8), Silent("2000000000000000000000"));
    EXPECT_EQ(Write("2^64", 2), Silent("1" + std::string(64, '0')));
    EXPECT_EQ(Write("2^128-1", 8), Silent("3" + std::string(42, '7')));
}

TEST(BigUintToText, KeepsZerosInsideLimbs) {
    WidthScope scope(3);
    EXPECT_EQ(Write("10000000000000000000"), Silent("10000000000000000000"));
    EXPECT_EQ(Write("10000000000000000000000000000000000000"),
              Silent("10000000000000000000000000000000000000"));
    EXPECT_EQ(Write("9999999999999999999"), Silent("9999999999999999999"));
    EXPECT_EQ(Write("200000000000000000030000000000000000004"),
              Silent("200000000000000000030000000000000000004"));
    EXPECT_EQ(Write("2^192-1"),
              Silent("6277101735386680763835789423207666416102355444464034512895"));
}

TEST(BigUintToText, GroupsByThreeInDecimalAndByFourElsewhere) {
    WidthScope scope(2);
    constexpr uint32_t Grouped = TextGroup | TextPlainSeparators;
    EXPECT_EQ(Write("123", Grouped), Silent("123"));
    EXPECT_EQ(Write("1234", Grouped), Silent("1'234"));
    EXPECT_EQ(Write("123456", Grouped), Silent("123'456"));
    EXPECT_EQ(Write("1234567", Grouped), Silent("1'234'567"));
    EXPECT_EQ(Write("255", Grouped | 2), Silent("1111'1111"));
    EXPECT_EQ(Write("511", Grouped | 2), Silent("1'1111'1111"));
    EXPECT_EQ(Write("255", Grouped | 8), Silent("377"));
    EXPECT_EQ(Write("32768", Grouped | 8), Silent("10'0000"));
    EXPECT_EQ(Write("0xffff", Grouped | 16), Silent("FFFF"));
    EXPECT_EQ(Write("0x12345", Grouped | 16 | TextLowerHex), Silent("1'2345"));
    EXPECT_EQ(Write("2^64", Grouped | 16), Silent("1'0000'0000'0000'0000"));
}

TEST(BigUintToText, WritesTheFirstSeparatorsOfTheContextOrTheNeutralOnes) {
    WidthScope scope(1);
    ContextCheck check;
    FieldScope group0(numberContext.groupSeparators[0], u'_');
    FieldScope decimal0(numberContext.decimalSeparators[0], u',');
    FieldScope exponent0(numberContext.exponentChars[0], u'x');
    EXPECT_EQ(Write("1234567", TextGroup), Silent("1_234_567"));
    EXPECT_EQ(Write("255", TextGroup | 2), Silent("1111_1111"));
    EXPECT_EQ(Write("1234567", TextGroup | TextPlainSeparators), Silent("1'234'567"));
    EXPECT_EQ(Write("1234567", TextPlainSeparators), Silent("1234567"));
    EXPECT_EQ(Write("1234567", TextScientific), Silent("1,234567x+6"));
    EXPECT_EQ(Write("1234567", TextScientific | TextPlainSeparators), Silent("1.234567x+6"));
}

TEST(BigUintToText, WritesAPlusWhereEveryNumberHasASign) {
    WidthScope scope(1);
    EXPECT_EQ(Write("0", TextAlwaysSign), Silent("+0"));
    EXPECT_EQ(Write("1234", TextAlwaysSign | TextGroup), Silent("+1'234"));
    EXPECT_EQ(Write("255", TextAlwaysSign | 16), Silent("+FF"));
    EXPECT_EQ(Write("255", TextAlwaysSign | TextScientific), Silent("+2.55e+2"));
}

TEST(BigUintToText, WritesScientificForm) {
    WidthScope scope(2);
    EXPECT_EQ(Write("7", TextScientific), Silent("7e+0"));
    EXPECT_EQ(Write("1200", TextScientific), Silent("1.200e+3"));
    EXPECT_EQ(Write("1200", TextScientific | TextStripZeros), Silent("1.2e+3"));
    EXPECT_EQ(Write("1000", TextScientific | TextStripZeros), Silent("1e+3"));
    EXPECT_EQ(Write("1234", TextScientific | TextStripZeros), Silent("1.234e+3"));
    EXPECT_EQ(Write("1200", TextScientific | TextNoExponentPlus), Silent("1.200e3"));
    EXPECT_EQ(Write("1200", TextScientific | TextGroup), Silent("1.200e+3"));
    EXPECT_EQ(Write("123456789012345678901234", TextScientific | 10),
              Silent("1.23456789012345678901234e+23"));
}

TEST(BigUintToText, WritesDigitsAsTheyAreWithoutScientificForm) {
    WidthScope scope(1);
    EXPECT_EQ(Write("1200", TextStripZeros | TextNoExponentPlus), Silent("1200"));
    EXPECT_EQ(Write("1200", TextFixed | TextKeepFraction), Silent("1200"));
    EXPECT_EQ(Write("1200", TextFixed | TextKeepFraction | TextScientific), Silent("1.200e+3"));
    EXPECT_EQ(Write("1", TextKeepFraction | TextScientific), Silent("1e+0"));
}

TEST(BigUintToText, RefusesOtherBasesAndScientificFormInThem) {
    WidthScope scope(1);
    const Outcome refused = {"[P]", CalcErrorBadParameter};
    for (uint32_t base = 0; base <= TextBaseMask; base++) {
        const bool decimal = base == 0 || base == 10;
        const bool known = base == 0 || FindNumberBase(base) != nullptr;
        EXPECT_EQ(Write("1", base), known ? Silent("1") : refused) << base;
        EXPECT_EQ(Write("1", base | TextScientific), decimal ? Silent("1e+0") : refused) << base;
    }
    EXPECT_EQ(Write("1", 3 | TextAlwaysSign), (Outcome{"+[P]", CalcErrorBadParameter}));
}

TEST(BigUintToText, GivesWayWhenTheTextDoesNotFit) {
    WidthScope scope(1);
    const Outcome tooLong = {"[$]", CalcErrorTextTooLong};
    EXPECT_EQ(Write("12345", 0, 5), Silent("12345"));
    EXPECT_EQ(Write("12345", 0, 4), tooLong);
    EXPECT_EQ(Write("12345", 0, 3), tooLong);
    EXPECT_EQ(Write("12345", 0, 2), (Outcome{"", CalcErrorTextTooLong}));
    EXPECT_EQ(Write("12345", 0, 0), (Outcome{"", CalcErrorTextTooLong}));
    EXPECT_EQ(Write("123", 0, 2), (Outcome{"", CalcErrorTextTooLong}));
    EXPECT_EQ(Write("12345", TextAlwaysSign, 5), tooLong);
    EXPECT_EQ(Write("12345", TextGroup, 6), Silent("12'345"));
    EXPECT_EQ(Write("12345", TextGroup, 5), tooLong);
    EXPECT_EQ(Write("255", 2 | TextGroup, 9), Silent("1111'1111"));
    EXPECT_EQ(Write("255", 2 | TextGroup, 8), tooLong);
    EXPECT_EQ(Write("255", TextScientific, 7), Silent("2.55e+2"));
    EXPECT_EQ(Write("255", TextScientific, 6), tooLong);
    EXPECT_EQ(Write("12345", TextNoTerminator, 5), Silent("12345"));
    EXPECT_EQ(Write("12345", TextNoTerminator, 4), tooLong);
    // Zeros that are stripped ask for no room.
    EXPECT_EQ(Write("1000000000", TextScientific | TextStripZeros, 4), Silent("1e+9"));
    // The code of the failure that came first.
    EXPECT_EQ(Write("1", 3, 2), (Outcome{"", CalcErrorBadParameter}));
}

TEST(BigUintToText, KeepsACodeThatWasNotedBefore) {
    WidthScope scope(1);
    for (uint32_t flags : {0u, 3u}) {
        SetCalcError(CalcErrorCancelled);
        EXPECT_EQ(Write("7", flags), (Outcome{flags == 0 ? "7" : "[P]", CalcErrorCancelled}));
    }
    SetCalcError(CalcErrorCancelled);
    EXPECT_EQ(Write("12345", 0, 4), (Outcome{"[$]", CalcErrorCancelled}));
}

TEST(BigUintToText, AppendsWhereTheWriterStands) {
    WidthScope scope(1);
    char16_t buffer[8] = u"ab";
    TextWriter writer = {2, 7, buffer};
    BigUintWrite(writer, UintBuffer("12345"), 0);
    EXPECT_EQ(writer.position, 7);
    EXPECT_EQ(NarrowText({buffer, 7}), "ab12345");
    BigUintWrite(writer, UintBuffer("0"), 0);
    EXPECT_TRUE(WriterOverflowed(writer));
}

TEST(BigUintTextLength, IsWhatANullBufferAsksFor) {
    WidthScope scope(26);
    const UintBuffer a("7");
    for (uint32_t flags :
         {0u, 2u, 8u, 16u, 10u | TextGroup, 16u | TextGroup, 0u | TextScientific}) {
        EXPECT_EQ(BigUintToText(nullptr, 0, a, flags), BigUintTextLength(flags));
    }
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

TEST(BigUintTextLength, FollowsFromTheWidth) {
    {
        WidthScope scope(1);
        EXPECT_EQ(BigUintTextLength(2), 66);
        EXPECT_EQ(BigUintTextLength(2 | TextGroup), 82);
        EXPECT_EQ(BigUintTextLength(8), 24);
        EXPECT_EQ(BigUintTextLength(8 | TextGroup), 30);
        EXPECT_EQ(BigUintTextLength(16), 18);
        EXPECT_EQ(BigUintTextLength(16 | TextGroup), 22);
        EXPECT_EQ(BigUintTextLength(10), 22);
        EXPECT_EQ(BigUintTextLength(0), 22);
        EXPECT_EQ(BigUintTextLength(TextGroup), 28);
        EXPECT_EQ(BigUintTextLength(TextScientific), 35);
        EXPECT_EQ(BigUintTextLength(TextScientific | TextGroup), 41);
    }
    WidthScope scope(1039);
    EXPECT_EQ(BigUintTextLength(2), 66'498);
    EXPECT_EQ(BigUintTextLength(8), 22'168);
    EXPECT_EQ(BigUintTextLength(16 | TextGroup), 20'782);
    EXPECT_EQ(BigUintTextLength(10), 20'020);
    EXPECT_EQ(BigUintTextLength(10 | TextGroup), 26'692);
}

TEST(BigUintTextLength, SufficesForEveryValueInEveryForm) {
    for (int64_t width : {1, 2, 3, 4, 26, 65, 520, 1039, 2000}) {
        WidthScope scope(width);
        const UintBuffer largest(TwoTo(64 * width, "-1"));
        for (uint32_t form : {0u, 2u, 8u, 10u, 16u, 3u, 2u | TextScientific, 0u | TextScientific}) {
            for (uint32_t group : {0u, 0u | TextGroup}) {
                const uint32_t flags = form | group | TextAlwaysSign;
                EXPECT_NE(Write(largest, flags, BigUintTextLength(flags)).text, "[$]") << flags;
            }
        }
    }
}

}  // namespace
}  // namespace tallymere
