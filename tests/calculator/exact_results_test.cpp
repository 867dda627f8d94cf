// Results of the types uint and rat, from the formula to the text shown and back by `ans`.
#include "calculator/calculator_testing.h"
#include "exact/rational_number.h"
#include "shell/separators.h"
#include "support/real_testing.h"

namespace tallymere::testing_support {
namespace {

class ExactResultsTest : public CalculatorTest {
protected:
    static void UseUint(int64_t base = 10) { ApplyNumberType(NumberTypeUint, base); }
    static void UseRational() { ApplyNumberType(NumberTypeRational, 10); }

    static std::u16string Text() { return calculator.calcResultText; }

    // The result in another form, without a new evaluation.
    static std::u16string Again(ResultForm form, ResultStyle style = {}) {
        calculator.resultForm = form;
        return ShowResult(style);
    }
};

TEST_F(ExactResultsTest, AFractionIsNumeratorAndDenominator) {
    UseRational();
    EXPECT_EQ(Show(u"1/3+1/6"), u"1/2");
    EXPECT_EQ(Show(u"-7/21"), u"-1/3");
    EXPECT_EQ(Show(u"6/2"), u"3");
    EXPECT_EQ(Show(u"1/3-1/3"), u"0");
    EXPECT_EQ(Show(u"3-3"), u"0");
    EXPECT_EQ(Show(u"10^20/3", ResultAutomatic, {true, false}), u"100'000'000'000'000'000'000/3");
}

TEST_F(ExactResultsTest, AFractionInAnotherFormIsRoundedToThePrecision) {
    UseRational();
    EXPECT_EQ(Show(u"200/3"), u"200/3");
    EXPECT_EQ(Again(ResultFixed), u"66.66666667");
    EXPECT_EQ(Again(ResultScientific), u"6.666666667e+1");
    EXPECT_EQ(Again(ResultMixed), u"66+2/3");
    EXPECT_EQ(Again(ResultAutomatic), u"200/3");
    EXPECT_EQ(Show(u"-1/8"), u"-1/8");
    EXPECT_EQ(Again(ResultFixed), u"-0.125");
    EXPECT_EQ(Again(ResultScientific), u"-1.25e-1");
    EXPECT_EQ(Show(u"1/10^15", ResultFixed), u"0.000000000000001");
    EXPECT_EQ(Show(u"12345678901", ResultScientific), u"1.23456789e+10");
    EXPECT_EQ(Show(u"1234567/2", ResultFixed, {true, false}), u"617'283.5");
    ApplySeparators(DecimalComma, ThousandsPoint);
    EXPECT_EQ(Again(ResultFixed, {true, false}), u"617.283,5");
}

TEST_F(ExactResultsTest, AFractionIsConvertedAtTheWorkingDigitsAndRoundedOnce) {
    UseRational();
    ApplyPrecision(1);
    // Three working digits, 0.145, which would be 0.2 by way of 0.15.
    EXPECT_EQ(Show(u"145/1000", ResultFixed), u"0.1");
    EXPECT_EQ(Show(u"25/100", ResultFixed), u"0.3");
    ApplyPrecision(3);
    EXPECT_EQ(Show(u"99951/100", ResultFixed), u"1000");
    EXPECT_EQ(numberContext.precisionDigits, 5);
    ApplyPrecision(10'000);
    EXPECT_EQ(Show(u"1/7", ResultFixed), u"0." + Repeat(u"142857", 1'666) + u"1429");
}

TEST_F(ExactResultsTest, AFractionHasNoDigitsBelowThePrecisionOfOne) {
    UseRational();
    Show(u"1/3");
    for (const int64_t precision : {0, -1, -100}) {
        ApplyPrecision(precision);
        TakeCode();
        EXPECT_EQ(Again(ResultFixed), u"NaN");
        EXPECT_EQ(TakeCode(), CalcErrorUndefined);
        EXPECT_EQ(Again(ResultScientific), u"NaN");
        EXPECT_EQ(TakeCode(), CalcErrorUndefined);
        EXPECT_EQ(Again(ResultAutomatic), u"1/3");
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    }
}

TEST_F(ExactResultsTest, TheMixedFormShowsIntegersAsTheyAre) {
    UseRational();
    EXPECT_EQ(Show(u"-7/3", ResultMixed), u"-2-1/3");
    EXPECT_EQ(Show(u"6/3", ResultMixed), u"2");
    EXPECT_EQ(Show(u"0-6/3", ResultMixed), u"-2");
    EXPECT_EQ(Show(u"0", ResultMixed), u"0");
    UseUint();
    EXPECT_EQ(Show(u"12", ResultMixed), u"12");
}

TEST_F(ExactResultsTest, TheLongestFractionFitsInEveryForm) {
    UseRational();
    const std::u16string nines = Repeat(u"9", 10'000);
    for (const ResultForm form : {ResultAutomatic, ResultMixed}) {
        const std::u16string shown = Show(nines + u"/1" + Repeat(u"0", 9'999), form, {true, false});
        EXPECT_GT(shown.size(), 26'000u);
        EXPECT_EQ(PendingUiError(), UiErrorNone);
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    }
    EXPECT_EQ(Show(nines, ResultFixed), u"1" + Repeat(u"0", 10'000));
}

TEST_F(ExactResultsTest, AFractionReadsBackAsAns) {
    UseRational();
    for (const ResultForm form : {ResultAutomatic, ResultMixed}) {
        EXPECT_EQ(Show(u"7/3"), u"7/3");
        Again(form);
        EXPECT_EQ(Show(u"ans"), u"7/3");
        EXPECT_EQ(Show(u"3*ans"), u"7");
        EXPECT_EQ(Show(u"-7/3"), u"-7/3");
        Again(form, {true, false});
        EXPECT_EQ(Show(u"3*ans"), u"-7");
    }
    EXPECT_EQ(calculator.calcResultType, NumberTypeRational);
}

// What is shown, 0.3333333333, is no fraction.
TEST_F(ExactResultsTest, AFractionShownAsRealNumberIsOneFromThenOn) {
    UseRational();
    EXPECT_EQ(Show(u"1/3", ResultFixed), u"0.3333333333");
    EXPECT_EQ(Show(u"3*ans"), u"0.9999999999");
    EXPECT_TRUE(evaluation.fellToReal);
    UseRational();
    EXPECT_EQ(Show(u"1/4*10^12", ResultScientific), u"2.5e+11");
    EXPECT_EQ(Show(u"ans"), u"250000000000");
    EXPECT_FALSE(evaluation.fellToReal);
}

TEST_F(ExactResultsTest, AFractionIsKeptUnrounded) {
    UseRational();
    ApplyPrecision(2);
    EXPECT_EQ(Show(u"123456789/1000"), u"123456789/1000");
    EXPECT_EQ(RationalNumerator(RationalAt(calculator.calcResult))[0], 123'456'789u);
}

TEST_F(ExactResultsTest, IntegersInEveryBase) {
    const struct {
        int64_t base;
        const char16_t *plain, *grouped, *zero;
    } cases[] = {{10, u"1234567", u"1'234'567", u"0"},
                 {16, u"0x12D687", u"0x12'D687", u"0x0"},
                 {8, u"0t4553207", u"0t455'3207", u"0t0"},
                 {2, u"0y100101101011010000111", u"0y1'0010'1101'0110'1000'0111", u"0y0"}};
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.base);
        UseUint(expected.base);
        EXPECT_EQ(Show(u"1234567"), expected.plain);
        EXPECT_EQ(Again(ResultAutomatic, {true, false}), expected.grouped);
        // The form keys are off in other bases than 10, and the fixed form is the automatic one.
        EXPECT_EQ(Again(ResultFixed), expected.plain);
        EXPECT_EQ(Again(ResultMixed), expected.plain);
        EXPECT_EQ(Again(ResultScientific), expected.base == 10 ? u"1.234567e+6" : expected.plain);
        EXPECT_EQ(Show(u"0"), expected.zero);
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    }
}

TEST_F(ExactResultsTest, SmallLettersInBaseSixteenOnly) {
    UseUint(16);
    EXPECT_EQ(Show(u"0xABCDEF"), u"0xABCDEF");
    EXPECT_EQ(Again(ResultAutomatic, {false, true}), u"0xabcdef");
    UseUint(10);
    EXPECT_EQ(Show(u"0xff", ResultAutomatic, {false, true}), u"255");
    EXPECT_EQ(Show(u"10^30", ResultScientific, {false, true}), u"1e+30");
}

TEST_F(ExactResultsTest, TheScientificFormOfAnIntegerHasAllItsDigits) {
    UseUint();
    EXPECT_EQ(Show(u"12345678901234567890", ResultScientific), u"1.234567890123456789e+19");
    EXPECT_EQ(Show(u"7", ResultScientific), u"7e+0");
    EXPECT_EQ(Show(u"1000", ResultScientific), u"1e+3");
    ApplySeparators(DecimalComma, ThousandsPoint);
    EXPECT_EQ(Show(u"1500", ResultScientific), u"1,5e+3");
}

TEST_F(ExactResultsTest, IntegersReadBackAsAnsInEveryBaseAndForm) {
    for (const int64_t base : {2, 8, 10, 16}) {
        for (const ResultForm form : {ResultAutomatic, ResultScientific}) {
            for (const ResultStyle style : {ResultStyle{}, ResultStyle{true, true}}) {
                SCOPED_TRACE(base);
                UseUint(base);
                Show(u"2^100-1", form, style);
                UseUint(10);
                EXPECT_EQ(Show(u"ans"), u"1267650600228229401496703205375");
            }
        }
    }
}

TEST_F(ExactResultsTest, TheLongestIntegerFitsInEveryBase) {
    // All bits of the width.
    const std::u16string largest = u"2^66495+(2^66495-1)";
    const struct {
        int64_t base;
        size_t characters;
    } cases[] = {{2, 66'496}, {8, 22'166}, {10, 20'018}, {16, 16'624}};
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.base);
        UseUint(expected.base);
        const size_t prefix = expected.base == 10 ? 0 : 2;
        EXPECT_EQ(Show(largest).size(), expected.characters + prefix);
        const size_t group = expected.base == 10 ? 3 : 4;
        EXPECT_EQ(Again(ResultAutomatic, {true, false}).size(),
                  expected.characters + (expected.characters - 1) / group + prefix);
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    }
    UseUint();
    EXPECT_EQ(Show(u"2*2^66495"), u"(none)");
    EXPECT_EQ(evaluation.error, FormulaErrorOperationFailed);
}

TEST_F(ExactResultsTest, ALostRemainderSetsTheBracketMark) {
    UseUint();
    EXPECT_EQ(Show(u"7/2"), u"3");
    EXPECT_TRUE(calculator.resultBracket);
    EXPECT_EQ(Show(u"ans"), u"3");
    EXPECT_FALSE(calculator.resultBracket);
    EXPECT_EQ(Show(u"6/2"), u"3");
    EXPECT_FALSE(calculator.resultBracket);
    AddNamed(u"x", u"7/2");
    EXPECT_EQ(Show(u"x*2"), u"6");
    EXPECT_TRUE(calculator.resultBracket);
    EXPECT_EQ(Show(u"5"), u"5");
    EXPECT_FALSE(calculator.resultBracket);
}

TEST_F(ExactResultsTest, VariablesAreReadInTheTypeInForce) {
    AddNamed(u"third", u"1/3");
    AddNamed(u"half", u"0.5");
    AddNamed(u"hex", u"0xFF");
    UseRational();
    EXPECT_EQ(Show(u"third+1"), u"4/3");
    EXPECT_EQ(Show(u"6*half*third"), u"1");
    EXPECT_EQ(calculator.calcResultType, NumberTypeReal);
    UseUint();
    EXPECT_EQ(Show(u"hex+third"), u"255");
    EXPECT_TRUE(calculator.resultBracket);
    Show(u"half");
    EXPECT_EQ(evaluation.error, FormulaErrorVariableFailed);
}

TEST_F(ExactResultsTest, WhatHasNoFractionFallsToRealNumbersAndStaysThere) {
    const struct {
        const char16_t *formula, *shown;
    } cases[] = {{u"sqrt(2)", u"1.414213562"},
                 {u"2^(1/2)", u"1.414213562"},
                 {u"pi", u"3.141592654"},
                 {u"sin(1)", u"0.8414709848"},
                 {u"1.5", u"1.5"},
                 {u"10^20000", u"1e+20000"}};
    for (const auto& expected : cases) {
        UseRational();
        EXPECT_EQ(Show(expected.formula), expected.shown);
        EXPECT_TRUE(evaluation.fellToReal);
        EXPECT_EQ(calculator.calcResultType, NumberTypeReal);
        EXPECT_EQ(Show(u"1/3"), u"0.3333333333");
        EXPECT_FALSE(evaluation.fellToReal);
    }
    UseRational();
    EXPECT_EQ(Show(u"sqrt(4/9)"), u"2/3");
    EXPECT_FALSE(evaluation.fellToReal);
}

TEST_F(ExactResultsTest, WhatFailsInBothTypesReportsTheErrorInRealNumbers) {
    UseRational();
    EXPECT_EQ(Show(u"1/0"), u"(none)");
    EXPECT_EQ(evaluation.error, FormulaErrorOperationFailed);
    EXPECT_EQ(calculator.calcResultType, NumberTypeRational);
    EXPECT_EQ(numberContext.uintLimbs, 520);
    ClearErrors();
    // In rat the number 0.5 would be the first to fail.
    EXPECT_EQ(Show(u"0.5+i"), u"(none)");
    EXPECT_EQ(evaluation.error, FormulaErrorNeedsComplex);
    EXPECT_EQ(evaluation.errorPosition, 5u);
}

TEST_F(ExactResultsTest, TheSecondAttemptHasTheWorkingDigits) {
    UseRational();
    InstallRealLayout(LayoutForDigits(3));
    EXPECT_EQ(Show(u"sqrt(2)"), u"1.414213562");
    EXPECT_EQ(numberContext.precisionDigits, 12);
}

// Both attempts put digits of their own in force and leave those that they found.
TEST_F(ExactResultsTest, AStopInEitherAttemptIsSilentAndLeavesTypeAndDigits) {
    UseRational();
    EXPECT_EQ(Show(u"ncr(1/2;2)"), u"-1/8");
    for (const char16_t* formula : {u"ncr(1/2;2)", u"ncr(5;2)"}) {
        InstallRealLayout(LayoutForDigits(7));
        RequestStop();
        EXPECT_EQ(Show(formula), u"(none)");
        EXPECT_EQ(evaluation.error, FormulaErrorAborted);
        EXPECT_FALSE(evaluation.fellToReal);
        EXPECT_EQ(PendingUiError(), UiErrorStopped);
        EXPECT_EQ(calculator.calcResultType, NumberTypeRational);
        EXPECT_EQ(numberContext.precisionDigits, 7);
        EXPECT_EQ(Text(), u"-1/8");
        ClearErrors();
    }
    InstallRealLayout(LayoutForDigits(7));
    RequestStop();
    EXPECT_EQ(Show(u"0.5+ncr(5;2)"), u"(none)");
    EXPECT_EQ(evaluation.error, FormulaErrorAborted);
    EXPECT_EQ(numberContext.numberType, NumberTypeRational);
    EXPECT_EQ(numberContext.precisionDigits, 7);
}

// It is a failure like any other, so real numbers are tried, and stopped in the same place.
TEST_F(ExactResultsTest, AStopWhileAVariableIsEvaluatedIsAFailureOfTheVariable) {
    AddNamed(u"x", u"ncr(5;2)");
    UseRational();
    RequestStop();
    EXPECT_EQ(Show(u"1+x"), u"(none)");
    EXPECT_EQ(evaluation.error, FormulaErrorVariableFailed);
    EXPECT_EQ(evaluation.errorPosition, 3u);
    EXPECT_EQ(PendingUiError(), UiErrorFormula);
    EXPECT_EQ(calculator.calcResultType, NumberTypeRational);
}

TEST_F(ExactResultsTest, AStopEndsACalculationWithIntegers) {
    UseUint();
    for (const char16_t* formula : {u"powmod(3;100;7)", u"ncr(49;6)", u"npr(49;6)"}) {
        RequestStop();
        EXPECT_EQ(Show(formula), u"(none)");
        EXPECT_EQ(evaluation.error, FormulaErrorAborted);
        EXPECT_EQ(PendingUiError(), UiErrorStopped);
        ClearErrors();
    }
}

TEST_F(ExactResultsTest, OtherTypesDoNotReadTheFormsOfExactNumbers) {
    UseUint(16);
    EXPECT_EQ(Show(u"255"), u"0xFF");
    ApplyNumberType(NumberTypeReal, 10);
    Show(u"ans");
    EXPECT_EQ(evaluation.error, FormulaErrorVariableFailed);
    ClearErrors();
    UseRational();
    EXPECT_EQ(Show(u"7/4", ResultMixed), u"1+3/4");
    ApplyNumberType(NumberTypeReal, 10);
    EXPECT_EQ(Show(u"ans"), u"1.75");
}

}  // namespace
}  // namespace tallymere::testing_support
