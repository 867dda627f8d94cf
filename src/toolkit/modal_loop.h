// Running a dialog while everything else waits.
#pragma once

#include "toolkit/win32.h"

namespace tallymere {

/// Shows a dialog, disables all other windows of the thread and handles messages until the dialog
/// gets WM_CLOSE; then all windows that were disabled are enabled. The dialog has to hide itself at
/// WM_CLOSE, with callDefault false, and can run again. False, with nothing run, for a window that
/// is no dialog, when it does not come to be shown, and without memory.
bool RunModal(HWND dialog);

/// Part of WM_CLOSE of a dialog that runs modally, before its handler: enables its owner, if that
/// is visible, gives it the focus and lets RunModal return.
void EndModal(HWND dialog);

}  // namespace tallymere
