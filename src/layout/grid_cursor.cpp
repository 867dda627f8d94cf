#include "layout/grid_cursor.h"

#include <algorithm>

#include "layout/grid_geometry.h"
#include "layout/grid_scrolling.h"

namespace tallymere {

int32_t NextGridColumn(const GridTable& table, int32_t column, GridDirection direction) {
    const int32_t last = GridDataColumns(table);
    for (int32_t next = column + direction; next >= 1 && next <= last; next += direction) {
        if (GridColumnWidth(table, next) > 0) {
            return next;
        }
    }
    return column;
}

int32_t ShownGridColumnAt(const GridTable& table, int32_t column) {
    if (GridColumnWidth(table, column) > 0) {
        return column;
    }
    const int32_t right = NextGridColumn(table, column, GridForward);
    return right != column ? right : NextGridColumn(table, column, GridBackward);
}

GridPlace MovedGridCursor(const GridState& state, GridMove move) {
    GridPlace place = {state.cursorColumn, state.cursorRow};
    switch (move) {
        case GridMove::RowUp:
            place.row--;
            break;
        case GridMove::RowDown:
            place.row++;
            break;
        case GridMove::PageUp:
            place.row -= GridRowsPerPage(state);
            break;
        case GridMove::PageDown:
            place.row += GridRowsPerPage(state);
            break;
        case GridMove::ColumnLeft:
            place.column = NextGridColumn(state.table, place.column, GridBackward);
            break;
        case GridMove::ColumnRight:
            place.column = NextGridColumn(state.table, place.column, GridForward);
            break;
        case GridMove::FirstColumn:
            place.column = NextGridColumn(state.table, 0, GridForward);
            break;
        case GridMove::LastColumn:
            place.column = RightmostGridColumn(state.table);
            break;
    }
    // Without a column that can be seen, the ends are the header column.
    place.column = place.column == 0 ? state.cursorColumn : place.column;
    place.row = std::clamp(place.row, 1, std::max(GridDataRows(state.table), 1));
    return place;
}

}  // namespace tallymere
