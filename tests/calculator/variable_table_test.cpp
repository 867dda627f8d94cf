#include "calculator/variable_table.h"

#include "calculator/calculator_testing.h"
#include "shell/separators.h"

namespace tallymere::testing_support {
namespace {

class VariableTableTest : public CalculatorTest {
protected:
    static std::u16string Names() {
        std::u16string names;
        for (int64_t i = 0; i < variableTable.count; i++) {
            names += names.empty() ? u"" : u" ";
            names += variableTable.variables[i].name;
        }
        return names;
    }
    static std::u16string Stored(const std::u16string& text) {
        SetVariableValue(0, text.c_str());
        return variableTable.variables[0].value;
    }
};

TEST_F(VariableTableTest, NamesBeginWithALetterAndGoOnWithDigitsToo) {
    for (const char16_t* name : {u"x",
                                 u"A",
                                 u"Z",
                                 u"a",
                                 u"z",
                                 u"_",
                                 u"_1",
                                 u"x9",
                                 u"x0",
                                 u"var00",
                                 u"\u03B1",
                                 u"\u03C9",
                                 u"\u0391",
                                 u"\u03A9",
                                 u"a\u03B1_\u03A97",
                                 u"sin",
                                 u"mod",
                                 u"pI",
                                 u"Ans",
                                 u"ee",
                                 u"E",
                                 u"I",
                                 u"\u03C0\u03C0",
                                 u""}) {
        EXPECT_TRUE(IsValidVariableName(name)) << testing::PrintToString(std::u16string(name));
    }
}

TEST_F(VariableTableTest, OtherCharactersAreNotForNames) {
    // The neighbours of every range, and what looks like a letter.
    for (const char16_t* name :
         {u"1",      u"0x",     u"9",      u"x y",    u" x",      u"x ", u"x.",      u"x'",
          u"@",      u"[",      u"`",      u"{",      u"^",       u"x/", u"x:",      u"\u0390",
          u"\u03AA", u"\u03B0", u"\u03CA", u"\u00E4", u"x\u00B2", u"-",  u"\u0661x", u"x\t"}) {
        EXPECT_FALSE(IsValidVariableName(name)) << testing::PrintToString(std::u16string(name));
    }
}

TEST_F(VariableTableTest, FiveNamesAreReserved) {
    for (const char16_t* name : {u"e", u"i", u"\u03C0", u"pi", u"ans"}) {
        EXPECT_FALSE(IsValidVariableName(name)) << testing::PrintToString(std::u16string(name));
    }
}

TEST_F(VariableTableTest, ANewVariableHasTheSmallestFreeNumberAndNoValue) {
    for (int64_t i = 0; i < 4; i++) {
        ASSERT_TRUE(AddVariable(i));
    }
    EXPECT_EQ(Names(), u"var00 var01 var02 var03");
    SetVariableValue(2, u"7");
    DeleteVariable(2);
    ASSERT_TRUE(AddVariable(3));
    EXPECT_EQ(Names(), u"var00 var01 var03 var02");
    EXPECT_EQ(std::u16string(variableTable.variables[3].value), u"");
}

TEST_F(VariableTableTest, OnlyNamesOfTheExactFormTakeANumber) {
    AddNamed(u"var0", u"");
    AddNamed(u"var000", u"");
    AddNamed(u"Var00", u"");
    AddNamed(u"var0x", u"");
    AddNamed(u"xvar00", u"");
    ASSERT_TRUE(AddVariable(5));
    EXPECT_EQ(std::u16string(variableTable.variables[5].name), u"var00");
}

TEST_F(VariableTableTest, InsertsBeforeAPosition) {
    AddNamed(u"a", u"1");
    AddNamed(u"b", u"2");
    AddNamed(u"c", u"3");
    ASSERT_TRUE(AddVariable(1));
    EXPECT_EQ(Names(), u"a var00 b c");
    EXPECT_EQ(std::u16string(variableTable.variables[2].value), u"2");
    ASSERT_TRUE(AddVariable(0));
    EXPECT_EQ(Names(), u"var01 a var00 b c");
}

TEST_F(VariableTableTest, RefusesPositionsOutsideTheTable) {
    AddNamed(u"a", u"1");
    variableTable.variablesChanged = false;
    EXPECT_FALSE(AddVariable(-1));
    EXPECT_FALSE(AddVariable(2));
    EXPECT_EQ(variableTable.count, 1);
    EXPECT_FALSE(variableTable.variablesChanged);
}

TEST_F(VariableTableTest, HoldsAHundredAndNoMore) {
    for (int64_t i = 0; i < 100; i++) {
        ASSERT_TRUE(AddVariable(0));
    }
    EXPECT_EQ(std::u16string(variableTable.variables[0].name), u"var99");
    EXPECT_FALSE(AddVariable(100));
    EXPECT_EQ(variableTable.count, 100);
    DeleteVariable(50);
    EXPECT_TRUE(AddVariable(99));
    EXPECT_EQ(std::u16string(variableTable.variables[99].name), u"var49");
}

TEST_F(VariableTableTest, BuffersAreUsedAgain) {
    AddNamed(u"a", u"1");
    AddNamed(u"b", u"2");
    AddNamed(u"c", u"3");
    const Variable deleted = variableTable.variables[0];
    const int64_t made = variableTable.madeCount;
    DeleteVariable(0);
    EXPECT_EQ(Names(), u"b c");
    EXPECT_EQ(deleted.name[0], u'?');
    ASSERT_TRUE(AddVariable(1));
    EXPECT_EQ(variableTable.variables[1].name, deleted.name);
    EXPECT_EQ(variableTable.variables[1].value, deleted.value);
    EXPECT_EQ(variableTable.madeCount, made);
    EXPECT_EQ(Names(), u"b var00 c");
}

TEST_F(VariableTableTest, EveryChangeIsNoted) {
    EXPECT_FALSE(variableTable.variablesChanged);
    const auto changed = [] { return std::exchange(variableTable.variablesChanged, false); };
    AddVariable(0);
    EXPECT_TRUE(changed());
    SetVariableName(0, u"a");
    EXPECT_TRUE(changed());
    SetVariableValue(0, u"a");
    EXPECT_TRUE(changed());
    DeleteVariable(0);
    EXPECT_TRUE(changed());
}

TEST_F(VariableTableTest, ALongNameEndsInAnEllipsis) {
    AddVariable(0);
    SetVariableName(0, u"abcdefghij");
    EXPECT_EQ(Names(), u"abcdefghij");
    SetVariableName(0, u"abcdefghijk");
    EXPECT_EQ(Names(), u"abcdefghi\u2026");
}

TEST_F(VariableTableTest, ABadNameIsTakenAllTheSame) {
    AddVariable(0);
    SetVariableName(0, u"ans");
    EXPECT_EQ(Names(), u"ans");
}

TEST_F(VariableTableTest, ValuesAreStoredWithAPointAndWithoutGroups) {
    AddVariable(0);
    EXPECT_EQ(Stored(u"1'234.5*x"), u"1234.5*x");
    ApplySeparators(DecimalComma, ThousandsPoint);
    EXPECT_EQ(Stored(u"1.234,5+2,25"), u"1234.5+2.25");
    ApplySeparators(DecimalComma, ThousandsNarrowSpace);
    EXPECT_EQ(Stored(u"1\u202F234,5"), u"1234.5");
    EXPECT_EQ(Stored(u"1'234.5"), u"1'234.5");
    EXPECT_EQ(Stored(u""), u"");
}

TEST_F(VariableTableTest, ALongValueEndsInAnEllipsisBeforeItLosesItsGroups) {
    AddVariable(0);
    const std::u16string longest = Repeat(u"7", 88'661);
    EXPECT_EQ(Stored(longest), longest);
    EXPECT_EQ(Stored(longest + u"7"), Repeat(u"7", 88'660) + u"\u2026");
    EXPECT_EQ(Stored(u"1'" + longest), u"1" + Repeat(u"7", 88'658) + u"\u2026");
}

}  // namespace
}  // namespace tallymere::testing_support
