// The scroll bars of a grid and how its view moves.
#pragma once

#include "layout/grid_scrolling.h"
#include "toolkit/grid_record.h"

namespace tallymere {

/// Shows and hides the scroll bars as the cells need them. When all rows fit again and the view was
/// scrolled, the cursor goes to row 1 of the first visible column, and the editor opens there.
void RefreshGridScrollBars(GridRecord& grid);

/// Scrolls until the cursor is in view.
void ShowGridCursor(GridRecord& grid);

/// Handles WM_VSCROLL and WM_HSCROLL.
void HandleGridScroll(GridRecord& grid, UINT message, WPARAM wParam);

/// Handles WM_MOUSEWHEEL. False when there is no vertical scroll bar.
bool HandleGridWheel(GridRecord& grid, WPARAM wParam);

}  // namespace tallymere
