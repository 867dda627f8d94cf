// Where the cells of a grid stand in its window, and which cell stands at a place.
//
// From above to below: the title, the header row, the rows from `topRow` on. From left to right:
// the header column, the columns from `leftColumn` on. All lengths are in pixels of the window.
#pragma once

#include <cstdint>

#include "layout/grid_state.h"
#include "layout/logical_units.h"

namespace tallymere {

/// The upper edge of a row; 0 is the header row. Rows above the view have one above the window.
int64_t GridRowTop(const GridState& state, int32_t row);

/// The left edge of a column; that of the header column is 0. Columns before `leftColumn` have one
/// left of the right edge of the header column.
int64_t GridColumnLeft(const GridState& state, int32_t column);

/// The last column that is wider than 0; 0 when there is none.
int32_t RightmostGridColumn(const GridTable& table);

/// The width on the screen of a column that begins at `left`. The rightmost one may reach to the
/// edge of the window.
int64_t ShownGridColumnWidth(const GridState& state, int32_t column, int64_t left);

/// The place of a cell, headers included. It may lie outside of the window.
LayoutRect GridCellPlace(const GridState& state, int32_t column, int32_t row);

/// From first to last; last is below first when there is none.
struct GridRange {
    int32_t first;
    int32_t last;
};

/// The rows and columns that the window shows wholly or in part, without the headers.
GridRange VisibleGridRows(const GridState& state);
GridRange VisibleGridColumns(const GridState& state);

/// The row at a height: 0 in the header row; -1 for none, above it or below the last row.
int32_t RowAtY(const GridState& state, int32_t y);

/// The column at a place: 0 in the header column; -1 for none, left of it or right of the last one.
int32_t ColumnAtX(const GridState& state, int32_t x);

}  // namespace tallymere
