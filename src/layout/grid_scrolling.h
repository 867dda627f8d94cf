// The scroll bars of a grid, and how its view follows the cursor.
#pragma once

#include <cstdint>

#include "layout/grid_state.h"
#include "layout/logical_units.h"

namespace tallymere {

/// The sizes that decide which scroll bars a window needs, in pixels.
struct GridRoom {
    LayoutSize window;      ///< the client area, were there no scroll bars
    int32_t verticalBar;    ///< the width of a vertical bar
    int32_t horizontalBar;  ///< the height of a horizontal bar
};

struct GridBars {
    bool vertical;
    bool horizontal;

    bool operator==(const GridBars&) const = default;
};

/// Which scroll bars are needed. A bar takes room, so one may call for the other.
GridBars NeededGridBars(const GridState& state, const GridRoom& room);

/// A scroll bar whose range begins at 1.
struct GridScroll {
    int32_t last;
    int32_t position;
};

/// The rows that fit the window wholly, at least 1.
int32_t GridRowsPerPage(const GridState& state);

/// The scroll bars for the client area as it is. A position counts the rows above the view, or the
/// columns wider than 0 before it, and 1.
GridScroll VerticalGridScroll(const GridState& state);
GridScroll HorizontalGridScroll(const GridState& state);

/// What a scroll bar or a wheel asks for.
enum class GridScrollStep { LineBack, LineOn, PageBack, PageOn, Start, End, Position };

/// Scrolls the view; `position` counts with Position alone. True when it has moved.
bool ScrollGridRows(GridState& state, GridScrollStep step, int32_t position);
bool ScrollGridColumns(GridState& state, GridScrollStep step, int32_t position);

/// Moves the view no further down and to the right than what it shows calls for: to the start where
/// everything fits.
void ClampGridView(GridState& state);

/// Scrolls until the window shows the row and the column of the cursor.
void KeepGridCursorInView(GridState& state);

/// Adds a turn of the wheel to those before. Returns how many lines to scroll, upwards above 0; the
/// rest stays in `turned`.
int32_t TakeGridWheelLines(int32_t& turned, int32_t delta);

}  // namespace tallymere
