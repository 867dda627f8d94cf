// What the mouse does in a grid.
#pragma once

#include <cstdint>

#include "layout/grid_cursor.h"
#include "layout/grid_state.h"
#include "layout/logical_units.h"

namespace tallymere {

/// How far from the edge of a column the mouse takes hold of it, in pixels.
inline constexpr int32_t GridEdgeReach = 10;

/// The column that the mouse resizes at a place: the one left of the nearest edge in the header
/// row, 0 for the header column; -1 for none. A column that reaches to the edge of the window has
/// no right edge of its own.
int32_t ResizedGridColumn(const GridState& state, LayoutPoint mouse);

/// The width of a column while the mouse drags its edge, in pixels.
int32_t DraggedGridWidth(int32_t widthAtStart, int32_t xAtStart, int32_t x);

/// What a click does.
struct GridClick {
    bool movesCursor;
    bool selectsRow;  ///< row select becomes active
    GridPlace place;  ///< where the cursor goes
};

GridClick ClickInGrid(const GridState& state, LayoutPoint mouse);

}  // namespace tallymere
