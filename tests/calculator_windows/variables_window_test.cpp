// The dialog of variables as a window: its controls, the focus and the list.
#include "calculator/windows/variables_window.h"

#include <cstdlib>

#include "calculator_windows/calculator_windows.h"
#include "shell/settings_testing.h"
#include "shell_windows/failing_memory.h"
#include "shell_windows/message_boxes.h"
#include "shell_windows/settings_folder.h"

namespace tallymere::testing_support {
namespace {

class VariablesWindowTest : public CalculatorWindowsTest {
protected:
    VariablesWindowTest() {
        Press(ActionShowVariables);
        SetFocus(list);
    }

    static void Add() { Click(VariablesWindowControl(VariablesAdd)); }
    // As a click into a row does, which takes the focus first.
    void Select(WPARAM row) {
        SetFocus(list);
        SelectWithoutFocus(row);
    }
    void SelectWithoutFocus(WPARAM row) {
        SendMessageW(list, LB_SETCURSEL, row, 0);
        SendMessageW(variablesWindow, WM_COMMAND, MAKEWPARAM(0, LBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(list));
    }
    static void ClickWithoutFocus(HWND button) {
        SendMessageW(variablesWindow, WM_COMMAND, MAKEWPARAM(0, BN_CLICKED),
                     reinterpret_cast<LPARAM>(button));
    }
    LRESULT Selected() { return SendMessageW(list, LB_GETCURSEL, 0, 0); }
    static void Type(HWND box, const std::u16string& text) {
        SetFocus(box);
        SendMessageW(box, EM_SETSEL, 0, -1);
        SendMessageW(box, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
    }
    // Names and values in the settings file, a blank between two variables.
    static std::u16string SavedVariables(const SettingsFolder& settingsFolder) {
        const Bytes bytes = settingsFolder.Content();
        const auto count = static_cast<int64_t>(bytes.size());
        std::u16string text(static_cast<size_t>(SettingsTextRoom(count)), u'\0');
        DecodeSettings(text.data(), bytes.data(), count);
        std::u16string variables;
        for (const auto& [name, value] : VariablesOf(ReadText(text.c_str()).record)) {
            variables += (variables.empty() ? u"" : u" ") + name + u";" + value;
        }
        return variables;
    }
    static std::u16string Stored(int64_t row) { return variableTable.variables[row].value; }

    HWND list = VariablesWindowControl(VariablesList);
    HWND name = VariablesWindowControl(VariablesName);
    HWND value = VariablesWindowControl(VariablesValue);
    HWND assign = VariablesWindowControl(VariablesAssign);
    HWND takeName = VariablesWindowControl(VariablesTakeName);
    HWND add = VariablesWindowControl(VariablesAdd);
    HWND insert = VariablesWindowControl(VariablesInsert);
    HWND deleteButton = VariablesWindowControl(VariablesDelete);
};

TEST_F(VariablesWindowTest, ShowsTheVariablesOfTheSettingsAtTheStart) {
    EXPECT_EQ(namesAtStart, u"rate var?? ");
    EXPECT_EQ(valueAtStart, u"1,5");
    EXPECT_FALSE(settingsDirtyAtStart);
}

TEST_F(VariablesWindowTest, BelongsToThePageAndHasItsFrame) {
    EXPECT_EQ(GetWindow(variablesWindow, GW_OWNER), calculatorWindows.page);
    const uint32_t style = WindowStyle(variablesWindow);
    EXPECT_EQ(style & (WS_SYSMENU | WS_THICKFRAME | WS_MAXIMIZEBOX | WS_MINIMIZEBOX),
              uint32_t{WS_SYSMENU | WS_THICKFRAME | WS_MAXIMIZEBOX});
    EXPECT_EQ(WholeText(variablesWindow), uiText.TextVarCalculatorVariables);
    EXPECT_EQ(ClientSize(variablesWindow), VariablesSize);
}

TEST_F(VariablesWindowTest, ListAndBoxesHaveTheirStyles) {
    EXPECT_EQ(WindowStyle(list) & 0xFFFF, uint32_t{LBS_NOTIFY | LBS_NOINTEGRALHEIGHT});
    EXPECT_EQ(WindowStyle(name) & 0xFFFF, uint32_t{ES_AUTOHSCROLL});
    EXPECT_EQ(WindowStyle(value) & 0xFFFF, uint32_t{ES_MULTILINE | ES_AUTOVSCROLL});
    EXPECT_NE(WindowStyle(value) & WS_VSCROLL, 0u);
    EXPECT_EQ(SendMessageW(name, EM_GETLIMITTEXT, 0, 0), VariableNameCharacters);
    EXPECT_GE(SendMessageW(value, EM_GETLIMITTEXT, 0, 0), VariableValueCharacters);
}

TEST_F(VariablesWindowTest, TheListOfAHundredScrollsAndTakesNoMore) {
    for (int i = 0; i < 101; i++) {
        Add();
    }
    EXPECT_EQ(SendMessageW(list, LB_GETCOUNT, 0, 0), 100);
    EXPECT_EQ(Selected(), 99);
    EXPECT_NE(WindowStyle(list) & WS_VSCROLL, 0u);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
}

TEST_F(VariablesWindowTest, ANewVariableHasTheFocusInItsNameAllSelected) {
    Add();
    EXPECT_EQ(GetFocus(), name);
    EXPECT_EQ(WholeText(name), u"var00");
    EXPECT_EQ(SelectionIn(name), std::pair(DWORD{0}, DWORD{5}));
    EXPECT_EQ(WholeText(value), u"");
    EXPECT_EQ(Selected(), 0);
    EXPECT_TRUE(variableTable.variablesChanged);
}

TEST_F(VariablesWindowTest, InsertPutsAVariableBeforeTheSelectedRow) {
    Add();
    Add();
    Click(insert);
    EXPECT_EQ(VariableNames(), u"var00 var02 var01 ");
    EXPECT_EQ(Selected(), 1);
    EXPECT_EQ(GetFocus(), name);
    EXPECT_EQ(SelectionIn(name), std::pair(DWORD{0}, DWORD{5}));
}

TEST_F(VariablesWindowTest, ButtonsThatNeedAVariableAreEnabledWithOne) {
    for (const bool hasOne : {false, true, false}) {
        if (hasOne) {
            Add();
        } else if (variableTable.count > 0) {
            Click(deleteButton);
        }
        for (const HWND button : {assign, takeName, insert, deleteButton}) {
            EXPECT_EQ(IsWindowEnabled(button) != FALSE, hasOne);
        }
        EXPECT_TRUE(IsWindowEnabled(add));
    }
    EXPECT_EQ(WholeText(name), u"");
    EXPECT_EQ(WholeText(value), u"");
    EXPECT_EQ(Selected(), LB_ERR);
}

TEST_F(VariablesWindowTest, ANameIsTakenOverWhenItsBoxLosesTheFocus) {
    Add();
    Add();
    Type(name, u"x");
    EXPECT_EQ(VariableNames(), u"var00 var01 ");
    SetFocus(value);
    EXPECT_EQ(VariableNames(), u"var00 x ");
    EXPECT_EQ(Selected(), 1);
    EXPECT_EQ(WholeText(name), u"x");
}

TEST_F(VariablesWindowTest, ABadNameIsReportedOnceAndStays) {
    Add();
    Type(name, u"ans");
    const MessageBoxAnswer answer;
    SetFocus(add);
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_NE(answer.text.find("The variable name \"ans\" is invalid."), std::string::npos);
    EXPECT_EQ(VariableNames(), u"ans ");
    SetFocus(name);
    SetFocus(add);
    EXPECT_EQ(answer.boxes, 1);
    Type(name, u"x");
    SetFocus(add);
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(VariableNames(), u"x ");
}

TEST_F(VariablesWindowTest, AValueIsTakenOverWhenItsBoxLosesTheFocus) {
    ApplySeparators(DecimalComma, ThousandsPoint);
    Add();
    variableTable.variablesChanged = false;
    Type(value, u"1.234,5");
    EXPECT_EQ(Stored(0), u"");
    SetFocus(list);
    EXPECT_EQ(Stored(0), u"1234.5");
    EXPECT_TRUE(variableTable.variablesChanged);
}

TEST_F(VariablesWindowTest, AnotherRowShowsItsVariableWithTheCaretsAtTheEnd) {
    Add();
    Type(name, u"first");
    Type(value, u"2*pi");
    Add();
    EXPECT_EQ(WholeText(value), u"");
    Select(0);
    EXPECT_EQ(WholeText(name), u"first");
    EXPECT_EQ(WholeText(value), u"2*pi");
    EXPECT_EQ(SelectionIn(name), std::pair(DWORD{5}, DWORD{5}));
    EXPECT_EQ(SelectionIn(value), std::pair(DWORD{4}, DWORD{4}));
}

TEST_F(VariablesWindowTest, ARowThatIsSelectedWhileANameIsTypedStaysSelected) {
    Add();
    Add();
    Type(name, u"x");
    SelectWithoutFocus(0);
    EXPECT_EQ(VariableNames(), u"var00 x ");
    EXPECT_EQ(Selected(), 0);
    EXPECT_EQ(WholeText(name), u"var00");
}

TEST_F(VariablesWindowTest, WhatIsTypedIsNotLostToAButtonThatTakesNoFocus) {
    Add();
    Type(name, u"x");
    Type(value, u"7");
    ClickWithoutFocus(add);
    EXPECT_EQ(VariableNames(), u"x var00 ");
    EXPECT_EQ(Stored(0), u"7");
    Type(name, u"y");
    ClickWithoutFocus(assign);
    EXPECT_EQ(VariableNames(), u"x y ");
    EXPECT_EQ(WholeText(name), u"y");
}

TEST_F(VariablesWindowTest, LookingAtVariablesChangesNone) {
    Add();
    Add();
    variableTable.variablesChanged = false;
    Select(0);
    Select(1);
    SetFocus(value);
    SetFocus(name);
    SetFocus(add);
    EXPECT_FALSE(variableTable.variablesChanged);
}

TEST_F(VariablesWindowTest, DeleteSelectsTheSameRowOrTheLast) {
    for (int i = 0; i < 3; i++) {
        Add();
    }
    Select(1);
    Click(deleteButton);
    EXPECT_EQ(VariableNames(), u"var00 var02 ");
    EXPECT_EQ(Selected(), 1);
    EXPECT_EQ(WholeText(name), u"var02");
    Click(deleteButton);
    EXPECT_EQ(VariableNames(), u"var00 ");
    EXPECT_EQ(Selected(), 0);
    EXPECT_EQ(WholeText(name), u"var00");
}

TEST_F(VariablesWindowTest, AssignShowsTheResultInTheValueBox) {
    Add();
    std::u16string(u"1,234.5").copy(calculator.calcResultText, 8);
    calculator.calcResultText[7] = 0;
    variableTable.variablesChanged = false;
    Click(assign);
    EXPECT_EQ(WholeText(value), u"1234.5");
    EXPECT_EQ(Stored(0), u"1234.5");
    EXPECT_TRUE(variableTable.variablesChanged);
}

TEST_F(VariablesWindowTest, TakeNamePutsTheNameInPlaceOfTheSelectionInTheFormula) {
    SetFormula(u"1+xx*2");
    calculator.formulaTouched = false;
    SendMessageW(ControlOf(CalculatorFormula), EM_SETSEL, 2, 4);
    Add();
    Click(takeName);
    EXPECT_EQ(Formula(), u"1+var00*2");
    EXPECT_EQ(SelectionIn(ControlOf(CalculatorFormula)), std::pair(DWORD{7}, DWORD{7}));
    EXPECT_TRUE(calculator.formulaTouched);
}

TEST_F(VariablesWindowTest, ANameJustTypedIsTheOneThatIsTaken) {
    Add();
    Type(name, u"x");
    SetFocus(takeName);
    Click(takeName);
    EXPECT_EQ(Formula(), u"x");
}

TEST_F(VariablesWindowTest, ShowsValuesWithTheSeparatorThatIsInForceWhenItIsActivated) {
    Add();
    Type(value, u"1.5");
    SetActiveWindow(calculatorWindows.page);
    ApplySeparators(DecimalComma, ThousandsPoint);
    EXPECT_EQ(WholeText(value), u"1.5");
    SetActiveWindow(variablesWindow);
    EXPECT_EQ(WholeText(value), u"1,5");
    EXPECT_EQ(Stored(0), u"1.5");
    variableTable.variablesChanged = false;
    SetFocus(add);
    EXPECT_FALSE(variableTable.variablesChanged);
}

TEST_F(VariablesWindowTest, BoxesStayAsTheyAreWhenItIsActivatedWithTheSameSeparator) {
    Add();
    Type(value, u"12345");
    SendMessageW(value, EM_SETSEL, 1, 3);
    SetActiveWindow(calculatorWindows.page);
    SetActiveWindow(variablesWindow);
    EXPECT_EQ(SelectionIn(value), std::pair(DWORD{1}, DWORD{3}));
}

TEST_F(VariablesWindowTest, ClosingActivatesThePageAndKeepsTheTable) {
    Add();
    ShowProgramWindow(mainWindow);
    SendMessageW(variablesWindow, WM_CLOSE, 0, 0);
    EXPECT_TRUE(IsWindow(variablesWindow));
    EXPECT_FALSE(IsWindowVisible(variablesWindow));
    EXPECT_EQ(GetActiveWindow(), calculatorWindows.page);
    Press(ActionShowVariables);
    EXPECT_EQ(VariableNames(), u"var00 ");
    ShowWindow(mainWindow, SW_HIDE);
}

TEST_F(VariablesWindowTest, ClosingSavesWhatWasTyped) {
    const SettingsFolder settingsFolder;
    Add();
    Type(name, u"x");
    Type(value, u"2*pi");
    SendMessageW(variablesWindow, WM_CLOSE, 0, 0);
    EXPECT_EQ(SavedVariables(settingsFolder), u"x;2*pi");

    // With the page, too.
    Press(ActionShowVariables);
    Type(value, u"3*pi");
    SendMessageW(calculatorWindows.page, WM_CLOSE, 0, 0);
    EXPECT_EQ(SavedVariables(settingsFolder), u"x;3*pi");
    EXPECT_FALSE(variableTable.variablesChanged);
    EXPECT_FALSE(settings.settingsDirty);
}

// A crash of a run that was begun meanwhile loses none of them.
TEST_F(VariablesWindowTest, LeavingTheOpenDialogSavesWhatWasTyped) {
    const SettingsFolder settingsFolder;
    Add();
    Type(name, u"x");
    Type(value, u"2*pi");
    const MessageBoxAnswer answer;
    SetActiveWindow(calculatorWindows.page);
    EXPECT_EQ(SavedVariables(settingsFolder), u"x;2*pi");
    EXPECT_FALSE(settings.settingsDirty);
    EXPECT_EQ(answer.boxes, 0);
}

TEST_F(VariablesWindowTest, LeavingTheOpenDialogSaysNothingOfAFailure) {
    const SettingsFolder settingsFolder;
    fs::remove_all(settingsFolder.folder);
    PutBytes(settingsFolder.folder, "mine");
    Add();
    {
        const MessageBoxAnswer answer;
        SetActiveWindow(calculatorWindows.page);
        EXPECT_EQ(answer.boxes, 0);
        EXPECT_TRUE(settings.settingsDirty);
        SendMessageW(variablesWindow, WM_CLOSE, 0, 0);
        EXPECT_EQ(answer.boxes, 1);
    }
    fs::remove_all(settingsFolder.folder);
    EXPECT_TRUE(SaveSettings());
}

// In a table of its own: buffers of variables that were deleted would serve without memory.
TEST_F(VariablesWindowTest, WithoutMemoryNoVariableIsAddedAndTheOthersStay) {
    const VariableTable before = variableTable;
    variableTable = {};
    EXPECT_TRUE(AddVariable(0));
    SetVariableValue(0, u"2*pi");
    // The buffer of the value alone, and that of the name.
    for (const size_t leastBytes : {ProductVariableCharacters * sizeof(char16_t),
                                    (VariableNameCharacters + 1) * sizeof(char16_t)}) {
        bool added = true;
        {
            const FailingMemory memory(1, leastBytes);
            added = AddVariable(0);
        }
        EXPECT_FALSE(added);
        EXPECT_EQ(PendingUiError(), UiErrorInternal);
        ClearErrors();
        EXPECT_EQ(variableTable.count, 1);
        EXPECT_EQ(variableTable.madeCount, 1);
        EXPECT_EQ(Stored(0), u"2*pi");
    }
    EXPECT_TRUE(AddVariable(0));
    for (int64_t i = 0; i < variableTable.madeCount; i++) {
        std::free(variableTable.variables[i].name);
        std::free(variableTable.variables[i].value);
    }
    variableTable = before;
}

TEST_F(VariablesWindowTest, ClosingWithoutAChangeSavesNothing) {
    const SettingsFolder settingsFolder;
    variableTable.variablesChanged = false;
    SendMessageW(variablesWindow, WM_CLOSE, 0, 0);
    EXPECT_FALSE(fs::exists(settingsFolder.file));
}

TEST_F(VariablesWindowTest, TheEndOfTheSessionSavesWhatIsBeingTyped) {
    const SettingsFolder settingsFolder;
    Add();
    const MessageBoxAnswer answer;
    Type(value, u"2*pi");
    Type(name, u"ans");
    for (const HWND window : {mainWindow, variablesWindow}) {
        EXPECT_TRUE(SendMessageW(window, WM_QUERYENDSESSION, 0, 0));
    }
    for (const HWND window : {mainWindow, variablesWindow}) {
        SendMessageW(window, WM_ENDSESSION, TRUE, 0);
    }
    EXPECT_EQ(SavedVariables(settingsFolder), u"ans;2*pi");
    EXPECT_EQ(answer.boxes, 0) << "of the bad name";
    EXPECT_EQ(PendingUiError(), UiErrorNone);
}

TEST_F(VariablesWindowTest, TheEndOfTheProgramTakesOverWhatIsBeingTyped) {
    Add();
    Type(value, u"2*pi");
    SendMessageW(mainWindow, WM_CLOSE, 0, 0);
    EXPECT_EQ(Stored(0), u"2*pi");
    MSG message;
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST_F(VariablesWindowTest, ANameThatIsRefusedGivesWayToTheOldOne) {
    Add();
    Type(name, u"x");
    SetFocus(list);
    const MessageBoxAnswer answer;
    Type(value, u"7");
    Type(name, u"a;b");
    SetFocus(list);
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_NE(answer.text.find("The variable name \"a;b\" is invalid."), std::string::npos);
    EXPECT_EQ(WholeText(name), u"x");
    EXPECT_EQ(VariableNames(), u"x ");
    EXPECT_EQ(Stored(0), u"7");
    Type(value, u"8");
    SetFocus(list);
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(Stored(0), u"8");
}

TEST_F(VariablesWindowTest, ClosesWithThePage) {
    SendMessageW(calculatorWindows.page, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindowVisible(variablesWindow));
    EXPECT_FALSE(IsWindowVisible(calculatorWindows.page));
}

TEST_F(VariablesWindowTest, ControlsFollowTheSizeOfTheWindow) {
    SetWindowPos(variablesWindow, nullptr, 0, 0, 600, 500,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    const LayoutSize client = ClientSize(variablesWindow);
    EXPECT_NE(client, VariablesSize);
    for (int32_t i = 0; i < VariablesControlCount; i++) {
        const auto control = static_cast<VariablesControl>(i);
        EXPECT_EQ(PlaceInParent(VariablesWindowControl(control)),
                  PlaceVariablesControl(control, client))
            << i;
    }
}

}  // namespace
}  // namespace tallymere::testing_support
