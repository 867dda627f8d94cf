#include "shell/windows/program_run.h"

#include "core/scratch.h"
#include "shell/windows/init_application.h"
#include "shell/windows/main_window.h"
#include "shell/windows/settings_file.h"

namespace tallymere {

namespace {

// The result is the exit status of the process. The keys that lead through dialogs are the business
// of their controls, so the loop is a plain one.
int RunMessageLoop() {
    MSG message = {};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

}  // namespace

int RunProgram(HINSTANCE instance, std::span<const ProgramWindow> windows) {
    InitApplication(instance);
    CreateMainWindow();
    BeginMakingWindows(windows);
    OpenMainWindow();
    const int status = RunMessageLoop();
    SaveSettingsOrReport();
    DestroyScratchStack();
    return status;
}

}  // namespace tallymere
