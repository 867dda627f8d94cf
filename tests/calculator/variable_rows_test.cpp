#include "calculator/variable_rows.h"

#include <algorithm>
#include <cstdio>

#include "calculator/calculator_testing.h"
#include "shell/scratch_text.h"
#include "shell/separators.h"

namespace tallymere::testing_support {
namespace {

class VariableRowsTest : public CalculatorTest {};

TEST_F(VariableRowsTest, TheFirstRowIsTheLastResult) {
    std::u16string(u"12.5").copy(calculator.calcResultText, 5);
    ScratchStackScope scope;
    const VariableRows rows = BuildVariableRows(scope);
    ASSERT_EQ(rows.count, 1);
    EXPECT_EQ(std::u16string(rows.rows[0].name), u"ans");
    EXPECT_EQ(std::u16string(rows.rows[0].valueText), u"12.5");
    EXPECT_EQ(rows.rows[0].value, nullptr);
}

TEST_F(VariableRowsTest, TheVariablesFollowInTheirOrder) {
    AddNamed(u"b", u"2");
    AddNamed(u"a", u"1.5+x");
    ScratchStackScope scope;
    const VariableRows rows = BuildVariableRows(scope);
    ASSERT_EQ(rows.count, 3);
    EXPECT_EQ(std::u16string(rows.rows[1].name), u"b");
    EXPECT_EQ(std::u16string(rows.rows[1].valueText), u"2");
    EXPECT_EQ(std::u16string(rows.rows[2].name), u"a");
    EXPECT_EQ(std::u16string(rows.rows[2].valueText), u"1.5+x");
    EXPECT_EQ(rows.rows[2].value, nullptr);
}

TEST_F(VariableRowsTest, ValuesHaveTheFirstDecimalSeparatorInForce) {
    AddNamed(u"a", u"1.5+.2.");
    AddNamed(u"b", u"15");
    const char16_t separators[] = {u',', u';', u'.'};
    std::copy_n(separators, 3, numberContext.decimalSeparators);
    ScratchStackScope scope;
    const VariableRows rows = BuildVariableRows(scope);
    EXPECT_EQ(std::u16string(rows.rows[1].valueText), u"1,5+,2,");
    EXPECT_EQ(std::u16string(rows.rows[2].valueText), u"15");
    EXPECT_EQ(std::u16string(variableTable.variables[0].value), u"1.5+.2.");
}

TEST_F(VariableRowsTest, OnlyTextsThatChangeAreCopied) {
    AddNamed(u"a", u"1.5");
    AddNamed(u"b", u"15");
    ScratchStackScope scope;
    const VariableRows rows = BuildVariableRows(scope);
    EXPECT_EQ(rows.rows[0].valueText, calculator.calcResultText);
    EXPECT_EQ(rows.rows[1].valueText, variableTable.variables[0].value);
    ApplySeparators(DecimalComma, ThousandsPoint);
    const VariableRows changed = BuildVariableRows(scope);
    EXPECT_NE(changed.rows[1].valueText, variableTable.variables[0].value);
    EXPECT_EQ(changed.rows[2].valueText, variableTable.variables[1].value);
}

TEST_F(VariableRowsTest, TheResultTextHasItsSeparatorsAlready) {
    ApplySeparators(DecimalComma, ThousandsPoint);
    std::u16string(u"1.234,5").copy(calculator.calcResultText, 8);
    ScratchStackScope scope;
    EXPECT_EQ(std::u16string(BuildVariableRows(scope).rows[0].valueText), u"1.234,5");
}

// The figures stand in the log of the run.
class LongestVariableRowsTest : public VariableRowsTest {
protected:
    // 100 variables with the longest text, `value` and blanks; ans is `last` and blanks. The
    // formula is their sum, then a call of five entries on top of the deepest stack, all 50 of
    // which are in use, and blanks up to the longest text; it stands on the ScratchStack as the
    // calculating thread has it there.
    void Run(NumberType type, const std::u16string& value, const std::u16string& last,
             const std::u16string& call, const std::u16string& expected) {
        const std::u16string longest = value + Repeat(u" ", 88'661 - value.size());
        std::u16string formula = u"0*ans";
        for (int64_t i = 0; i < 100; i++) {
            ASSERT_TRUE(AddVariable(i));
            SetVariableValue(i, longest.c_str());
            formula += u"+var";
            formula += static_cast<char16_t>(u'0' + i / 10);
            formula += static_cast<char16_t>(u'0' + i % 10);
        }
        formula += u"+" + Repeat(u"(", 43) + call + Repeat(u")", 43);
        formula += Repeat(u" ", CalcFormulaCharacters - static_cast<int64_t>(formula.size()));
        ApplySeparators(DecimalComma, ThousandsPoint);
        ApplyNumberType(type, 10);
        std::fill_n(calculator.calcResultText, 88'661, u' ');
        last.copy(calculator.calcResultText, last.size());
        {
            ScratchStackScope scope;
            char16_t* text = TakeText(scope, CalcFormulaCharacters);
            *std::copy(formula.begin(), formula.end(), text) = 0;
            EXPECT_EQ(Show(text), expected)
                << evaluation.error << " at " << evaluation.errorPosition;
        }
        EXPECT_EQ(numberContext.numberType, type);
        const int64_t bytes = CurrentScratchStack().highWaterWords * BytesPerWord;
        EXPECT_LE(bytes, ScratchStackBytes);
        std::printf(
            "ScratchStack with the longest formula and 100 longest variables, %s: %d bytes\n",
            TypeName(type), static_cast<int>(bytes));
    }

private:
    static const char* TypeName(NumberType type) {
        switch (type) {
            case NumberTypeReal:
                return "real at 10002 digits";
            case NumberTypeComplex:
                return "cplx at 10002 digits";
            case NumberTypeUint:
                return "uint at 1039 limbs";
            default:
                return "rat at 520 limbs";
        }
    }
};

TEST_F(LongestVariableRowsTest, FitInRealWithTheDeepestFormula) {
    ApplyPrecision(10'000);
    Run(NumberTypeReal, u"0.5" + Repeat(u"+0.5", 200), Repeat(u"1", 88'661), u"sin(1*pi)",
        u"10050");
}

TEST_F(LongestVariableRowsTest, FitInCplxWithTheDeepestFormula) {
    ApplyPrecision(10'000);
    Run(NumberTypeComplex, u"0.5" + Repeat(u"+0.5", 200), Repeat(u"1", 88'661), u"sin(1*pi)",
        u"10050");
}

TEST_F(LongestVariableRowsTest, FitInUintWithTheDeepestFormula) {
    Run(NumberTypeUint, u"5.0" + Repeat(u"+5.0", 200), u"0y" + Repeat(u"1", 66'496), u"gcd(6;4)",
        u"100502");
}

TEST_F(LongestVariableRowsTest, FitInRatWithTheDeepestFormula) {
    Run(NumberTypeRational, u"1.0/2" + Repeat(u"+1.0/2", 200),
        Repeat(u"1", 10'000) + u"/" + Repeat(u"3", 10'000), u"round(7/3)", u"10052");
}

}  // namespace
}  // namespace tallymere::testing_support
