#include "layout/grid_state.h"

#include <algorithm>

namespace tallymere {

namespace {

// The highest place that cursor and view may have: 1 also where there is nothing.
int32_t LastPlace(int32_t count) {
    return std::max(count, 1);
}

bool IsPlace(int32_t place, int32_t count) {
    return place >= 1 && place <= LastPlace(count);
}

}  // namespace

bool GridStateIsConsistent(const GridState& state) {
    const int32_t rows = GridDataRows(state.table);
    const int32_t columns = GridDataColumns(state.table);
    return GridTableIsConsistent(state.table) && state.clientWidth >= 0 &&
           state.clientHeight >= 0 && state.rowHeight >= 1 && state.headerHeight >= 0 &&
           state.titleHeight >= 0 && state.rowHeight <= MaxGridHeight &&
           state.headerHeight <= MaxGridHeight && state.titleHeight <= MaxGridHeight &&
           IsPlace(state.topRow, rows) && IsPlace(state.leftColumn, columns) &&
           IsPlace(state.cursorRow, rows) && IsPlace(state.cursorColumn, columns) &&
           (state.rowSelectMode != GridRowSelectOff || !state.isRowSelectActive);
}

void ClampGridState(GridState& state) {
    const int32_t lastRow = LastPlace(GridDataRows(state.table));
    const int32_t lastColumn = LastPlace(GridDataColumns(state.table));
    state.topRow = std::clamp(state.topRow, 1, lastRow);
    state.leftColumn = std::clamp(state.leftColumn, 1, lastColumn);
    state.cursorRow = std::clamp(state.cursorRow, 1, lastRow);
    state.cursorColumn = std::clamp(state.cursorColumn, 1, lastColumn);
}

bool CanEditGridCell(const GridState& state, int32_t column, int32_t row) {
    const GridColumn* const found = FindGridColumn(state.table, column);
    const GridCell* const cell = FindGridCell(state.table, column, row);
    return cell != nullptr && row >= 1 && found->type == GridColumnText && state.isEditable &&
           !state.isRowSelectActive && cell->isProtected == 0 &&
           GridColumnWidth(state.table, column) > 0;
}

bool CanEditGridCursor(const GridState& state) {
    return CanEditGridCell(state, state.cursorColumn, state.cursorRow);
}

}  // namespace tallymere
