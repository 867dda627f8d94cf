// What the calculator does at its limits, where a build lets tests lower them, and when a scratch
// area is exhausted.
#include "core/limits.h"

#include <string>

#include "calculator/calculator_testing.h"
#include "calculator/variable_settings.h"
#include "formula/formula_error.h"
#include "shell/settings.h"
#include "shell/settings_walk.h"
#include "shell/text_sink.h"
#include "support/lowered_limits.h"

namespace tallymere {
namespace {

using testing_support::CalculatorTest;
using testing_support::LoweredScratch;

class LimitsTest : public CalculatorTest {};

TEST_F(LimitsTest, AreThoseOfTheProduct) {
    EXPECT_EQ(MaxDigits, 10'000);
    EXPECT_EQ(DefaultDigits, 10);
    EXPECT_EQ(MaxPrecisionDigits, 10'005);
    EXPECT_EQ(CalcUintDigits, 20'000);
    EXPECT_EQ(CalcRationalDigits, 10'000);
    EXPECT_EQ(MaxUintLimbs, 2'000);
    EXPECT_EQ(MaxWorkingUintLimbs, 4'000);
    EXPECT_EQ(MaxUintDigits, 10'000'000'000);
    EXPECT_EQ(MaxFixedExponent, 1'000'000'000);
    EXPECT_EQ(CalcResultCharacters, 88'661);
    EXPECT_EQ(CalcFormulaCharacters, 88'661);
    EXPECT_EQ(VariableNameCharacters, 10);
    EXPECT_EQ(VariableValueCharacters, 88'661);
    EXPECT_EQ(PathCapacity, 259);
    EXPECT_EQ(UiErrorArgumentCapacity, 260);
    EXPECT_EQ(UiErrorMessageCapacity, 1'023);
    EXPECT_EQ(MaxLineBytes, size_t{16} * 1024 * 1024);
    EXPECT_EQ(FormulaStackEntries, 50);
    EXPECT_EQ(MaxVariables, 100);
    EXPECT_EQ(CoreScratchBytes, 160'000);
    EXPECT_EQ(ScratchStackBytes, 1'500'000 + 101 * 88'664 * 2);
}

#ifdef TALLYMERE_ADJUSTABLE_LIMITS
using testing_support::LoweredLimit;

TEST_F(LimitsTest, AFormulaMayFillTheStackButNotMore) {
    const std::u16string formula = u"1+2*3^2";  // four values and three operators are open at once
    {
        const LoweredLimit entries(FormulaStackEntries, 7);
        EXPECT_EQ(Show(formula), u"19");
    }
    const LoweredLimit entries(FormulaStackEntries, 6);
    EXPECT_EQ(Show(formula), u"(none)");
    EXPECT_EQ(evaluation.error, FormulaErrorTooComplicated);
    EXPECT_EQ(evaluation.errorPosition, 7u);
}

TEST_F(LimitsTest, TheTableOfVariablesTakesNoMoreThanItsLimit) {
    const LoweredLimit variables(MaxVariables, 2);
    EXPECT_TRUE(AddVariable(0));
    EXPECT_TRUE(AddVariable(0));
    EXPECT_FALSE(AddVariable(0));
    EXPECT_EQ(variableTable.count, 2);
    DeleteVariable(1);
    EXPECT_TRUE(AddVariable(1));
}

TEST_F(LimitsTest, VariablesOfTheSettingsBeyondTheLimitAreNotKept) {
    std::u16string text = u"[scientific_calculator]\r\n";
    for (int i = 0; i < 4; i++) {
        text += u"variable0" + std::u16string(1, static_cast<char16_t>(u'0' + i)) + u" = a;1\r\n";
    }
    Settings read;
    {
        const LoweredLimit variables(MaxVariables, 3);
        ReadSettings(read, text.data());
        EXPECT_EQ(read.variableCount, 3);
    }
    const LoweredLimit variables(MaxVariables, 2);
    LoadVariables(read);
    EXPECT_EQ(variableTable.count, 2);
}

TEST_F(LimitsTest, AResultThatFillsItsTextIsShownAndOneMoreDigitIsTooLong) {
    const LoweredLimit characters(CalcResultCharacters, 9);
    ApplyNumberType(NumberTypeUint, 10);
    EXPECT_EQ(Show(u"123456789"), u"123456789");
    EXPECT_EQ(Show(u"1234567890"), uiText.TextCalcNumberTooLongFixed);
    EXPECT_EQ(std::u16string(calculator.calcResultText), u"");
    EXPECT_EQ(numberContext.calcError, CalcErrorNone);
}

TEST_F(LimitsTest, ThePrefixOfANumberBaseCountsAsPartOfItsText) {
    const LoweredLimit characters(CalcResultCharacters, 6);
    ApplyNumberType(NumberTypeUint, 16);
    EXPECT_EQ(Show(u"0xFFFF"), u"0xFFFF");
    EXPECT_EQ(Show(u"0x10000"), uiText.TextCalcNumberTooLongFixed);
}

TEST_F(LimitsTest, AVariableThatIsTooLongEndsInAnEllipsis) {
    const LoweredLimit characters(VariableValueCharacters, 5);
    AddNamed(u"a", u"12345");
    AddNamed(u"b", u"123456");
    EXPECT_EQ(std::u16string(variableTable.variables[0].value), u"12345");
    EXPECT_EQ(std::u16string(variableTable.variables[1].value), u"1234\u2026");
}

TEST_F(LimitsTest, AVariableThatWasMadeUnderALowerLimitHasRoomForTheLongestText) {
    {
        const LoweredLimit characters(VariableValueCharacters, 5);
        AddNamed(u"a", u"1");
    }
    const std::u16string longest(static_cast<size_t>(VariableValueCharacters), u'7');
    SetVariableValue(0, longest.c_str());
    EXPECT_EQ(variableTable.variables[0].value, longest);
}
#endif

#ifndef _WIN32  // There an aborted program would show a message box.
using LimitsDeathTest = LimitsTest;

TEST_F(LimitsDeathTest, ACalculationThatExhaustsCoreScratchStopsTheProgram) {
    ApplyPrecision(100);
    EXPECT_EQ(Show(u"sqrt(4)"), u"2");
    EXPECT_DEATH(
        {
            const LoweredScratch few(coreScratch, 20);
            Show(u"sqrt(2)");
        },
        "CoreScratch is exhausted");
}

TEST_F(LimitsDeathTest, ACalculationThatExhaustsTheScratchStackStopsTheProgram) {
    EXPECT_EQ(Show(u"1+1"), u"2");
    EXPECT_DEATH(
        {
            const LoweredScratch few(CurrentScratchStack(), CalcResultWords + 20);
            Show(u"1+1");
        },
        "ScratchStack is exhausted");
}
#endif

}  // namespace
}  // namespace tallymere
