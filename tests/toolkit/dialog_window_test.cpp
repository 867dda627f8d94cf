// The class of dialog windows.
#include "toolkit/test_dialog.h"

namespace tallymere {
namespace {

using DialogWindow = testing_support::ToolkitTest;

bool isRefusing = false;
int32_t lengthQuestions = 0;
bool sawCreation = false;

LRESULT AnswerLength(HWND, UINT message, WPARAM, LPARAM, bool& callDefault) {
    EXPECT_TRUE(callDefault);
    sawCreation = sawCreation || message == WM_NCCREATE;
    if (message == WM_GETTEXTLENGTH) {
        lengthQuestions++;
        callDefault = !isRefusing;
        return 77;
    }
    return 0;
}

TEST_F(DialogWindow, IsMadeHiddenInTheCornerWithItsTitle) {
    const HWND window = CreateDialogWindow(nullptr, {200, 100}, u"Title", AnswerLength, 0, 0);
    EXPECT_FALSE(IsWindowVisible(window));
    EXPECT_EQ(PlaceInParent(window), (LayoutRect{0, 0, 200, 100}));
    EXPECT_EQ(testing_support::TextOf(window), "Title");
    EXPECT_EQ(WindowStyle(window) & WS_CAPTION, uint32_t{WS_CAPTION});
    EXPECT_TRUE(IsDialogWindow(window));
    EXPECT_EQ(LastFocus(window), nullptr);
    EXPECT_EQ(DefaultButton(window), nullptr);
    EXPECT_FALSE(IsModal(window));
    DestroyWindow(window);
}

TEST_F(DialogWindow, HasATitleEvenAsAPopup) {
    const HWND window = CreateDialogWindow(dialog, {200, 100}, u"", AnswerLength, WS_POPUP, 0);
    EXPECT_EQ(WindowStyle(window) & WS_CAPTION, uint32_t{WS_CAPTION});
    EXPECT_EQ(GetWindow(window, GW_OWNER), dialog);
    DestroyWindow(window);
}

TEST_F(DialogWindow, KeepsThirtyTwoBytesAndTheColourOfButtons) {
    EXPECT_TRUE(testing_support::HasClass(dialog, u"cwl_DialogWindow"));
    EXPECT_EQ(GetClassLongPtrW(dialog, GCLP_HCURSOR),
              reinterpret_cast<ULONG_PTR>(LoadCursorW(nullptr, IDC_ARROW)));
    EXPECT_EQ(GetClassLongPtrW(dialog, GCL_CBWNDEXTRA), 32u);
    EXPECT_EQ(GetClassLongPtrW(dialog, GCL_STYLE), 0u);
    EXPECT_EQ(GetClassLongPtrW(dialog, GCLP_HBRBACKGROUND), ULONG_PTR{COLOR_BTNFACE + 1});
}

TEST_F(DialogWindow, ItsHandlerGetsEveryMessageAndMayEndIt) {
    sawCreation = false;
    const HWND window = CreateDialogWindow(nullptr, {200, 100}, u"Four", AnswerLength, 0, 0);
    EXPECT_TRUE(sawCreation);
    lengthQuestions = 0;
    isRefusing = true;
    EXPECT_EQ(GetWindowTextLengthW(window), 77);
    isRefusing = false;
    EXPECT_EQ(GetWindowTextLengthW(window), 4);
    EXPECT_EQ(lengthQuestions, 2);
    DestroyWindow(window);
}

TEST_F(DialogWindow, GivesTheClientAreaTheSizeWhenAsked) {
    screenDpi = 144;
    const HWND window = CreateDialogWindow(nullptr, {200, 101}, u"", AnswerLength,
                                           WS_SYSMENU | WS_THICKFRAME | DialogClientSize, 0);
    EXPECT_EQ(ClientSize(window), (LayoutSize{300, 152}));
    DestroyWindow(window);
}

TEST_F(DialogWindow, GoesToTheMiddleOfTheScreenWhenAsked) {
    const HWND window = CreateDialogWindow(nullptr, {201, 101}, u"", AnswerLength,
                                           DialogClientSize | DialogCentred, 0);
    const LayoutRect place = PlaceInParent(window);
    EXPECT_EQ(place.x, (GetSystemMetrics(SM_CXSCREEN) - place.width) / 2);
    EXPECT_EQ(place.y, (GetSystemMetrics(SM_CYSCREEN) - place.height) / 2);
    EXPECT_EQ(ClientSize(window), (LayoutSize{201, 101}));
    DestroyWindow(window);
}

TEST_F(DialogWindow, FirstGivesTheFocusToItsFirstTabStop) {
    CreateStatic(dialog, {0, 0, 60, 20}, u"label");
    const HWND hidden = Edit();
    ShowControl(hidden, false);
    EnableWindow(Edit(), FALSE);
    const HWND group = CreateGroupBox(dialog, {0, 0, 90, 90}, u"group", nullptr);
    const HWND inner = CreateEdit(group, {0, 0, 60, 20}, u"", 0, 0);
    Edit();
    SetFocus(nullptr);
    SetFocus(dialog);
    EXPECT_EQ(GetFocus(), inner);
    EXPECT_EQ(LastFocus(dialog), inner);
}

TEST_F(DialogWindow, GivesTheFocusBackToTheControlThatHadItLast) {
    Edit();
    const HWND second = Edit();
    SetFocus(second);
    SetFocus(nullptr);
    ValidateRect(second, nullptr);
    SetFocus(dialog);
    EXPECT_EQ(GetFocus(), second);
    EXPECT_TRUE(GetUpdateRect(second, nullptr, FALSE));
}

TEST_F(DialogWindow, RepaintsTheControlThatGetsTheFocusBack) {
    const HWND control = Plain();
    ValidateRect(control, nullptr);
    SetFocus(nullptr);
    SetFocus(control);
    EXPECT_FALSE(GetUpdateRect(control, nullptr, FALSE));
    SetFocus(nullptr);
    SetFocus(dialog);
    EXPECT_EQ(GetFocus(), control);
    EXPECT_TRUE(GetUpdateRect(control, nullptr, FALSE));
}

TEST_F(DialogWindow, KeepsTheFocusWhereNothingElseCanTakeIt) {
    CreateStatic(dialog, {0, 0, 60, 20}, u"label");
    SetFocus(nullptr);
    SetFocus(dialog);
    EXPECT_EQ(GetFocus(), dialog);
    EXPECT_EQ(LastFocus(dialog), nullptr);
}

TEST_F(DialogWindow, TakesAPushButtonAsDefaultAndNothingElse) {
    const HWND first = Button(u"first");
    const HWND second = Button(u"second");
    EXPECT_FALSE(SetDefaultButton(dialog, Edit()));
    EXPECT_FALSE(SetDefaultButton(dialog, Radio(u"radio")));
    EXPECT_FALSE(SetDefaultButton(dialog, nullptr));
    EXPECT_EQ(DefaultButton(dialog), nullptr);
    EXPECT_TRUE(SetDefaultButton(dialog, first));
    EXPECT_TRUE(testing_support::HasDefaultLook(first));
    EXPECT_TRUE(SetDefaultButton(dialog, second));
    EXPECT_FALSE(testing_support::HasDefaultLook(first));
    EXPECT_TRUE(testing_support::HasDefaultLook(second));
    EXPECT_EQ(DefaultButton(dialog), second);
}

TEST_F(DialogWindow, TheClassIsRegisteredOnceAndAfterAFailureTriedAgain) {
    ToolkitClass taken = {DialogClass, DefWindowProcW, 0, 0, false};
    RegisterToolkitClass(taken);
    EXPECT_FALSE(taken.registered);
    taken.name = u"ToolkitTestClass";
    for (int32_t i = 0; i < 2; i++) {
        RegisterToolkitClass(taken);
        EXPECT_TRUE(taken.registered);
    }
}

TEST_F(DialogWindow, OnlyDialogsHaveWhatDialogsHave) {
    const HWND edit = Edit();
    SetLastFocus(edit, dialog);
    SetModal(edit, true);
    EXPECT_FALSE(IsDialogWindow(edit));
    EXPECT_EQ(LastFocus(edit), nullptr);
    EXPECT_FALSE(IsModal(edit));
    EXPECT_FALSE(SetDefaultButton(edit, Button(u"button")));
    EXPECT_EQ(DefaultButton(edit), nullptr);
}

}  // namespace
}  // namespace tallymere
