// Runs a dialog modally: all other windows wait.
#pragma once

#include "toolkit/win32.h"

namespace tallymere {

/// Shows a dialog, disables all other windows of the thread and handles messages until the dialog
/// gets WM_CLOSE. Then it enables the windows that it disabled. At WM_CLOSE the dialog must hide
/// itself and set callDefault to false; it can run again. Returns false and does nothing for a
/// window that is no dialog, for a dialog that cannot be shown, and without memory.
bool RunModal(HWND dialog);

/// The first part of WM_CLOSE of a modal dialog, before its handler. It enables the owner and gives
/// it the focus if the owner is visible. It makes RunModal return.
void EndModal(HWND dialog);

}  // namespace tallymere
