// Results of the type cplx: kept, shown and read back as `ans`.
#include "calculator/calc_evaluation.h"
#include "calculator/calculator_testing.h"
#include "core/complex_number.h"
#include "shell/separators.h"
#include "shell/ui_error.h"
#include "support/complex_testing.h"

namespace tallymere::testing_support {
namespace {

class ComplexResultsTest : public CalculatorTest {
protected:
    void SetUp() override {
        CalculatorTest::SetUp();
        ApplyNumberType(NumberTypeComplex, 10);
    }
};

TEST_F(ComplexResultsTest, AreKeptWithBothPartsRoundedToThePrecision) {
    ApplyPrecision(3);
    EXPECT_EQ(Show(u"2/3-200i/3"), u"0.667-66.7i");
    EXPECT_EQ(PlainText(ComplexAt(calculator.calcResult)), "6.67e-1 -6.67e1");
    EXPECT_EQ(calculator.calcResultType, NumberTypeComplex);
}

TEST_F(ComplexResultsTest, AreOfTheTypeThatWasInForce) {
    calculator.calcResultType = NumberTypeReal;
    EXPECT_EQ(Show(u"1+2i"), u"1+2i");
    EXPECT_EQ(calculator.calcResultType, NumberTypeComplex);
}

TEST_F(ComplexResultsTest, LeaveOutWhatIsZeroOrOne) {
    EXPECT_EQ(Show(u"0i"), u"0");
    EXPECT_EQ(Show(u"3+0i"), u"3");
    EXPECT_EQ(Show(u"-i"), u"-i");
    EXPECT_EQ(Show(u"2+i"), u"2+i");
    EXPECT_EQ(Show(u"2-i"), u"2-i");
    EXPECT_EQ(Show(u"sqrtc(-4;1)"), u"-2i");
}

TEST_F(ComplexResultsTest, HaveEachPartInItsOwnNotation) {
    ApplyPrecision(3);
    EXPECT_EQ(Show(u"999+1000i"), u"999+(1e+3)i");
    EXPECT_EQ(Show(u"0.0001-0.001i"), u"1e-4-0.001i");
    EXPECT_EQ(Show(u"12+1000i", ResultFixed), u"12+1000i");
    EXPECT_EQ(Show(u"12-1.5i", ResultScientific), u"1.2e+1-(1.5e+0)i");
}

TEST_F(ComplexResultsTest, FollowGroupingAndSeparators) {
    ApplySeparators(DecimalComma, ThousandsPoint);
    EXPECT_EQ(Show(u"12345,5-6789,25i", ResultAutomatic, {true, false}), u"12.345,5-6.789,25i");
    EXPECT_EQ(Show(u"ans*2", ResultAutomatic, {true, false}), u"24.691-13.578,5i");
}

TEST_F(ComplexResultsTest, TooLongForFixedNotationSaySoAndLeaveNoAns) {
    EXPECT_EQ(Show(u"1e50000+(1e50000)i", ResultFixed),
              u"<Number is too long for fixed-point notation>");
    EXPECT_EQ(std::u16string(calculator.calcResultText), u"");
    EXPECT_EQ(numberContext.calcError, CalcErrorNone);
    EXPECT_EQ(Show(u"ans"), u"(none)");
    EXPECT_EQ(evaluation.error, FormulaErrorVariableFailed);
}

TEST_F(ComplexResultsTest, ReadBackAsAnsInEveryForm) {
    for (const ResultForm form : {ResultAutomatic, ResultFixed, ResultScientific}) {
        for (const char16_t* formula : {u"1.5-2.5i", u"-1-i", u"i", u"-(2e20)i", u"0.00001+1e-7i",
                                        u"-123456789012-1i", u"0", u"-7.5"}) {
            const std::u16string shown = Show(formula, form);
            ASSERT_EQ(evaluation.error, FormulaErrorNone)
                << PlainText(ComplexAt(calculator.calcResult));
            EXPECT_EQ(Show(u"ans", form), shown);
            EXPECT_EQ(evaluation.error, FormulaErrorNone);
        }
    }
}

TEST_F(ComplexResultsTest, AsAnsAreOneValue) {
    Show(u"1-2i");
    EXPECT_EQ(Show(u"2*ans"), u"2-4i");
    EXPECT_EQ(Show(u"ans^2"), u"-12-16i");
    Show(u"3");
    EXPECT_EQ(Show(u"ans i"), u"3i");
    Show(u"1+i");
    EXPECT_EQ(Show(u"ans i"), u"(none)") << "it has an imaginary part already";
    EXPECT_EQ(evaluation.error, FormulaErrorBadNumber);
    EXPECT_EQ(evaluation.errorPosition, 5u);
}

TEST_F(ComplexResultsTest, AreMadeOfVariables) {
    AddNamed(u"z", u"1.5-2i");
    AddNamed(u"r", u"sqrtc(-1;0)");
    AddNamed(u"bad", u"exp(i)");
    EXPECT_EQ(Show(u"z*r"), u"2+1.5i");
    EXPECT_EQ(Show(u"2*bad"), u"(none)");
    EXPECT_EQ(evaluation.error, FormulaErrorVariableFailed);
    ClearErrors();
    ApplyNumberType(NumberTypeReal, 10);
    EXPECT_EQ(Show(u"z"), u"(none)") << "the text has no value in real";
    EXPECT_EQ(evaluation.error, FormulaErrorVariableFailed);
}

TEST_F(ComplexResultsTest, ReachTheHighestPrecision) {
    ApplyPrecision(10'000);
    const std::u16string third = u"0." + Repeat(u"3", 10'000);
    EXPECT_EQ(Show(u"(1-i)/3"), third + u"-" + third + u"i");
    EXPECT_EQ(Show(u"sqrtc(-2;0)^2"), u"-2");
}

}  // namespace
}  // namespace tallymere::testing_support
