#include "layout/grid_scrolling.h"

#include <algorithm>

#include "layout/grid_cursor.h"
#include "layout/grid_geometry.h"

namespace tallymere {

namespace {

int32_t RowsThatFit(const GridState& state, int32_t clientHeight) {
    return std::max(clientHeight - state.headerHeight - state.titleHeight, 0) / state.rowHeight;
}

bool AllRowsFit(const GridState& state, int32_t clientHeight) {
    return GridDataRows(state.table) <= RowsThatFit(state, clientHeight);
}

int64_t DataWidth(const GridTable& table) {
    int64_t width = 0;
    for (int32_t column = 1; column <= GridDataColumns(table); column++) {
        width += GridColumnWidth(table, column);
    }
    return width;
}

bool AllColumnsFit(const GridState& state, int32_t clientWidth) {
    return DataWidth(state.table) <= int64_t{clientWidth} - GridColumnWidth(state.table, 0);
}

// Columns wider than 0 from the first one to before `end`.
int32_t ShownColumnsBefore(const GridTable& table, int32_t end) {
    int32_t count = 0;
    for (int32_t column = 1; column < end; column++) {
        count += GridColumnWidth(table, column) > 0 ? 1 : 0;
    }
    return count;
}

// The column with so many shown ones before it, or the last one.
int32_t ColumnBehind(const GridTable& table, int32_t count) {
    int32_t column = NextGridColumn(table, 0, GridForward);
    for (int32_t i = 0; i < count; i++) {
        column = NextGridColumn(table, column, GridForward);
    }
    return column;
}

int32_t SteppedPosition(const GridScroll& scroll, GridScrollStep step, int32_t page,
                        int32_t position) {
    switch (step) {
        case GridScrollStep::LineBack:
            return scroll.position - 1;
        case GridScrollStep::LineOn:
            return scroll.position + 1;
        case GridScrollStep::PageBack:
            return scroll.position - page;
        case GridScrollStep::PageOn:
            return scroll.position + page;
        case GridScrollStep::Start:
            return 1;
        case GridScrollStep::End:
            return scroll.last;
        case GridScrollStep::Position:
            break;
    }
    return position;
}

int32_t NewPosition(const GridScroll& scroll, GridScrollStep step, int32_t page, int32_t position) {
    return std::clamp(SteppedPosition(scroll, step, page, position), 1, scroll.last);
}

int32_t ColumnsPerPage(const GridState& state) {
    const GridRange range = VisibleGridColumns(state);
    const int32_t shown =
        ShownColumnsBefore(state.table, range.last) - ShownColumnsBefore(state.table, range.first);
    return std::max(shown, 1);
}

void KeepRowInView(GridState& state) {
    const int64_t room = int64_t{state.clientHeight} - state.headerHeight - state.titleHeight;
    // Where the room holds a row, that of the cursor is in view at the latest when it is the top
    // one.
    while (room >= state.rowHeight &&
           GridRowTop(state, state.cursorRow) + state.rowHeight > state.clientHeight) {
        state.topRow++;
    }
    state.topRow = std::min(state.topRow, state.cursorRow);
}

// The column at the left edge stays in view, however wide it is.
void KeepColumnInView(GridState& state) {
    state.leftColumn = std::min(state.leftColumn, state.cursorColumn);
    int64_t right = GridColumnLeft(state, state.cursorColumn) +
                    GridColumnWidth(state.table, state.cursorColumn);
    while (right > state.clientWidth && state.leftColumn < state.cursorColumn) {
        right -= GridColumnWidth(state.table, state.leftColumn);
        state.leftColumn++;
    }
}

}  // namespace

GridBars NeededGridBars(const GridState& state, const GridRoom& room) {
    GridBars bars = {.vertical = !AllRowsFit(state, room.window.height), .horizontal = false};
    bars.horizontal =
        !AllColumnsFit(state, room.window.width - (bars.vertical ? room.verticalBar : 0));
    if (bars.horizontal && !bars.vertical) {
        // The columns do not fit the whole width, so a second bar asks nothing new of them.
        bars.vertical = !AllRowsFit(state, room.window.height - room.horizontalBar);
    }
    return bars;
}

int32_t GridRowsPerPage(const GridState& state) {
    return std::max(RowsThatFit(state, state.clientHeight), 1);
}

GridScroll VerticalGridScroll(const GridState& state) {
    const int32_t last = GridDataRows(state.table) - GridRowsPerPage(state) + 1;
    return {std::max(last, 1), state.topRow};
}

GridScroll HorizontalGridScroll(const GridState& state) {
    const int32_t count = ShownColumnsBefore(state.table, GridDataColumns(state.table) + 1);
    return {std::max(count, 1), ShownColumnsBefore(state.table, state.leftColumn) + 1};
}

bool ScrollGridRows(GridState& state, GridScrollStep step, int32_t position) {
    const int32_t before = state.topRow;
    state.topRow = NewPosition(VerticalGridScroll(state), step, GridRowsPerPage(state), position);
    return state.topRow != before;
}

bool ScrollGridColumns(GridState& state, GridScrollStep step, int32_t position) {
    const int32_t before = state.leftColumn;
    const int32_t target =
        NewPosition(HorizontalGridScroll(state), step, ColumnsPerPage(state), position);
    state.leftColumn = std::max(ColumnBehind(state.table, target - 1), 1);
    return state.leftColumn != before;
}

void ClampGridView(GridState& state) {
    state.topRow = std::min(state.topRow, VerticalGridScroll(state).last);
    if (AllColumnsFit(state, state.clientWidth)) {
        state.leftColumn = 1;
    }
}

void KeepGridCursorInView(GridState& state) {
    KeepRowInView(state);
    KeepColumnInView(state);
}

int32_t TakeGridWheelLines(int32_t& turned, int32_t delta) {
    constexpr int32_t Line = 120;
    turned += delta;
    const int32_t lines = turned / Line;
    turned %= Line;
    return lines;
}

}  // namespace tallymere
