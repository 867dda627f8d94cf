#include "calculator/result_text.h"

#include "calculator/calculator_testing.h"
#include "shell/separators.h"
#include "support/real_testing.h"

namespace tallymere::testing_support {
namespace {

class ResultTextTest : public CalculatorTest {
protected:
    static const std::u16string& TooLong() {
        static const std::u16string text = u"<Number is too long for fixed-point notation>";
        return text;
    }
};

TEST_F(ResultTextTest, AutomaticNotationIsFixedFromMinusThreeToBelowThePrecision) {
    ApplyPrecision(3);
    EXPECT_EQ(Show(u"999"), u"999");
    EXPECT_EQ(Show(u"1000"), u"1e+3");
    EXPECT_EQ(Show(u"1000000"), u"1e+6");
    EXPECT_EQ(Show(u"0.001"), u"0.001");
    EXPECT_EQ(Show(u"0.0001"), u"1e-4");
    EXPECT_EQ(Show(u"0"), u"0");
    EXPECT_EQ(Show(u"0-12.5"), u"-12.5");
    ApplyPrecision(20);
    EXPECT_EQ(Show(u"12345678901234567890"), u"12345678901234567890");
    EXPECT_EQ(Show(u"1e20"), u"1e+20");
}

TEST_F(ResultTextTest, RoundingMayChangeTheNotation) {
    ApplyPrecision(3);
    EXPECT_EQ(Show(u"999.6"), u"1e+3");
    EXPECT_EQ(Show(u"0.00099996"), u"0.001");
}

TEST_F(ResultTextTest, TheWindowIsThatOfTheResultForItsTextAlone) {
    ApplyPrecision(25);
    numberContext.fixedExponentLow = numberContext.fixedExponentHigh = 0;
    EXPECT_EQ(Show(u"1e24"), u"1" + Repeat(u"0", 24));
    EXPECT_EQ(Show(u"0.001"), u"0.001");
    EXPECT_EQ(Show(u"1e25"), u"1e+25");
    EXPECT_EQ(Show(u"0.0001"), u"1e-4");
    EXPECT_EQ(numberContext.fixedExponentLow, 0);
    EXPECT_EQ(numberContext.fixedExponentHigh, 0);
}

TEST_F(ResultTextTest, FixedNotationHasNoExponentAndNoTrailingZeros) {
    EXPECT_EQ(Show(u"1e15", ResultFixed), u"1000000000000000");
    EXPECT_EQ(Show(u"1.5e-7", ResultFixed), u"0.00000015");
    EXPECT_EQ(Show(u"2.50", ResultFixed), u"2.5");
}

TEST_F(ResultTextTest, ScientificNotationHasNoTrailingZeros) {
    EXPECT_EQ(Show(u"5", ResultScientific), u"5e+0");
    EXPECT_EQ(Show(u"200/3", ResultScientific), u"6.666666667e+1");
    EXPECT_EQ(Show(u"0-0.025", ResultScientific), u"-2.5e-2");
}

TEST_F(ResultTextTest, TheMixedFormIsAutomaticForRealNumbers) {
    ApplyPrecision(3);
    EXPECT_EQ(Show(u"7/2", ResultMixed), u"3.5");
    EXPECT_EQ(Show(u"1000", ResultMixed), u"1e+3");
}

TEST_F(ResultTextTest, GroupsDigitsWhenTheOptionIsOn) {
    EXPECT_EQ(Show(u"1234567.5"), u"1234567.5");
    EXPECT_EQ(Show(u"1234567.5", ResultAutomatic, {true, false}), u"1'234'567.5");
    ApplySeparators(DecimalComma, ThousandsNarrowSpace);
    EXPECT_EQ(Show(u"1234567,5", ResultAutomatic, {true, false}), u"1\u202F234\u202F567,5");
}

TEST_F(ResultTextTest, ShowsAllDigitsOfTheHighestPrecision) {
    ApplyPrecision(10'000);
    // The period of 1/7 is 142857; digit 10,001 is a 5.
    EXPECT_EQ(Show(u"1/7"), u"0." + Repeat(u"142857", 1'666) + u"1429");
}

TEST_F(ResultTextTest, TheLongestTextHas88661Characters) {
    EXPECT_EQ(Show(u"1e88660", ResultFixed), u"1" + Repeat(u"0", 88'660));
    EXPECT_EQ(Show(u"1e88661", ResultFixed), TooLong());
    // A third more for the groups: 66,496 digits and 22,165 marks.
    EXPECT_EQ(Show(u"1e66495", ResultFixed, {true, false}), u"1" + Repeat(u"'000", 22'165));
    EXPECT_EQ(Show(u"1e66496", ResultFixed, {true, false}), TooLong());
}

TEST_F(ResultTextTest, ATextTooLongIsNoErrorAndNoAns) {
    EXPECT_EQ(Show(u"1e99999", ResultFixed), TooLong());
    EXPECT_EQ(std::u16string(calculator.calcResultText), u"");
    EXPECT_EQ(numberContext.calcError, CalcErrorNone);
    EXPECT_TRUE(calculator.resultValid);
    // The number is still there for another form.
    calculator.resultForm = ResultScientific;
    EXPECT_EQ(std::u16string(ShowResult({})), u"1e+99999");
    EXPECT_EQ(std::u16string(calculator.calcResultText), u"1e+99999");
    Show(u"1e99999", ResultFixed);
    Show(u"ans");
    EXPECT_EQ(evaluation.error, FormulaErrorVariableFailed);
}

TEST_F(ResultTextTest, ATextTooLongSpeaksTheLanguage) {
    InstallLanguage(LanguageGerman);
    EXPECT_EQ(Show(u"1e99999", ResultFixed), u"<Zahl ist zu lang f\u00FCr die Festkomma-Notation>");
}

TEST_F(ResultTextTest, AnotherFormNeedsNoEvaluation) {
    EXPECT_EQ(Show(u"1e5/3"), u"33333.33333");
    calculator.resultForm = ResultScientific;
    EXPECT_EQ(std::u16string(ShowResult({})), u"3.333333333e+4");
    calculator.resultForm = ResultFixed;
    EXPECT_EQ(std::u16string(ShowResult({true, false})), u"33'333.33333");
}

TEST_F(ResultTextTest, APendingErrorEmptiesTheText) {
    EXPECT_EQ(Show(u"5"), u"5");
    SetUiError(UiErrorInternal);
    EXPECT_EQ(ShowResult({}), nullptr);
    EXPECT_EQ(std::u16string(calculator.calcResultText), u"");
}

TEST_F(ResultTextTest, AHugePrecisionMakesNoNotationWindow) {
    EXPECT_EQ(Show(u"5"), u"5");
    calculator.calcPrecision = 1'000'000'000;
    ShowResult({});
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    calculator.calcPrecision = 1'000'000'001;
    ShowResult({});
    EXPECT_EQ(TakeCode(), CalcErrorBadParameter);
    calculator.resultForm = ResultFixed;
    ShowResult({});
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

TEST_F(ResultTextTest, OtherBasesBeginWithTheirPrefix) {
    const struct {
        int64_t base;
        std::u16string prefix;
    } cases[] = {{2, u"0y"}, {8, u"0t"}, {16, u"0x"}};
    for (const auto& expected : cases) {
        ApplyNumberType(NumberTypeUint, expected.base);
        ShowResult({});
        EXPECT_EQ(std::u16string(calculator.calcResultText).substr(0, 2), expected.prefix);
        TakeCode();
    }
}

TEST_F(ResultTextTest, AnUnknownTypeHasNoText) {
    calculator.calcResultType = numberContext.numberType = static_cast<NumberType>(7);
    EXPECT_EQ(std::u16string(ShowResult({})), u"");
    EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
}

TEST_F(ResultTextTest, TheEndOfACalculationMakesTheResultValid) {
    EXPECT_FALSE(calculator.ansAvailable);
    EXPECT_EQ(Show(u"5"), u"5");
    EXPECT_TRUE(calculator.ansAvailable);
    EXPECT_TRUE(calculator.resultValid);
    EXPECT_EQ(Show(u"5+"), u"(none)");
    EXPECT_FALSE(calculator.resultValid);
}

TEST_F(ResultTextTest, AFormulaIsTouchedUntilItHasAResult) {
    calculator.formulaTouched = true;
    Show(u"5+");
    EXPECT_TRUE(calculator.formulaTouched);
    ClearErrors();
    Show(u"5");
    EXPECT_FALSE(calculator.formulaTouched);
}

}  // namespace
}  // namespace tallymere::testing_support
