#include "layout/grid_geometry.h"

#include <algorithm>

namespace tallymere {

namespace {

// Far outside of every window, and still far from the end of 32 bits.
constexpr int64_t FarAway = 1'000'000'000;

int32_t ToPlace(int64_t pixels) {
    return static_cast<int32_t>(std::clamp(pixels, -FarAway, FarAway));
}

}  // namespace

int64_t GridRowTop(const GridState& state, int32_t row) {
    if (row == 0) {
        return state.titleHeight;
    }
    return int64_t{state.titleHeight} + state.headerHeight +
           (int64_t{row} - state.topRow) * state.rowHeight;
}

int64_t GridColumnLeft(const GridState& state, int32_t column) {
    if (column == 0) {
        return 0;
    }
    int64_t left = GridColumnWidth(state.table, 0);
    for (int32_t i = state.leftColumn; i < column; i++) {
        left += GridColumnWidth(state.table, i);
    }
    for (int32_t i = column; i < state.leftColumn; i++) {
        left -= GridColumnWidth(state.table, i);
    }
    return left;
}

int32_t RightmostGridColumn(const GridTable& table) {
    int32_t column = GridDataColumns(table);
    while (column > 0 && GridColumnWidth(table, column) == 0) {
        column--;
    }
    return column;
}

int64_t ShownGridColumnWidth(const GridState& state, int32_t column, int64_t left) {
    const int64_t width = GridColumnWidth(state.table, column);
    if (!state.extendsLastColumn || width == 0 || column == 0 ||
        column != RightmostGridColumn(state.table)) {
        return width;
    }
    return std::max(width, state.clientWidth - left);
}

LayoutRect GridCellPlace(const GridState& state, int32_t column, int32_t row) {
    const int64_t left = GridColumnLeft(state, column);
    return {ToPlace(left), ToPlace(GridRowTop(state, row)),
            ToPlace(ShownGridColumnWidth(state, column, left)),
            row == 0 ? state.headerHeight : state.rowHeight};
}

GridRange VisibleGridRows(const GridState& state) {
    const int64_t room = int64_t{state.clientHeight} - GridRowTop(state, state.topRow);
    const int64_t count = room <= 0 ? 0 : (room + state.rowHeight - 1) / state.rowHeight;
    const int64_t last = std::min<int64_t>(GridDataRows(state.table), state.topRow + count - 1);
    return {state.topRow, static_cast<int32_t>(last)};
}

GridRange VisibleGridColumns(const GridState& state) {
    const int32_t columns = GridDataColumns(state.table);
    GridRange range = {state.leftColumn, state.leftColumn - 1};
    int64_t left = GridColumnWidth(state.table, 0);
    while (range.last < columns && left < state.clientWidth) {
        range.last++;
        left += GridColumnWidth(state.table, range.last);
    }
    return range;
}

int32_t RowAtY(const GridState& state, int32_t y) {
    const int64_t top = GridRowTop(state, state.topRow);
    if (y < state.titleHeight) {
        return -1;
    }
    if (y < top) {
        return 0;
    }
    const int64_t row = state.topRow + (y - top) / state.rowHeight;
    return row <= GridDataRows(state.table) ? static_cast<int32_t>(row) : -1;
}

int32_t ColumnAtX(const GridState& state, int32_t x) {
    if (x < 0) {
        return -1;
    }
    int64_t right = GridColumnWidth(state.table, 0);
    if (x < right) {
        return 0;
    }
    const int32_t columns = GridDataColumns(state.table);
    for (int32_t column = state.leftColumn; column <= columns; column++) {
        right += GridColumnWidth(state.table, column);
        if (x < right) {
            return column;
        }
    }
    const int32_t rightmost = RightmostGridColumn(state.table);
    return state.extendsLastColumn && rightmost >= state.leftColumn ? rightmost : -1;
}

}  // namespace tallymere
