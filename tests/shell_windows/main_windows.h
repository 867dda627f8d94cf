// The end of the main window in a test.
#pragma once

#include "shell/windows/program_windows.h"
#include "toolkit/win32.h"

namespace tallymere::testing_support {

/// Destroys the main window and its owner, and takes back what that asks of the message loop: to
/// end.
inline void DestroyMainWindows() {
    DestroyWindow(mainWindow);
    DestroyWindow(hiddenOwnerWindow);
    MSG message;
    while (PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) {
    }
}

}  // namespace tallymere::testing_support
