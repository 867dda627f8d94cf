#include "formula/formula_lexer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/number_bases.h"
#include "support/formula_testing.h"
#include "support/formula_values.h"

namespace tallymere {
namespace {

using namespace testing_support;

struct Lexeme {
    Symbol symbol;
    uint64_t position;
    uint64_t length;

    bool operator==(const Lexeme&) const = default;
};

void PrintTo(const Lexeme& lexeme, std::ostream* out) {
    PrintTo(lexeme.symbol, out);
    *out << "@" << lexeme.position << "+" << lexeme.length;
}

// The tokens up to the one that ends the formula, which is not among them; that must be TokenEnd.
std::vector<Lexeme> Tokens(const std::u16string& text, uint64_t flags = TextGroup,
                           TokenKind lastKind = TokenEnd) {
    FormulaEvaluator evaluator{};
    evaluator.text = text.c_str();
    evaluator.flags = flags;
    std::vector<Lexeme> lexemes;
    FormulaToken token{};
    uint64_t position = 0;
    while (true) {
        uint64_t slot = 0;
        token.value = &slot;
        NextFormulaToken(evaluator, token, position);
        EXPECT_EQ(token.value, nullptr);
        if (EndsFormula(token.kind)) {
            EXPECT_EQ(token.kind, lastKind) << Printable(text);
            EXPECT_EQ(token.length, 0u);
            EXPECT_EQ(position, token.position) << "what ends a formula is not passed";
            return lexemes;
        }
        lexemes.push_back({Symbol(token), token.position, token.length});
    }
}

// The length of the one number that the text consists of, or starts with.
uint64_t NumberLength(const std::u16string& text, uint64_t flags = TextGroup) {
    FormulaEvaluator evaluator{};
    evaluator.text = text.c_str();
    evaluator.flags = flags;
    FormulaToken token{};
    uint64_t position = 0;
    NextFormulaToken(evaluator, token, position);
    EXPECT_EQ(token.kind, TokenValue) << Printable(text);
    EXPECT_EQ(token.position, 0u);
    EXPECT_EQ(position, token.length);
    return token.length;
}

TEST(FormulaLexer, FindsEachTokenWithPlaceAndLength) {
    EXPECT_EQ(Tokens(u"12+x1*(sin(3);-4/5^6)mod pi"),
              (std::vector<Lexeme>{{TokenValue, 0, 2},
                                   {OperatorId::Add, 2, 1},
                                   {TokenIdentifier, 3, 2},
                                   {OperatorId::Multiply, 5, 1},
                                   {TokenLeftParen, 6, 1},
                                   {FunctionId::Sin, 7, 3},
                                   {TokenLeftParen, 10, 1},
                                   {TokenValue, 11, 1},
                                   {TokenRightParen, 12, 1},
                                   {TokenSeparator, 13, 1},
                                   {OperatorId::Subtract, 14, 1},
                                   {TokenValue, 15, 1},
                                   {OperatorId::Divide, 16, 1},
                                   {TokenValue, 17, 1},
                                   {OperatorId::Power, 18, 1},
                                   {TokenValue, 19, 1},
                                   {TokenRightParen, 20, 1},
                                   {OperatorId::Mod, 21, 3},
                                   {ConstantId::Pi, 25, 2}}));
}

TEST(FormulaLexer, PassesOverSpacesAndLineEndsOnly) {
    EXPECT_EQ(
        Tokens(u" \n\r 1 \n+\r2 "),
        (std::vector<Lexeme>{{TokenValue, 4, 1}, {OperatorId::Add, 7, 1}, {TokenValue, 9, 1}}));
    EXPECT_EQ(Tokens(u"1\t+2", TextGroup, TokenInvalid), (std::vector<Lexeme>{{TokenValue, 0, 1}}));
    EXPECT_EQ(Tokens(u"\u00A0", TextGroup, TokenInvalid), std::vector<Lexeme>{});
    EXPECT_EQ(Tokens(u"\v", TextGroup, TokenInvalid), std::vector<Lexeme>{});
}

TEST(FormulaLexer, EndsAtTheTerminatorBehindWhiteSpace) {
    FormulaEvaluator evaluator{};
    evaluator.text = u"  ";
    FormulaToken token{};
    token.length = 7;
    uint64_t position = 0;
    for (int i = 0; i < 3; i++) {
        NextFormulaToken(evaluator, token, position);
        EXPECT_EQ(token.kind, TokenEnd);
        EXPECT_EQ(token.position, 2u);
        EXPECT_EQ(token.length, 0u);
        EXPECT_EQ(position, 2u);
    }
}

TEST(FormulaLexer, StaysAtAnInvalidCharacter) {
    for (const char16_t c : std::u16string(u"\t!%&,.'=<>[]{}|~?@#$\"\\\u00B5\u2212\u221A\u0390"
                                           u"\u03AA\u03B0\u03CA\u0435")) {
        FormulaEvaluator evaluator{};
        const std::u16string text = {u'1', u' ', c, u'2'};
        evaluator.text = text.c_str();
        evaluator.flags = TextGroup;
        FormulaToken token{};
        token.length = 7;
        uint64_t position = 2;
        NextFormulaToken(evaluator, token, position);
        EXPECT_EQ(token.kind, TokenInvalid) << Printable(text);
        EXPECT_EQ(token.position, 2u);
        EXPECT_EQ(token.length, 0u);
        EXPECT_EQ(position, 2u);
    }
}

TEST(FormulaLexer, TakesGreekLettersAndUnderscoresIntoNames) {
    for (const char16_t c :
         {u'A', u'Z', u'a', u'z', u'_', u'\u0391', u'\u03A9', u'\u03B1', u'\u03C9', u'\u03C2'}) {
        const std::u16string name = {c, u'0', c, u'9'};
        EXPECT_EQ(Tokens(name), (std::vector<Lexeme>{{TokenIdentifier, 0, 4}})) << Printable(name);
    }
}

TEST(FormulaLexer, MatchesKeywordsExactly) {
    EXPECT_EQ(Tokens(u"sin"), (std::vector<Lexeme>{{FunctionId::Sin, 0, 3}}));
    for (const char16_t* name : {u"SIN", u"Sin", u"si", u"sins", u"sin_", u"sin2", u"MOD", u"modx",
                                 u"Pi", u"pip", u"\u03C0\u03C0", u"e", u"ans"}) {
        const std::u16string text = name;
        EXPECT_EQ(Tokens(text), (std::vector<Lexeme>{{TokenIdentifier, 0, text.size()}}))
            << Printable(text);
    }
    EXPECT_EQ(Tokens(u"\u03C0"), (std::vector<Lexeme>{{ConstantId::Pi, 0, 1}}));
    EXPECT_EQ(Tokens(u"2mod3"), (std::vector<Lexeme>{{TokenValue, 0, 1}, {TokenIdentifier, 1, 4}}));
}

TEST(FormulaLexer, TakesALoneIAsImaginaryUnit) {
    EXPECT_EQ(Tokens(u"ix"), (std::vector<Lexeme>{{TokenIdentifier, 0, 2}}));
    EXPECT_EQ(Tokens(u"i2"), (std::vector<Lexeme>{{TokenIdentifier, 0, 2}}));
    EXPECT_EQ(Tokens(u"i_"), (std::vector<Lexeme>{{TokenIdentifier, 0, 2}}));
    EXPECT_EQ(Tokens(u"ii"), (std::vector<Lexeme>{{TokenIdentifier, 0, 2}}));
    EXPECT_EQ(Tokens(u"i\u03C0"), (std::vector<Lexeme>{{TokenIdentifier, 0, 2}}));
    EXPECT_EQ(Tokens(u"xi"), (std::vector<Lexeme>{{TokenIdentifier, 0, 2}}));
    EXPECT_EQ(Tokens(u"3i"), (std::vector<Lexeme>{{TokenValue, 0, 1}, {TokenImaginaryUnit, 1, 1}}));
}

TEST(FormulaLexer, LeavesTheLengthOfTheTokenBeforeToTheImaginaryUnit) {
    EXPECT_EQ(Tokens(u"i"), (std::vector<Lexeme>{{TokenImaginaryUnit, 0, 0}}));
    EXPECT_EQ(Tokens(u"i i"),
              (std::vector<Lexeme>{{TokenImaginaryUnit, 0, 0}, {TokenImaginaryUnit, 2, 0}}));
    EXPECT_EQ(Tokens(u"1234i"),
              (std::vector<Lexeme>{{TokenValue, 0, 4}, {TokenImaginaryUnit, 4, 4}}));
    EXPECT_EQ(Tokens(u"sin(i+"), (std::vector<Lexeme>{{FunctionId::Sin, 0, 3},
                                                      {TokenLeftParen, 3, 1},
                                                      {TokenImaginaryUnit, 4, 1},
                                                      {OperatorId::Add, 5, 1}}));
}

TEST(FormulaLexer, FollowsTheImaginaryUnitsOfTheContext) {
    FieldScope<char16_t> first(numberContext.imaginaryChars[0], u'j');
    EXPECT_EQ(Tokens(u"j"), (std::vector<Lexeme>{{TokenImaginaryUnit, 0, 0}}));
    EXPECT_EQ(Tokens(u"i"), (std::vector<Lexeme>{{TokenImaginaryUnit, 0, 0}}));
    FieldScope<char16_t> second(numberContext.imaginaryChars[1], u'j');
    EXPECT_EQ(Tokens(u"i"), (std::vector<Lexeme>{{TokenIdentifier, 0, 1}}));
}

TEST(FormulaLexer, StartsNumbersWithADigit) {
    EXPECT_EQ(Tokens(u".5", TextGroup, TokenInvalid), std::vector<Lexeme>{});
    EXPECT_EQ(Tokens(u"'5", TextGroup, TokenInvalid), std::vector<Lexeme>{});
    EXPECT_EQ(NumberLength(u"0"), 1u);
    EXPECT_EQ(NumberLength(u"0123456789"), 10u);
}

TEST(FormulaLexer, CountsNeitherSeparatorsNorExponents) {
    EXPECT_EQ(NumberLength(u"1.2.3"), 5u);
    EXPECT_EQ(NumberLength(u"1e2e3"), 5u);
    EXPECT_EQ(NumberLength(u"1..''.e-5.e+6'"), 14u);
    EXPECT_EQ(NumberLength(u"1'000'000.5"), 11u);
    EXPECT_EQ(NumberLength(u"5.+1"), 2u);
}

TEST(FormulaLexer, TakesAnExponentLetterOnlyWithASignOrDigitBehindIt) {
    EXPECT_EQ(NumberLength(u"2e"), 1u);
    EXPECT_EQ(NumberLength(u"2ex"), 1u);
    EXPECT_EQ(NumberLength(u"2e.5"), 1u);
    EXPECT_EQ(NumberLength(u"2e5"), 3u);
    EXPECT_EQ(NumberLength(u"2E5"), 3u);
    EXPECT_EQ(NumberLength(u"2e+5"), 4u);
    EXPECT_EQ(NumberLength(u"2e-5"), 4u);
    EXPECT_EQ(NumberLength(u"2e+"), 3u);
    EXPECT_EQ(NumberLength(u"2e--5"), 3u);
    EXPECT_EQ(NumberLength(u"2ee5"), 1u);
    EXPECT_EQ(NumberLength(u"2e+e+5"), 6u);
    EXPECT_EQ(Tokens(u"2e"), (std::vector<Lexeme>{{TokenValue, 0, 1}, {TokenIdentifier, 1, 1}}));
}

TEST(FormulaLexer, FollowsTheExponentLettersOfTheContext) {
    FieldScope<char16_t> letter(numberContext.exponentChars[3], u'#');
    EXPECT_EQ(NumberLength(u"2#5"), 3u);
    FieldScope<char16_t> other(numberContext.exponentChars[0], u'E');
    EXPECT_EQ(NumberLength(u"2e5"), 1u);
}

TEST(FormulaLexer, TakesThePrefixOfABaseIntoTheNumber) {
    EXPECT_EQ(NumberLength(u"0x1F"), 4u);
    EXPECT_EQ(NumberLength(u"0X1f"), 4u);
    EXPECT_EQ(NumberLength(u"0xabcdefABCDEFg"), 14u);
    EXPECT_EQ(NumberLength(u"0y102"), 5u);
    EXPECT_EQ(NumberLength(u"0Y19a"), 4u);
    EXPECT_EQ(NumberLength(u"0t789"), 5u);
    EXPECT_EQ(NumberLength(u"0T7e5"), 3u) << "no exponents in base 8";
    EXPECT_EQ(NumberLength(u"0y1e5"), 3u) << "no exponents in base 2";
    EXPECT_EQ(NumberLength(u"0x"), 2u);
    EXPECT_EQ(NumberLength(u"0xg"), 2u);
    EXPECT_EQ(NumberLength(u"0x1.5'0"), 7u);
    EXPECT_EQ(NumberLength(u"00x1"), 2u) << "only right behind the first digit";
    EXPECT_EQ(NumberLength(u"1x1"), 1u);
    EXPECT_EQ(NumberLength(u"0b1"), 1u);
}

TEST(FormulaLexer, TakesThePrefixesThatTheModelKnows) {
    for (const NumberBase& row : NumberBases) {
        if (PrefixLength(row) == 0) {
            continue;
        }
        const char16_t text[] = {u'0', row.prefixLetter, u'1', 0};
        EXPECT_EQ(NumberLength(text), 3u) << row.base;
        const ModelBase* base = ModelBaseOfPrefix(text);
        ASSERT_NE(base, nullptr) << row.base << " is missing in tests/support/formula_values.cpp";
        EXPECT_EQ(base->base, static_cast<uint32_t>(row.base));
    }
    for (const ModelBase& base : ModelBases) {
        const NumberBase* row = FindNumberBase(base.base);
        ASSERT_NE(row, nullptr) << base.base << " is missing in core/number_bases.h";
        EXPECT_EQ(row->prefixLetter, base.prefixLetter) << base.base;
    }
}

TEST(FormulaLexer, ReadsEAsADigitInBase16) {
    EXPECT_EQ(NumberLength(u"0x1e5"), 5u);
    EXPECT_EQ(NumberLength(u"0x1e+5"), 4u) << "the sign is an operator here";
}

TEST(FormulaLexer, TakesGroupSeparatorsOnlyWhereTheFlagsAllowThem) {
    EXPECT_EQ(NumberLength(u"1'000", TextGroup), 5u);
    EXPECT_EQ(NumberLength(u"1'000", 0), 1u);
    EXPECT_EQ(NumberLength(u"1'000", TextPlainSeparators), 1u);
    EXPECT_EQ(NumberLength(u"1'000", TextPlainSeparators | TextGroup), 5u);
    EXPECT_EQ(NumberLength(u"1'000", TextGroup | 16), 5u) << "the low 8 bits do not matter";
}

TEST(FormulaLexer, FollowsAllSeparatorsOfTheContext) {
    FieldScope<char16_t> decimal0(numberContext.decimalSeparators[0], u',');
    FieldScope<char16_t> decimal1(numberContext.decimalSeparators[1], u',');
    FieldScope<char16_t> decimal2(numberContext.decimalSeparators[2], u':');
    FieldScope<char16_t> group0(numberContext.groupSeparators[0], u'.');
    FieldScope<char16_t> group1(numberContext.groupSeparators[1], u'\u202F');
    FieldScope<char16_t> group2(numberContext.groupSeparators[2], u' ');
    EXPECT_EQ(NumberLength(u"1,5:6"), 5u);
    EXPECT_EQ(NumberLength(u"1.000\u202F000 000,5+"), 15u);
    EXPECT_EQ(NumberLength(u"1.000,5", 0), 1u);
    EXPECT_EQ(NumberLength(u"1'000"), 1u);
    EXPECT_EQ(NumberLength(u"1.5,5", TextPlainSeparators), 3u);
    EXPECT_EQ(NumberLength(u"1'5.5 5", TextPlainSeparators | TextGroup), 5u);
}

TEST(FormulaLexer, KeepsToTheTextWhenASeparatorIsUnset) {
    FieldScope<char16_t> decimal(numberContext.decimalSeparators[2], u'\0');
    FieldScope<char16_t> group(numberContext.groupSeparators[2], u'\0');
    EXPECT_EQ(NumberLength(u"1"), 1u);
}

}  // namespace
}  // namespace tallymere
