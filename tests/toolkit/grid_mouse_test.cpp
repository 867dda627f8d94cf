// Mouse, wheel and scroll bars of a grid.
#include "layout/grid_geometry.h"
#include "toolkit/grid_page.h"

namespace tallymere {
namespace {

using testing_support::Codes;
using testing_support::heardOfGrid;
using testing_support::TextOf;

class GridMouse : public testing_support::GridTest {
protected:
    void Drag(int32_t from, int32_t to) {
        SendMessageW(grid, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(from, 10));
        SendMessageW(grid, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(to, 10));
        SendMessageW(grid, WM_LBUTTONUP, 0, MAKELPARAM(to, 10));
    }

    bool HasBar(uint32_t style) { return (WindowStyle(grid) & style) != 0; }

    std::pair<int, int> Range(int bar) {
        std::pair<int, int> range;
        GetScrollRange(grid, bar, &range.first, &range.second);
        return range;
    }

    void FillRows(int32_t rows) {
        for (int32_t row = 4; row < rows; row++) {
            Ask(GridAddRow);
        }
        UpdateWindow(grid);
    }

    void Turn(int32_t delta) { Ask(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(delta))); }
};

TEST_F(GridMouse, AClickMovesTheCursorAndOpensTheEditor) {
    Write(1, 2, u"text");
    ClickCell(2, 3);
    EXPECT_EQ(Cursor(), (GridPlace{1, 2}));
    EXPECT_EQ(Edited(), "text");
    EXPECT_EQ(heardOfGrid.codes, (Codes{18, 3, 19, 4}));
    Forget();
    ClickCell(2, 3);
    // The editor loses the focus before the grid gets it.
    EXPECT_EQ(heardOfGrid.codes, (Codes{5, 18, 19, 4}));
    EXPECT_EQ(Edited(), "text");
}

TEST_F(GridMouse, AClickStoresWhatWasEdited) {
    ClickCell(1, 1);
    SetWindowTextW(Editor(), L"new");
    ClickCell(2, 2);
    EXPECT_EQ(Read(0, 0), u"new");
    EXPECT_EQ(Cursor(), (GridPlace{1, 1}));
    SetWindowTextW(Editor(), L"other");
    ClickCell(1, 0);
    EXPECT_EQ(Read(1, 1), u"other");
    EXPECT_EQ(GetFocus(), grid);
    EXPECT_EQ(Cursor(), (GridPlace{1, 1}));
}

TEST_F(GridMouse, AClickTakesTheCellThatTheUserSaw) {
    Ask(GridSetAutoWiden, 1);
    ClickCell(1, 1);
    SetWindowTextW(Editor(), L"888888888888888888888888888888");
    ClickCell(2, 2);
    EXPECT_GT(Ask(GridGetColumnWidth, 0), 100);
    EXPECT_EQ(Cursor(), (GridPlace{1, 1}));
}

TEST_F(GridMouse, AClickOnACellThatThePageTakesOutMovesNothing) {
    ClickCell(1, 1);
    heardOfGrid.react = [this](UINT code) {
        if (code == GridEditorClosed) {
            Ask(GridDeleteRow, 3);
        }
    };
    ClickCell(2, 4);
    EXPECT_EQ(Cursor(), (GridPlace{0, 0}));
    EXPECT_FALSE(IsEditing());
}

TEST_F(GridMouse, APageThatTakesTheFocusKeepsIt) {
    ClickCell(1, 1);
    heardOfGrid.react = [this](UINT code) {
        if (code == GridEditorClosed) {
            SetFocus(behind);
        }
    };
    ClickCell(2, 2);
    EXPECT_EQ(GetFocus(), behind);
    EXPECT_EQ(Cursor(), (GridPlace{0, 0}));
}

TEST_F(GridMouse, AClickOnHeadersOnlyGivesTheFocus) {
    for (const auto& [x, y] : {std::pair{25, 40}, {80, 10}, {80, 250}}) {
        SetFocus(before);
        Forget();
        Click(x, y);
        EXPECT_EQ(GetFocus(), grid);
        EXPECT_EQ(heardOfGrid.codes, Codes{18});
        EXPECT_EQ(Cursor(), (GridPlace{0, 0}));
    }
}

TEST_F(GridMouse, AProtectedCellIsOnlySelected) {
    AskCell(GridSetCellProtected, 1, 1, 1);
    ClickCell(2, 2);
    EXPECT_EQ(Cursor(), (GridPlace{1, 1}));
    EXPECT_EQ(GetFocus(), grid);
    EXPECT_EQ(heardOfGrid.codes, (Codes{18, 3}));
}

TEST_F(GridMouse, AClickIntoTheHeaderColumnSelectsARow) {
    Ask(GridSetCursor, 1, 0);
    ClickCell(0, 3);
    EXPECT_EQ(Cursor(), (GridPlace{1, 0}));
    Ask(GridSetRowSelect, 1);
    Forget();
    ClickCell(0, 3);
    EXPECT_EQ(Cursor(), (GridPlace{1, 2}));
    EXPECT_TRUE(State().isRowSelectActive);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(heardOfGrid.codes, Codes{3});
}

TEST_F(GridMouse, TheExtendedColumnIsHitBesideItsWidth) {
    ClickCell(6, 1);
    EXPECT_EQ(Cursor(), (GridPlace{2, 0}));
    Ask(GridSetCursor, 0, 0);
    Ask(GridSetExtendLastColumn, 0);
    ClickCell(6, 1);
    EXPECT_EQ(Cursor(), (GridPlace{0, 0}));
}

TEST_F(GridMouse, ColumnsAreResizedWhereThatIsAllowed) {
    Drag(102, 140);
    EXPECT_EQ(Ask(GridGetColumnWidth, 0), 50);
    Ask(GridSetAllowResize, 1);
    SetFocus(before);
    Drag(102, 140);
    EXPECT_EQ(Ask(GridGetColumnWidth, 0), 88);
    EXPECT_EQ(GetFocus(), before);
    Drag(135, 20);
    EXPECT_EQ(Ask(GridGetColumnWidth, 0), 0);
    Drag(98, 130);
    EXPECT_EQ(Ask(GridGetColumnWidth, 1), 82);
    Drag(50, 60);
    // Both edges are at 50: the column of width 0 is the one left of it.
    EXPECT_EQ(Ask(GridGetColumnWidth, 0), 10);
    Drag(45, 40);
    EXPECT_EQ(GridColumnWidth(State().table, 0), 45);
}

TEST_F(GridMouse, ResizingLastsAsLongAsTheButtonIsDown) {
    Ask(GridSetAllowResize, 1);
    SendMessageW(grid, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(100, 10));
    EXPECT_EQ(GetCapture(), grid);
    SendMessageW(grid, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(110, 10));
    EXPECT_EQ(Ask(GridGetColumnWidth, 0), 60);
    SendMessageW(grid, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(-500, 10));
    EXPECT_EQ(Ask(GridGetColumnWidth, 0), 0);
    SendMessageW(grid, WM_LBUTTONUP, 0, MAKELPARAM(-500, 10));
    EXPECT_NE(GetCapture(), grid);
    SendMessageW(grid, WM_MOUSEMOVE, 0, MAKELPARAM(200, 10));
    EXPECT_EQ(Ask(GridGetColumnWidth, 0), 0);
    SendMessageW(grid, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(100, 10));
    SetCapture(nullptr);
    ReleaseCapture();
    SendMessageW(grid, WM_MOUSEMOVE, 0, MAKELPARAM(200, 10));
    EXPECT_EQ(Ask(GridGetColumnWidth, 1), 50);
}

TEST_F(GridMouse, ResizingClosesTheEditor) {
    Ask(GridSetAllowResize, 1);
    ClickCell(2, 2);
    SetWindowTextW(Editor(), L"new");
    Drag(100, 120);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(Read(1, 1), u"new");
    EXPECT_EQ(Ask(GridGetColumnWidth, 0), 70);
}

TEST_F(GridMouse, TheCursorTellsAnEdge) {
    const auto isResize = [this](int32_t x) {
        POINT point = {x, 10};
        ClientToScreen(grid, &point);
        SetCursorPos(point.x, point.y);
        SendMessageW(grid, WM_SETCURSOR, reinterpret_cast<WPARAM>(grid),
                     MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        return GetCursor() == LoadCursorW(nullptr, IDC_SIZEWE);
    };
    EXPECT_FALSE(isResize(100));
    Ask(GridSetAllowResize, 1);
    EXPECT_TRUE(isResize(100));
    EXPECT_FALSE(isResize(125));
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW));
}

TEST_F(GridMouse, TheBarsComeAndGo) {
    UpdateWindow(grid);
    EXPECT_FALSE(HasBar(WS_VSCROLL) || HasBar(WS_HSCROLL));
    FillRows(20);
    EXPECT_TRUE(HasBar(WS_VSCROLL));
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    // 300 - 21 pixels hold 13 rows of 21.
    EXPECT_EQ(Range(SB_VERT), (std::pair{1, 8}));
    Ask(GridSetColumnWidth, 1, 300);
    UpdateWindow(grid);
    EXPECT_TRUE(HasBar(WS_HSCROLL));
    EXPECT_EQ(Range(SB_HORZ), (std::pair{1, 3}));
    Ask(GridHideColumn, 1, 1);
    UpdateWindow(grid);
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    for (int32_t row = 20; row > 13; row--) {
        Ask(GridDeleteRow, 0);
    }
    UpdateWindow(grid);
    EXPECT_FALSE(HasBar(WS_VSCROLL));
}

TEST_F(GridMouse, TheBarsFollowTheSizeOfTheWindow) {
    FillRows(13);
    EXPECT_FALSE(HasBar(WS_VSCROLL));
    SetControlSize(grid, 400, 293);
    EXPECT_TRUE(HasBar(WS_VSCROLL));
    SetControlSize(grid, 400, 294);
    EXPECT_FALSE(HasBar(WS_VSCROLL));
    SetControlSize(grid, 199, 294);
    EXPECT_TRUE(HasBar(WS_HSCROLL));
}

TEST_F(GridMouse, WhenAllRowsFitAgainTheCursorGoesToTheFirst) {
    FillRows(20);
    AskCell(GridSetCursorEdit, 1, 2, 19);
    SetWindowTextW(Editor(), L"last");
    ASSERT_EQ(State().topRow, 8);
    Forget();
    SetControlSize(grid, 400, 600);
    EXPECT_FALSE(HasBar(WS_VSCROLL));
    EXPECT_EQ(State().topRow, 1);
    EXPECT_EQ(Cursor(), (GridPlace{0, 0}));
    EXPECT_TRUE(IsEditing());
    EXPECT_EQ(Read(2, 19), u"last");
    EXPECT_EQ(heardOfGrid.codes, (Codes{18, 5, 3, 6, 19, 4}));
    EXPECT_EQ(heardOfGrid.all[3].key, uint32_t{VK_SHIFT});
}

TEST_F(GridMouse, WhenAllRowsFitAgainAnotherControlKeepsTheFocus) {
    FillRows(20);
    Ask(GridSetCursor, 2, 19);
    ASSERT_EQ(State().topRow, 8);
    SetFocus(before);
    Forget();
    for (int32_t row = 20; row > 13; row--) {
        Ask(GridDeleteRow, 0);
    }
    UpdateWindow(grid);
    EXPECT_FALSE(HasBar(WS_VSCROLL));
    EXPECT_EQ(Cursor(), (GridPlace{0, 0}));
    EXPECT_EQ(GetFocus(), before);
    EXPECT_FALSE(IsEditing());
}

TEST_F(GridMouse, TheCursorIsNotUnderABarThatComesWithIt) {
    Ask(GridSetExtendLastColumn, 0);
    for (int32_t row = 4; row < 13; row++) {
        Ask(GridAddRow);
    }
    UpdateWindow(grid);
    ASSERT_FALSE(HasBar(WS_VSCROLL) || HasBar(WS_HSCROLL));
    // The columns become too wide, and so the bar covers the last row, which the cursor goes to.
    Ask(GridSetColumnWidth, 0, 400);
    Ask(GridSetCursor, 0, 12);
    EXPECT_TRUE(HasBar(WS_HSCROLL));
    EXPECT_LE(GridRowTop(State(), 13) + 21, State().clientHeight);
}

TEST_F(GridMouse, AScrollBarThatMovesNothingLeavesTheEditorOpen) {
    FillRows(20);
    ClickCell(1, 1);
    Ask(WM_VSCROLL, SB_LINEUP);
    Ask(WM_VSCROLL, SB_ENDSCROLL);
    Ask(WM_HSCROLL, SB_LINERIGHT);
    EXPECT_TRUE(IsEditing());
    Ask(WM_VSCROLL, SB_LINEDOWN);
    EXPECT_FALSE(IsEditing());
}

TEST_F(GridMouse, AViewThatIsNotScrolledKeepsTheCursor) {
    FillRows(20);
    Ask(GridSetCursor, 1, 3);
    Forget();
    SetControlSize(grid, 400, 600);
    EXPECT_FALSE(HasBar(WS_VSCROLL));
    EXPECT_EQ(Cursor(), (GridPlace{1, 3}));
    EXPECT_EQ(heardOfGrid.codes, Codes{});
}

TEST_F(GridMouse, TheFirstVisibleColumnIsTheOneOfTheView) {
    FillRows(20);
    Ask(GridHideColumn, 0, 1);
    Ask(GridSetCursor, 2, 19);
    SetControlSize(grid, 400, 600);
    EXPECT_EQ(Cursor(), (GridPlace{1, 0}));
}

TEST_F(GridMouse, TheBarsScroll) {
    FillRows(20);
    const auto scroll = [this](UINT message, int request, int position = 0) {
        Ask(message, MAKEWPARAM(request, position));
        return message == WM_VSCROLL ? State().topRow : State().leftColumn;
    };
    EXPECT_EQ(scroll(WM_VSCROLL, SB_LINEDOWN), 2);
    EXPECT_EQ(GetScrollPos(grid, SB_VERT), 2);
    EXPECT_EQ(scroll(WM_VSCROLL, SB_PAGEDOWN), 8);
    EXPECT_EQ(scroll(WM_VSCROLL, SB_LINEUP), 7);
    EXPECT_EQ(scroll(WM_VSCROLL, SB_PAGEUP), 1);
    EXPECT_EQ(scroll(WM_VSCROLL, SB_BOTTOM), 8);
    EXPECT_EQ(scroll(WM_VSCROLL, SB_TOP), 1);
    EXPECT_EQ(scroll(WM_VSCROLL, SB_THUMBPOSITION, 5), 5);
    EXPECT_EQ(scroll(WM_VSCROLL, SB_THUMBTRACK, 3), 3);
    EXPECT_EQ(scroll(WM_VSCROLL, SB_ENDSCROLL), 3);
    Ask(GridSetColumnWidth, 1, 400);
    UpdateWindow(grid);
    EXPECT_EQ(scroll(WM_HSCROLL, SB_LINERIGHT), 2);
    EXPECT_EQ(GetScrollPos(grid, SB_HORZ), 2);
    EXPECT_EQ(scroll(WM_HSCROLL, SB_RIGHT), 3);
    EXPECT_EQ(scroll(WM_HSCROLL, SB_THUMBPOSITION, 1), 1);
    EXPECT_EQ(State().topRow, 3);
    EXPECT_EQ(Cursor(), (GridPlace{0, 0}));
}

TEST_F(GridMouse, ScrollingStoresTheTextOfTheEditor) {
    FillRows(20);
    ClickCell(1, 1);
    SetWindowTextW(Editor(), L"new");
    Ask(WM_VSCROLL, SB_LINEDOWN);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(Read(0, 0), u"new");
    EXPECT_EQ(State().topRow, 2);
}

TEST_F(GridMouse, TheWheelScrollsLines) {
    Turn(-60);
    EXPECT_EQ(State().topRow, 1);
    EXPECT_EQ(Record().wheelTurned, 0);
    FillRows(20);
    Turn(-120);
    EXPECT_EQ(State().topRow, 2);
    Turn(-60);
    EXPECT_EQ(State().topRow, 2);
    Turn(-300);
    EXPECT_EQ(State().topRow, 5);
    EXPECT_EQ(Record().wheelTurned, 0);
    Turn(240);
    EXPECT_EQ(State().topRow, 3);
}

TEST_F(GridMouse, TheWheelInTheEditorStoresItsTextAndScrolls) {
    FillRows(20);
    ClickCell(1, 1);
    SetWindowTextW(Editor(), L"new");
    SendMessageW(Editor(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-120)), 0);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(GetFocus(), grid);
    EXPECT_EQ(Read(0, 0), u"new");
    EXPECT_EQ(State().topRow, 2);
}

}  // namespace
}  // namespace tallymere
