// The windows of the program are made behind the menu, one after the other, whenever nothing else
// is to be done. One that somebody asks for earlier is made at once.
#pragma once

#include <span>

#include "toolkit/win32.h"

namespace tallymere {

/// A window that the program has. `window` is where it is put, such as &pageWindows[PageCalculator]
/// or &optionsWindow, and null until then. `make` makes it, hidden, and puts it there before it
/// reports errors: behind the message box somebody may ask for the window. It is not called while a
/// page calculates, because the numbers belong to that run.
struct ProgramWindow {
    HWND* window;
    void (*make)();
};

/// From now on these windows are made, in their order, by any loop that handles messages: that of
/// the program, of a dialog, of a message box. hiddenOwnerWindow and mainWindow are there already.
/// The table stays where it is as long as the process. Where the system has no timer left, each
/// window is made when somebody asks for it.
void BeginMakingWindows(std::span<const ProgramWindow> windows);

/// Whether the program has that window or will have it: one that is there, or that the table has a
/// row for. `window` is the address of one of the globals of program_windows.h, here and below.
bool HasProgramWindow(const HWND* window);

/// That window, which is made now if it is not there yet. Null if the program does not have it, or
/// does not have it yet while a page calculates.
HWND EnsureWindow(const HWND* window);

}  // namespace tallymere
