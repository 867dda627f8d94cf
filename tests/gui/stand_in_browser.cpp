// Takes the place of the user's browser: writes the command line that it was started with into a
// file beside itself, in UTF-16. The file appears whole.

#include <iterator>
#include <string>

#include "toolkit/win32.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, static_cast<DWORD>(std::size(program)));
    const std::wstring called = std::wstring(program) + L".called";
    const std::wstring unfinished = called + L".part";
    const HANDLE file =
        CreateFileW(unfinished.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    const std::wstring commandLine = GetCommandLineW();
    DWORD written = 0;
    WriteFile(file, commandLine.data(), static_cast<DWORD>(commandLine.size() * sizeof(wchar_t)),
              &written, nullptr);
    CloseHandle(file);
    return MoveFileExW(unfinished.c_str(), called.c_str(), MOVEFILE_REPLACE_EXISTING) ? 0 : 1;
}
