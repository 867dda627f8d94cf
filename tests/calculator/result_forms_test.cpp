#include "calculator/result_forms.h"

#include <vector>

#include "calculator/calculator_testing.h"
#include "core/complex_number.h"
#include "shell/separators.h"

namespace tallymere::testing_support {
namespace {

class ResultFormsTest : public CalculatorTest {
protected:
    // The forms from automatic on, as long as the key leads to another one, until automatic.
    static std::vector<ResultForm> Cycle() {
        std::vector<ResultForm> forms;
        calculator.resultForm = ResultAutomatic;
        do {
            EXPECT_TRUE(SwitchNotation());
            forms.push_back(calculator.resultForm);
        } while (calculator.resultForm != ResultAutomatic && forms.size() < 9);
        return forms;
    }
    std::vector<ResultForm> CycleOf(const std::u16string& formula) {
        Show(formula);
        EXPECT_EQ(evaluation.error, FormulaErrorNone);
        return Cycle();
    }
    static ResultForm Next(ResultForm form) {
        calculator.resultForm = form;
        return FormAfterNotationKey();
    }
    static ResultForm NextMixed(ResultForm form) {
        calculator.resultForm = form;
        return FormAfterMixedKey();
    }

    const std::vector<ResultForm> fixedLook = {ResultScientific, ResultAutomatic};
    const std::vector<ResultForm> scientificLook = {ResultFixed, ResultAutomatic};
    const std::vector<ResultForm> mixedLook = {ResultFixed, ResultScientific, ResultAutomatic};
};

TEST_F(ResultFormsTest, FixedIsPassedOverWhereAutomaticIsFixed) {
    ApplyPrecision(5);
    for (const char16_t* formula :
         {u"0", u"1", u"-7", u"0.001", u"99999", u"1/3", u"-99999", u"9.9999e4"}) {
        EXPECT_EQ(CycleOf(formula), fixedLook) << std::string(formula, formula + 3);
    }
}

TEST_F(ResultFormsTest, ScientificIsPassedOverWhereAutomaticIsScientific) {
    ApplyPrecision(5);
    for (const char16_t* formula :
         {u"100000", u"0.00099999", u"-100000", u"1e999999", u"1e-999999", u"99999.9"}) {
        EXPECT_EQ(CycleOf(formula), scientificLook) << std::string(formula, formula + 3);
    }
}

TEST_F(ResultFormsTest, EveryStepForARealNumber) {
    Show(u"5");
    EXPECT_EQ(Next(ResultAutomatic), ResultScientific);
    EXPECT_EQ(Next(ResultMixed), ResultScientific);
    EXPECT_EQ(Next(ResultFixed), ResultScientific);
    EXPECT_EQ(Next(ResultScientific), ResultAutomatic);
    Show(u"1e30");
    EXPECT_EQ(Next(ResultAutomatic), ResultFixed);
    EXPECT_EQ(Next(ResultMixed), ResultFixed);
    EXPECT_EQ(Next(ResultFixed), ResultAutomatic);
    EXPECT_EQ(Next(ResultScientific), ResultAutomatic);
}

TEST_F(ResultFormsTest, SpecialValuesLookFixed) {
    Show(u"5");
    RealSetInfinity(RealAt(calculator.calcResult), 1);
    EXPECT_EQ(Cycle(), fixedLook);
    RealSetNaN(RealAt(calculator.calcResult));
    EXPECT_EQ(Cycle(), fixedLook);
    RealSetZero(RealAt(calculator.calcResult), 1);
    EXPECT_EQ(Cycle(), fixedLook);
}

TEST_F(ResultFormsTest, BothPartsOfAComplexNumberCount) {
    ApplyNumberType(NumberTypeComplex, 10);
    EXPECT_EQ(CycleOf(u"1+i"), fixedLook);
    EXPECT_EQ(CycleOf(u"1e20+1e-20*i"), scientificLook);
    EXPECT_EQ(CycleOf(u"1+1e20*i"), mixedLook);
    EXPECT_EQ(CycleOf(u"1e20+i"), mixedLook);
    EXPECT_EQ(CycleOf(u"0"), fixedLook);
}

TEST_F(ResultFormsTest, AComplexPartThatIsNotWrittenDoesNotCount) {
    ApplyNumberType(NumberTypeComplex, 10);
    // Beside a zero, which would be fixed, only the other part is seen.
    EXPECT_EQ(CycleOf(u"1e20"), scientificLook);
    EXPECT_EQ(CycleOf(u"1e20*i"), scientificLook);
    EXPECT_EQ(CycleOf(u"5"), fixedLook);
    EXPECT_EQ(CycleOf(u"5*i"), fixedLook);
}

TEST_F(ResultFormsTest, SpecialPartsLookFixed) {
    ApplyNumberType(NumberTypeComplex, 10);
    Show(u"1+1e20*i");
    RealSetNaN(RealPart(ComplexAt(calculator.calcResult)));
    EXPECT_EQ(Cycle(), mixedLook);
    RealSetInfinity(ImaginaryPart(ComplexAt(calculator.calcResult)), 0);
    EXPECT_EQ(Cycle(), fixedLook);
}

TEST_F(ResultFormsTest, ExactIntegersHaveNoFixedForm) {
    ApplyNumberType(NumberTypeUint, 10);
    EXPECT_EQ(CycleOf(u"0"), fixedLook);
    EXPECT_EQ(CycleOf(u"10^5000"), fixedLook);
    ApplyNumberType(NumberTypeRational, 10);
    EXPECT_EQ(CycleOf(u"0"), fixedLook);
    EXPECT_EQ(CycleOf(u"-(10^5000)"), fixedLook);
    EXPECT_EQ(Next(ResultMixed), ResultScientific);
}

TEST_F(ResultFormsTest, AFractionHasBothForms) {
    ApplyNumberType(NumberTypeRational, 10);
    EXPECT_EQ(CycleOf(u"1/3"), mixedLook);
    EXPECT_EQ(CycleOf(u"-10^4000/3"), mixedLook);
    EXPECT_EQ(Next(ResultMixed), ResultFixed);
}

TEST_F(ResultFormsTest, EveryPressChangesWhatIsSeen) {
    const std::u16string numbers[] = {u"0",         u"1",        u"2/7",   u"0-12",    u"999999",
                                      u"12345678",  u"1e20",     u"1e-20", u"1/1024",  u"0.001",
                                      u"0.0009999", u"99999.95", u"1e300", u"0-1e9/7", u"10^9"};
    for (const int64_t precision : {1, 2, 5, 9, 10, 38}) {
        ApplyPrecision(precision);
        for (const NumberType type :
             {NumberTypeReal, NumberTypeComplex, NumberTypeRational, NumberTypeUint}) {
            std::vector<std::u16string> formulas;
            for (const std::u16string& number : numbers) {
                formulas.push_back(number);
                if (type == NumberTypeComplex) {
                    for (const std::u16string& other : numbers) {
                        formulas.push_back(number + u"+(" + other + u")*i");
                    }
                }
            }
            for (const std::u16string& formula : formulas) {
                ApplyNumberType(type, 10);
                std::u16string seen = Show(formula);
                if (evaluation.error != FormulaErrorNone) {
                    ClearErrors();
                    continue;
                }
                for (int press = 0; press < 4; press++) {
                    ASSERT_TRUE(SwitchNotation());
                    const std::u16string now = ShowResult({});
                    ASSERT_NE(now, seen) << testing::PrintToString(formula) << ", type " << type
                                         << ", precision " << precision << ", press " << press;
                    seen = now;
                }
            }
        }
    }
}

TEST_F(ResultFormsTest, TheMixedKeyGoesToAndFroForFractions) {
    ApplyNumberType(NumberTypeRational, 10);
    Show(u"7/3");
    EXPECT_EQ(NextMixed(ResultAutomatic), ResultMixed);
    EXPECT_EQ(NextMixed(ResultFixed), ResultMixed);
    EXPECT_EQ(NextMixed(ResultScientific), ResultMixed);
    EXPECT_EQ(NextMixed(ResultMixed), ResultAutomatic);
}

TEST_F(ResultFormsTest, TheMixedKeyMakesIntegersAutomatic) {
    ApplyNumberType(NumberTypeRational, 10);
    for (const char16_t* formula : {u"0", u"7", u"-6/3"}) {
        Show(formula);
        for (const ResultForm form :
             {ResultAutomatic, ResultFixed, ResultScientific, ResultMixed}) {
            EXPECT_EQ(NextMixed(form), ResultAutomatic);
        }
    }
}

TEST_F(ResultFormsTest, TheMixedKeyIsForFractionsAlone) {
    for (const NumberType type : {NumberTypeUint, NumberTypeReal, NumberTypeComplex}) {
        ApplyNumberType(type, 10);
        Show(u"7");
        EXPECT_FALSE(SwitchMixed());
        EXPECT_EQ(calculator.resultForm, ResultAutomatic);
    }
}

TEST_F(ResultFormsTest, AStaleResultKeepsItsForm) {
    ApplyNumberType(NumberTypeRational, 10);
    Show(u"7/3");
    MarkResultStale();
    EXPECT_FALSE(SwitchNotation());
    EXPECT_FALSE(SwitchMixed());
    EXPECT_EQ(calculator.resultForm, ResultAutomatic);
}

TEST_F(ResultFormsTest, CountsTheDigitsBehindThePrefix) {
    const struct {
        int64_t base;
        std::u16string text;
        int32_t count;
    } cases[] = {{2, u"0y11111111", 8}, {8, u"0t377", 3}, {10, u"255", 3}, {16, u"0xFF", 2}};
    for (const auto& expected : cases) {
        ApplyNumberType(NumberTypeUint, expected.base);
        EXPECT_EQ(Show(u"255"), expected.text);
        EXPECT_EQ(ResultDigitCount(), expected.count);
    }
}

TEST_F(ResultFormsTest, SeparatorsAreNoDigits) {
    ApplyNumberType(NumberTypeUint, 2);
    EXPECT_EQ(Show(u"255", ResultAutomatic, {true, false}), u"0y1111'1111");
    EXPECT_EQ(ResultDigitCount(), 8);
    ApplyNumberType(NumberTypeUint, 16);
    ApplySeparators(DecimalComma, ThousandsNarrowSpace);
    EXPECT_EQ(Show(u"0xABCDEF12", ResultAutomatic, {true, true}), u"0xabcd\u202Fef12");
    EXPECT_EQ(ResultDigitCount(), 8);
}

TEST_F(ResultFormsTest, TheLongestIntegerHasItsCount) {
    ApplyNumberType(NumberTypeUint, 10);
    Show(u"10^19999");
    EXPECT_EQ(ResultDigitCount(), 20'000);
}

TEST_F(ResultFormsTest, TheCountStaysForScientificNotationAndOtherTypes) {
    ApplyNumberType(NumberTypeUint, 10);
    Show(u"255", ResultScientific);
    EXPECT_EQ(ResultDigitCount(), -1);
    // Only base 10 has notations, but the form alone decides.
    ApplyNumberType(NumberTypeUint, 16);
    Show(u"255", ResultScientific);
    EXPECT_EQ(ResultDigitCount(), -1);
    for (const NumberType type : {NumberTypeRational, NumberTypeReal, NumberTypeComplex}) {
        ApplyNumberType(type, 10);
        Show(u"255");
        EXPECT_EQ(ResultDigitCount(), -1);
    }
}

TEST_F(ResultFormsTest, WithoutAResultThereAreNoDigits) {
    ApplyNumberType(NumberTypeUint, 16);
    EXPECT_EQ(ResultDigitCount(), 0);
}

}  // namespace
}  // namespace tallymere::testing_support
