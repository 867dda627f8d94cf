// The record and the procedure behind every control.
#include "toolkit/control_data.h"

#include "toolkit/test_dialog.h"

namespace tallymere {
namespace {

using testing_support::HasDefaultLook;
using testing_support::heard;
using testing_support::IsChecked;
using testing_support::keyMessages;
using testing_support::PlainControl;
using testing_support::PressKey;
using testing_support::TextOf;
using testing_support::TypeCharacter;

class ControlProcedure : public testing_support::ToolkitTest {
protected:
    // Three radio buttons with a button before and one behind.
    void AddRadioGroup() {
        before = Button(u"before");
        for (HWND& radio : radios) {
            radio = Radio(u"radio");
        }
        behind = Button(u"behind");
    }

    HWND before = nullptr;
    HWND radios[3] = {};
    HWND behind = nullptr;
};

int32_t keysSeen = 0;

LRESULT EatKeys(HWND, UINT message, WPARAM, LPARAM, bool& callDefault) {
    if (message == WM_KEYDOWN || message == WM_CHAR) {
        keysSeen++;
        callDefault = false;
        return 3;
    }
    return 0;
}

TEST_F(ControlProcedure, EveryControlHasARecord) {
    const HWND edit = Edit();
    const auto* data = static_cast<ControlData*>(GetPropW(edit, ToWide(ControlDataProperty)));
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(GetPropW(edit, L"cwl_ControlData"), data);
    EXPECT_EQ(sizeof *data, 24u);
    EXPECT_NE(data->savedProc, nullptr);
    EXPECT_EQ(data->handler, nullptr);
    EXPECT_EQ(data->reserved, 0u);
    EXPECT_EQ(GetWindowLongPtrW(edit, GWLP_WNDPROC), reinterpret_cast<LONG_PTR>(ControlProc));
}

TEST_F(ControlProcedure, TheRecordGoesWithTheWindow) {
    const HWND label = CreateStatic(dialog, {0, 0, 60, 20}, u"label");
    SendMessageW(label, WM_NCDESTROY, 0, 0);
    EXPECT_EQ(GetPropW(label, ToWide(ControlDataProperty)), nullptr);
    // What comes later goes to the procedure of the class.
    SetWindowTextW(label, L"other");
    EXPECT_EQ(TextOf(label), "other");
}

TEST_F(ControlProcedure, NoWindowGetsNoRecord) {
    AttachControlData(nullptr, EatKeys);
    SetControlHandler(dialog, EatKeys);
    EXPECT_EQ(GetPropW(dialog, ToWide(ControlDataProperty)), nullptr);
}

TEST_F(ControlProcedure, EveryControlGetsTheFont) {
    LOGFONTW description = {};
    description.lfHeight = 16;
    const HFONT font = CreateFontIndirectW(&description);
    defaultGuiFont = font;
    const HWND edit = Edit();
    defaultGuiFont = nullptr;
    EXPECT_EQ(SendMessageW(edit, WM_GETFONT, 0, 0), reinterpret_cast<LRESULT>(font));
    EXPECT_EQ(SendMessageW(Edit(), WM_GETFONT, 0, 0), 0);
    DestroyWindow(edit);
    DeleteObject(font);
}

TEST_F(ControlProcedure, AHandlerSeesMessagesFirstAndMayEndThem) {
    const HWND first = Edit();
    const HWND second = Edit();
    SetFocus(first);
    keysSeen = 0;
    SetControlHandler(first, EatKeys);
    EXPECT_EQ(SendMessageW(first, WM_KEYDOWN, VK_TAB, 1), 3);
    EXPECT_EQ(SendMessageW(first, WM_CHAR, u'a', 1), 3);
    EXPECT_EQ(keysSeen, 2);
    EXPECT_EQ(GetFocus(), first);
    EXPECT_EQ(TextOf(first), "");
    SetControlHandler(first, nullptr);
    PressKey(first, VK_TAB);
    EXPECT_EQ(GetFocus(), second);
}

// More of them than are remembered at a time.
TEST_F(ControlProcedure, EachOfManyControlsKeepsItsHandler) {
    HWND controls[1300];
    for (HWND& control : controls) {
        control = CreateControl(dialog, PlainControl(), {}, nullptr, 0);
    }
    for (size_t i = 0; i < std::size(controls); i += 3) {
        SetControlHandler(controls[i], EatKeys);
    }
    for (int round = 0; round < 2; round++) {
        for (size_t i = 0; i < std::size(controls); i++) {
            keysSeen = 0;
            SendMessageW(controls[i], WM_CHAR, u'a', 1);
            EXPECT_EQ(keysSeen, i % 3 == 0) << i;
        }
    }
}

TEST_F(ControlProcedure, AWindowThatWasNoControlBecomesOne) {
    const HWND window = CreateWindowExW(0, ToWide(PlainControl()), nullptr, WS_CHILD, 0, 0, 1, 1,
                                        dialog, nullptr, programInstance, nullptr);
    SetControlHandler(window, EatKeys);
    AttachControlData(window, nullptr);
    SetControlHandler(window, EatKeys);
    keysSeen = 0;
    SendMessageW(window, WM_CHAR, u'a', 1);
    EXPECT_EQ(keysSeen, 1);
}

TEST_F(ControlProcedure, TheFocusIsRemembered) {
    const HWND edit = Edit();
    const HWND button = Button(u"button");
    SetFocus(edit);
    EXPECT_EQ(LastFocus(dialog), edit);
    SetFocus(button);
    EXPECT_EQ(LastFocus(dialog), button);
}

TEST_F(ControlProcedure, TheDefaultLookFollowsTheFocus) {
    const HWND defaultButton = Button(u"default");
    const HWND button = CreateButton(dialog, {0, 0, 60, 20}, u"button", BS_MULTILINE);
    const HWND edit = Edit();
    SetDefaultButton(dialog, defaultButton);
    SetFocus(button);
    EXPECT_TRUE(HasDefaultLook(button));
    EXPECT_FALSE(HasDefaultLook(defaultButton));
    SetFocus(edit);
    EXPECT_FALSE(HasDefaultLook(button));
    EXPECT_TRUE(HasDefaultLook(defaultButton));
    EXPECT_NE(WindowStyle(button) & BS_MULTILINE, 0u);
    SetFocus(defaultButton);
    EXPECT_TRUE(HasDefaultLook(defaultButton));
    EXPECT_FALSE(HasDefaultLook(button));
}

TEST_F(ControlProcedure, TabGoesAroundInTheOrderOfCreation) {
    const HWND first = Edit();
    const HWND group = CreateGroupBox(dialog, {0, 0, 90, 90}, u"group", nullptr);
    const HWND second = CreateEdit(group, {0, 0, 60, 20}, u"", 0, 0);
    const HWND third = Edit();
    SetFocus(first);
    for (const HWND expected : {second, third, first}) {
        PressKey(GetFocus(), VK_TAB);
        EXPECT_EQ(GetFocus(), expected);
    }
    for (const HWND expected : {third, second, first}) {
        PressKey(GetFocus(), VK_TAB, VK_SHIFT);
        EXPECT_EQ(GetFocus(), expected);
    }
    PressKey(first, VK_TAB, VK_CONTROL);
    EXPECT_EQ(GetFocus(), first);
}

TEST_F(ControlProcedure, TabAndReturnStayAwayFromTheControlItselfAndOtherKeysDoNot) {
    const HWND control = Plain();
    for (const int key : {VK_TAB, VK_RETURN}) {
        keyMessages.clear();
        PressKey(control, key);
        TypeCharacter(control, static_cast<char16_t>(key));
        EXPECT_EQ(keyMessages, std::vector<UINT>{}) << key;
    }
    for (const int key : {VK_LEFT, VK_DOWN, VK_ESCAPE, int{'A'}}) {
        keyMessages.clear();
        PressKey(control, key);
        TypeCharacter(control, u'a');
        EXPECT_EQ(keyMessages, (std::vector<UINT>{WM_KEYDOWN, WM_KEYUP, WM_CHAR})) << key;
    }
    for (const int key : {VK_TAB, VK_RETURN}) {
        keyMessages.clear();
        PressKey(control, key, VK_CONTROL);
        EXPECT_EQ(keyMessages, (std::vector<UINT>{WM_KEYDOWN, WM_KEYUP})) << key;
    }
}

TEST_F(ControlProcedure, TabPassesOverWhatLiesInAHiddenGroup) {
    const HWND first = Edit();
    const HWND group = CreateGroupBox(dialog, {0, 0, 90, 90}, u"group", nullptr);
    CreateEdit(group, {0, 0, 60, 20}, u"", 0, 0);
    const HWND last = Edit();
    ShowControl(group, false);
    SetFocus(first);
    PressKey(first, VK_TAB);
    EXPECT_EQ(GetFocus(), last);
}

HWND stateControl;
WPARAM stateChange = 0;

LRESULT NoteStateChange(HWND control, UINT message, WPARAM wParam, LPARAM, bool&) {
    if (message == WM_UPDATEUISTATE) {
        stateControl = control;
        stateChange = wParam;
    }
    return 0;
}

TEST_F(ControlProcedure, KeysThatMoveTheFocusShowWhereItIs) {
    AddRadioGroup();
    for (const HWND control : {before, radios[0], radios[1]}) {
        SetControlHandler(control, NoteStateChange);
    }
    stateControl = nullptr;
    SetFocus(before);
    EXPECT_EQ(stateControl, nullptr);
    PressKey(before, VK_TAB);
    EXPECT_EQ(stateControl, radios[0]);
    EXPECT_EQ(stateChange, 0x10002u);
    PressKey(radios[0], VK_DOWN);
    EXPECT_EQ(stateControl, radios[1]);
    PressKey(radios[1], VK_TAB, VK_SHIFT);
    EXPECT_EQ(stateControl, before);
}

TEST_F(ControlProcedure, TabAndReturnAreNoCharacters) {
    const HWND line = Edit();
    TypeCharacter(line, u'\t');
    TypeCharacter(line, u'\r');
    TypeCharacter(line, u'x');
    EXPECT_EQ(TextOf(line), "x");
    const HWND lines = Edit(ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN);
    TypeCharacter(lines, u'\t');
    TypeCharacter(lines, u'\r');
    TypeCharacter(lines, u'x');
    EXPECT_EQ(TextOf(lines), "\r\nx");
}

TEST_F(ControlProcedure, ReturnClicksAButtonItself) {
    SetDefaultButton(dialog, Button(u"default"));
    const HWND button = Button(u"button");
    SetFocus(button);
    PressKey(button, VK_RETURN);
    EXPECT_EQ(heard.lastClicked, button);
    EXPECT_EQ(heard.clicks, 1);
}

TEST_F(ControlProcedure, AKeyThatIsHeldClicksAButtonOnce) {
    constexpr LPARAM Repeated = 0x40000001;
    const HWND button = Button(u"button");
    const HWND other = Button(u"other");
    SetFocus(button);
    SendMessageW(button, WM_KEYDOWN, VK_RETURN, 1);
    SendMessageW(button, WM_KEYDOWN, VK_RETURN, Repeated);
    EXPECT_EQ(heard.clicks, 1);
    SendMessageW(button, WM_KEYDOWN, VK_SPACE, 1);
    SetFocus(other);
    SendMessageW(other, WM_KEYDOWN, VK_SPACE, Repeated);
    SendMessageW(other, WM_KEYUP, VK_SPACE, static_cast<LPARAM>(0xC0000001));
    EXPECT_EQ(heard.clicks, 1) << "space went down on another button";
    PressKey(other, VK_SPACE);
    EXPECT_EQ(heard.clicks, 2);
}

TEST_F(ControlProcedure, ReturnElsewhereClicksTheDefaultButtonAndTheFocusStays) {
    const HWND edit = Edit();
    const HWND button = Button(u"default");
    SetFocus(edit);
    PressKey(edit, VK_RETURN);
    EXPECT_EQ(heard.clicks, 0);
    SetDefaultButton(dialog, button);
    PressKey(edit, VK_RETURN);
    EXPECT_EQ(heard.lastClicked, button);
    EXPECT_EQ(heard.clicks, 1);
    EXPECT_EQ(GetFocus(), edit);
    EXPECT_EQ(LastFocus(dialog), edit);
}

LRESULT TakeFocusAway(HWND, UINT message, WPARAM wParam, LPARAM, bool&) {
    if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED) {
        SetFocus(nullptr);
    }
    return 0;
}

TEST_F(ControlProcedure, AClickThatTakesTheFocusAwayIsComeBackFrom) {
    const HWND edit = Edit();
    const HWND group = CreateGroupBox(dialog, {0, 0, 90, 90}, u"group", TakeFocusAway);
    SetDefaultButton(dialog, CreateButton(group, {0, 0, 60, 20}, u"default"));
    SetFocus(edit);
    PressKey(edit, VK_RETURN);
    EXPECT_EQ(GetFocus(), nullptr);
    EXPECT_EQ(LastFocus(dialog), edit);
    SetFocus(dialog);
    EXPECT_EQ(GetFocus(), edit);
}

TEST_F(ControlProcedure, ReturnInAFieldOfManyLinesClicksNothing) {
    SetDefaultButton(dialog, Button(u"default"));
    const HWND lines = Edit(ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN);
    SetFocus(lines);
    PressKey(lines, VK_RETURN);
    EXPECT_EQ(heard.clicks, 0);
}

TEST_F(ControlProcedure, ReturnInAnOpenListClicksNothing) {
    SetDefaultButton(dialog, Button(u"default"));
    const HWND list = CreateDropList(dialog, {0, 0, 60, 100});
    SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(u"row"));
    SetFocus(list);
    SendMessageW(list, CB_SHOWDROPDOWN, TRUE, 0);
    PressKey(list, VK_RETURN);
    EXPECT_EQ(heard.clicks, 0);
    SendMessageW(list, CB_SHOWDROPDOWN, FALSE, 0);
    PressKey(list, VK_RETURN);
    EXPECT_EQ(heard.clicks, 1);
}

TEST_F(ControlProcedure, ReturnInTheFieldOfAListIsTheListsOnlyWhileItIsOpen) {
    SetDefaultButton(dialog, Button(u"default"));
    const HWND list = CreateControl(dialog, ComboBoxClass, {0, 0, 60, 100}, nullptr, CBS_DROPDOWN);
    const HWND field = GetWindow(list, GW_CHILD);
    ASSERT_NE(field, nullptr);
    AttachControlData(field, nullptr);
    SetFocus(field);
    SendMessageW(list, CB_SHOWDROPDOWN, TRUE, 0);
    PressKey(field, VK_RETURN);
    EXPECT_EQ(heard.clicks, 0);
    SendMessageW(list, CB_SHOWDROPDOWN, FALSE, 0);
    PressKey(field, VK_RETURN);
    EXPECT_EQ(heard.clicks, 1);
}

TEST_F(ControlProcedure, TabLeavesARadioGroupAndEntersItAtTheCheckedButton) {
    AddRadioGroup();
    SendMessageW(radios[1], BM_SETCHECK, BST_CHECKED, 0);
    SetFocus(radios[1]);
    PressKey(radios[1], VK_TAB);
    EXPECT_EQ(GetFocus(), behind);
    PressKey(behind, VK_TAB, VK_SHIFT);
    EXPECT_EQ(GetFocus(), radios[1]);
    PressKey(radios[1], VK_TAB, VK_SHIFT);
    EXPECT_EQ(GetFocus(), before);
    PressKey(before, VK_TAB);
    EXPECT_EQ(GetFocus(), radios[1]);
}

TEST_F(ControlProcedure, AGroupWithNothingCheckedGetsItsFirstVisibleButtonChecked) {
    AddRadioGroup();
    ShowControl(radios[0], false);
    FocusControl(radios[2]);
    EXPECT_EQ(GetFocus(), radios[1]);
    EXPECT_TRUE(IsChecked(radios[1]));
    EXPECT_FALSE(IsChecked(radios[2]));
}

TEST_F(ControlProcedure, ArrowsWalkThroughTheVisibleButtonsOfAGroup) {
    AddRadioGroup();
    ShowControl(radios[1], false);
    FocusControl(radios[0]);
    PressKey(radios[0], VK_DOWN);
    EXPECT_EQ(GetFocus(), radios[2]);
    EXPECT_EQ(heard.lastClicked, radios[2]);
    PressKey(radios[2], VK_RIGHT);
    EXPECT_EQ(GetFocus(), radios[2]);
    PressKey(radios[2], VK_LEFT);
    EXPECT_EQ(GetFocus(), radios[0]);
    PressKey(radios[0], VK_UP);
    EXPECT_EQ(GetFocus(), radios[0]);
    PressKey(before, VK_DOWN);
    EXPECT_EQ(GetFocus(), radios[0]);
}

TEST_F(ControlProcedure, AnArrowLeavesTheFocusOnTheButtonWhateverItsClickDid) {
    const HWND group = CreateGroupBox(dialog, {0, 0, 90, 90}, u"group", TakeFocusAway);
    const HWND first = CreateRadioButton(group, {0, 0, 60, 20}, u"first");
    const HWND second = CreateRadioButton(group, {0, 20, 60, 20}, u"second");
    SendMessageW(first, BM_SETCHECK, BST_CHECKED, 0);
    SetFocus(first);
    PressKey(first, VK_DOWN);
    EXPECT_TRUE(IsChecked(second));
    EXPECT_FALSE(IsChecked(first));
    EXPECT_EQ(GetFocus(), second);
}

TEST_F(ControlProcedure, KnowsTheEndsOfAGroupAndTheNextStop) {
    AddRadioGroup();
    EXPECT_EQ(RadioGroupEnd(radios[1], true), radios[2]);
    EXPECT_EQ(RadioGroupEnd(radios[1], false), radios[0]);
    EXPECT_EQ(NextTabStop(before, true), radios[0]);
    EXPECT_EQ(NextTabStop(before, false), behind);
    EXPECT_EQ(NextTabStop(dialog, true), before);
}

TEST_F(ControlProcedure, TheOrderOfTabsEndsAtTheDialogAndNotAtItsOwner) {
    Edit();
    const HWND owned = CreateDialogWindow(dialog, {90, 90}, u"owned", testing_support::HearCommands,
                                          WS_POPUP | WS_VISIBLE, 0);
    const HWND first = CreateEdit(owned, {0, 0, 60, 20}, u"", 0, 0);
    const HWND last = CreateEdit(owned, {0, 0, 60, 20}, u"", 0, 0);
    EXPECT_EQ(NextTabStop(last, true), first);
    EXPECT_EQ(NextTabStop(first, false), last);
    DestroyWindow(owned);
}

TEST_F(ControlProcedure, SizesAreLogicalUnitsAndThePositionStays) {
    screenDpi = 144;
    const HWND button = CreateButton(dialog, {3, 5, 60, 21}, u"button");
    EXPECT_EQ(PlaceInParent(button), (LayoutRect{5, 8, 90, 32}));
    SetControlSize(button, 40, 11);
    EXPECT_EQ(PlaceInParent(button), (LayoutRect{5, 8, 60, 17}));
    SetControlWidth(button, 50);
    EXPECT_EQ(PlaceInParent(button), (LayoutRect{5, 8, 75, 17}));
}

TEST_F(ControlProcedure, APlaceIsLogicalUnitsAndTheOrderOfTabsStays) {
    screenDpi = 144;
    const HWND first = Button(u"first");
    const HWND second = Button(u"second");
    PlaceControl(second, {3, 5, 60, 21});
    EXPECT_EQ(PlaceInParent(second), (LayoutRect{5, 8, 90, 32}));
    EXPECT_EQ(NextTabStop(dialog, true), first);
    EXPECT_EQ(NextTabStop(first, true), second);
}

TEST_F(ControlProcedure, AControlThatMovesIsPaintedAnew) {
    const HWND button = CreateButton(dialog, {10, 20, 60, 20}, u"button");
    UpdateWindow(dialog);
    ValidateRect(button, nullptr);
    ASSERT_FALSE(GetUpdateRect(button, nullptr, FALSE));
    PlaceControl(button, {100, 50, 60, 20});
    EXPECT_TRUE(GetUpdateRect(button, nullptr, FALSE));
}

TEST_F(ControlProcedure, ThePlaceOfAControlIsRepaintedWhenItIsHidden) {
    const HWND group = CreateGroupBox(dialog, {10, 20, 90, 90}, u"group", nullptr);
    const HWND button = CreateButton(group, {5, 6, 60, 20}, u"button");
    ValidateRect(dialog, nullptr);
    ShowControl(button, false);
    EXPECT_FALSE(IsWindowVisible(button));
    RECT dirty;
    ASSERT_TRUE(GetUpdateRect(dialog, &dirty, FALSE));
    EXPECT_LE(dirty.left, 15);
    EXPECT_LE(dirty.top, 26);
    EXPECT_GE(dirty.right, 75);
    EXPECT_GE(dirty.bottom, 46);
    ShowControl(button, true);
    EXPECT_TRUE(IsWindowVisible(button));
}

TEST_F(ControlProcedure, TheBackgroundIsPaintedWhereAControlWas) {
    const HWND control = Plain();
    ShowControl(control, false);
    UpdateWindow(dialog);
    heard.erasures = 0;
    // Nothing is left for the system to hide.
    ShowControl(control, false);
    UpdateWindow(dialog);
    EXPECT_EQ(heard.erasures, 1);
}

}  // namespace
}  // namespace tallymere
