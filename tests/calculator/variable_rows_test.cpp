#include "calculator/variable_rows.h"

#include <algorithm>
#include <cstdio>

#include "calculator/calculator_testing.h"
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

TEST_F(VariableRowsTest, TheResultTextHasItsSeparatorsAlready) {
    ApplySeparators(DecimalComma, ThousandsPoint);
    std::u16string(u"1.234,5").copy(calculator.calcResultText, 8);
    ScratchStackScope scope;
    EXPECT_EQ(std::u16string(BuildVariableRows(scope).rows[0].valueText), u"1.234,5");
}

// The figures stand in the log of the run.
TEST_F(VariableRowsTest, AHundredLongestTextsFitWithTheDeepestFormulaAtTheHighestPrecision) {
    ApplyPrecision(10'000);
    const std::u16string value = u"0.5" + Repeat(u"+0.5", 200);
    const std::u16string longest = value + Repeat(u" ", 88'661 - value.size());
    for (int64_t i = 0; i < 100; i++) {
        ASSERT_TRUE(AddVariable(i));
        SetVariableValue(i, longest.c_str());
    }
    ApplySeparators(DecimalComma, ThousandsPoint);
    // Every variable, then the deepest stack with a function in it that needs room of its own.
    std::u16string formula = u"var00";
    for (int64_t i = 1; i < 100; i++) {
        formula += u"+var";
        formula += static_cast<char16_t>(u'0' + i / 10);
        formula += static_cast<char16_t>(u'0' + i % 10);
    }
    formula += u"+0*ans+" + Repeat(u"(", 45) + u"sin(pi)" + Repeat(u")", 45) + u"+0,5";
    for (const NumberType type : {NumberTypeReal, NumberTypeComplex}) {
        ApplyNumberType(type, 10);
        std::fill_n(calculator.calcResultText, 88'661, u'1');
        EXPECT_EQ(Show(formula), u"10050,5");
        const int64_t bytes = CurrentScratchStack().highWaterWords * BytesPerWord;
        EXPECT_LE(bytes, ScratchStackBytes);
        std::printf("ScratchStack at 10002 digits, 100 longest variables, %s: %d bytes\n",
                    type == NumberTypeReal ? "real" : "cplx", static_cast<int>(bytes));
    }
}

}  // namespace
}  // namespace tallymere::testing_support
