// The toolkit's own controls.
#include <algorithm>
#include <vector>

#include "shell/number_type_rows.h"
#include "toolkit/digit_count_control.h"
#include "toolkit/number_base_control.h"
#include "toolkit/number_type_control.h"
#include "toolkit/numeric_up_down.h"
#include "toolkit/splitter_control.h"
#include "toolkit/test_dialog.h"

namespace tallymere {
namespace {

using testing_support::HasClass;
using testing_support::PressKey;
using testing_support::TextOf;
using testing_support::TypeCharacter;

// What the controls told.
std::vector<int32_t> told;
HWND teller;

void NoteValue(HWND control, int32_t value) {
    teller = control;
    told.push_back(value);
}

void NoteBase(int32_t base) {
    told.push_back(base);
}

using Values = std::vector<int32_t>;

class NumericUpDown : public testing_support::ToolkitTest {
protected:
    NumericUpDown() {
        told.clear();
        numeric = CreateNumericUpDown(dialog, {10, 20, 65, 19});
        SetNumericChanged(numeric, NoteValue);
        edit = NumericEdit(numeric);
        elsewhere = Edit();
    }

    void TypeText(const wchar_t* text) {
        SetFocus(edit);
        SetWindowTextW(edit, text);
    }

    HWND numeric;
    HWND edit;
    HWND elsewhere;
};

TEST_F(NumericUpDown, StartsAtZeroOfAHundred) {
    EXPECT_TRUE(HasClass(numeric, u"cwl_NumericUpDown"));
    EXPECT_EQ(TextOf(edit), "0");
    EXPECT_EQ(NumericPosition(numeric), 0);
    EXPECT_EQ(SendMessageW(NumericSpin(numeric), UDM_GETRANGE, 0, 0), MAKELONG(100, 0));
    EXPECT_EQ(GetClassLongPtrW(numeric, GCL_CBWNDEXTRA), 32u);
    EXPECT_EQ(PlaceInParent(numeric), (LayoutRect{10, 20, 65, 19}));
    EXPECT_EQ(WindowStyle(edit) & (ES_RIGHT | ES_WANTRETURN), uint32_t{ES_RIGHT | ES_WANTRETURN});
    EXPECT_EQ(WindowStyle(NumericSpin(numeric)) & WS_TABSTOP, 0u);
    EXPECT_NE(GetWindowLongPtrW(edit, GWL_EXSTYLE) & WS_EX_CLIENTEDGE, 0);
    EXPECT_EQ(NextTabStop(dialog, true), edit);
}

TEST_F(NumericUpDown, TheSpinButtonsStandAtTheRightEndOfTheField) {
    const HWND spin = NumericSpin(numeric);
    EXPECT_EQ(reinterpret_cast<HWND>(SendMessageW(spin, UDM_GETBUDDY, 0, 0)), edit);
    const LayoutRect place = PlaceInParent(spin);
    EXPECT_GT(place.x, 65 / 2);
    EXPECT_GT(place.width, 0);
    EXPECT_LE(place.x + place.width, 65);
}

TEST_F(NumericUpDown, ItsFieldFillsItAtAnyResolution) {
    for (const int32_t dpi : {96, 120, 144, 192}) {
        screenDpi = dpi;
        const HWND control = CreateNumericUpDown(dialog, {115, 16, 65, 19});
        const LayoutRect field = PlaceInParent(NumericEdit(control));
        const LayoutRect spin = PlaceInParent(NumericSpin(control));
        EXPECT_EQ(ClientSize(control), (LayoutSize{ToPixels(65, dpi), ToPixels(19, dpi)})) << dpi;
        EXPECT_EQ((LayoutPoint{field.x, field.y}), (LayoutPoint{0, 0})) << dpi;
        EXPECT_EQ(field.height, ToPixels(19, dpi)) << dpi;
        EXPECT_GE(std::max(field.width, spin.x + spin.width + 2), ToPixels(65, dpi)) << dpi;
    }
}

TEST_F(NumericUpDown, ItsFieldTakesNumbersThatAreWiderThanItAndHasNoMargins) {
    const HWND narrow = CreateNumericUpDown(dialog, {200, 20, 30, 19});
    SetNumericRange(narrow, 0, 1'000'000);
    const HWND field = NumericEdit(narrow);
    EXPECT_EQ(SendMessageW(field, EM_GETMARGINS, 0, 0), 0);
    SetWindowTextW(field, L"");
    for (const char16_t c : std::u16string(u"123456")) {
        TypeCharacter(field, c);
    }
    EXPECT_EQ(TextOf(field), "123456");
    EXPECT_EQ(NumericPosition(narrow), 123'456);
}

TEST_F(NumericUpDown, ThePageIsNotToldOfWhatItSets) {
    SetNumericRange(numeric, 1, 10000);
    EXPECT_EQ(TextOf(edit), "1");
    SetNumericPosition(numeric, 10);
    EXPECT_EQ(TextOf(edit), "10");
    EXPECT_EQ(NumericPosition(numeric), 10);
    SetNumericPosition(numeric, 10001);
    EXPECT_EQ(TextOf(edit), "10000");
    SetNumericRange(numeric, 5, 2000);
    EXPECT_EQ(TextOf(edit), "2000");
    EXPECT_EQ(told, Values{});
}

TEST_F(NumericUpDown, ThePageIsToldWhenTheFocusLeaves) {
    TypeText(L"42");
    EXPECT_EQ(told, Values{});
    EXPECT_EQ(NumericPosition(numeric), 42);
    SetFocus(elsewhere);
    EXPECT_EQ(told, Values{42});
    EXPECT_EQ(teller, numeric);
    SetFocus(edit);
    SetFocus(elsewhere);
    EXPECT_EQ(told, Values{42});
}

TEST_F(NumericUpDown, ReturnTellsAndIsSwallowed) {
    SetDefaultButton(dialog, Button(u"default"));
    TypeText(L"43");
    PressKey(edit, VK_RETURN);
    TypeCharacter(edit, u'\r');
    EXPECT_EQ(told, Values{43});
    EXPECT_EQ(TextOf(edit), "43");
    EXPECT_EQ(testing_support::heard.clicks, 0);
    EXPECT_EQ(GetFocus(), edit);
}

WNDPROC editProc;
std::u16string charactersOfEdit;

LRESULT CALLBACK NoteCharacters(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CHAR) {
        charactersOfEdit += static_cast<char16_t>(wParam);
    }
    return CallWindowProcW(editProc, window, message, wParam, lParam);
}

TEST_F(NumericUpDown, TheReturnCharacterDoesNotReachTheEditControl) {
    auto* data = static_cast<ControlData*>(GetPropW(edit, ToWide(ControlDataProperty)));
    editProc = data->savedProc;
    data->savedProc = NoteCharacters;
    charactersOfEdit.clear();
    for (const char16_t character : {u'4', u'\r', u'\t', u'3'}) {
        TypeCharacter(edit, character);
    }
    EXPECT_EQ(charactersOfEdit, u"43");
}

TEST_F(NumericUpDown, ATypedNumberOutsideOfTheRangeIsClipped) {
    SetNumericRange(numeric, 2, 25);
    TypeText(L"26");
    SetFocus(elsewhere);
    EXPECT_EQ(TextOf(edit), "25");
    TypeText(L"0");
    EXPECT_EQ(NumericPosition(numeric), 2);
    SetFocus(elsewhere);
    EXPECT_EQ(TextOf(edit), "2");
    TypeText(L"99999999999999999999");
    SetFocus(elsewhere);
    EXPECT_EQ(TextOf(edit), "25");
    EXPECT_EQ(told, (Values{25, 2, 25}));
}

TEST_F(NumericUpDown, ATextThatIsNoNumberGivesWayToThePosition) {
    SetNumericRange(numeric, 1, 100);
    SetNumericPosition(numeric, 7);
    for (const wchar_t* text : {L"", L"abc", L"1x"}) {
        TypeText(text);
        SetFocus(elsewhere);
        EXPECT_EQ(TextOf(edit), "7");
    }
    EXPECT_EQ(told, Values{7});
}

TEST_F(NumericUpDown, EachStepIsTold) {
    SetFocus(edit);
    PressKey(edit, VK_UP);
    PressKey(edit, VK_UP);
    PressKey(edit, VK_DOWN);
    EXPECT_EQ(told, (Values{1, 2, 1}));
    EXPECT_EQ(TextOf(edit), "1");
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    EXPECT_EQ(start, 1u);
    EXPECT_EQ(end, 1u);
}

TEST_F(NumericUpDown, AStepSidewaysIsTold) {
    SetNumericPosition(numeric, 12);
    SendMessageW(numeric, WM_HSCROLL, SB_THUMBPOSITION, 0);
    EXPECT_EQ(told, Values{12});
}

TEST_F(NumericUpDown, NumbersAreWrittenWithoutSeparators) {
    SetNumericRange(numeric, 1, 10000);
    SetNumericPosition(numeric, 9999);
    SetFocus(edit);
    PressKey(edit, VK_UP);
    EXPECT_EQ(TextOf(edit), "10000");
}

void AskAgain(HWND control, int32_t value) {
    NoteValue(control, value);
    SyncNumericUpDown(control, true, true);
}

TEST_F(NumericUpDown, ThePageIsToldOnceEvenIfTheFieldLosesTheFocusMeanwhile) {
    SetNumericChanged(numeric, AskAgain);
    TypeText(L"42");
    SetFocus(elsewhere);
    EXPECT_EQ(told, Values{42});
}

TEST_F(NumericUpDown, AStepBehindTheEndIsNotTold) {
    SetFocus(edit);
    PressKey(edit, VK_DOWN);
    EXPECT_EQ(told, Values{});
}

TEST_F(NumericUpDown, AClickIntoTheFieldTellsAndGivesItTheFocus) {
    TypeText(L"9");
    SendMessageW(edit, WM_LBUTTONDOWN, MK_LBUTTON, 0);
    SendMessageW(edit, WM_LBUTTONUP, 0, 0);
    EXPECT_EQ(told, Values{9});
    EXPECT_EQ(GetFocus(), edit);
}

TEST_F(NumericUpDown, BothChildrenAreDisabledWithIt) {
    EnableWindow(numeric, FALSE);
    EXPECT_FALSE(IsWindowEnabled(edit));
    EXPECT_FALSE(IsWindowEnabled(NumericSpin(numeric)));
    EnableWindow(numeric, TRUE);
    EXPECT_TRUE(IsWindowEnabled(edit));
    EXPECT_TRUE(IsWindowEnabled(NumericSpin(numeric)));
}

TEST_F(NumericUpDown, NobodyNeedsToListen) {
    SetNumericChanged(numeric, nullptr);
    TypeText(L"42");
    SetFocus(elsewhere);
    EXPECT_EQ(TextOf(edit), "42");
    SetNumericChanged(numeric, NoteValue);
    SyncNumericUpDown(numeric, true, true);
    EXPECT_EQ(told, Values{});
}

class NumberBaseControl : public testing_support::ToolkitTest {
protected:
    NumberBaseControl() {
        told.clear();
        control = CreateNumberBaseControl(
            dialog, 120, 0, NumberBaseTwoLineLabel | NumberBaseOffers2 | NumberBaseOffers8);
        list = NumberBaseList(control);
    }

    HWND control;
    HWND list;
};

TEST_F(NumberBaseControl, OffersItsBases) {
    EXPECT_TRUE(HasClass(control, u"NumberBaseControl"));
    EXPECT_EQ(GetClassLongPtrW(control, GCL_CBWNDEXTRA), 24u);
    EXPECT_EQ(PlaceInParent(control), (LayoutRect{120, 0, 98, 42}));
    EXPECT_EQ(SelectedNumberBase(control), 0);
    std::string rows;
    for (WPARAM row = 0; row < 4; row++) {
        wchar_t text[8] = {};
        SendMessageW(list, CB_GETLBTEXT, row, reinterpret_cast<LPARAM>(text));
        rows += std::string(text, text + wcslen(text)) + " ";
    }
    EXPECT_EQ(rows, "2 8 10 16 ");
    EXPECT_EQ(SendMessageW(list, CB_GETCOUNT, 0, 0), 4);
}

TEST_F(NumberBaseControl, SelectsABaseThatItOffers) {
    SelectNumberBase(control, 16);
    EXPECT_EQ(SelectedNumberBase(control), 16);
    EXPECT_EQ(TextOf(list), "16");
    SelectNumberBase(control, 3);
    EXPECT_EQ(SelectedNumberBase(control), 16);
    SelectNumberBase(control, -1);
    EXPECT_EQ(SelectedNumberBase(control), 0);
}

TEST_F(NumberBaseControl, TellsTheBaseWhenTheListCloses) {
    SetNumberBaseChosen(control, NoteBase);
    SetFocus(list);
    SendMessageW(list, CB_SHOWDROPDOWN, TRUE, 0);
    SelectNumberBase(control, 8);
    EXPECT_EQ(told, Values{});
    SendMessageW(list, CB_SHOWDROPDOWN, FALSE, 0);
    EXPECT_EQ(told, Values{8});
    SelectNumberBase(control, -1);
    SendMessageW(list, CB_SHOWDROPDOWN, TRUE, 0);
    SendMessageW(list, CB_SHOWDROPDOWN, FALSE, 0);
    EXPECT_EQ(told, Values{8});
}

TEST_F(NumberBaseControl, BothChildrenAreDisabledWithIt) {
    EnableWindow(control, FALSE);
    EXPECT_FALSE(IsWindowEnabled(list));
    EXPECT_FALSE(IsWindowEnabled(NumberBaseLabel(control)));
    EnableWindow(control, TRUE);
    EXPECT_TRUE(IsWindowEnabled(list));
    EXPECT_TRUE(IsWindowEnabled(NumberBaseLabel(control)));
}

TEST_F(NumberBaseControl, NobodyNeedsToListen) {
    SelectNumberBase(control, 8);
    SetFocus(list);
    SendMessageW(list, CB_SHOWDROPDOWN, TRUE, 0);
    SendMessageW(list, CB_SHOWDROPDOWN, FALSE, 0);
    EXPECT_EQ(SelectedNumberBase(control), 8);
}

TEST_F(NumberBaseControl, AnArrowInTheClosedListTellsNothing) {
    SetNumberBaseChosen(control, NoteBase);
    SelectNumberBase(control, 8);
    SetFocus(list);
    PressKey(list, VK_DOWN);
    EXPECT_EQ(SelectedNumberBase(control), 10);
    EXPECT_EQ(told, Values{});
}

TEST_F(NumberBaseControl, ItsLabelKeepsTheHeightOfItsFrame) {
    const HWND label = NumberBaseLabel(control);
    SetWindowLongW(label, GWL_EXSTYLE, WS_EX_CLIENTEDGE);
    SetWindowPos(label, nullptr, 0, 0, 40, 20, SWP_NOMOVE | SWP_NOZORDER | SWP_FRAMECHANGED);
    const int32_t frame = 20 - ClientSize(label).height;
    EXPECT_GT(frame, 0);
    SetNumberBaseLabel(control, u"Output base");
    SetNumberBaseLabel(control, u"Output base");
    EXPECT_EQ(PlaceInParent(label).height, 30 + frame);
}

TEST_F(NumberBaseControl, ItsLabelIsPlacedWithItsText) {
    SetNumberBaseLabel(control, u"Output base");
    EXPECT_EQ(TextOf(NumberBaseLabel(control)), "Output base");
    EXPECT_EQ(PlaceInParent(NumberBaseLabel(control)), (LayoutRect{44, 2, 40, 30}));
    const LayoutRect place = PlaceInParent(list);
    EXPECT_EQ(place.x, 0);
    EXPECT_EQ(place.y, 6);
    EXPECT_EQ(place.width, 40);
}

TEST_F(NumberBaseControl, GrowsWithTheScreen) {
    screenDpi = 144;
    const HWND large = CreateNumberBaseControl(dialog, 120, 3, NumberBaseLabelAbove);
    SetNumberBaseLabel(large, u"Output base");
    EXPECT_EQ(PlaceInParent(large), (LayoutRect{180, 5, 147, 63}));
    EXPECT_EQ(PlaceInParent(NumberBaseLabel(large)), (LayoutRect{0, 0, 60, 23}));
    const LayoutRect place = PlaceInParent(NumberBaseList(large));
    EXPECT_EQ(place.x, 0);
    EXPECT_EQ(place.y, 27);
    EXPECT_EQ(place.width, 60);
}

class NumberTypeControl : public testing_support::ToolkitTest {
protected:
    NumberTypeControl() {
        told.clear();
        FillUiTextEnglish();
        control = CreateNumberTypeControl(dialog, 30, NumberTypeRows());
        SetNumberTypeChosen(control, NoteValue);
    }

    HWND control;
};

TEST_F(NumberTypeControl, OffersTheTypesOfAPage) {
    EXPECT_TRUE(HasClass(control, u"NumberTypeControl"));
    EXPECT_EQ(GetClassLongPtrW(control, GCL_CBWNDEXTRA), 16u);
    EXPECT_EQ(PlaceInParent(control), (LayoutRect{30, 29, 70, 23}));
    const HWND list = NumberTypeList(control);
    EXPECT_EQ(PlaceInParent(list).width, 70);
    EXPECT_EQ(SendMessageW(list, CB_GETCOUNT, 0, 0), 3);
    EXPECT_EQ(SendMessageW(list, CB_GETITEMDATA, 0, 0), 11);
    EXPECT_EQ(SendMessageW(list, CB_GETITEMDATA, 1, 0), 1);
    EXPECT_EQ(SendMessageW(list, CB_GETITEMDATA, 2, 0), 2);
    EXPECT_EQ(SelectedNumberType(control), 0);
    SelectNumberType(control, NumberTypeReal);
    EXPECT_EQ(SelectedNumberType(control), NumberTypeReal);
    EXPECT_EQ(
        TextOf(list),
        std::string(uiText.TextCtlReal,
                    uiText.TextCtlReal + std::char_traits<char16_t>::length(uiText.TextCtlReal)));
    EXPECT_EQ(told, Values{});
}

TEST_F(NumberTypeControl, TellsTheTypeThatTheUserSelects) {
    SelectNumberType(control, NumberTypeReal);
    SetFocus(NumberTypeList(control));
    PressKey(NumberTypeList(control), VK_DOWN);
    PressKey(NumberTypeList(control), VK_UP);
    PressKey(NumberTypeList(control), VK_UP);
    EXPECT_EQ(told, (Values{NumberTypeComplex, NumberTypeReal, NumberTypeRational}));
    EXPECT_EQ(teller, control);
}

TEST_F(NumberTypeControl, TellsThatNothingIsSelected) {
    const HWND list = NumberTypeList(control);
    SendMessageW(control, WM_COMMAND, MAKEWPARAM(0, CBN_SELCHANGE), reinterpret_cast<LPARAM>(list));
    EXPECT_EQ(told, Values{0});
    SendMessageW(control, WM_COMMAND, MAKEWPARAM(0, CBN_CLOSEUP), reinterpret_cast<LPARAM>(list));
    EXPECT_EQ(told, Values{0});
}

TEST_F(NumberTypeControl, NobodyNeedsToListen) {
    SetNumberTypeChosen(control, nullptr);
    SetFocus(NumberTypeList(control));
    PressKey(NumberTypeList(control), VK_DOWN);
    EXPECT_EQ(SelectedNumberType(control), NumberTypeRational);
    EXPECT_EQ(told, Values{});
}

bool allowsMove = true;

bool NoteMove(HWND splitter, int32_t difference) {
    NoteValue(splitter, difference);
    return allowsMove;
}

class SplitterControl : public testing_support::ToolkitTest {
protected:
    SplitterControl() {
        told.clear();
        allowsMove = true;
    }

    // Mouse messages at a point of the dialog.
    static void SendMouse(HWND splitter, UINT message, int x, int y) {
        POINT point = {x, y};
        MapWindowPoints(GetParent(splitter), splitter, &point, 1);
        SendMessageW(splitter, message, MK_LBUTTON, MAKELPARAM(point.x, point.y));
    }
};

TEST_F(SplitterControl, MovesAlongItsAxisAlone) {
    const HWND bar = CreateSplitter(dialog, {10, 100, 200, 4}, SplitterUpAndDown, NoteMove);
    SendMouse(bar, WM_LBUTTONDOWN, 50, 101);
    EXPECT_EQ(GetCapture(), bar);
    SendMouse(bar, WM_MOUSEMOVE, 60, 108);
    SendMouse(bar, WM_MOUSEMOVE, 70, 108);
    SendMouse(bar, WM_MOUSEMOVE, 70, 96);
    EXPECT_EQ(told, (Values{7, -12}));
    EXPECT_EQ(teller, bar);
    EXPECT_EQ(PlaceInParent(bar), (LayoutRect{10, 95, 200, 4}));
    SendMouse(bar, WM_LBUTTONUP, 70, 96);
    EXPECT_EQ(GetCapture(), nullptr);
    SendMouse(bar, WM_MOUSEMOVE, 70, 90);
    EXPECT_EQ(told.size(), 2u);
}

TEST_F(SplitterControl, MovesSidewaysWhenTurned) {
    const HWND bar = CreateSplitter(dialog, {100, 10, 4, 200}, SplitterLeftAndRight, NoteMove);
    EXPECT_TRUE(HasClass(bar, u"SplitterControl"));
    EXPECT_EQ(GetPropW(bar, L"Orientation"), reinterpret_cast<HANDLE>(1));
    EXPECT_EQ(GetPropW(bar, L"SplitterMovingEvent"), reinterpret_cast<HANDLE>(NoteMove));
    SendMouse(bar, WM_LBUTTONDOWN, 101, 50);
    SendMouse(bar, WM_MOUSEMOVE, 98, 60);
    EXPECT_EQ(told, Values{-3});
    EXPECT_EQ(PlaceInParent(bar), (LayoutRect{97, 10, 4, 200}));
    SendMouse(bar, WM_LBUTTONUP, 98, 60);
}

TEST_F(SplitterControl, TheMouseMayLeaveTheWindowWhileItDrags) {
    const HWND up = CreateSplitter(dialog, {10, 100, 200, 4}, SplitterUpAndDown, NoteMove);
    SendMouse(up, WM_LBUTTONDOWN, 50, 101);
    SendMouse(up, WM_MOUSEMOVE, 50, -9);
    const HWND left = CreateSplitter(dialog, {100, 10, 4, 200}, SplitterLeftAndRight, NoteMove);
    SendMouse(left, WM_LBUTTONDOWN, 101, 50);
    SendMouse(left, WM_MOUSEMOVE, -19, 50);
    EXPECT_EQ(told, (Values{-110, -120}));
    ReleaseCapture();
}

TEST_F(SplitterControl, TheCursorTellsHowItMoves) {
    const HWND up = CreateSplitter(dialog, {10, 100, 200, 4}, SplitterUpAndDown, NoteMove);
    const HWND left = CreateSplitter(dialog, {100, 10, 4, 200}, SplitterLeftAndRight, NoteMove);
    for (const UINT message : {WM_MOUSEMOVE, WM_LBUTTONDOWN}) {
        SetCursor(nullptr);
        SendMouse(up, message, 50, 101);
        EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_SIZENS));
        SetCursor(nullptr);
        SendMouse(left, message, 101, 50);
        EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_SIZEWE));
    }
    EXPECT_TRUE(SendMessageW(up, WM_SETCURSOR, reinterpret_cast<WPARAM>(up),
                             MAKELPARAM(HTCLIENT, WM_MOUSEMOVE)));
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_SIZENS));
    SendMessageW(up, WM_MOUSELEAVE, 0, 0);
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW));
}

TEST_F(SplitterControl, ARefusedMoveIsNotCaughtUp) {
    const HWND bar = CreateSplitter(dialog, {10, 100, 200, 4}, SplitterUpAndDown, NoteMove);
    SendMouse(bar, WM_LBUTTONDOWN, 50, 101);
    allowsMove = false;
    SendMouse(bar, WM_MOUSEMOVE, 50, 131);
    EXPECT_EQ(PlaceInParent(bar).y, 100);
    allowsMove = true;
    SendMouse(bar, WM_MOUSEMOVE, 50, 129);
    EXPECT_EQ(told, (Values{30, -2}));
    EXPECT_EQ(PlaceInParent(bar).y, 98);
    SendMouse(bar, WM_LBUTTONUP, 50, 129);
}

TEST_F(SplitterControl, StaysWithNobodyToAsk) {
    const HWND bar = CreateSplitter(dialog, {10, 100, 200, 4}, SplitterUpAndDown, nullptr);
    SendMouse(bar, WM_LBUTTONDOWN, 50, 101);
    SendMouse(bar, WM_MOUSEMOVE, 50, 120);
    EXPECT_EQ(PlaceInParent(bar), (LayoutRect{10, 100, 200, 4}));
    SendMessageW(bar, WM_MOUSELEAVE, 0, 0);
    EXPECT_EQ(GetCapture(), nullptr);
}

using DigitCountControl = testing_support::ToolkitTest;

TEST_F(DigitCountControl, HasItsLabelBesideOrAbove) {
    const HWND beside = CreateDigitCountControl(dialog, 7, 9, 0);
    EXPECT_TRUE(HasClass(beside, u"DigitCountControl"));
    EXPECT_EQ(GetClassLongPtrW(beside, GCL_CBWNDEXTRA), 16u);
    EXPECT_EQ(PlaceInParent(beside), (LayoutRect{7, 9, 98, 24}));
    EXPECT_EQ(PlaceInParent(DigitCountLabel(beside)), (LayoutRect{45, 1, 40, 20}));
    EXPECT_EQ(PlaceInParent(DigitCountField(beside)), (LayoutRect{0, 0, 40, 17}));
    const HWND above = CreateDigitCountControl(dialog, 7, 9, DigitCountLabelAbove);
    EXPECT_EQ(PlaceInParent(above), (LayoutRect{7, 9, 98, 35}));
    EXPECT_EQ(PlaceInParent(DigitCountLabel(above)), (LayoutRect{0, 0, 40, 20}));
    EXPECT_EQ(PlaceInParent(DigitCountField(above)), (LayoutRect{0, 17, 40, 17}));
}

TEST_F(DigitCountControl, GrowsWithTheScreen) {
    screenDpi = 192;
    const HWND above = CreateDigitCountControl(dialog, 7, 9, DigitCountLabelAbove);
    EXPECT_EQ(PlaceInParent(above), (LayoutRect{14, 18, 196, 70}));
    EXPECT_EQ(PlaceInParent(DigitCountField(above)), (LayoutRect{0, 34, 80, 34}));
}

TEST_F(DigitCountControl, ShowsTheCountWithABlankBehind) {
    const HWND control = CreateDigitCountControl(dialog, 0, 0, 0);
    const HWND field = DigitCountField(control);
    EXPECT_EQ(TextOf(field), "0 ");
    EXPECT_EQ(WindowStyle(field) & (SS_TYPEMASK | SS_SUNKEN), uint32_t{SS_RIGHT | SS_SUNKEN});
    ShowDigitCount(control, 20000);
    EXPECT_EQ(TextOf(field), "20000 ");
}

}  // namespace
}  // namespace tallymere
