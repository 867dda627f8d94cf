// The messages of GridMessage, see toolkit/grid_control.h.
#pragma once

#include "toolkit/grid_record.h"

namespace tallymere {

/// Handles a message of the grid. False when it is none.
bool HandleGridMessage(GridRecord& grid, UINT message, WPARAM wParam, LPARAM lParam,
                       LRESULT& result);

}  // namespace tallymere
