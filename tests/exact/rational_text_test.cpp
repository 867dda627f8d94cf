#include "exact/rational_text.h"

#include <gtest/gtest.h>

#include <string>

#include "core/number_scanner.h"
#include "exact/big_uint_text.h"
#include "support/decimal_text.h"
#include "support/rational_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;
using namespace std::string_literals;

void ReadInto(RationalBuffer& dest, std::u16string_view text, uint32_t flags) {
    RationalFromText(dest, text.data(), static_cast<int64_t>(text.size()), flags);
}

// What RationalFromText makes of a text at the width in force.
Outcome Read(std::u16string_view text, uint32_t flags = 0) {
    RationalBuffer dest;
    ReadInto(dest, text, flags);
    return TakeOutcome(dest);
}

void ExpectCode(CalcError code, std::initializer_list<std::u16string_view> texts,
                uint32_t flags = 0) {
    for (std::u16string_view text : texts) {
        EXPECT_EQ(Read(text, flags), Refused(code)) << '"' << NarrowText(text) << '"';
    }
}

TEST(RationalFromText, ReadsIntegersAndFractions) {
    WidthScope scope(2);
    EXPECT_EQ(Read(u"5"), Silent("5"));
    EXPECT_EQ(Read(u"3/4"), Silent("3/4"));
    EXPECT_EQ(Read(u"-3/4"), Silent("-3/4"));
    EXPECT_EQ(Read(u"+3/4"), Silent("3/4"));
    EXPECT_EQ(Read(u"-7"), Silent("-7"));
    EXPECT_EQ(Read(u"340282366920938463463374607431768211455/2"),
              Silent("340282366920938463463374607431768211455/2"));
}

TEST(RationalFromText, ReducesToLowestTerms) {
    WidthScope scope(2);
    EXPECT_EQ(Read(u"6/4"), Silent("3/2"));
    EXPECT_EQ(Read(u"-12/4"), Silent("-3"));
    EXPECT_EQ(Read(u"0/17"), Silent("0"));
    EXPECT_EQ(Read(u"100000000000000000000000000/300000000000000000000000000"), Silent("1/3"));
}

TEST(RationalFromText, KeepsTheSignOfAZero) {
    WidthScope scope(2);
    EXPECT_EQ(Read(u"-0"), Silent("-0"));
    EXPECT_EQ(Read(u"-0/5"), Silent("-0"));
    EXPECT_EQ(Read(u"+0"), Silent("0"));
}

TEST(RationalFromText, ReadsItsPartsAsIntegers) {
    WidthScope scope(2);
    EXPECT_EQ(Read(u"1.5e1/1e2"), Silent("3/20"));
    EXPECT_EQ(Read(u"-FF/1e", 16), Silent("-17/2"));
    EXPECT_EQ(Read(u"110/100", 2), Silent("3/2"));
    EXPECT_EQ(Read(u"1'000/3'000", TextGroup), Silent("1/3"));
    ExpectCode(CalcErrorSyntax, {u"1'000/3", u"1.5", u"1.5/3", u"3/1.5", u"1e-1", u"1/2/3", u"a",
                                 u"1/a", u"3/-4", u"1//2", u"inf", u"NaN"});
}

TEST(RationalFromText, PassesOverSpacesAroundTheTextAndItsParts) {
    WidthScope scope(2);
    EXPECT_EQ(Read(u"  -3/4  "), Silent("-3/4"));
    EXPECT_EQ(Read(u"3 / 4"), Silent("3/4"));
    EXPECT_EQ(Read(u"- 3/4"), Silent("-3/4"));
    ExpectCode(CalcErrorSyntax, {u"3 1/4", u"3/4 1", u"\t3/4"});
}

TEST(RationalFromText, RefusesSignsWithinTheText) {
    WidthScope scope(2);
    ExpectCode(CalcErrorSyntax, {u"--3", u"-+3", u"+-3", u"++3", u"--3/4", u"3/+4", u"3/-4",
                                 u"3-/4", u"3/4-", u"- -3"});
}

// Only a sign next to another, or next to the "/", is looked for; a "+" behind spaces leads the
// part that follows, and an integer may have one.
TEST(RationalFromText, TakesAPlusBehindSpacesAsThatOfAPart) {
    WidthScope scope(2);
    EXPECT_EQ(Read(u"- +3"), Silent("-3"));
    EXPECT_EQ(Read(u"3/ +4"), Silent("3/4"));
}

TEST(RationalFromText, RefusesATextWithoutAPart) {
    WidthScope scope(2);
    ExpectCode(CalcErrorSyntax, {u"", u"   ", u"-", u"+", u" - ", u"/", u"-/", u"/4", u"-/4", u"3/",
                                 u"3/ ", u"3/+"});
}

TEST(RationalFromText, RefusesADenominatorOfZero) {
    WidthScope scope(2);
    ExpectCode(CalcErrorUndefined, {u"3/0", u"-3/0", u"0/0", u"3/000", u"3/0.0", u"3/0e5"});
}

TEST(RationalFromText, PassesOnTheCodesOfItsPartsFromTheLeft) {
    WidthScope scope(1);
    ExpectCode(CalcErrorOverflow,
               {u"18446744073709551616", u"-18446744073709551616/3", u"3/18446744073709551616",
                u"1e20/0", u"1e20/x", u"1e20/+3", u"18446744073709551616/18446744073709551616"});
    ExpectCode(CalcErrorSyntax, {u"x/0", u"x/1e20"});
    ExpectCode(CalcErrorBadParameter, {u"1", u"-1/2", u"1/0"}, 7);
    ExpectCode(CalcErrorSyntax, {u"", u"-", u"--1"}, 7);
}

TEST(RationalFromText, TakesTheLengthFromTheTerminatorOrAsCounted) {
    WidthScope scope(1);
    RationalBuffer dest;
    RationalFromText(dest, u"3/45", 3, 0);
    EXPECT_EQ(TakeOutcome(dest), Silent("3/4"));
    RationalFromText(dest, u" -3/4 \0/5", TextUntilZero, 0);
    EXPECT_EQ(TakeOutcome(dest), Silent("-3/4"));
}

TEST(RationalFromText, KeepsACodeThatWasNotedBefore) {
    WidthScope scope(1);
    SetCalcError(CalcErrorCancelled);
    EXPECT_EQ(Read(u"3/4"), (Outcome{"3/4", CalcErrorCancelled}));
    SetCalcError(CalcErrorCancelled);
    EXPECT_EQ(Read(u"3/0"), (Outcome{"0", CalcErrorCancelled}));
}

Outcome Write(const RationalBuffer& q, uint32_t flags = 0, int64_t capacity = 30'000) {
    return WrittenOutcome(flags, capacity, [&](char16_t* buffer, int64_t room) {
        return RationalToText(buffer, room, q, flags);
    });
}

Outcome Write(std::string_view plain, uint32_t flags = 0, int64_t capacity = 30'000) {
    return Write(RationalBuffer(plain), flags, capacity);
}

TEST(RationalToText, WritesTheDenominatorUnlessItIsOne) {
    WidthScope scope(2);
    EXPECT_EQ(Write("1/2"), Silent("1/2"));
    EXPECT_EQ(Write("5"), Silent("5"));
    EXPECT_EQ(Write("-5"), Silent("-5"));
    EXPECT_EQ(Write("-1/2"), Silent("-1/2"));
    EXPECT_EQ(Write("0"), Silent("0"));
}

TEST(RationalToText, WritesASignBeforeTheWhole) {
    WidthScope scope(2);
    EXPECT_EQ(Write("1/2", TextAlwaysSign), Silent("+1/2"));
    EXPECT_EQ(Write("-1/2", TextAlwaysSign), Silent("-1/2"));
    EXPECT_EQ(Write("0", TextAlwaysSign), Silent("+0"));
    EXPECT_EQ(Write("-0"), Silent("0"));
    EXPECT_EQ(Write("-0", TextAlwaysSign), Silent("-0"));
}

TEST(RationalToText, WritesBothPartsByTheFlags) {
    WidthScope scope(2);
    EXPECT_EQ(Write("-255/16", 16), Silent("-FF/10"));
    EXPECT_EQ(Write("-255/16", 16 | TextLowerHex), Silent("-ff/10"));
    EXPECT_EQ(Write("255/256", 2 | TextGroup | TextPlainSeparators),
              Silent("1111'1111/1'0000'0000"));
    EXPECT_EQ(Write("1000/1001", TextGroup), Silent("1'000/1'001"));
    EXPECT_EQ(Write("1200/7", TextScientific | TextStripZeros), Silent("1.2e+3/7e+0"));
    EXPECT_EQ(Write("-3", 3), (Outcome{"-[P]", CalcErrorBadParameter}));
    EXPECT_EQ(Write("3/4", 3 | TextAlwaysSign), (Outcome{"+[P]/[P]", CalcErrorBadParameter}));
    EXPECT_EQ(Write("3/4", 2 | TextScientific), (Outcome{"[P]/[P]", CalcErrorBadParameter}));
}

TEST(RationalToText, ShowsADamagedRecord) {
    WidthScope scope(2);
    const auto damaged = [](const char* text) { return Outcome{text, CalcErrorMalformed}; };
    EXPECT_EQ(Write("3/0"), damaged("[?]"));
    EXPECT_EQ(Write("-3/0"), damaged("-[?]"));
    EXPECT_EQ(Write("0/0"), damaged("[?]"));
    EXPECT_EQ(Write("3/0", TextAlwaysSign), damaged("+[?]"));
    RationalBuffer q("3/4");
    q->sign = 2;
    EXPECT_EQ(Write(q), damaged("[?]"));
    EXPECT_EQ(Write(q, TextAlwaysSign), damaged("+[?]"));
    q->sign = ~uint64_t{0};
    EXPECT_EQ(Write(q), damaged("-[?]"));
}

TEST(RationalToText, GivesWayWhenTheTextDoesNotFit) {
    WidthScope scope(2);
    const Outcome tooLong = {"[$]", CalcErrorTextTooLong};
    EXPECT_EQ(Write("-12/35", 0, 6), Silent("-12/35"));
    EXPECT_EQ(Write("-12/35", 0, 5), tooLong);
    EXPECT_EQ(Write("-12/35", 0, 4), tooLong);
    EXPECT_EQ(Write("-12/35", 0, 3), tooLong);
    EXPECT_EQ(Write("-12/35", 0, 2), (Outcome{"", CalcErrorTextTooLong}));
    EXPECT_EQ(Write("-12/35", 0, 0), (Outcome{"", CalcErrorTextTooLong}));
    EXPECT_EQ(Write("-12/35", TextNoTerminator, 6), Silent("-12/35"));
    EXPECT_EQ(Write("-12/35", TextNoTerminator, 5), tooLong);
    EXPECT_EQ(Write("3/0", 0, 2), (Outcome{"", CalcErrorMalformed}));
}

TEST(RationalToText, KeepsACodeThatWasNotedBefore) {
    WidthScope scope(1);
    SetCalcError(CalcErrorCancelled);
    EXPECT_EQ(Write("3/0"), (Outcome{"[?]", CalcErrorCancelled}));
}

TEST(RationalToText, AsksForTwiceTheRoomOfAnIntegerAndTwo) {
    for (int64_t width : {1, 26, 520}) {
        WidthScope scope(width);
        RationalBuffer q("-2^64-1/2^64-2");
        for (uint32_t flags : {0u, 2u | TextGroup, 8u, 16u, 0u | TextScientific}) {
            EXPECT_EQ(RationalToText(nullptr, 0, q, flags), 2 * BigUintTextLength(flags) + 2);
        }
    }
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

TEST(RationalToText, WritesWhatIsReadBack) {
    RandomSource random;
    for (int64_t width : {1, 2, 26, 65, 520}) {
        WidthScope scope(width);
        for (int round = TestRounds(width <= 26   ? 400
                                    : width == 65 ? 100
                                                  : 8);
             round > 0; round--) {
            RationalBuffer q;
            FillRational(random, q, width);
            for (uint32_t flags :
                 {0u, 2u, 8u, 16u, TextGroup | TextPlainSeparators, 0u | TextScientific}) {
                flags |= TextAlwaysSign;
                std::u16string text(static_cast<size_t>(RationalToText(nullptr, 0, q, flags)),
                                    u'?');
                text.resize(static_cast<size_t>(RationalToText(
                    text.data(), static_cast<int64_t>(text.size()), q, flags | TextNoTerminator)));
                RationalBuffer back;
                ReadInto(back, text, flags);
                ASSERT_EQ(back, q) << NarrowText(text);
            }
            ASSERT_EQ(TakeCode(), CalcErrorNone);
        }
    }
}

}  // namespace
}  // namespace tallymere
