// The cursor while the UI thread calculates and can do nothing else.
#pragma once

#include "toolkit/win32.h"

namespace tallymere {

/// Shows the cursor of waiting, and at its end the one that was there before.
struct WaitCursorScope {
    WaitCursorScope() : before(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {}
    ~WaitCursorScope() { SetCursor(before); }

    WaitCursorScope(const WaitCursorScope&) = delete;
    WaitCursorScope& operator=(const WaitCursorScope&) = delete;

    HCURSOR before;
};

}  // namespace tallymere
