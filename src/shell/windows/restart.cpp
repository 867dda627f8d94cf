#include "shell/windows/restart.h"

#include "shell/program_paths.h"
#include "shell/windows/program_windows.h"
#include "shell/windows/settings_file.h"
#include "toolkit/wide_text.h"

namespace tallymere {

void RestartProgram() {
    SaveSettings();
    char16_t programFile[PathCapacity + 1];
    GetModuleFileNameW(nullptr, ToWide(programFile), PathCapacity + 1);
    STARTUPINFOW start = {};
    start.cb = sizeof(start);
    PROCESS_INFORMATION process = {};
    if (CreateProcessW(ToWide(programFile), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                       &start, &process)) {
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
    SendMessageW(mainWindow, WM_CLOSE, 0, 0);
}

}  // namespace tallymere
