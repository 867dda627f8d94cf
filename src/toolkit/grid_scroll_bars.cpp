#include "toolkit/grid_scroll_bars.h"

#include <cstdlib>

#include "layout/grid_geometry.h"
#include "toolkit/control_focus.h"
#include "toolkit/grid_editor.h"
#include "toolkit/grid_keyboard.h"

namespace tallymere {

namespace {

bool HasBar(const GridRecord& grid, int bar) {
    return (WindowStyle(grid.window) & (bar == SB_VERT ? WS_VSCROLL : WS_HSCROLL)) != 0;
}

GridRoom RoomOf(const GridRecord& grid) {
    GridRoom room = {.window = {grid.state.clientWidth, grid.state.clientHeight},
                     .verticalBar = GetSystemMetrics(SM_CXVSCROLL),
                     .horizontalBar = GetSystemMetrics(SM_CYHSCROLL)};
    room.window.width += HasBar(grid, SB_VERT) ? room.verticalBar : 0;
    room.window.height += HasBar(grid, SB_HORZ) ? room.horizontalBar : 0;
    return room;
}

// Changes nothing that is as it should be: every change paints the bar, and this runs before every
// painting of the grid.
void ApplyBar(GridRecord& grid, int bar, bool isNeeded, const GridScroll& scroll) {
    if (isNeeded) {
        int first = 0;
        int last = 0;
        GetScrollRange(grid.window, bar, &first, &last);
        if (first != 1 || last != scroll.last) {
            SetScrollRange(grid.window, bar, 1, scroll.last, FALSE);
        }
        if (GetScrollPos(grid.window, bar) != scroll.position) {
            SetScrollPos(grid.window, bar, scroll.position, TRUE);
        }
    }
    if (isNeeded != HasBar(grid, bar)) {
        ShowScrollBar(grid.window, bar, isNeeded);
    }
}

void ApplyBars(GridRecord& grid, const GridBars& bars) {
    grid.skipsSize = true;
    // Twice: the ranges depend on the size that is left, and the bars change it.
    for (int32_t round = 0; round < 2; round++) {
        ApplyBar(grid, SB_VERT, bars.vertical, VerticalGridScroll(grid.state));
        ApplyBar(grid, SB_HORZ, bars.horizontal, HorizontalGridScroll(grid.state));
        UpdateGridSize(grid);
        ClampGridView(grid.state);
    }
    grid.skipsSize = false;
}

void GoToFirstRow(GridRecord& grid) {
    CommitGridEditor(grid);
    GridState& state = grid.state;
    state.topRow = 1;
    const int32_t column = NextGridColumn(state.table, state.leftColumn - 1, GridForward);
    MoveGridCursor(grid, {column >= 1 ? column : state.cursorColumn, 1});
    // Rows may go while the user types into another control, which must keep the focus.
    if (GetFocus() == grid.window) {
        OpenGridEditorByKey(grid, true);
    }
}

void ShowScrolled(GridRecord& grid) {
    RefreshGridScrollBars(grid);
    RepaintGrid(grid);
}

bool StepOf(WPARAM wParam, GridScrollStep& step) {
    // What moves lines, pages and ends has the same numbers in both directions.
    static_assert(SB_LINEUP == SB_LINELEFT && SB_PAGEDOWN == SB_PAGERIGHT && SB_TOP == SB_LEFT);
    switch (LOWORD(wParam)) {
        case SB_LINEUP:
            step = GridScrollStep::LineBack;
            return true;
        case SB_LINEDOWN:
            step = GridScrollStep::LineOn;
            return true;
        case SB_PAGEUP:
            step = GridScrollStep::PageBack;
            return true;
        case SB_PAGEDOWN:
            step = GridScrollStep::PageOn;
            return true;
        case SB_TOP:
            step = GridScrollStep::Start;
            return true;
        case SB_BOTTOM:
            step = GridScrollStep::End;
            return true;
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            step = GridScrollStep::Position;
            return true;
        default:
            return false;
    }
}

// The message has only 16 bits of the position.
int32_t PositionOf(const GridRecord& grid, int bar, WPARAM wParam) {
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_TRACKPOS;
    const int32_t lowBits = HIWORD(wParam);
    if (!GetScrollInfo(grid.window, bar, &info) || (info.nTrackPos & 0xFFFF) != lowBits) {
        return lowBits;
    }
    return info.nTrackPos;
}

}  // namespace

void RefreshGridScrollBars(GridRecord& grid) {
    if (grid.skipsSize) {
        return;
    }
    UpdateGridSize(grid);
    const GridBars bars = NeededGridBars(grid.state, RoomOf(grid));
    const GridBars before = {HasBar(grid, SB_VERT), HasBar(grid, SB_HORZ)};
    const bool goesToFirstRow = before.vertical && !bars.vertical && grid.state.topRow > 1;
    ClampGridView(grid.state);
    ApplyBars(grid, bars);
    if (bars != before) {
        RepaintGrid(grid);
    }
    if (goesToFirstRow) {
        GoToFirstRow(grid);
    }
}

void ShowGridCursor(GridRecord& grid) {
    // A bar that comes takes room from the cursor.
    RefreshGridScrollBars(grid);
    KeepGridCursorInView(grid.state);
    ShowScrolled(grid);
}

void HandleGridScroll(GridRecord& grid, UINT message, WPARAM wParam) {
    GridScrollStep step = {};
    if (!StepOf(wParam, step)) {
        return;
    }
    const int bar = message == WM_VSCROLL ? SB_VERT : SB_HORZ;
    const int32_t position = PositionOf(grid, bar, wParam);
    const auto scroll = [bar, step, position](GridState& state) {
        const GridState before = state;
        if (bar == SB_VERT) {
            ScrollGridRows(state, step, position);
        } else {
            ScrollGridColumns(state, step, position);
        }
        ClampGridView(state);
        return state.topRow != before.topRow || state.leftColumn != before.leftColumn;
    };
    GridState tried = grid.state;
    if (!scroll(tried)) {
        return;
    }
    CommitGridEditor(grid);
    scroll(grid.state);
    ShowScrolled(grid);
}

bool HandleGridWheel(GridRecord& grid, WPARAM wParam) {
    if (!HasBar(grid, SB_VERT)) {
        return false;
    }
    const int32_t lines =
        TakeGridWheelLines(grid.wheelTurned, static_cast<int16_t>(HIWORD(wParam)));
    for (int32_t i = 0; i < std::abs(lines); i++) {
        SendMessageW(grid.window, WM_VSCROLL, lines > 0 ? SB_LINEUP : SB_LINEDOWN, 0);
    }
    return true;
}

}  // namespace tallymere
