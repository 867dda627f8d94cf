#include "calculator/variable_settings.h"

#include <vector>

#include "calculator/calculator_testing.h"
#include "shell/separators.h"
#include "shell/settings_testing.h"

namespace tallymere::testing_support {
namespace {

class VariableSettings : public CalculatorTest {
protected:
    static Texts TableTexts() {
        Texts texts;
        for (int64_t i = 0; i < variableTable.count; i++) {
            texts.emplace_back(variableTable.variables[i].name, variableTable.variables[i].value);
        }
        return texts;
    }
};

TEST_F(VariableSettings, AreCopiedIntoTheTableInTheirOrder) {
    {
        const ReadText read(u"variable00 = b;2*pi\nvariable01 = a;1.5\nvariable02 = b;\n");
        LoadVariables(read.record);
    }
    EXPECT_EQ(TableTexts(), (Texts{{u"b", u"2*pi"}, {u"a", u"1.5"}, {u"b", u""}}));
    EXPECT_FALSE(variableTable.variablesChanged);
}

TEST_F(VariableSettings, AnEmptyNameIsReplaced) {
    LoadVariables(ReadText(u"variable00 = ;2\n").record);
    EXPECT_EQ(TableTexts(), (Texts{{u"var??", u"2"}}));
}

TEST_F(VariableSettings, LongTextsEndInAnEllipsis) {
    const std::u16string value = Repeat(u"7", 88'661);
    LoadVariables(ReadText(u"variable00 = abcdefghij;" + value + u"\nvariable01 = abcdefghijk;" +
                           value + u"8\n")
                      .record);
    EXPECT_EQ(TableTexts(), (Texts{{u"abcdefghij", value},
                                   {u"abcdefghi\u2026", Repeat(u"7", 88'660) + u"\u2026"}}));
    EXPECT_EQ(PendingUiError(), UiErrorNone);
}

TEST_F(VariableSettings, BadNamesAreTakenWithoutAWord) {
    LoadVariables(ReadText(u"variable00 = ans;1\nvariable01 = 1 x;2\n").record);
    EXPECT_EQ(TableTexts(), (Texts{{u"ans", u"1"}, {u"1 x", u"2"}}));
    EXPECT_EQ(PendingUiError(), UiErrorNone);
}

TEST_F(VariableSettings, TheSeparatorsInForceDoNotTouchStoredTexts) {
    ApplySeparators(DecimalComma, ThousandsPoint);
    const ReadText read(u"variable00 = x;1.5\n");
    LoadVariables(read.record);
    EXPECT_EQ(TableTexts(), (Texts{{u"x", u"1.5"}}));
    SetVariableValue(0, u"1.002,5");
    Settings record;
    StoreVariables(record);
    EXPECT_EQ(VariablesOf(record), (Texts{{u"x", u"1002.5"}}));
    const ReadText again(WrittenText(record));
    EXPECT_EQ(VariablesOf(again.record), (Texts{{u"x", u"1002.5"}}));
}

TEST_F(VariableSettings, ATableThatIsAsItWasIsNotStored) {
    ReadText read(u"variable00 = a-very-long-name;1\nvariable01 = ;2\n");
    LoadVariables(read.record);
    const std::u16string before = WrittenText(read.record);
    StoreVariables(read.record);
    EXPECT_FALSE(read.record.settingsDirty);
    EXPECT_EQ(WrittenText(read.record), before) << "the file keeps what the table could not hold";
}

TEST_F(VariableSettings, AChangedTableIsStoredOnce) {
    ReadText read(u"variable00 = a;1\nvariable01 = b;2\n");
    LoadVariables(read.record);
    DeleteVariable(0);
    StoreVariables(read.record);
    EXPECT_EQ(VariablesOf(read.record), (Texts{{u"b", u"2"}}));
    EXPECT_TRUE(read.record.settingsDirty);
    EXPECT_FALSE(variableTable.variablesChanged);
    read.record.settingsDirty = false;
    StoreVariables(read.record);
    EXPECT_FALSE(read.record.settingsDirty);
}

TEST_F(VariableSettings, StoringAfterEveryChangeKeepsTheSettingsTrue) {
    Settings record;
    AddNamed(u"a", u"1");
    AddNamed(u"b", u"2");
    AddNamed(u"c", u"3");
    StoreVariables(record);
    DeleteVariable(1);
    AddVariable(0);
    StoreVariables(record);
    EXPECT_EQ(VariablesOf(record), (Texts{{u"var00", u""}, {u"a", u"1"}, {u"c", u"3"}}));
    while (variableTable.count > 0) {
        DeleteVariable(0);
    }
    StoreVariables(record);
    EXPECT_EQ(VariablesOf(record), Texts());
}

TEST_F(VariableSettings, AHundredGoThereAndBack) {
    std::u16string lines;
    for (int i = 0; i < 101; i++) {
        lines += u"variable00 = " + std::u16string(1, static_cast<char16_t>(0x4000 + i)) + u";1\n";
    }
    const ReadText read(lines);
    LoadVariables(read.record);
    EXPECT_EQ(variableTable.count, 100);
    EXPECT_EQ(TableTexts(), VariablesOf(read.record));
    variableTable.variablesChanged = true;
    Settings record;
    StoreVariables(record);
    EXPECT_EQ(TableTexts(), VariablesOf(record));
}

TEST_F(VariableSettings, ThereIsRoomForAHundredInAll) {
    AddNamed(u"first", u"0");
    std::u16string lines;
    for (int i = 0; i < 100; i++) {
        lines += u"variable00 = x;1\n";
    }
    LoadVariables(ReadText(lines).record);
    EXPECT_EQ(variableTable.count, 100);
    EXPECT_EQ(TableTexts().front().first, u"first");
    EXPECT_TRUE(variableTable.variablesChanged) << "for the one that was added before";
}

TEST_F(VariableSettings, TheTextsAreFormulasOfTheNextRun) {
    LoadVariables(ReadText(u"variable00 = x;2*pi\n").record);
    EXPECT_EQ(Show(u"x/pi"), u"2");
    SetVariableValue(0, u"1+\r\n2");
    Settings record;
    StoreVariables(record);
    variableTable.count = 0;
    LoadVariables(ReadText(WrittenText(record)).record);
    EXPECT_EQ(Show(u"x"), u"3");
}

}  // namespace
}  // namespace tallymere::testing_support
