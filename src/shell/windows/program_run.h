// The program from its first step to its last, around whatever windows it has.
#pragma once

#include <span>

#include "shell/windows/window_making.h"
#include "toolkit/win32.h"

namespace tallymere {

/// Sets everything up, shows the main window and handles messages until that is closed or
/// destroyed; then saves the settings. The other windows are made meanwhile, see
/// BeginMakingWindows. `instance` is the module that WinMain was given, the result is what WinMain
/// returns. Does not come back but ends the process when a run is still under way then, which has
/// not heard its stop for 2 s.
int RunProgram(HINSTANCE instance, std::span<const ProgramWindow> windows);

}  // namespace tallymere
