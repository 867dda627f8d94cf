#include "calculator/calc_evaluation.h"

#include "calculator/calculator_testing.h"
#include "shell/separators.h"
#include "support/real_testing.h"

namespace tallymere::testing_support {
namespace {

class CalcEvaluationTest : public CalculatorTest {
protected:
    static std::u16string Message() { return uiError.arg1; }
};

TEST(MissingParentheses, AreCountedNotMatched) {
    EXPECT_EQ(CountMissingParentheses(u""), 0);
    EXPECT_EQ(CountMissingParentheses(u"(1+2"), 1);
    EXPECT_EQ(CountMissingParentheses(u"(((1)"), 2);
    EXPECT_EQ(CountMissingParentheses(u"(1)"), 0);
    EXPECT_EQ(CountMissingParentheses(u"1))"), 0);
    EXPECT_EQ(CountMissingParentheses(u")("), 0);
    EXPECT_EQ(CountMissingParentheses(u")(("), 1);
}

TEST_F(CalcEvaluationTest, KeepsTheResultRoundedToThePrecision) {
    ApplyPrecision(3);
    Show(u"2/3");
    EXPECT_EQ(evaluation.error, FormulaErrorNone);
    // Five working digits, of which the last two are zeros now.
    EXPECT_EQ(PlainText(RealAt(calculator.calcResult)), "6.67e-1");
    ApplyPrecision(1);
    Show(u"2.5");
    EXPECT_EQ(PlainText(RealAt(calculator.calcResult)), "3e0");
    Show(u"0-2.5");
    EXPECT_EQ(PlainText(RealAt(calculator.calcResult)), "-3e0");
}

// The formula has a value, and its error comes with the result.
TEST_F(CalcEvaluationTest, AResultThatIsRoundedAboveTheRangeIsAnError) {
    ApplyPrecision(1);
    for (const NumberType type : {NumberTypeReal, NumberTypeComplex}) {
        ApplyNumberType(type, 10);
        EXPECT_EQ(Show(u"9.4e4611686018427387903"), u"9e+4611686018427387903");
        EXPECT_EQ(TakeCode(), CalcErrorNone);
        EXPECT_EQ(Show(u"-9.6e4611686018427387903"), u"-\u221E");
        EXPECT_EQ(evaluation.error, FormulaErrorNone);
        EXPECT_EQ(PendingUiError(), UiErrorNone);
        EXPECT_EQ(TakeCode(), CalcErrorOverflow);
        Show(u"ans");
        EXPECT_EQ(evaluation.error, FormulaErrorVariableFailed);
        ClearErrors();
    }
}

TEST_F(CalcEvaluationTest, WorksWithTwoMoreDigits) {
    ApplyPrecision(1);
    EXPECT_EQ(Show(u"1/3*3"), u"1");
    ApplyPrecision(5);
    // 1 + 10^-6 has 7 digits, the working digits.
    EXPECT_EQ(Show(u"1+1e-6-1"), u"1e-6");
    EXPECT_EQ(Show(u"1+1e-7-1"), u"0");
}

TEST_F(CalcEvaluationTest, GroupSeparatorsMayStandInNumbers) {
    EXPECT_EQ(Show(u"1'000+1"), u"1001");
}

TEST_F(CalcEvaluationTest, AnErrorIsRaisedWithItsText) {
    EXPECT_EQ(Show(u"1+*2"), u"(none)");
    EXPECT_EQ(evaluation.error, FormulaErrorSyntax);
    EXPECT_EQ(evaluation.errorPosition, 3u);
    EXPECT_EQ(PendingUiError(), UiErrorFormula);
    EXPECT_EQ(Message(), u"Syntax error at character position 3!");
    EXPECT_EQ(numberContext.calcError, CalcErrorNone);
}

TEST_F(CalcEvaluationTest, ErrorTextsSpeakTheLanguage) {
    InstallLanguage(LanguageGerman);
    Show(u"1/0+2");
    EXPECT_EQ(Message(), u"\u00DCberlauf bei Zeichenposition 4!");
}

TEST_F(CalcEvaluationTest, AnUnknownNameAndAFailingVariableAreErrors) {
    Show(u"2*x");
    EXPECT_EQ(evaluation.error, FormulaErrorUndefinedName);
    EXPECT_EQ(evaluation.errorPosition, 3u);
    ClearErrors();
    AddNamed(u"x", u"1+");
    Show(u"2*x");
    EXPECT_EQ(evaluation.error, FormulaErrorVariableFailed);
    EXPECT_EQ(evaluation.errorPosition, 3u);
}

TEST_F(CalcEvaluationTest, VariablesKnowNoVariables) {
    AddNamed(u"y", u"2");
    AddNamed(u"x", u"y");
    AddNamed(u"z", u"ans");
    EXPECT_EQ(Show(u"y"), u"2");
    Show(u"x");
    EXPECT_EQ(evaluation.error, FormulaErrorVariableFailed);
    ClearErrors();
    Show(u"z");
    EXPECT_EQ(evaluation.error, FormulaErrorVariableFailed);
}

TEST_F(CalcEvaluationTest, AVariableIsAFormulaOfItsOwn) {
    AddNamed(u"x", u"1+1");
    EXPECT_EQ(Show(u"3*x"), u"6");
    AddNamed(u"n", u"-2");
    EXPECT_EQ(Show(u"3*n"), u"-6");
}

TEST_F(CalcEvaluationTest, AVariableFollowsTheDecimalSeparatorInForce) {
    AddNamed(u"x", u"1.5");
    ApplySeparators(DecimalComma, ThousandsApostrophe);
    EXPECT_EQ(Show(u"x*2,5"), u"3,75");
}

TEST_F(CalcEvaluationTest, AnsIsTheShownText) {
    ApplyPrecision(3);
    EXPECT_EQ(Show(u"2/3"), u"0.667");
    EXPECT_EQ(Show(u"ans*3"), u"2");
    EXPECT_EQ(Show(u"2/3"), u"0.667");
    // 0.667 * 3 - 2 = 0.001, where the unrounded value would give less.
    EXPECT_EQ(Show(u"ans*3-2"), u"0.001");
}

TEST_F(CalcEvaluationTest, AnsReadsBackInEveryForm) {
    ApplySeparators(DecimalComma, ThousandsPoint);
    EXPECT_EQ(Show(u"1234567,5", ResultFixed, {true, false}), u"1.234.567,5");
    EXPECT_EQ(Show(u"ans", ResultScientific), u"1,2345675e+6");
    EXPECT_EQ(Show(u"ans"), u"1234567,5");
}

TEST_F(CalcEvaluationTest, AnsBeforeAnyResultFails) {
    Show(u"ans");
    EXPECT_EQ(evaluation.error, FormulaErrorVariableFailed);
    EXPECT_EQ(evaluation.errorPosition, 1u);
}

TEST_F(CalcEvaluationTest, AFailureKeepsTheOldResult) {
    EXPECT_EQ(Show(u"2+3"), u"5");
    EXPECT_EQ(Show(u"2+"), u"(none)");
    EXPECT_EQ(PlainText(RealAt(calculator.calcResult)), "5e0");
    EXPECT_EQ(std::u16string(calculator.calcResultText), u"5");
    EXPECT_FALSE(calculator.resultValid);
    EXPECT_TRUE(calculator.ansAvailable);
    ClearErrors();
    EXPECT_EQ(Show(u"ans"), u"5");
}

TEST_F(CalcEvaluationTest, APendingErrorLetsNothingBeEvaluated) {
    EXPECT_EQ(Show(u"2+3"), u"5");
    ApplyNumberType(NumberTypeRational, 10);
    SetUiError(UiErrorInternal);
    for (const char16_t* formula : {u"2+2", u"1.5", u"1+"}) {
        EXPECT_EQ(Show(formula), u"(none)");
        EXPECT_EQ(evaluation.error, FormulaErrorNone);
        EXPECT_FALSE(evaluation.fellToReal);
    }
    EXPECT_EQ(PendingUiError(), UiErrorInternal);
    EXPECT_EQ(numberContext.numberType, NumberTypeRational);
    EXPECT_EQ(PlainText(RealAt(calculator.calcResult)), "5e0");
    EXPECT_EQ(std::u16string(calculator.calcResultText), u"5");
    EXPECT_FALSE(calculator.resultValid);
}

TEST_F(CalcEvaluationTest, AStopIsSilentAndKeepsTheOldResult) {
    EXPECT_EQ(Show(u"2+3"), u"5");
    RequestStop();
    EXPECT_EQ(Show(u"1e99 mod 7"), u"(none)");
    EXPECT_EQ(evaluation.error, FormulaErrorAborted);
    EXPECT_EQ(evaluation.errorPosition, 1u);
    EXPECT_EQ(PendingUiError(), UiErrorStopped);
    EXPECT_EQ(std::u16string(calculator.calcResultText), u"5");
    EXPECT_FALSE(calculator.resultValid);
}

TEST_F(CalcEvaluationTest, AStopInAVariableIsAFailureOfTheVariable) {
    AddNamed(u"x", u"1e99 mod 7");
    RequestStop();
    Show(u"x");
    EXPECT_EQ(evaluation.error, FormulaErrorVariableFailed);
    EXPECT_EQ(PendingUiError(), UiErrorFormula);
}

TEST_F(CalcEvaluationTest, WhatIsNoFractionIsTriedInReal) {
    ApplyNumberType(NumberTypeRational, 10);
    EXPECT_EQ(Show(u"1.5*2.5"), u"3.75");
    EXPECT_TRUE(evaluation.fellToReal);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    EXPECT_EQ(calculator.calcResultType, NumberTypeReal);
    EXPECT_EQ(numberContext.numberType, NumberTypeReal);
    EXPECT_EQ(calculator.calcIntegerDigits, 1);
    EXPECT_TRUE(calculator.resultValid);
    // The type stays.
    EXPECT_EQ(Show(u"ans*2"), u"7.5");
    EXPECT_FALSE(evaluation.fellToReal);
}

TEST_F(CalcEvaluationTest, WhatFailsInRealTooLeavesTheTypeAndReportsTheSecondError) {
    ApplyNumberType(NumberTypeRational, 10);
    // A fraction refuses the number 1.5, position 1; real numbers get to the end.
    EXPECT_EQ(Show(u"1.5+"), u"(none)");
    EXPECT_FALSE(evaluation.fellToReal);
    EXPECT_EQ(evaluation.error, FormulaErrorUnexpectedEnd);
    EXPECT_EQ(PendingUiError(), UiErrorFormula);
    EXPECT_EQ(Message(), u"Unexpected end of formula!");
    EXPECT_EQ(calculator.calcResultType, NumberTypeRational);
    EXPECT_EQ(numberContext.numberType, NumberTypeRational);
    EXPECT_EQ(numberContext.uintLimbs, 520);
}

TEST_F(CalcEvaluationTest, TheFallLeavesTheMarkOfTheResultToThePage) {
    ApplyNumberType(NumberTypeRational, 10);
    calculator.resultValid = true;
    EXPECT_TRUE(CalculateResult(u"sqrt(2)").fellToReal);
    EXPECT_TRUE(calculator.resultValid);
}

TEST_F(CalcEvaluationTest, TheFallUsesTheVariablesAndWorkingDigits) {
    ApplyPrecision(4);
    ApplyNumberType(NumberTypeRational, 10);
    AddNamed(u"x", u"0.5");
    EXPECT_EQ(Show(u"2*x/3"), u"0.3333");
    EXPECT_EQ(numberContext.precisionDigits, 6);
}

TEST_F(CalcEvaluationTest, AStopInTheSecondAttemptIsSilentToo) {
    ApplyNumberType(NumberTypeRational, 10);
    RequestStop();
    EXPECT_EQ(Show(u"0.5+1e99 mod 7"), u"(none)");
    EXPECT_EQ(evaluation.error, FormulaErrorAborted);
    EXPECT_EQ(PendingUiError(), UiErrorStopped);
    EXPECT_EQ(numberContext.numberType, NumberTypeRational);
}

TEST_F(CalcEvaluationTest, OtherTypesDoNotFall) {
    for (const NumberType type : {NumberTypeReal, NumberTypeComplex, NumberTypeUint}) {
        ApplyNumberType(type, 10);
        EXPECT_EQ(Show(u"1+"), u"(none)");
        EXPECT_FALSE(evaluation.fellToReal);
        EXPECT_EQ(numberContext.numberType, type);
        ClearErrors();
    }
}

TEST_F(CalcEvaluationTest, TheBracketMarkIsThatOfTheLastResult) {
    calculator.resultBracket = true;
    EXPECT_EQ(Show(u"1+"), u"(none)");
    EXPECT_TRUE(calculator.resultBracket);
    ClearErrors();
    Show(u"1+1");
    EXPECT_FALSE(calculator.resultBracket);
}

TEST_F(CalcEvaluationTest, AnUnknownTypeFailsAndLeavesNoCode) {
    numberContext.numberType = static_cast<NumberType>(7);
    CalculateResult(u"1");
    EXPECT_EQ(PendingUiError(), UiErrorFormula);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

}  // namespace
}  // namespace tallymere::testing_support
