// How the cursor of a grid walks over the cells.
#pragma once

#include <cstdint>

#include "layout/grid_state.h"

namespace tallymere {

enum GridDirection : int32_t { GridForward = 1, GridBackward = -1 };

/// The next column in a direction that is wider than 0, without the header column; `column` itself
/// when there is none.
int32_t NextGridColumn(const GridTable& table, int32_t column, GridDirection direction);

/// The column itself if it is wider than 0; else the next one to the right that is, or to the left;
/// the column itself when there is none.
int32_t ShownGridColumnAt(const GridTable& table, int32_t column);

/// Where the cursor goes.
enum class GridMove {
    RowUp,
    RowDown,
    PageUp,
    PageDown,
    ColumnLeft,
    ColumnRight,
    FirstColumn,
    LastColumn,
};

struct GridPlace {
    int32_t column;
    int32_t row;

    bool operator==(const GridPlace&) const = default;
};

/// The place of the cursor after a move. It stays where there is nothing to go to.
GridPlace MovedGridCursor(const GridState& state, GridMove move);

}  // namespace tallymere
