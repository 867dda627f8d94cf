#include "shell/windows/restart.h"

#include "shell/windows/program_file.h"
#include "shell/windows/program_windows.h"
#include "shell/windows/settings_file.h"
#include "toolkit/wide_text.h"

namespace tallymere {

void RestartProgram() {
    // The new process would begin with the old settings, and this one end with those that changed.
    // Who has agreed to the restart is told why there is none, also after a failure that was told.
    if (!SaveSettings()) {
        ReportUnsavedSettings();
        return;
    }
    STARTUPINFOW start = {};
    start.cb = sizeof(start);
    PROCESS_INFORMATION process = {};
    if (CreateProcessW(ToWide(ProgramFile()), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                       &start, &process)) {
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
    SendMessageW(mainWindow, WM_CLOSE, 0, 0);
}

}  // namespace tallymere
