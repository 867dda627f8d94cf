#include "shell/windows/program_run.h"

#include "core/scratch.h"
#include "shell/windows/init_application.h"
#include "shell/windows/main_window.h"
#include "shell/windows/page_run.h"
#include "shell/windows/settings_file.h"

namespace tallymere {

int RunProgram(HINSTANCE instance, std::span<const ProgramWindow> windows) {
    InitApplication(instance);
    CreateMainWindow();
    BeginMakingWindows(windows);
    OpenMainWindow();
    const int status = RunMainLoop();
    SaveSettingsAtEnd();
    if (IsRunUnderWay()) {
        // All threads end at once here. On any other way out the CalcThread would lose its memory.
        TerminateProcess(GetCurrentProcess(), static_cast<UINT>(status));
    }
    DestroyScratchStack();
    return status;
}

}  // namespace tallymere
