// What the mouse does in a grid, carried out; layout/grid_mouse.h decides.
#pragma once

#include "toolkit/grid_record.h"

namespace tallymere {

/// Handles WM_LBUTTONDOWN, WM_MOUSEMOVE, WM_LBUTTONUP and WM_CAPTURECHANGED.
void HandleGridMouse(GridRecord& grid, UINT message, LPARAM position);

/// Handles WM_SETCURSOR: shows that the mouse is over an edge that it can drag. False when the
/// arrow is right.
bool ShowGridResizeCursor(const GridRecord& grid);

}  // namespace tallymere
