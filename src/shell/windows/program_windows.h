// The windows of the program. They live as long as the process: who closes one only hides it. Those
// below mainWindow are made behind the menu, hidden, and null until then; who needs one takes it
// through EnsureWindow of window_making.h.
#pragma once

#include "shell/main_menu.h"
#include "toolkit/win32.h"

namespace tallymere {

/// Never shown: owns the main window and the pages, so that these are equals on the desktop.
extern HWND hiddenOwnerWindow;

/// The menu window, the handle of the whole program.
extern HWND mainWindow;

/// One window for each item of the Algebra menu; null until it is made, and for a page that the
/// program does not have.
extern HWND pageWindows[PageCount];

extern HWND optionsWindow;
extern HWND aboutWindow;
extern HWND variablesWindow;

/// Shows a window and brings it to the front; null does nothing.
void ShowProgramWindow(HWND window);

/// What closing a dialog does, which is only hidden: its owner is activated, if it has one.
void HideProgramWindow(HWND window);

/// What closing a page does, which is only hidden too: the main window is activated. That comes
/// behind the hiding, other than with a dialog, also while the page calculates and the main window
/// is disabled.
void HidePageWindow(HWND page);

}  // namespace tallymere
