// The keyboard in a grid and in its editor.
#include <algorithm>

#include "toolkit/control_focus.h"
#include "toolkit/grid_page.h"
#include "toolkit/text_measure.h"

namespace tallymere {
namespace {

using testing_support::Codes;
using testing_support::heardOfGrid;
using testing_support::PressKey;
using testing_support::TextOf;
using testing_support::TypeCharacter;
using testing_support::WholeText;

class GridKeyboard : public testing_support::GridTest {
protected:
    // The cursor on the cell in the middle, which has a text, without editor.
    GridKeyboard() {
        Write(1, 1, u"text");
        Ask(GridSetCursor, 1, 1);
        SetFocus(grid);
        Forget();
    }

    void OpenMiddle() {
        AskCell(GridSetCursorEdit, 0, 1, 1);
        ASSERT_EQ(Edited(), "text");
        Forget();
    }

    void Select(int from, int to) { SendMessageW(Editor(), EM_SETSEL, from, to); }
    int64_t Caret() {
        DWORD start = 0;
        DWORD end = 0;
        SendMessageW(Editor(), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                     reinterpret_cast<LPARAM>(&end));
        EXPECT_EQ(start, end);
        return start;
    }
};

TEST_F(GridKeyboard, ThePageHearsOfTheFocusWithTheOtherWindow) {
    SetFocus(before);
    SetFocus(grid);
    ASSERT_EQ(heardOfGrid.codes, (Codes{19, 18}));
    EXPECT_EQ(heardOfGrid.all[0].otherWindow, before);
    EXPECT_EQ(heardOfGrid.all[1].otherWindow, before);
    EXPECT_EQ(heardOfGrid.all[1].header.hwndFrom, grid);
    EXPECT_EQ(heardOfGrid.all[1].column, 1);
    EXPECT_EQ(heardOfGrid.all[1].row, 1);
    EXPECT_TRUE(Record().hasFocus);
    EXPECT_GT(Record().textHeight, 5);
    EXPECT_EQ(LastFocus(page), grid);
    EXPECT_FALSE(IsEditing());
}

TEST_F(GridKeyboard, MovingKeysTellTheKeyThenTheMoveThenTheEditor) {
    const struct {
        int key;
        GridPlace place;
    } moves[] = {{VK_UP, {1, 0}},    {VK_DOWN, {1, 2}}, {VK_LEFT, {0, 1}}, {VK_RIGHT, {2, 1}},
                 {VK_PRIOR, {1, 0}}, {VK_NEXT, {1, 3}}, {VK_HOME, {0, 1}}, {VK_END, {2, 1}}};
    for (const auto& [key, place] : moves) {
        Ask(GridSetCursor, 1, 1);
        SetFocus(grid);
        Forget();
        Press(key);
        EXPECT_EQ(Cursor(), place) << key;
        EXPECT_EQ(heardOfGrid.codes, (Codes{6, 3, 19, 4})) << key;
        EXPECT_EQ(heardOfGrid.all[0].key, static_cast<uint32_t>(key));
        EXPECT_EQ(heardOfGrid.all[0].column, 1);
        EXPECT_EQ(heardOfGrid.all[2].otherWindow, Editor());
        EXPECT_TRUE(IsEditing());
    }
}

TEST_F(GridKeyboard, AtTheEndOnlyTheEditorOpens) {
    Ask(GridSetCursor, 0, 0);
    for (const int key : {VK_UP, VK_PRIOR, VK_LEFT, VK_HOME}) {
        SetFocus(grid);
        Forget();
        Press(key);
        EXPECT_EQ(Cursor(), (GridPlace{0, 0}));
        EXPECT_EQ(heardOfGrid.codes, (Codes{6, 19, 4})) << key;
    }
}

TEST_F(GridKeyboard, AMoveOpensTheEditorWithTheTextOfTheCell) {
    Write(1, 2, u"below");
    Press(VK_DOWN);
    EXPECT_EQ(Edited(), "below");
    EXPECT_EQ(Caret(), 5);
}

TEST_F(GridKeyboard, ThePageHearsOfKeysThatDoNothing) {
    for (const int key :
         {VK_RETURN, VK_MENU, VK_PAUSE, VK_CAPITAL, VK_INSERT, VK_LWIN, VK_RWIN, VK_APPS, VK_F1,
          VK_F2, VK_F24, VK_NUMLOCK, VK_SHIFT, VK_CONTROL, VK_ESCAPE}) {
        Forget();
        Press(key);
        EXPECT_EQ(heardOfGrid.codes, Codes{6}) << key;
        EXPECT_EQ(heardOfGrid.all[0].key, static_cast<uint32_t>(key));
        EXPECT_EQ(GetFocus(), grid) << key;
    }
    EXPECT_EQ(Read(1, 1), u"text");
}

TEST_F(GridKeyboard, ReturnDoesNotClickTheDefaultButton) {
    // Who wants all keys gets Return in place of the default button.
    SetDefaultButton(page, behind);
    EXPECT_TRUE(WantsAllKeys(grid));
    PressCharacter(VK_RETURN, u'\r');
    EXPECT_EQ(GetFocus(), grid);
    EXPECT_EQ(heardOfGrid.codes, Codes{6});
}

TEST_F(GridKeyboard, ACharacterReplacesTheText) {
    PressCharacter('7', u'7');
    EXPECT_EQ(Edited(), "7");
    EXPECT_EQ(Caret(), 1);
    EXPECT_EQ(heardOfGrid.codes, (Codes{6, 19, 4}));
    EXPECT_EQ(Read(1, 1), u"text");
    TypeCharacter(Editor(), u'1');
    PressCharacter(VK_RETURN, u'\r');
    EXPECT_EQ(Read(1, 1), u"71");
}

TEST_F(GridKeyboard, AnEditorThatThePageClosesAtOnceIsNotHeardAsOpen) {
    heardOfGrid.react = [this](UINT code) {
        if (code == GridFocusLost) {
            Ask(GridSetEditable, 0);
        }
    };
    Press('7');
    heardOfGrid.react = nullptr;
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(std::count(heardOfGrid.codes.begin(), heardOfGrid.codes.end(), 4u), 0);
    EXPECT_EQ(std::count(heardOfGrid.codes.begin(), heardOfGrid.codes.end(), 5u), 1);
}

TEST_F(GridKeyboard, ShiftIsInTheCharacter) {
    Press('A', VK_SHIFT);
    EXPECT_EQ(Edited(), "A");
    Press(VK_ESCAPE);
    Press('A');
    EXPECT_EQ(Edited(), "a");
}

TEST_F(GridKeyboard, DeleteOpensTheEditorEmpty) {
    for (const int key : {VK_DELETE, VK_BACK}) {
        Press(key);
        EXPECT_EQ(Edited(), "") << key;
        EXPECT_EQ(Read(1, 1), u"text");
        Press(VK_ESCAPE);
    }
}

TEST_F(GridKeyboard, AKeyWithControlOpensNothing) {
    Press('C', VK_CONTROL);
    EXPECT_EQ(Edited(), "not edited");
}

TEST_F(GridKeyboard, ADeadKeyWaitsForTheKeyBehindIt) {
    PressTranslated(VK_OEM_6, u"\u00B4", WM_DEADCHAR);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(Read(1, 1), u"text");
    PressTranslated('E', u"\u00E9");
    EXPECT_EQ(WholeText(Editor()), u"\u00E9");
    Press(VK_ESCAPE);
    // With a key that it does not go with, both characters come.
    PressTranslated(VK_OEM_6, u"^", WM_DEADCHAR);
    PressTranslated('2', u"^2");
    EXPECT_EQ(Edited(), "^2");
    EXPECT_EQ(Caret(), 2);
}

// Programs that type for the user have no keys for what they type.
TEST_F(GridKeyboard, ACharacterThatIsNoKeyIsTyped) {
    PressTranslated(VK_PACKET, u"\u221A");
    EXPECT_EQ(WholeText(Editor()), u"\u221A");
    PressTranslated(VK_PACKET, u"2");
    EXPECT_EQ(WholeText(Editor()), u"\u221A2");
}

TEST_F(GridKeyboard, AltGrWritesCharacters) {
    BYTE keys[256] = {};
    keys[VK_CONTROL] = keys[VK_MENU] = 0x80;
    SetKeyboardState(keys);
    constexpr LPARAM WithAlt = 1 | 1 << 29;
    PressTranslated('F', u"", WM_CHAR, WithAlt);
    EXPECT_FALSE(IsEditing()) << "that key has no character with AltGr";
    PressTranslated('Q', u"@", WM_CHAR, WithAlt);
    std::fill_n(keys, 256, BYTE{0});
    SetKeyboardState(keys);
    EXPECT_EQ(Edited(), "@");
}

TEST_F(GridKeyboard, CharactersOfAnInputMethodAreTyped) {
    Press(VK_PROCESSKEY);
    EXPECT_FALSE(IsEditing());
    // They come to the window in which the composing began.
    for (const char16_t character : {u'\u4E8C', u'\u4E09'}) {
        TypeCharacter(grid, character);
    }
    EXPECT_TRUE(IsEditing());
    EXPECT_EQ(WholeText(Editor()), u"\u4E8C\u4E09");
    Press(VK_ESCAPE);
    for (const char16_t character : {u'\r', u'\b', u'\x1B', u'\x7F'}) {
        TypeCharacter(grid, character);
        EXPECT_FALSE(IsEditing()) << int{character};
    }
    AskCell(GridSetCellProtected, 1, 1, 1);
    TypeCharacter(grid, u'7');
    EXPECT_FALSE(IsEditing());
}

// As from a keyboard on the screen, which holds keys of its own.
TEST_F(GridKeyboard, ACharacterWithoutAKeyIsTypedWithAltGrButNotWithControl) {
    BYTE keys[256] = {};
    keys[VK_CONTROL] = 0x80;
    SetKeyboardState(keys);
    TypeCharacter(grid, u' ');
    EXPECT_FALSE(IsEditing());
    keys[VK_MENU] = 0x80;
    SetKeyboardState(keys);
    TypeCharacter(grid, u'@');
    keys[VK_CONTROL] = keys[VK_MENU] = 0;
    SetKeyboardState(keys);
    EXPECT_EQ(Edited(), "@");
}

TEST_F(GridKeyboard, KeysWithoutACharacterLeaveTheCellAsItIs) {
    for (const int key : {VK_CLEAR, VK_SELECT, VK_HELP, VK_SLEEP, VK_PACKET, VK_PROCESSKEY}) {
        PressTranslated(key, u"");
        EXPECT_FALSE(IsEditing()) << key;
    }
    // Control with the space bar has one, which is no text.
    BYTE keys[256] = {};
    keys[VK_CONTROL] = 0x80;
    SetKeyboardState(keys);
    PressTranslated(VK_SPACE, u" ");
    keys[VK_CONTROL] = 0;
    SetKeyboardState(keys);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(Read(1, 1), u"text");
}

TEST_F(GridKeyboard, TheEndOfTheProgramIsNotTakenForACharacter) {
    PostQuitMessage(7);
    Press(VK_DELETE);
    EXPECT_EQ(Edited(), "");
    MSG message;
    EXPECT_EQ(GetMessageW(&message, nullptr, 0, 0), 0);
    EXPECT_EQ(message.wParam, 7u);
}

TEST_F(GridKeyboard, TheAltBitKeepsTheText) {
    SendMessageW(grid, WM_KEYDOWN, 'A', 1 | 1 << 29);
    EXPECT_EQ(Edited(), "text");
}

TEST_F(GridKeyboard, AProtectedCellOpensNoEditor) {
    AskCell(GridSetCellProtected, 1, 1, 1);
    PressCharacter('7', u'7');
    EXPECT_EQ(GetFocus(), grid);
    AskCell(GridSetCellProtected, 1, 1, 2);
    Press(VK_DOWN);
    EXPECT_EQ(Cursor(), (GridPlace{1, 2}));
    EXPECT_EQ(GetFocus(), grid);
    EXPECT_EQ(Editor(), nullptr);
}

TEST_F(GridKeyboard, HiddenColumnsAreSkipped) {
    Ask(GridHideColumn, 1, 1);
    Ask(GridSetCursor, 0, 1);
    SetFocus(grid);
    Press(VK_RIGHT);
    EXPECT_EQ(Cursor(), (GridPlace{2, 1}));
    Press(VK_LEFT);
    EXPECT_EQ(Cursor(), (GridPlace{0, 1}));
}

TEST_F(GridKeyboard, RightEndsActiveRowSelectAndMoves) {
    Ask(GridSetRowSelect, 3);
    Press(VK_DOWN);
    EXPECT_EQ(Cursor(), (GridPlace{1, 2}));
    EXPECT_FALSE(IsEditing());
    PressCharacter('7', u'7');
    EXPECT_FALSE(IsEditing());
    Press(VK_LEFT);
    EXPECT_TRUE(State().isRowSelectActive);
    Press(VK_RIGHT);
    EXPECT_FALSE(State().isRowSelectActive);
    EXPECT_EQ(Cursor(), (GridPlace{1, 2}));
    EXPECT_TRUE(IsEditing());
}

TEST_F(GridKeyboard, TabLeavesTheGrid) {
    Press(VK_TAB);
    EXPECT_EQ(GetFocus(), behind);
    EXPECT_EQ(heardOfGrid.codes, (Codes{6, 19}));
    SetFocus(grid);
    Press(VK_TAB, VK_SHIFT);
    EXPECT_EQ(GetFocus(), before);
    PressKey(before, VK_TAB);
    EXPECT_EQ(GetFocus(), grid);
    Press(VK_TAB, VK_CONTROL);
    EXPECT_EQ(GetFocus(), grid);
}

TEST_F(GridKeyboard, TabLeavesTheGridFromTheEditorAndStoresTheText) {
    OpenMiddle();
    SetWindowTextW(Editor(), L"new");
    const HWND editor = Editor();
    SendMessageW(editor, WM_KEYDOWN, VK_TAB, 1);
    TypeCharacter(editor, u'\t');
    EXPECT_EQ(GetFocus(), behind);
    EXPECT_EQ(Read(1, 1), u"new");
    EXPECT_EQ(heardOfGrid.codes, (Codes{18, 5, 6, 19}));
    AskCell(GridSetCursorEdit, 0, 1, 1);
    ASSERT_EQ(Edited(), "new");
    Press(VK_TAB, VK_SHIFT);
    EXPECT_EQ(GetFocus(), before);
    EXPECT_EQ(Read(1, 1), u"new");
}

TEST_F(GridKeyboard, TheEditorIsAnEditControlWithItsProcedureKept) {
    OpenMiddle();
    EXPECT_TRUE(testing_support::HasClass(Editor(), u"Edit"));
    EXPECT_EQ(GetDlgCtrlID(Editor()), 2001);
    EXPECT_EQ(GetParent(Editor()), grid);
    const uint32_t style = ES_MULTILINE | ES_AUTOHSCROLL | ES_WANTRETURN | WS_CHILD | WS_VISIBLE;
    EXPECT_EQ(WindowStyle(Editor()) & style, style);
    EXPECT_EQ(WindowStyle(Editor()) & (WS_BORDER | WS_TABSTOP | WS_VSCROLL), 0u);
    EXPECT_NE(GetWindowLongPtrW(Editor(), GWL_EXSTYLE) & WS_EX_TRANSPARENT, 0);
    EXPECT_NE(GetPropW(Editor(), L"Wprc"), nullptr);
    EXPECT_EQ(SendMessageW(Editor(), EM_GETLIMITTEXT, 0, 0), 0x7FFFFFFE);
    EXPECT_EQ(Caret(), 4);
}

TEST_F(GridKeyboard, TheEditorStandsInItsCell) {
    const struct {
        int32_t dpi;
        LayoutRect place;
    } places[] = {{96, {101, 44, 48, 18}}, {120, {101, 43, 48, 18}}, {144, {101, 42, 48, 18}}};
    for (const auto& [dpi, place] : places) {
        screenDpi = dpi;
        AskCell(GridSetCursorEdit, 0, 1, 1);
        EXPECT_EQ(PlaceInParent(Editor()), place) << dpi;
        RECT rect = {};
        SendMessageW(Editor(), EM_GETRECT, 0, reinterpret_cast<LPARAM>(&rect));
        // The line stands in the middle.
        const int32_t line = TextMeasure(Editor(), Record().cellFont).LineHeight();
        EXPECT_GT(line, 5);
        EXPECT_EQ(rect.top, std::max((18 - line) / 2, 0));
        Ask(GridSetCursor, 0, 0);
    }
}

TEST_F(GridKeyboard, TheEditorFollowsItsCell) {
    OpenMiddle();
    Ask(GridSetColumnWidth, 0, 70);
    EXPECT_EQ(PlaceInParent(Editor()).x, 121);
    Ask(GridSetHeaderHeight, 31);
    EXPECT_EQ(PlaceInParent(Editor()).y, 54);
    Ask(GridSetColumnWidth, 1, 80);
    EXPECT_EQ(PlaceInParent(Editor()).width, 78);
    EXPECT_TRUE(IsEditing());
}

TEST_F(GridKeyboard, ReturnStoresTheText) {
    OpenMiddle();
    SetWindowTextW(Editor(), L"new");
    const HWND editor = Editor();
    PressCharacter(VK_RETURN, u'\r');
    EXPECT_EQ(Read(1, 1), u"new");
    EXPECT_EQ(GetFocus(), grid);
    EXPECT_FALSE(IsWindowVisible(editor));
    EXPECT_EQ(Editor(), editor);
    EXPECT_EQ(heardOfGrid.codes, (Codes{18, 5}));
    EXPECT_EQ(Cursor(), (GridPlace{1, 1}));
}

TEST_F(GridKeyboard, TheCommandOfReturnIsHeardFromTheEditorAlone) {
    OpenMiddle();
    SendMessageW(grid, WM_COMMAND, MAKEWPARAM(2001, 777), reinterpret_cast<LPARAM>(before));
    SendMessageW(grid, WM_COMMAND, MAKEWPARAM(2001, 776), reinterpret_cast<LPARAM>(Editor()));
    EXPECT_TRUE(IsEditing());
    SendMessageW(grid, WM_COMMAND, MAKEWPARAM(2001, 777), reinterpret_cast<LPARAM>(Editor()));
    EXPECT_FALSE(IsEditing());
}

TEST_F(GridKeyboard, EscapeKeepsTheOldText) {
    OpenMiddle();
    SetWindowTextW(Editor(), L"new");
    const HWND editor = Editor();
    PressCharacter(VK_ESCAPE, u'\x1B');
    EXPECT_EQ(Read(1, 1), u"text");
    EXPECT_EQ(GetFocus(), grid);
    EXPECT_FALSE(IsWindowVisible(editor));
    EXPECT_EQ(heardOfGrid.codes, Codes{18});
}

TEST_F(GridKeyboard, LosingTheFocusStoresTheTextAndMovesNoFocus) {
    OpenMiddle();
    SetWindowTextW(Editor(), L"new");
    SetFocus(before);
    EXPECT_EQ(Read(1, 1), u"new");
    EXPECT_EQ(GetFocus(), before);
    EXPECT_FALSE(IsWindowVisible(Editor()));
    EXPECT_EQ(heardOfGrid.codes, Codes{5});
}

TEST_F(GridKeyboard, KeysThatLeaveTheCellStoreItsText) {
    for (const int key : {VK_UP, VK_DOWN, VK_PRIOR, VK_NEXT, VK_LEFT, VK_RIGHT}) {
        Write(1, 1, u"text");
        OpenMiddle();
        const HWND editor = Editor();
        const std::wstring text = L"new " + std::to_wstring(key);
        SetWindowTextW(editor, text.c_str());
        const auto caret = static_cast<int>(key == VK_LEFT ? 0 : text.size());
        Select(caret, caret);
        Press(key);
        EXPECT_EQ(Read(1, 1), std::u16string(text.begin(), text.end()));
        EXPECT_EQ(heardOfGrid.codes, (Codes{18, 5, 6, 3, 19, 4})) << key;
        EXPECT_TRUE(IsEditing());
        EXPECT_NE(Cursor(), (GridPlace{1, 1}));
        EXPECT_EQ(Edited(), "");
    }
}

TEST_F(GridKeyboard, UpOnTheFirstRowAndDownOnTheLastStayInTheEditor) {
    Write(1, 0, u"first");
    Write(1, 3, u"last");
    for (const auto& [row, key] :
         {std::pair{0, VK_UP}, {0, VK_PRIOR}, {3, VK_DOWN}, {3, VK_NEXT}}) {
        AskCell(GridSetCursorEdit, 0, 1, row);
        SetWindowTextW(Editor(), L"new");
        Forget();
        Press(key);
        EXPECT_EQ(Edited(), "new");
        EXPECT_EQ(Read(1, row), row == 0 ? u"first" : u"last");
        Press(VK_ESCAPE);
        Forget();
        EXPECT_EQ(heardOfGrid.codes, Codes{});
        EXPECT_EQ(Cursor().row, row);
    }
}

TEST_F(GridKeyboard, DownOnTheLastRowMovesTheCaretOfTheEditor) {
    Write(1, 3, u"two\r\nlines");
    AskCell(GridSetCursorEdit, 0, 1, 3);
    Select(1, 1);
    Press(VK_DOWN);
    EXPECT_EQ(Caret(), 6);
    Press(VK_UP);
    EXPECT_EQ(Cursor().row, 2);
}

TEST_F(GridKeyboard, LeftAndRightMoveTheCaretUntilTheEnds) {
    OpenMiddle();
    Press(VK_LEFT);
    EXPECT_EQ(Caret(), 3);
    Press(VK_RIGHT);
    EXPECT_EQ(Caret(), 4);
    Select(0, 4);
    Press(VK_LEFT);
    EXPECT_EQ(Cursor().column, 1);
    EXPECT_EQ(heardOfGrid.codes, Codes{});
    Select(0, 0);
    Press(VK_LEFT);
    EXPECT_EQ(Cursor(), (GridPlace{0, 1}));
    EXPECT_EQ(heardOfGrid.codes, (Codes{18, 5, 6, 3, 19, 4}));
    Press(VK_LEFT);
    EXPECT_EQ(Cursor(), (GridPlace{0, 1}));
    Press(VK_RIGHT);
    EXPECT_EQ(Cursor(), (GridPlace{1, 1}));
    EXPECT_EQ(Edited(), "text");
    Press(VK_RIGHT);
    EXPECT_EQ(Cursor(), (GridPlace{2, 1}));
    Press(VK_RIGHT);
    EXPECT_EQ(Cursor(), (GridPlace{2, 1}));
}

TEST_F(GridKeyboard, TheEditorIsUsedAgainUntilTheCursorMoves) {
    OpenMiddle();
    const HWND editor = Editor();
    PressCharacter(VK_RETURN, u'\r');
    Press('5');
    EXPECT_EQ(Editor(), editor);
    PressCharacter(VK_RETURN, u'\r');
    Ask(GridSetCursor, 0, 0);
    EXPECT_FALSE(IsWindow(editor));
    EXPECT_EQ(Editor(), nullptr);
}

TEST_F(GridKeyboard, AutoWidenMakesRoomForWhatIsTyped) {
    Ask(GridSetAutoWiden, 1);
    OpenMiddle();
    SetWindowTextW(Editor(), L"888888888888888888888888888888");
    EXPECT_EQ(Ask(GridGetColumnWidth, 1), 50);
    PressCharacter(VK_RETURN, u'\r');
    EXPECT_GT(Ask(GridGetColumnWidth, 1), 100);
}

TEST_F(GridKeyboard, TheViewFollowsTheCursor) {
    for (int32_t row = 4; row < 30; row++) {
        Ask(GridAddRow);
    }
    UpdateWindow(grid);
    Press(VK_NEXT);
    EXPECT_EQ(Cursor().row, 14);
    Press(VK_NEXT);
    EXPECT_EQ(Cursor().row, 27);
    EXPECT_EQ(State().topRow, 16);
    EXPECT_EQ(GetScrollPos(grid, SB_VERT), 16);
}

}  // namespace
}  // namespace tallymere
