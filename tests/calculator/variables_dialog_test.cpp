#include "calculator/variables_dialog.h"

#include "calculator/calculator_testing.h"
#include "calculator/variables_form.h"
#include "shell/separators.h"
#include "shell/ui_message.h"

namespace tallymere::testing_support {
namespace {

// The dialog with two boxes and a list as a window has them.
class VariablesDialogTest : public CalculatorTest {
protected:
    void Show() {
        list.clear();
        for (int64_t i = 0; i < variableTable.count; i++) {
            list += list.empty() ? u"" : u" ";
            list += variableTable.variables[i].name;
        }
        if (IsVariableSelected(dialog)) {
            name = variableTable.variables[dialog.selected].name;
            value = ShownValue(dialog.selected);
        } else {
            name = value = u"";
        }
        BoxesWritten(dialog);
    }
    static std::u16string ShownValue(int64_t index) {
        std::u16string buffer(static_cast<size_t>(VariableValueCharacters) + 1, u'?');
        WriteInForce(buffer.data(), variableTable.variables[index].value);
        return buffer.c_str();
    }
    static std::u16string Stored(int64_t index) { return variableTable.variables[index].value; }
    void TypeName(const std::u16string& text) {
        name = text;
        dialog.nameChanged = true;
    }
    void TypeValue(const std::u16string& text) {
        value = text;
        dialog.valueChanged = true;
    }
    bool Commit() { return CommitBoxes(dialog, {name.c_str(), value.c_str()}); }
    void Select(int64_t index) {
        Commit();
        SelectVariable(dialog, index);
        Show();
    }
    bool Add(int64_t position) {
        Commit();
        const bool added = AddAndSelectVariable(dialog, position);
        Show();
        return added;
    }
    bool Delete() {
        const bool deleted = DeleteSelectedVariable(dialog);
        Show();
        return deleted;
    }

    VariablesDialog dialog;
    std::u16string list;
    std::u16string name;
    std::u16string value;
};

TEST_F(VariablesDialogTest, AtFirstNothingIsSelected) {
    EXPECT_EQ(dialog.selected, -1);
    EXPECT_FALSE(IsVariableSelected(dialog));
    // The start selects the first row, which an empty table has not.
    Select(0);
    EXPECT_EQ(dialog.selected, NoVariable);
    EXPECT_FALSE(IsVariableSelected(dialog));
    EXPECT_EQ(name, u"");
}

TEST_F(VariablesDialogTest, ANewVariableIsSelected) {
    EXPECT_TRUE(Add(0));
    EXPECT_EQ(dialog.selected, 0);
    EXPECT_TRUE(Add(1));
    EXPECT_EQ(dialog.selected, 1);
    EXPECT_EQ(list, u"var00 var01");
    EXPECT_EQ(name, u"var01");
    EXPECT_EQ(value, u"");
    EXPECT_TRUE(variableTable.variablesChanged);
}

TEST_F(VariablesDialogTest, InsertPutsOneBeforeTheSelected) {
    Add(0);
    Add(1);
    Select(1);
    EXPECT_TRUE(Add(dialog.selected));
    EXPECT_EQ(list, u"var00 var02 var01");
    EXPECT_EQ(dialog.selected, 1);
}

TEST_F(VariablesDialogTest, InsertWithoutASelectionDoesNothing) {
    EXPECT_FALSE(Add(dialog.selected));
    EXPECT_EQ(variableTable.count, 0);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
}

TEST_F(VariablesDialogTest, TheHundredAndFirstIsRefusedWithoutAMessage) {
    for (int64_t i = 0; i < 100; i++) {
        ASSERT_TRUE(Add(i));
    }
    Select(7);
    EXPECT_FALSE(Add(100));
    EXPECT_FALSE(Add(7));
    EXPECT_EQ(variableTable.count, 100);
    EXPECT_EQ(dialog.selected, 7);
    EXPECT_EQ(name, u"var07");
    EXPECT_EQ(PendingUiError(), UiErrorNone);
}

TEST_F(VariablesDialogTest, ADeletedNumberIsGivenAgain) {
    Add(0);
    Add(1);
    Add(2);
    EXPECT_TRUE(Delete());
    EXPECT_EQ(list, u"var00 var01");
    Add(2);
    EXPECT_EQ(list, u"var00 var01 var02");
}

TEST_F(VariablesDialogTest, DeletingSelectsTheSameRowOrTheLast) {
    for (int64_t i = 0; i < 4; i++) {
        Add(i);
    }
    Select(1);
    EXPECT_TRUE(Delete());
    EXPECT_EQ(list, u"var00 var02 var03");
    EXPECT_EQ(dialog.selected, 1);
    EXPECT_EQ(name, u"var02");
    Select(2);
    Delete();
    EXPECT_EQ(dialog.selected, 1);
    EXPECT_EQ(name, u"var02");
    Delete();
    Delete();
    EXPECT_EQ(dialog.selected, NoVariable);
    EXPECT_EQ(name, u"");
    EXPECT_FALSE(Delete());
}

TEST_F(VariablesDialogTest, WhatWasTypedForADeletedVariableGoesWithIt) {
    Add(0);
    Add(1);
    Select(0);
    TypeName(u"x");
    TypeValue(u"7");
    Delete();
    Commit();
    EXPECT_EQ(list, u"var01");
    EXPECT_EQ(Stored(0), u"");
}

TEST_F(VariablesDialogTest, WhatWasTypedIsTakenOverWhenTheSelectionChanges) {
    Add(0);
    Add(1);
    Select(0);
    TypeName(u"x");
    TypeValue(u"2*pi");
    Select(1);
    EXPECT_EQ(list, u"x var01");
    EXPECT_EQ(Stored(0), u"2*pi");
    EXPECT_EQ(Stored(1), u"");
    Select(0);
    EXPECT_EQ(name, u"x");
    EXPECT_EQ(value, u"2*pi");
}

TEST_F(VariablesDialogTest, WhatWasTypedStaysWithItsVariableWhenOneIsInsertedBefore) {
    Add(0);
    TypeName(u"x");
    TypeValue(u"7");
    EXPECT_TRUE(Add(0));
    EXPECT_EQ(list, u"var00 x");
    EXPECT_EQ(Stored(0), u"");
    EXPECT_EQ(Stored(1), u"7");
}

TEST_F(VariablesDialogTest, BoxesThatWereNotTypedIntoChangeNothing) {
    Add(0);
    variableTable.variablesChanged = false;
    EXPECT_FALSE(CommitBoxes(dialog, {u"other", u"1"}));
    EXPECT_EQ(std::u16string(variableTable.variables[0].name), u"var00");
    EXPECT_EQ(Stored(0), u"");
    EXPECT_FALSE(variableTable.variablesChanged);
}

TEST_F(VariablesDialogTest, ACommittedBoxIsNotTakenOverTwice) {
    Add(0);
    TypeName(u"x");
    TypeValue(u"7");
    EXPECT_TRUE(Commit());
    variableTable.variablesChanged = false;
    EXPECT_FALSE(Commit());
    EXPECT_FALSE(variableTable.variablesChanged);
}

TEST_F(VariablesDialogTest, WhatWasNotTakenOverDoesNotGoToTheNextSelection) {
    Add(0);
    Add(1);
    TypeName(u"x");
    TypeValue(u"7");
    SelectVariable(dialog, 0);
    EXPECT_FALSE(Commit());
    EXPECT_EQ(std::u16string(variableTable.variables[0].name), u"var00");
    EXPECT_EQ(Stored(0), u"");
}

TEST_F(VariablesDialogTest, NothingIsTakenOverWithoutAVariable) {
    Add(0);
    for (const int64_t index : {-1, 1, 100}) {
        dialog.nameChanged = dialog.valueChanged = true;
        EXPECT_FALSE(CommitName(dialog, index, u"ans"));
        CommitValue(dialog, index, u"1");
        EXPECT_EQ(PendingUiError(), UiErrorNone);
    }
    EXPECT_EQ(std::u16string(variableTable.variables[0].name), u"var00");
}

TEST_F(VariablesDialogTest, ABadNameGivesAMessageAndStays) {
    Add(0);
    for (const char16_t* bad : {u"ans", u"e", u"i", u"pi", u"\u03C0", u"1x", u"a b"}) {
        TypeName(bad);
        EXPECT_TRUE(Commit());
        EXPECT_EQ(PendingUiError(), UiErrorVariableName);
        EXPECT_EQ(std::u16string(uiError.arg1), bad);
        EXPECT_EQ(std::u16string(variableTable.variables[0].name), bad);
        ClearErrors();
    }
}

// The settings file would give another variable back.
TEST_F(VariablesDialogTest, ANameThatTheFileCannotCarryIsRefused) {
    Add(0);
    TypeName(u"x");
    Commit();
    variableTable.variablesChanged = false;
    for (const char16_t* bad : {u"a;b", u";", u"a;", u" a", u"a ", u" "}) {
        TypeName(bad);
        EXPECT_TRUE(Commit());
        EXPECT_EQ(PendingUiError(), UiErrorVariableName);
        EXPECT_EQ(std::u16string(uiError.arg1), bad);
        EXPECT_EQ(std::u16string(variableTable.variables[0].name), u"x");
        EXPECT_FALSE(variableTable.variablesChanged);
        ClearErrors();
        EXPECT_FALSE(Commit()) << "once is enough";
    }
}

TEST_F(VariablesDialogTest, AGoodOrEmptyNameGivesNone) {
    Add(0);
    for (const char16_t* good : {u"x", u"_", u"\u03B1\u03A97", u"abcdefghij", u""}) {
        TypeName(good);
        EXPECT_TRUE(Commit());
        EXPECT_EQ(PendingUiError(), UiErrorNone);
        EXPECT_EQ(std::u16string(variableTable.variables[0].name), good);
    }
}

TEST_F(VariablesDialogTest, ALongNameIsCutAndBadForThat) {
    Add(0);
    TypeName(u"abcdefghijk");
    Commit();
    EXPECT_EQ(std::u16string(variableTable.variables[0].name), u"abcdefghi\u2026");
    EXPECT_EQ(PendingUiError(), UiErrorVariableName);
}

TEST_F(VariablesDialogTest, ValuesShowTheDecimalSeparatorAndAreStoredWithAPoint) {
    ApplySeparators(DecimalComma, ThousandsPoint);
    Add(0);
    TypeValue(u"1.234,5*x");
    Commit();
    EXPECT_EQ(Stored(0), u"1234.5*x");
    EXPECT_EQ(ShownValue(0), u"1234,5*x");
    EXPECT_EQ(Stored(0), u"1234.5*x");
    ApplySeparators(DecimalPoint, ThousandsApostrophe);
    EXPECT_EQ(ShownValue(0), u"1234.5*x");
}

TEST_F(VariablesDialogTest, TheLongestValueIsShownWhole) {
    Add(0);
    const std::u16string longest = Repeat(u"7", 88'660) + u".";
    TypeValue(longest);
    Commit();
    EXPECT_EQ(ShownValue(0), longest);
    TypeValue(longest + u"7");
    Commit();
    EXPECT_EQ(ShownValue(0), Repeat(u"7", 88'660) + u"\u2026");
}

TEST_F(VariablesDialogTest, AssignGivesTheResultToTheSelected) {
    Add(0);
    Add(1);
    CalculatorTest::Show(u"12345.5*100", ResultAutomatic, {true, false});
    variableTable.variablesChanged = false;
    EXPECT_TRUE(AssignResult(dialog));
    EXPECT_EQ(Stored(1), u"1234550");
    EXPECT_EQ(Stored(0), u"");
    EXPECT_TRUE(variableTable.variablesChanged);
}

TEST_F(VariablesDialogTest, AssignStoresAPointAndShowsTheSeparator) {
    ApplySeparators(DecimalComma, ThousandsNarrowSpace);
    Add(0);
    CalculatorTest::Show(u"12345,5", ResultAutomatic, {true, false});
    AssignResult(dialog);
    EXPECT_EQ(Stored(0), u"12345.5");
    EXPECT_EQ(ShownValue(0), u"12345,5");
}

TEST_F(VariablesDialogTest, AssignTakesTheLongestResult) {
    Add(0);
    CalculatorTest::Show(u"1e88660", ResultFixed);
    AssignResult(dialog);
    EXPECT_EQ(Stored(0), u"1" + Repeat(u"0", 88'660));
}

TEST_F(VariablesDialogTest, AssignReplacesWhatWasTyped) {
    Add(0);
    CalculatorTest::Show(u"5");
    TypeValue(u"7");
    AssignResult(dialog);
    Commit();
    EXPECT_EQ(Stored(0), u"5");
}

TEST_F(VariablesDialogTest, BeforeAnyResultAssignEmptiesTheValue) {
    Add(0);
    TypeValue(u"7");
    Commit();
    EXPECT_TRUE(AssignResult(dialog));
    EXPECT_EQ(Stored(0), u"");
}

TEST_F(VariablesDialogTest, AnAssignedResultIsItsText) {
    Add(0);
    TypeName(u"x");
    Commit();
    ApplyNumberType(NumberTypeUint, 16);
    CalculatorTest::Show(u"255");
    AssignResult(dialog);
    EXPECT_EQ(CalculatorTest::Show(u"x+1"), u"0x100");
}

TEST_F(VariablesDialogTest, TakeNameTouchesTheFormulaAndLeavesTheResultValid) {
    Add(0);
    CalculatorTest::Show(u"5");
    EXPECT_FALSE(calculator.formulaTouched);
    EXPECT_EQ(std::u16string(TakeVariableName(dialog)), u"var00");
    EXPECT_TRUE(calculator.formulaTouched);
    // Only typing and the keypad make a result stale.
    EXPECT_TRUE(calculator.resultValid);
}

TEST_F(VariablesDialogTest, WithoutASelectionTheButtonsDoNothing) {
    EXPECT_FALSE(AssignResult(dialog));
    EXPECT_EQ(TakeVariableName(dialog), nullptr);
    EXPECT_FALSE(DeleteSelectedVariable(dialog));
    EXPECT_FALSE(calculator.formulaTouched);
    EXPECT_FALSE(variableTable.variablesChanged);
}

TEST(VariablesFormTest, HasItsControlsInPlace) {
    using T = UiText;
    EXPECT_EQ(VariablesSize, (LayoutSize{370, 230}));
    const FormControl expected[] = {
        {FormWindow, FormStatic, {10, 10, 100, 20}, &T::TextVarVariables},
        {FormWindow, FormList, {10, 30, 120, 135}, nullptr},
        {FormWindow, FormStatic, {135, 10, 140, 20}, &T::TextVarName},
        {FormWindow, FormField, {135, 30, 120, 20}, nullptr},
        {FormWindow, FormStatic, {135, 60, 80, 20}, &T::TextVarStringValue},
        {FormWindow, FormMultilineField, {135, 80, 225, 85}, nullptr},
        {FormWindow, FormPushButton, {10, 172, 115, 25}, &T::TextVarAssignResult},
        {FormWindow, FormPushButton, {10, 200, 115, 25}, &T::TextVarTakeName},
        {FormWindow, FormPushButton, {130, 172, 115, 25}, &T::TextVarAddVariable},
        {FormWindow, FormPushButton, {130, 200, 115, 25}, &T::TextVarInsertVariable},
        {FormWindow, FormPushButton, {250, 200, 115, 25}, &T::TextVarDeleteVariable},
    };
    ASSERT_EQ(std::size(expected), std::size(VariablesForm));
    for (int32_t i = 0; i < VariablesControlCount; i++) {
        FormControl placed = VariablesForm[i];
        placed.place = PlaceVariablesControl(static_cast<VariablesControl>(i), VariablesSize);
        EXPECT_EQ(placed, expected[i]) << i;
    }
    EXPECT_EQ(VariableNameCharacters, 10);
}

TEST(VariablesFormTest, ListAndValueBoxTakeTheRoomThatThereIs) {
    const LayoutSize client = {900, 700};
    EXPECT_EQ(PlaceVariablesControl(VariablesList, client), (LayoutRect{10, 30, 120, 605}));
    EXPECT_EQ(PlaceVariablesControl(VariablesValue, client), (LayoutRect{135, 80, 755, 555}));
    EXPECT_EQ(PlaceVariablesControl(VariablesAssign, client).y, 642);
    EXPECT_EQ(PlaceVariablesControl(VariablesAdd, client).y, 642);
    EXPECT_EQ(PlaceVariablesControl(VariablesTakeName, client).y, 670);
    EXPECT_EQ(PlaceVariablesControl(VariablesInsert, client).y, 670);
    EXPECT_EQ(PlaceVariablesControl(VariablesDelete, client).y, 670);
    EXPECT_EQ(PlaceVariablesControl(VariablesName, client), (LayoutRect{135, 30, 120, 20}));
    EXPECT_LT(PlaceVariablesControl(VariablesValue, {100, 100}).width, 0);
}

TEST(VariablesFormTest, TheDialogIsShownBesideThePage) {
    EXPECT_EQ(PlaceVariablesBeside({100, 200, 386, 394}, 96), (LayoutPoint{481, 250}));
    EXPECT_EQ(PlaceVariablesBeside({100, 200, 772, 788}, 192), (LayoutPoint{862, 300}));
}

}  // namespace
}  // namespace tallymere::testing_support
