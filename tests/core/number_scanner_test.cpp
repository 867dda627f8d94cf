#include "core/number_scanner.h"

#include <gtest/gtest.h>

#include <string>

#include "core/text_flags.h"
#include "support/decimal_text.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;
using namespace std::string_view_literals;

// The tokens of a text as "kind:characters", with a space between them.
std::string Tokens(std::u16string_view text, uint32_t flags = TextGroup | TextPlainSeparators,
                   int64_t radix = 10) {
    NumberScanner scanner =
        MakeNumberScanner(text.data(), static_cast<int64_t>(text.size()), flags, radix);
    std::string tokens;
    for (int count = 0; count < 100; count++) {
        const NumberToken token = NextNumberToken(scanner);
        EXPECT_EQ(scanner.position, token.start + token.length);
        if (token.kind == NumberTokenEnd) {
            EXPECT_EQ(token.length, 0);
            return tokens;
        }
        tokens += tokens.empty() ? "" : " ";
        tokens += std::to_string(token.kind) + ":" +
                  NarrowText({scanner.text + token.start, static_cast<size_t>(token.length)});
    }
    ADD_FAILURE() << "the scanner does not come to an end";
    return tokens;
}

TEST(NumberScanner, NumbersItsTokensAsTheyAreKnown) {
    EXPECT_EQ(NumberTokenEnd, 0u);
    EXPECT_EQ(NumberTokenOther, 1u);
    EXPECT_EQ(NumberTokenDigits, 100u);
    EXPECT_EQ(NumberTokenFraction, 101u);
    EXPECT_EQ(NumberTokenExponent, 112u);
    EXPECT_EQ(NumberTokenImaginary, 113u);
    EXPECT_EQ(NumberTokenPlus, 600u);
    EXPECT_EQ(NumberTokenMinus, 601u);
    EXPECT_EQ(NumberTokenInfinity, 701u);
    EXPECT_EQ(NumberTokenNaN, 702u);
}

TEST(NumberScanner, EndsAgainAndAgainAtTheEnd) {
    NumberScanner scanner = MakeNumberScanner(u"", 0, 0, 10);
    for (int round = 0; round < 3; round++) {
        EXPECT_EQ(NextNumberToken(scanner).kind, NumberTokenEnd);
        EXPECT_EQ(scanner.position, 0);
    }
}

TEST(NumberScanner, StripsSpacesAtBothEndsAndNothingElse) {
    EXPECT_EQ(Tokens(u"  12  "), "100:12");
    EXPECT_EQ(Tokens(u"    "), "");
    EXPECT_EQ(Tokens(u"1 2"), "100:1 1:  100:2");
    EXPECT_EQ(Tokens(u"\t1"), "1:\t 100:1");
    EXPECT_EQ(Tokens(u"1\u00A0"), "100:1 1:?");
}

TEST(NumberScanner, TakesTheLengthFromTheTerminatorOrAsCounted) {
    NumberScanner scanner = MakeNumberScanner(u" 123\0 4", TextUntilZero, 0, 10);
    EXPECT_EQ(scanner.length, 3);
    EXPECT_EQ(MakeNumberScanner(u"", TextUntilZero, 0, 10).length, 0);
    EXPECT_EQ(Tokens(std::u16string_view(u"1\0002", 3)), std::string("100:1 1:\0 100:2", 15));
    EXPECT_EQ(MakeNumberScanner(u"123456", 2, 0, 10).length, 2);
}

TEST(NumberScanner, LooksAtNothingBehindTheCountedLength) {
    constexpr std::u16string_view Text = u"1'2.5e5 e- inf9i2 NaN 1e+7";
    for (size_t length = 0; length <= Text.size(); length++) {
        const std::u16string alone(Text.substr(0, length));
        EXPECT_EQ(Tokens(Text.substr(0, length)), Tokens(alone)) << length;
    }
}

TEST(NumberScanner, WantsDigitsOnBothSidesOfTheSeparator) {
    EXPECT_EQ(Tokens(u"1.5"), "101:1.5");
    EXPECT_EQ(Tokens(u"1."), "100:1 1:.");
    EXPECT_EQ(Tokens(u".5"), "1:. 100:5");
    EXPECT_EQ(Tokens(u"1..5"), "100:1 1:. 1:. 100:5");
    EXPECT_EQ(Tokens(u"1.5.5"), "101:1.5 1:. 100:5");
}

TEST(NumberScanner, TakesAGroupSeparatorOnlyBetweenDigits) {
    EXPECT_EQ(Tokens(u"1'000'0"), "100:1'000'0");
    EXPECT_EQ(Tokens(u"1'"), "100:1 1:'");
    EXPECT_EQ(Tokens(u"'1"), "1:' 100:1");
    EXPECT_EQ(Tokens(u"1''0"), "100:1 1:' 1:' 100:0");
    EXPECT_EQ(Tokens(u"1'.5"), "100:1 1:' 1:. 100:5");
    EXPECT_EQ(Tokens(u"1.'5"), "100:1 1:. 1:' 100:5");
    EXPECT_EQ(Tokens(u"1.5'0'1"), "101:1.5'0'1");
    EXPECT_EQ(Tokens(u"1'000", TextPlainSeparators), "100:1 1:' 100:000");
}

TEST(NumberScanner, TakesAllSeparatorsOfTheContextUnlessNeutral) {
    ContextCheck check;
    FieldScope decimal1(numberContext.decimalSeparators[0], u',');
    FieldScope decimal2(numberContext.decimalSeparators[1], u';');
    FieldScope group1(numberContext.groupSeparators[0], u'_');
    FieldScope group2(numberContext.groupSeparators[2], u'\u202F');
    EXPECT_EQ(Tokens(u"1,5", 0), "101:1,5");
    EXPECT_EQ(Tokens(u"1;5", 0), "101:1;5");
    EXPECT_EQ(Tokens(u"1.5", 0), "101:1.5");
    EXPECT_EQ(Tokens(u"1_0'0\u202F0", TextGroup), "100:1_0'0?0");
    EXPECT_EQ(Tokens(u"1_0", 0), "100:1 1:_ 100:0");
    EXPECT_EQ(Tokens(u"1,5"), "100:1 1:, 100:5");
    EXPECT_EQ(Tokens(u"1.5"), "101:1.5");
    EXPECT_EQ(Tokens(u"1_0"), "100:1 1:_ 100:0");
    EXPECT_EQ(Tokens(u"1'0"), "100:1'0");
    EXPECT_TRUE(IsDecimalSeparator(u';', false));
    EXPECT_FALSE(IsDecimalSeparator(u';', true));
    EXPECT_TRUE(IsDecimalSeparator(u'.', true));
    EXPECT_TRUE(IsGroupSeparator(u'_', false));
    EXPECT_FALSE(IsGroupSeparator(u'_', true));
    EXPECT_TRUE(IsGroupSeparator(u'\'', true));
}

TEST(NumberScanner, KnowsSignsAndTheInfinitySign) {
    EXPECT_EQ(Tokens(u"+-\u221E"), "600:+ 601:- 701:~");
    EXPECT_EQ(Tokens(u"+-*\u2212"), "600:+ 601:- 1:* 1:?");
}

TEST(NumberScanner, TakesAnExponentMarkOnlyBeforeASignOrADigit) {
    EXPECT_EQ(Tokens(u"1e5"), "100:1 112:e 100:5");
    EXPECT_EQ(Tokens(u"1E+5"), "100:1 112:E 600:+ 100:5");
    EXPECT_EQ(Tokens(u"1e-5"), "100:1 112:e 601:- 100:5");
    EXPECT_EQ(Tokens(u"1e"), "100:1 1:e");
    EXPECT_EQ(Tokens(u"1e+"), "100:1 112:e 600:+");
    EXPECT_EQ(Tokens(u"1e.5"), "100:1 1:e 1:. 100:5");
    EXPECT_EQ(Tokens(u"1ee5"), "100:1 1:ee5");
}

TEST(NumberScanner, TakesAllFourExponentCharsOfTheContext) {
    ContextCheck check;
    FieldScope mark0(numberContext.exponentChars[0], u'\u23E8');
    FieldScope mark1(numberContext.exponentChars[1], u'x');
    FieldScope mark2(numberContext.exponentChars[2], u'_');
    FieldScope mark3(numberContext.exponentChars[3], u'@');
    EXPECT_EQ(Tokens(u"1\u23E85"), "100:1 112:? 100:5");
    EXPECT_EQ(Tokens(u"1x5"), "100:1 112:x 100:5");
    EXPECT_EQ(Tokens(u"1_5"), "100:1 112:_ 100:5");
    EXPECT_EQ(Tokens(u"1@5"), "100:1 112:@ 100:5");
    EXPECT_EQ(Tokens(u"1e5"), "100:1 1:e5");
    EXPECT_EQ(Tokens(u"1E5"), "100:1 1:E5");
    EXPECT_EQ(Tokens(u"1@"), "100:1 1:@");
}

TEST(NumberScanner, TakesTheImaginaryUnitOnlyAsAWordOfItsOwn) {
    EXPECT_EQ(Tokens(u"i"), "113:i");
    EXPECT_EQ(Tokens(u"i2"), "1:i2");
    EXPECT_EQ(Tokens(u"ii"), "1:ii");
    EXPECT_EQ(Tokens(u"2i"), "100:2 113:i");
    ContextCheck check;
    FieldScope unit(numberContext.imaginaryChars[1], u'j');
    EXPECT_EQ(Tokens(u"j"), "113:j");
    EXPECT_EQ(Tokens(u"i"), "113:i");
}

TEST(NumberScanner, ComparesAWordWithInfAndNaNOnlyOverTheWord) {
    EXPECT_EQ(Tokens(u"inf"), "701:inf");
    EXPECT_EQ(Tokens(u"in"), "701:in");
    EXPECT_EQ(Tokens(u"NaN"), "702:NaN");
    EXPECT_EQ(Tokens(u"Na"), "702:Na");
    EXPECT_EQ(Tokens(u"N"), "702:N");
    for (std::u16string_view word : {u"infi", u"inf2", u"Inf", u"iNf", u"NaNs", u"nan", u"NAN",
                                     u"n", u"a", u"f", u"nf", u"aN", u"NaN1"}) {
        EXPECT_EQ(Tokens(word), "1:" + NarrowText(word));
    }
    ContextCheck check;
    FieldScope unit0(numberContext.imaginaryChars[0], u'j');
    FieldScope unit1(numberContext.imaginaryChars[1], u'j');
    EXPECT_EQ(Tokens(u"i"), "701:i");
}

TEST(NumberScanner, TakesTheDigitsOfItsRadix) {
    EXPECT_EQ(Tokens(u"0123", TextGroup | TextPlainSeparators, 2), "100:01 1:2 1:3");
    EXPECT_EQ(Tokens(u"1'0'2", TextGroup | TextPlainSeparators, 2), "100:1'0 1:' 1:2");
    EXPECT_EQ(Tokens(u"01234567 8", TextGroup | TextPlainSeparators, 8), "100:01234567 1:  1:8");
    EXPECT_EQ(Tokens(u"17.79", TextGroup | TextPlainSeparators, 8), "101:17.7 1:9");
    EXPECT_EQ(Tokens(u"0678", TextGroup | TextPlainSeparators, 7), "100:06 1:7 1:8");
    EXPECT_EQ(Tokens(u"1aBc", TextGroup | TextPlainSeparators, 12), "100:1aB 1:c");
    EXPECT_EQ(Tokens(u"0189aAfF", TextGroup | TextPlainSeparators, 16), "100:0189aAfF");
    EXPECT_EQ(Tokens(u"1'F.e", TextGroup | TextPlainSeparators, 16), "101:1'F.e");
    EXPECT_EQ(Tokens(u"1e5", TextGroup | TextPlainSeparators, 16), "100:1e5");
    EXPECT_EQ(Tokens(u"fg", TextGroup | TextPlainSeparators, 16), "100:f 1:g");
    EXPECT_EQ(Tokens(u"`@{[/:1", TextGroup | TextPlainSeparators, 16),
              "1:` 1:@ 1:{ 1:[ 1:/ 1:: 100:1");
}

TEST(NumberScanner, TakesADecimalDigitBehindAnExponentMarkInEveryRadix) {
    EXPECT_EQ(Tokens(u"1e9", 0, 2), "100:1 112:e 1:9");
    EXPECT_EQ(Tokens(u"1e9", 0, 8), "100:1 112:e 1:9");
}

TEST(NumberScanner, TakesDecimalDigitsIntoAWordInEveryRadix) {
    EXPECT_EQ(Tokens(u"g19", 0, 2), "1:g19");
    EXPECT_EQ(Tokens(u"i9", 0, 8), "1:i9");
}

TEST(NumberScanner, ComesToTheEndOfAnyJunkWithoutGapsOrOverlaps) {
    RandomSource random;
    constexpr std::u16string_view Alphabet =
        u"0123456789aAfFeEiInNgzZ.,'+-\u221E \t(@[`{\uFFFF\0"sv;
    for (int round = TestRounds(20'000); round > 0; round--) {
        std::u16string text;
        for (int64_t i = random.Between(0, 40); i > 0; i--) {
            text += Alphabet[random.Below(Alphabet.size())];
        }
        constexpr int64_t Radices[] = {2, 8, 10, 16};
        NumberScanner scanner = MakeNumberScanner(text.data(), static_cast<int64_t>(text.size()),
                                                  random.Below(4) << 8, Radices[random.Below(4)]);
        int64_t at = 0;
        while (at < scanner.length) {
            const NumberToken token = NextNumberToken(scanner);
            ASSERT_EQ(token.start, at);
            ASSERT_GE(token.length, 1);
            ASSERT_NE(token.kind, NumberTokenEnd);
            at += token.length;
        }
        ASSERT_EQ(at, scanner.length);
        ASSERT_EQ(NextNumberToken(scanner).kind, NumberTokenEnd);
    }
}

}  // namespace
}  // namespace tallymere
