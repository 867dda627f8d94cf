// Everything at the start of the program that comes before its first window.
#pragma once

#include "toolkit/win32.h"

namespace tallymere {

/// Sets up what windows are made with, the number context, the ScratchStack of the UI thread, the
/// settings, separators, texts and the folder of the help. `instance` is the module that WinMain
/// was given. An error on the way stays pending: the first report shows it.
void InitApplication(HINSTANCE instance);

}  // namespace tallymere
