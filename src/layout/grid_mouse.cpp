#include "layout/grid_mouse.h"

#include <algorithm>
#include <cstdlib>

#include "layout/grid_geometry.h"

namespace tallymere {

int32_t ResizedGridColumn(const GridState& state, LayoutPoint mouse) {
    if (!state.allowsResize || mouse.x < 0 || RowAtY(state, mouse.y) != 0) {
        return -1;
    }
    const int32_t rightmost = RightmostGridColumn(state.table);
    int64_t edge = GridColumnWidth(state.table, 0);
    int64_t nearest = GridEdgeReach + 1;
    int32_t found = -1;
    // Among edges at one place the last one counts, so that a column of width 0 can be widened.
    const auto look = [&](int32_t column) {
        const int64_t distance = std::abs(mouse.x - edge);
        if (distance <= GridEdgeReach && distance <= nearest) {
            nearest = distance;
            found = column;
        }
    };
    look(0);
    const int32_t columns = GridDataColumns(state.table);
    for (int32_t column = state.leftColumn;
         column <= columns && edge <= int64_t{mouse.x} + GridEdgeReach; column++) {
        const int64_t left = edge;
        edge += GridColumnWidth(state.table, column);
        const bool reachesToTheEdge =
            state.extendsLastColumn && column == rightmost && edge <= state.clientWidth;
        if (state.table.columns.items[column].isHidden == 0 && !reachesToTheEdge) {
            look(column);
        }
        edge = reachesToTheEdge ? std::max<int64_t>(left, state.clientWidth) : edge;
    }
    return found;
}

int32_t DraggedGridWidth(int32_t widthAtStart, int32_t xAtStart, int32_t x) {
    return std::max(widthAtStart + x - xAtStart, 0);
}

GridClick ClickInGrid(const GridState& state, LayoutPoint mouse) {
    const int32_t row = RowAtY(state, mouse.y);
    const int32_t column = ColumnAtX(state, mouse.x);
    if (row >= 1 && column == 0 && state.rowSelectMode != GridRowSelectOff) {
        return {.movesCursor = true, .selectsRow = true, .place = {state.cursorColumn, row}};
    }
    return {.movesCursor = row >= 1 && column >= 1, .selectsRow = false, .place = {column, row}};
}

}  // namespace tallymere
