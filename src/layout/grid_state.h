// What a grid shows of its table, where its cursor is, and what the page allows.
#pragma once

#include <cstdint>

#include "layout/grid_table.h"

namespace tallymere {

/// The height of rows and of the header row at first, in logical units.
inline constexpr int32_t NewGridRowHeight = 21;

/// The highest that a row, the header row and the title can be, in pixels: far more than any screen
/// has, and sums of them fit 32 bits.
inline constexpr int32_t MaxGridHeight = 1'000'000;

/// All lengths are in pixels. Rows and columns count as in the table: 0 is a header.
struct GridState {
    GridTable table = {};
    int32_t clientWidth = 0;
    int32_t clientHeight = 0;
    int32_t topRow = 1;      ///< the first row below the header row
    int32_t leftColumn = 1;  ///< the first column beside the header column
    int32_t rowHeight = NewGridRowHeight;
    int32_t headerHeight = NewGridRowHeight;
    int32_t titleHeight = 0;  ///< 0 for no title
    int32_t cursorRow = 1;
    int32_t cursorColumn = 1;
    int32_t rowSelectMode = GridRowSelectOff;  ///< GridRowSelectMode
    bool isRowSelectActive = false;
    bool isEditable = true;
    bool extendsLastColumn = true;
    bool allowsResize = false;
};

/// True when table, view and cursor fit together.
bool GridStateIsConsistent(const GridState& state);

/// Moves cursor and view back into the table, after rows were taken out.
void ClampGridState(GridState& state);

/// True when the user may edit a cell. One that has no width cannot be seen and so not be edited.
bool CanEditGridCell(const GridState& state, int32_t column, int32_t row);

/// The same for the cell of the cursor.
bool CanEditGridCursor(const GridState& state);

}  // namespace tallymere
