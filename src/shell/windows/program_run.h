// The program from its first step to its last, around whatever windows it has.
#pragma once

#include "toolkit/win32.h"

namespace tallymere {

/// Sets everything up, lets `createWindows` make all windows, shows the main window and handles
/// messages until that is closed; then saves the settings. `instance` is the module that WinMain
/// was given, the result is what WinMain returns.
int RunProgram(HINSTANCE instance, void (*createWindows)());

}  // namespace tallymere
