// The driver table, the grammar that follows from it, and every error with its place.
#include "formula/formula_driver.h"

#include <gtest/gtest.h>

#include <string>

#include "core/scratch.h"
#include "formula/formula_evaluation.h"
#include "formula/formula_stack.h"
#include "support/formula_testing.h"
#include "values/value_operations.h"

namespace tallymere {
namespace {

using namespace testing_support;

std::u16string Repeated(std::u16string_view part, int count) {
    std::u16string text;
    for (int i = 0; i < count; i++) {
        text += part;
    }
    return text;
}

class FormulaDriver : public ::testing::Test {
protected:
    FormulaScope scope_;
};

// Where an operand may stand: at the start and after an operator, `(` and `;`.

TEST_F(FormulaDriver, TakesANumberWhereAnOperandMayStand) {
    EXPECT_EQ(Evaluate(u"7"), Value("7"));
    EXPECT_EQ(Evaluate(u"2*7"), Value("14"));
    EXPECT_EQ(Evaluate(u"(7)"), Value("7"));
    EXPECT_EQ(Evaluate(u"gcd(1;7"), Failure(10202, 8, 0));
    EXPECT_EQ(Evaluate(u"7 8"), Failure(10200, 3, 1));
    EXPECT_EQ(Evaluate(u"(7)89"), Failure(10200, 4, 2));
    EXPECT_EQ(Evaluate(u"abs 7"), Failure(10200, 5, 1));
}

TEST_F(FormulaDriver, TakesAVariableWhereAnOperandMayStand) {
    const Variables x = {{u"xy", u"5"}};
    EXPECT_EQ(Evaluate(u"xy", x), Value("5"));
    EXPECT_EQ(Evaluate(u"-xy*xy", x), Value("-25"));
    EXPECT_EQ(Evaluate(u"abs(xy)", x), Value("5"));
    EXPECT_EQ(Evaluate(u"2 xy", x), Failure(10200, 3, 2));
    EXPECT_EQ(Evaluate(u"(2)xy", x), Failure(10200, 4, 2));
    EXPECT_EQ(Evaluate(u"xy xy", x), Failure(10200, 4, 2));
    EXPECT_EQ(Evaluate(u"abs xy", x), Failure(10200, 5, 2));
}

TEST_F(FormulaDriver, RefusesAConstantWhereNoOperandMayStand) {
    EXPECT_EQ(Evaluate(u"2pi"), Failure(10200, 2, 2));
    EXPECT_EQ(Evaluate(u"2\u03C0"), Failure(10200, 2, 1));
    EXPECT_EQ(Evaluate(u"(1)pi"), Failure(10200, 4, 2));
    EXPECT_EQ(Evaluate(u"sin pi"), Failure(10200, 5, 2));
}

TEST_F(FormulaDriver, TakesAFunctionWhereAnOperandMayStand) {
    EXPECT_EQ(Evaluate(u"abs(3)"), Value("3"));
    EXPECT_EQ(Evaluate(u"-abs(3)*abs(4)"), Value("-12"));
    EXPECT_EQ(Evaluate(u"(abs(3))"), Value("3"));
    EXPECT_EQ(Evaluate(u"gcd(1;abs"), Failure(10202, 10, 0));
    EXPECT_EQ(Evaluate(u"2 abs(1)"), Failure(10200, 3, 3));
    EXPECT_EQ(Evaluate(u"(2)trunc(1)"), Failure(10200, 4, 5));
    EXPECT_EQ(Evaluate(u"abs abs(1)"), Failure(10200, 5, 3));
}

TEST_F(FormulaDriver, TakesAnOpeningParenthesisAfterAFunctionToo) {
    EXPECT_EQ(Evaluate(u"(1)"), Value("1"));
    EXPECT_EQ(Evaluate(u"2*(1)"), Value("2"));
    EXPECT_EQ(Evaluate(u"((1))"), Value("1"));
    EXPECT_EQ(Evaluate(u"abs(1)"), Value("1"));
    EXPECT_EQ(Evaluate(u"gcd(1;("), Failure(10202, 8, 0));
    EXPECT_EQ(Evaluate(u"2(3)"), Failure(10200, 2, 1));
    EXPECT_EQ(Evaluate(u"(1)(2)"), Failure(10200, 4, 1));
    EXPECT_EQ(Evaluate(u"abs(1)(2)"), Failure(10200, 7, 1));
}

TEST_F(FormulaDriver, WantsAValueBeforeAnOperator) {
    for (const char16_t* symbol : {u"*", u"/", u"^"}) {
        const std::u16string operation = symbol;
        EXPECT_EQ(Evaluate(operation + u"2"), Failure(10200, 1, 1));
        EXPECT_EQ(Evaluate(u"(" + operation + u"2)"), Failure(10200, 2, 1));
        EXPECT_EQ(Evaluate(u"1+" + operation + u"2"), Failure(10200, 3, 1));
        EXPECT_EQ(Evaluate(u"gcd(1;" + operation + u"2)"), Failure(10200, 7, 1));
        EXPECT_EQ(Evaluate(u"abs" + operation + u"2"), Failure(10200, 4, 1));
    }
    EXPECT_EQ(Evaluate(u" mod 2"), Failure(10200, 2, 3));
    EXPECT_EQ(Evaluate(u"(mod 2)"), Failure(10200, 2, 3));
}

TEST_F(FormulaDriver, TakesASignAtTheStartAndAfterParenthesisAndSeparatorOnly) {
    EXPECT_EQ(Evaluate(u"-5"), Value("-5"));
    EXPECT_EQ(Evaluate(u"+5"), Value("5"));
    EXPECT_EQ(Evaluate(u"(-5)"), Value("-5"));
    EXPECT_EQ(Evaluate(u"2*(-3)"), Value("-6"));
    EXPECT_EQ(Evaluate(u"abs(-5)"), Value("5"));
    EXPECT_EQ(Evaluate(u"abs(-1;-2;+3)"), Failure(10206, 1, 3)) << "the signs are fine here";
    EXPECT_EQ(Evaluate(u"2*-3"), Failure(10200, 3, 1));
    EXPECT_EQ(Evaluate(u"2^-1"), Failure(10200, 3, 1));
    EXPECT_EQ(Evaluate(u"2--1"), Failure(10200, 3, 1));
    EXPECT_EQ(Evaluate(u"--1"), Failure(10200, 2, 1));
    EXPECT_EQ(Evaluate(u"-+1"), Failure(10200, 2, 1));
    EXPECT_EQ(Evaluate(u"7 mod -2"), Failure(10200, 7, 1));
    EXPECT_EQ(Evaluate(u"abs-2"), Failure(10200, 4, 1));
}

TEST_F(FormulaDriver, WantsAValueBeforeAClosingParenthesis) {
    EXPECT_EQ(Evaluate(u")"), Failure(10200, 1, 1));
    EXPECT_EQ(Evaluate(u"()"), Failure(10200, 2, 1));
    EXPECT_EQ(Evaluate(u"abs()"), Failure(10200, 5, 1));
    EXPECT_EQ(Evaluate(u"(1+)"), Failure(10200, 4, 1));
    EXPECT_EQ(Evaluate(u"gcd(1;)"), Failure(10200, 7, 1));
    EXPECT_EQ(Evaluate(u"(abs)"), Failure(10200, 5, 1));
}

TEST_F(FormulaDriver, WantsAValueBeforeASeparator) {
    EXPECT_EQ(Evaluate(u";"), Failure(10200, 1, 1));
    EXPECT_EQ(Evaluate(u"gcd(;1)"), Failure(10200, 5, 1));
    EXPECT_EQ(Evaluate(u"gcd(1;;2)"), Failure(10200, 7, 1));
    EXPECT_EQ(Evaluate(u"gcd(1+;2)"), Failure(10200, 7, 1));
    EXPECT_EQ(Evaluate(u"gcd;"), Failure(10200, 4, 1));
}

TEST_F(FormulaDriver, TakesASeparatorOnlyDirectlyInAFunction) {
    EXPECT_EQ(Evaluate(u"abs(1;2)"), Failure(10206, 1, 3)) << "legal, though one too many";
    EXPECT_EQ(Evaluate(u"abs(1+1;2*2;3)"), Failure(10206, 1, 3));
    EXPECT_EQ(Evaluate(u"(1;2)"), Failure(10200, 3, 1)) << "at the separator";
    EXPECT_EQ(Evaluate(u"(1+2*3;2)"), Failure(10200, 7, 1));
    EXPECT_EQ(Evaluate(u"abs((1;2))"), Failure(10200, 7, 1));
    EXPECT_EQ(Evaluate(u"gcd(1;(2;3))"), Failure(10200, 9, 1));
}

TEST_F(FormulaDriver, ShowsASeparatorOutsideAllParenthesesAtTheValueBeforeIt) {
    EXPECT_EQ(Evaluate(u"12;3"), Failure(10200, 1, 2));
    EXPECT_EQ(Evaluate(u" 1+2*3 ;3"), Failure(10200, 2, 5)) << "the whole sum";
    EXPECT_EQ(Evaluate(u"-12 ; 3"), Failure(10200, 1, 3)) << "with its sign";
    EXPECT_EQ(Evaluate(u"(1+2);3"), Failure(10200, 1, 4)) << "from `(` to the end of the value";
    EXPECT_EQ(Evaluate(u"abs( 1 ) ;3"), Failure(10200, 1, 6)) << "from the name to the value";
    EXPECT_EQ(Evaluate(u"1;"), Failure(10200, 1, 1));
}

TEST_F(FormulaDriver, EndsOnlyWithOneValue) {
    EXPECT_EQ(Evaluate(u""), Failure(10202, 1, 0));
    EXPECT_EQ(Evaluate(u"  \r\n "), Failure(10202, 6, 0));
    EXPECT_EQ(Evaluate(u"1+"), Failure(10202, 3, 0));
    EXPECT_EQ(Evaluate(u"-"), Failure(10202, 2, 0));
    EXPECT_EQ(Evaluate(u"("), Failure(10202, 2, 0));
    EXPECT_EQ(Evaluate(u"(1"), Failure(10202, 3, 0));
    EXPECT_EQ(Evaluate(u"(1 "), Failure(10202, 4, 0));
    EXPECT_EQ(Evaluate(u"2*(1+3"), Failure(10202, 7, 0));
    EXPECT_EQ(Evaluate(u"abs"), Failure(10202, 4, 0));
    EXPECT_EQ(Evaluate(u"abs(1"), Failure(10202, 6, 0));
    EXPECT_EQ(Evaluate(u"gcd(1;"), Failure(10202, 7, 0));
    EXPECT_EQ(Evaluate(u"gcd(1;2"), Failure(10202, 8, 0));
    EXPECT_EQ(Evaluate(u" 1 "), Value("1"));
}

TEST_F(FormulaDriver, RefusesCharactersThatStartNoToken) {
    EXPECT_EQ(Evaluate(u"\t1"), Failure(10200, 1, 0));
    EXPECT_EQ(Evaluate(u"1\t+2"), Failure(10200, 2, 0));
    EXPECT_EQ(Evaluate(u"1+\t2"), Failure(10200, 3, 0));
    EXPECT_EQ(Evaluate(u"5!"), Failure(10200, 2, 0));
    EXPECT_EQ(Evaluate(u"5%"), Failure(10200, 2, 0));
    EXPECT_EQ(Evaluate(u"1=1"), Failure(10200, 2, 0));
    EXPECT_EQ(Evaluate(u".5"), Failure(10200, 1, 0));
    EXPECT_EQ(Evaluate(u"abs\t(1)"), Failure(10200, 4, 0));
}

TEST_F(FormulaDriver, KeepsTheErrorOfAReductionAtTheEnd) {
    ScratchStackScope scratch;
    FormulaEvaluator evaluator{};
    StartFormulaStack(evaluator);
    PushFormulaToken(evaluator, Token(OperatorId::Multiply, 1, 1));
    PushFormulaToken(evaluator, Token(TokenValue, 2, 1));
    AcceptFormulaToken(evaluator, Token(TokenEnd, 4, 0));
    EXPECT_EQ(evaluator.error, uint32_t{FormulaErrorSyntax}) << "not FormulaErrorUnexpectedEnd";
    EXPECT_EQ(evaluator.errorPosition, 2u);
}

// Precedence.

TEST_F(FormulaDriver, BindsProductsTighterThanSums) {
    EXPECT_EQ(Evaluate(u"2+3*4"), Value("14"));
    EXPECT_EQ(Evaluate(u"2*3+4"), Value("10"));
    EXPECT_EQ(Evaluate(u"2+3*4-8/2"), Value("10"));
    EXPECT_EQ(Evaluate(u"20-7 mod 4"), Value("17"));
    EXPECT_EQ(Evaluate(u"(2+3)*4"), Value("20"));
}

TEST_F(FormulaDriver, ReadsEqualLevelsFromLeftToRight) {
    EXPECT_EQ(Evaluate(u"10-3-2"), Value("5"));
    EXPECT_EQ(Evaluate(u"10-3+2"), Value("9"));
    EXPECT_EQ(Evaluate(u"100/5/2"), Value("10"));
    EXPECT_EQ(Evaluate(u"100/5*2"), Value("40"));
    EXPECT_EQ(Evaluate(u"17 mod 7*2"), Value("6"));
    EXPECT_EQ(Evaluate(u"2*17 mod 7"), Value("6"));
    EXPECT_EQ(Evaluate(u"10-(3-2)"), Value("9"));
}

TEST_F(FormulaDriver, PutsSignsOnTheLevelOfSums) {
    EXPECT_EQ(Evaluate(u"-2*3"), Value("-6"));
    EXPECT_EQ(Evaluate(u"-2+3"), Value("1"));
    EXPECT_EQ(Evaluate(u"-2-3"), Value("-5"));
    EXPECT_EQ(Evaluate(u"+2-3"), Value("-1"));
    EXPECT_EQ(Evaluate(u"-3 mod 2"), Value("-1")) << "-(3 mod 2)";
    EXPECT_EQ(Evaluate(u"-3 mod (-2)"), Value("1"))
        << "-(3 mod (-2)), where (-3) mod (-2) is 1 too";
    EXPECT_EQ(Evaluate(u"-1 mod (-2)"), Value("-1")) << "(-1) mod (-2) is -1 as well";
    EXPECT_EQ(Evaluate(u"(-7) mod 2"), Value("-1"));
    EXPECT_EQ(Evaluate(u"7 mod (-2)"), Value("-1"));
    EXPECT_EQ(Evaluate(u"-6/4*2"), Value("-3"));
}

TEST_F(FormulaDriver, NegatesAZero) {
    EXPECT_EQ(Evaluate(u"-0"), Value("-0"));
    EXPECT_EQ(Evaluate(u"-(-0)"), Value("0"));
    EXPECT_EQ(Evaluate(u"+0"), Value("0"));
    EXPECT_EQ(Evaluate(u"+(-0)"), Value("-0"));
}

// Parentheses and functions.

TEST_F(FormulaDriver, EvaluatesNestedParentheses) {
    EXPECT_EQ(Evaluate(u"((2+3)*(4-(1-6)))"), Value("45"));
    EXPECT_EQ(Evaluate(u"-(-(-(3)))"), Value("-3"));
    EXPECT_EQ(Evaluate(u"abs(-abs(-(2-5)))"), Value("3"));
    EXPECT_EQ(Evaluate(u"1-(2-(3-(4-(5-6))))"), Value("-3"));
}

TEST_F(FormulaDriver, MissesTheLeftParenthesisAtTheRightOne) {
    EXPECT_EQ(Evaluate(u"1)"), Failure(10201, 2, 1));
    EXPECT_EQ(Evaluate(u"(1))"), Failure(10201, 4, 1));
    EXPECT_EQ(Evaluate(u"1+2*3 )"), Failure(10201, 7, 1));
    EXPECT_EQ(Evaluate(u"-1)"), Failure(10201, 3, 1));
    EXPECT_EQ(Evaluate(u"abs(1))+2"), Failure(10201, 7, 1));
}

TEST_F(FormulaDriver, WantsTheRightNumberOfArguments) {
    EXPECT_EQ(Evaluate(u"sin(1;2)"), Failure(10206, 1, 3));
    EXPECT_EQ(Evaluate(u"1+root(2)"), Failure(10206, 3, 4));
    EXPECT_EQ(Evaluate(u"gcd(1;2;3)"), Failure(10206, 1, 3));
    EXPECT_EQ(Evaluate(u"powmod(1;2)"), Failure(10206, 1, 6));
    EXPECT_EQ(Evaluate(u"rootc(1)"), Failure(10206, 1, 5));
    EXPECT_EQ(Evaluate(u"powmod(1;2;3;4)"), Failure(10206, 1, 6)) << "more than three";
    EXPECT_EQ(Evaluate(u"2*(3+ncr( 5 ) )"), Failure(10206, 6, 3));
    EXPECT_EQ(Evaluate(u"arg(1;2)"), Failure(10206, 1, 3)) << "before what the type refuses";
}

TEST_F(FormulaDriver, WantsAComplexTypeForComplexFunctions) {
    for (const char16_t* name : {u"arg", u"argd", u"argg", u"realp", u"imagp"}) {
        const std::u16string text = name;
        EXPECT_EQ(Evaluate(u"1+" + text + u"(3)"), Failure(10207, 3, text.size()));
    }
    EXPECT_EQ(Evaluate(u"sqrtc(4;0)"), Failure(10207, 1, 5));
    EXPECT_EQ(Evaluate(u"2*cbrtc(4;0)"), Failure(10207, 3, 5));
    EXPECT_EQ(Evaluate(u"-rootc(4;1;0)"), Failure(10207, 2, 5));
}

TEST_F(FormulaDriver, HasPowmodInUintOnly) {
    EXPECT_EQ(Evaluate(u"powmod(2;3;5)"), Failure(10209, 1, 6));
    EXPECT_EQ(Evaluate(u"1+ powmod(2;3;5)*2"), Failure(10209, 4, 6));
    FormulaScope complex(20, NumberTypeComplex);
    FormulaEvaluator evaluator{};
    ScratchStackScope scratch;
    StartFormulaStack(evaluator);
    PushFormulaToken(evaluator, Token(FunctionId::PowMod, 1, 6));
    PushFormulaToken(evaluator, Token(TokenLeftParen, 7, 1));
    for (uint64_t i = 0; i < 5; i++) {
        const TokenKind kind = i % 2 == 0 ? TokenValue : TokenSeparator;
        PushFormulaToken(evaluator, Token(kind, 8 + i, 1));
    }
    AcceptFormulaToken(evaluator, Token(TokenRightParen, 13, 1));
    EXPECT_EQ(evaluator.error, uint32_t{FormulaErrorNotAvailable});
    EXPECT_EQ(evaluator.errorPosition, 2u);
    EXPECT_EQ(evaluator.errorLength, 6u);
}

TEST_F(FormulaDriver, WantsAComplexTypeForTheImaginaryUnit) {
    EXPECT_EQ(Evaluate(u"i"), Failure(10207, 1, 0));
    EXPECT_EQ(Evaluate(u"3i"), Failure(10207, 2, 1));
    EXPECT_EQ(Evaluate(u"123+i"), Failure(10207, 5, 1)) << "the length of the token before";
    EXPECT_EQ(Evaluate(u"1234i"), Failure(10207, 5, 4));
    EXPECT_EQ(Evaluate(u"sin i"), Failure(10207, 5, 3)) << "whatever stands below";
}

// Errors of operations.

TEST_F(FormulaDriver, ShowsAFailedOperationAtTheTokenThatTriggeredIt) {
    EXPECT_EQ(Evaluate(u"1/0+2"), Failure(10203, 4, 1)) << "the `+`, not the `/`";
    EXPECT_EQ(Evaluate(u"1/0"), Failure(10203, 4, 0)) << "the end";
    EXPECT_EQ(Evaluate(u"1/0  "), Failure(10203, 6, 0));
    EXPECT_EQ(Evaluate(u"6/0"), Failure(10203, 4, 0));
    EXPECT_EQ(Evaluate(u"(1/0)*2"), Failure(10203, 5, 1)) << "the `)`";
    EXPECT_EQ(Evaluate(u"abs(1/0)"), Failure(10203, 8, 1));
    EXPECT_EQ(Evaluate(u"gcd(1/0;2)"), Failure(10203, 8, 1)) << "the `;`";
    EXPECT_EQ(Evaluate(u"1+2/0 mod 3"), Failure(10203, 7, 3)) << "the mod";
    EXPECT_EQ(Evaluate(u"1/0^2"), Failure(10203, 6, 0)) << "`^` waits";
    EXPECT_EQ(Evaluate(u"0/0"), Failure(10203, 4, 0));
    EXPECT_EQ(Evaluate(u"5 mod 0"), Failure(10203, 8, 0));
}

TEST_F(FormulaDriver, ShowsOverflowAtTheTokenThatTriggeredIt) {
    const std::u16string huge = u"1e4000000000000000000";
    EXPECT_EQ(Evaluate(huge + u"*" + huge), Failure(10203, 44, 0));
    EXPECT_EQ(Evaluate(huge + u"*" + huge + u"-1"), Failure(10203, 44, 1));
}

TEST_F(FormulaDriver, PutsAFailedOperationBeforeASyntaxErrorOfTheSameToken) {
    EXPECT_EQ(Evaluate(u"1/0)"), Failure(10203, 4, 1)) << "not 10201";
    EXPECT_EQ(Evaluate(u"(1/0;2)"), Failure(10203, 5, 1)) << "not 10200";
    EXPECT_EQ(Evaluate(u"(1/0"), Failure(10203, 5, 0)) << "not 10202";
    EXPECT_EQ(Evaluate(u"sin(2;1/0)"), Failure(10203, 10, 1)) << "not 10206";
    EXPECT_EQ(Evaluate(u"1/0 2"), Failure(10200, 5, 1)) << "a number triggers nothing";
}

TEST_F(FormulaDriver, ReportsTheFirstErrorOnly) {
    EXPECT_EQ(Evaluate(u"1/0+i"), Failure(10203, 4, 1));
    EXPECT_EQ(Evaluate(u"1+)*x"), Failure(10200, 3, 1));
    EXPECT_EQ(Evaluate(u"x+*"), Failure(10211, 1, 1));
}

TEST_F(FormulaDriver, RefusesOperationsThatTheTypeDoesNotHave) {
    FormulaScope uint(20, NumberTypeUint);
    FormulaEvaluator evaluator{};
    uint64_t result = 0;
    evaluator.result = &result;
    ScratchStackScope scratch;
    StartFormulaStack(evaluator);
    PushFormulaToken(evaluator, Token(OperatorId::Subtract, 0, 1));
    PushFormulaToken(evaluator, Token(TokenValue, 1, 1));
    AcceptFormulaToken(evaluator, Token(TokenEnd, 2, 0));
    EXPECT_EQ(evaluator.error, uint32_t{FormulaErrorOperationFailed}) << "uint has no sign";
    EXPECT_EQ(evaluator.errorPosition, 3u);
    EXPECT_EQ(evaluator.errorLength, 0u);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

TEST_F(FormulaDriver, FailsWithoutANumberType) {
    FormulaScope none(20, NumberTypeNone);
    FormulaEvaluator evaluator{};
    evaluator.text = u"abs(1)";
    uint64_t word = 0;
    evaluator.result = &word;
    EvaluateFormula(evaluator);
    EXPECT_EQ(evaluator.error, uint32_t{FormulaErrorOperationFailed});
    EXPECT_EQ(evaluator.errorPosition, 1u);
    EXPECT_EQ(evaluator.errorLength, 3u);
    EXPECT_EQ(evaluator.elementSize, 0u);
    EXPECT_EQ(word, 0u);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

// Names.

TEST_F(FormulaDriver, DoesNotKnowOtherNames) {
    EXPECT_EQ(Evaluate(u"SIN(1)"), Failure(10211, 1, 3));
    EXPECT_EQ(Evaluate(u"2*e"), Failure(10211, 3, 1));
    EXPECT_EQ(Evaluate(u"ix"), Failure(10211, 1, 2));
    EXPECT_EQ(Evaluate(u"2e"), Failure(10200, 2, 1)) << "the number 2 and the name e";
    EXPECT_EQ(Evaluate(u"(1+2)abc"), Failure(10200, 6, 3)) << "the place is wrong before the name";
    EXPECT_EQ(Evaluate(u"1+\u03B1\u03B2"), Failure(10211, 3, 2));
}

// Numbers.

TEST_F(FormulaDriver, ReadsNumbers) {
    EXPECT_EQ(Evaluate(u"007"), Value("7"));
    EXPECT_EQ(Evaluate(u"1.25"), Value("1.25"));
    EXPECT_EQ(Evaluate(u"1'000'000.5"), Value("1000000.5"));
    EXPECT_EQ(Evaluate(u"1.5e3"), Value("1500"));
    EXPECT_EQ(Evaluate(u"1.5E+3-1"), Value("1499"));
    EXPECT_EQ(Evaluate(u"25e-2"), Value("0.25"));
    EXPECT_EQ(Evaluate(u"1e-99999999999999999999"), Value("0"));
}

TEST_F(FormulaDriver, RoundsNumbersByTheFirstDigitTooMany) {
    FormulaScope three(3);
    EXPECT_EQ(Evaluate(u"1.2349"), Value("1.23"));
    EXPECT_EQ(Evaluate(u"1.235"), Value("1.24"));
    EXPECT_EQ(Evaluate(u"9.995"), Value("10"));
}

TEST_F(FormulaDriver, RefusesNumbersThatItCannotConvert) {
    EXPECT_EQ(Evaluate(u"1.2.3"), Failure(10208, 1, 5));
    EXPECT_EQ(Evaluate(u"4+1e2e3*2"), Failure(10208, 3, 5));
    EXPECT_EQ(Evaluate(u"1."), Failure(10208, 1, 2));
    EXPECT_EQ(Evaluate(u"1'"), Failure(10208, 1, 2));
    EXPECT_EQ(Evaluate(u"1e+"), Failure(10208, 1, 3));
    EXPECT_EQ(Evaluate(u"1e99999999999999999999"), Failure(10208, 1, 22)) << "out of range";
}

TEST_F(FormulaDriver, RefusesOtherBasesInReal) {
    EXPECT_EQ(Evaluate(u"0x1F"), Failure(10208, 1, 4));
    EXPECT_EQ(Evaluate(u"0y102"), Failure(10208, 1, 5));
    EXPECT_EQ(Evaluate(u"1+0t7"), Failure(10208, 3, 3));
    EXPECT_EQ(Evaluate(u"0x"), Failure(10208, 1, 2));
    EXPECT_EQ(Evaluate(u"0x1e5"), Failure(10208, 1, 5));
}

TEST_F(FormulaDriver, ReadsNumbersByTheFlags) {
    FieldScope<char16_t> decimal0(numberContext.decimalSeparators[0], u',');
    FieldScope<char16_t> decimal1(numberContext.decimalSeparators[1], u',');
    FieldScope<char16_t> decimal2(numberContext.decimalSeparators[2], u',');
    FieldScope<char16_t> group(numberContext.groupSeparators[0], u'.');
    EXPECT_EQ(Evaluate(u"1.000,5"), Value("1000.5"));
    EXPECT_EQ(Evaluate(u"1000,5", {}, 0), Value("1000.5"));
    EXPECT_EQ(Evaluate(u"1.000,5", {}, 0), Failure(10200, 2, 0));
    EXPECT_EQ(Evaluate(u"1000.5", {}, TextPlainSeparators), Value("1000.5"));
    EXPECT_EQ(Evaluate(u"1'000.5", {}, TextPlainSeparators | TextGroup), Value("1000.5"));
    EXPECT_EQ(Evaluate(u"1'000", {}, TextPlainSeparators), Failure(10200, 2, 0));
    EXPECT_EQ(Evaluate(u"12", {}, TextGroup | 16), Value("12")) << "the low 8 bits do not matter";
}

// The limit of the stack.

TEST_F(FormulaDriver, HoldsFiftyEntriesAndNotOneMore) {
    EXPECT_EQ(Evaluate(Repeated(u"(", 50)), Failure(10202, 51, 0));
    EXPECT_EQ(Evaluate(Repeated(u"(", 50) + u"7"), Failure(10204, 51, 1));
    EXPECT_EQ(Evaluate(Repeated(u"(", 51)), Failure(10204, 51, 1));
    EXPECT_EQ(Evaluate(Repeated(u"(", 49) + u"7" + Repeated(u")", 49)), Value("7"));
    EXPECT_EQ(Evaluate(Repeated(u"(", 50) + u"7" + Repeated(u")", 50)), Failure(10204, 51, 1));
}

TEST_F(FormulaDriver, HoldsFiftyEntriesOfEachKind) {
    // 24 calls take 48 entries, the sign the 49th and the number the 50th.
    const std::u16string calls = Repeated(u"abs(", 24);
    const std::u16string closings = Repeated(u")", 24);
    EXPECT_EQ(Evaluate(calls + u"-7" + closings), Value("7"));
    EXPECT_EQ(Evaluate(calls + u"(-77)" + closings), Failure(10204, 99, 2)) << "a number";
    EXPECT_EQ(Evaluate(calls + u"7+8" + closings), Failure(10204, 99, 1)) << "8 is the 51st";
    EXPECT_EQ(Evaluate(calls + u"-(7)" + closings), Failure(10204, 99, 1));
    EXPECT_EQ(Evaluate(calls + u"(abs(7))" + closings), Failure(10204, 101, 1)) << "its `(`";
    EXPECT_EQ(Evaluate(calls + u"(abs"), Failure(10202, 101, 0));
    EXPECT_EQ(Evaluate(calls + u"((abs"), Failure(10204, 99, 3)) << "a function";
    EXPECT_EQ(Evaluate(calls + u"((-"), Failure(10204, 99, 1)) << "a sign";
    EXPECT_EQ(Evaluate(calls + u"((pi"), Failure(10204, 99, 2)) << "a constant";
    EXPECT_EQ(Evaluate(calls + u"((xy", {{u"xy", u"1"}}), Failure(10204, 99, 2)) << "a variable";
    EXPECT_EQ(Evaluate(calls + u"((xy"), Failure(10204, 99, 2)) << "before the name is looked up";
    EXPECT_EQ(Evaluate(calls + u"(7;"), Failure(10204, 99, 1)) << "before the place of the `;`";
    EXPECT_EQ(Evaluate(calls + u"(7+"), Failure(10204, 99, 1)) << "an operator";
    EXPECT_EQ(Evaluate(calls + u"(1.2.3"), Failure(10208, 98, 5)) << "the 50th still fits";
    EXPECT_EQ(Evaluate(calls + u"((1.2.3"), Failure(10204, 99, 5)) << "before it is converted";
}

TEST_F(FormulaDriver, FreesEntriesAsOperatorsAreApplied) {
    EXPECT_EQ(Evaluate(u"1" + Repeated(u"+1", 200)), Value("201"));
    EXPECT_EQ(Evaluate(u"1" + Repeated(u"*2", 40)), Value("1099511627776"));
    EXPECT_EQ(Evaluate(Repeated(u"1+(", 24) + u"1" + Repeated(u")", 24)), Failure(10204, 51, 1))
        << "three entries for each";
    EXPECT_EQ(Evaluate(Repeated(u"1+(", 16) + u"1" + Repeated(u")", 16)), Value("17"));
}

TEST_F(FormulaDriver, UsesTheSlotsOfAnEarlierOperandAgain) {
    EXPECT_EQ(Evaluate(u"(1+(2*(3+4)))-(5*(6-7))+abs(-(8))"), Value("28"));
    EXPECT_EQ(Evaluate(u"abs(1.5)+trunc(2.5)-frac(3.5)"), Value("3"));
}

// Stopping.

TEST_F(FormulaDriver, StopsWithinALongOperation) {
    uint8_t stop = 1;
    FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    EXPECT_EQ(EvaluateTokenByToken(u"1e9000 mod 3"), Failure(FormulaErrorAborted, 1, 0));
    EXPECT_EQ(EvaluateTokenByToken(u"2+(1e9000 mod 3)*4"), Failure(FormulaErrorAborted, 1, 0));
    EXPECT_EQ(EvaluateTokenByToken(u"1e9000 mod 3)"), Failure(FormulaErrorAborted, 1, 0));
    EXPECT_EQ(EvaluateTokenByToken(u"1+2"), Value("3")) << "nothing long enough to stop";
    stop = 0;
    EXPECT_EQ(EvaluateTokenByToken(u"1e9000 mod 3"), Value("1"));
}

TEST_F(FormulaDriver, StopsBeforeTheFirstToken) {
    uint8_t stop = 1;
    FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    for (const char16_t* formula : {u"1", u"1+2", u"", u"1+)", u"\t"}) {
        EXPECT_EQ(Evaluate(formula), Failure(FormulaErrorAborted, 1, 0)) << Printable(formula);
    }
}

// The byte that asks for a stop is the mark of a lost remainder here, so that 7/2 asks for a stop
// in the middle of a formula. It is worked out at the `+` behind it; the next token would be wrong.
TEST_F(FormulaDriver, StopsAtTheNextToken) {
    FormulaScope uint(NumberTypeUint, 2);
    std::u16string terms;
    for (int i = 0; i < 250; i++) {
        terms += u"1+";
    }
    const std::u16string formula = terms + u"7/2+)+" + terms + u"1";
    std::vector<uint64_t> result(SizeOfNumber() / 8);
    for (const bool asking : {false, true}) {
        FormulaEvaluator evaluator{};
        evaluator.text = formula.c_str();
        evaluator.result = result.data();
        FieldScope<uint8_t*> flag(
            numberContext.abortFlag,
            asking ? reinterpret_cast<uint8_t*>(&evaluator.inexactResult) : nullptr);
        EvaluateFormula(evaluator);
        EXPECT_EQ(evaluator.error, uint32_t{asking ? FormulaErrorAborted : FormulaErrorSyntax});
        EXPECT_EQ(evaluator.errorPosition, asking ? 1u : 505u);
        EXPECT_EQ(evaluator.errorLength, asking ? 0u : 1u);
        EXPECT_TRUE(evaluator.inexactResult) << "the quotient was worked out";
    }
}

// The record around a run.

TEST_F(FormulaDriver, ClearsStackAndTablesOfTheRecord) {
    RealBuffer result;
    const VariableRow row = {u"x", u"2", nullptr};
    for (const char16_t* text : {u"x+1", u"x+", u"y"}) {
        FormulaEvaluator evaluator{};
        evaluator.text = text;
        evaluator.variableCount = 1;
        evaluator.variables = &row;
        evaluator.result = &result.Get()->header;
        EvaluateFormula(evaluator);
        EXPECT_EQ(evaluator.stack, nullptr);
        EXPECT_EQ(evaluator.usedVariables, nullptr);
        EXPECT_EQ(evaluator.usedCount, 0);
        EXPECT_EQ(evaluator.elementSize, SizeOfNumber());
    }
    EXPECT_EQ(row.value, nullptr);
}

TEST_F(FormulaDriver, ForgetsARemainderThatWasLostBefore) {
    RealBuffer result;
    FormulaEvaluator evaluator{};
    evaluator.text = u"1+2";
    evaluator.result = &result.Get()->header;
    evaluator.inexactResult = true;
    EvaluateFormula(evaluator);
    EXPECT_EQ(evaluator.error, uint32_t{FormulaErrorNone});
    EXPECT_FALSE(evaluator.inexactResult);
}

TEST_F(FormulaDriver, ForgetsACodeThatWasNotedBefore) {
    SetCalcError(CalcErrorUndefined);
    EXPECT_EQ(Evaluate(u"1+2"), Value("3"));
}

TEST(FormulaPrecision, GivesTheSameValuesAtEveryPrecision) {
    for (const int64_t p : AllPrecisions) {
        FormulaScope scope(p);
        EXPECT_EQ(Evaluate(u"-(2-5)*2-abs(-1)*8/4+3 mod 2"), Value("5")) << p;
        EXPECT_EQ(Evaluate(u"1/3*3-1/8*8+(1;"), Failure(10200, 15, 1)) << p;
    }
}

}  // namespace
}  // namespace tallymere
