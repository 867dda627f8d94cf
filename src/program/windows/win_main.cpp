// The start of the program and its one message loop.

#include "core/scratch.h"
#include "shell/windows/about_window.h"
#include "shell/windows/init_application.h"
#include "shell/windows/main_window.h"
#include "shell/windows/options_window.h"
#include "shell/windows/settings_file.h"
#include "toolkit/win32.h"

namespace tallymere {

namespace {

// Who owns a window must be there before it.
void CreateProgramWindows() {
    CreateMainWindow();
    CreateOptionsWindow();
    CreateAboutWindow();
}

// Runs until the main window is closed; the result is the exit status of the process. The keys that
// lead through dialogs are the business of their controls, so the loop is a plain one.
int RunMessageLoop() {
    MSG message = {};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

}  // namespace

}  // namespace tallymere

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
    using namespace tallymere;
    InitApplication(instance);
    CreateProgramWindows();
    OpenMainWindow();
    const int status = RunMessageLoop();
    SaveSettings();
    DestroyScratchStack();
    return status;
}
