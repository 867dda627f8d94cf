// The main window: the menu and nothing else, and the handle of the whole program.
#pragma once

#include "toolkit/win32.h"

namespace tallymere {

/// Makes hiddenOwnerWindow and then mainWindow with its menu, both hidden, and gives all windows of
/// the program their icon.
void CreateMainWindow();

/// Shows the main window, then About if the user is to be greeted with it, which no later start
/// does. Comes back when that is closed.
void OpenMainWindow();

/// Handles messages until the program is closed or its main window destroyed. Returns the exit
/// status of the process.
int RunMainLoop();

}  // namespace tallymere
