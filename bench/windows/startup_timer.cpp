// Measures how long programs take from their start to their first visible window.
//
//   startup_timer ROUNDS PROGRAM ...
//
// Starts the programs in turn, ROUNDS times each, and closes the window of each before the next.
// Prints a line for each round: the milliseconds of each program. Fails when one shows no window.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "toolkit/win32.h"

#include "milliseconds.h"

namespace {

constexpr double LongestMilliseconds = 60'000;

struct Search {
    DWORD process;
    HWND found;
};

// The visible top-level window of a process, null if there is none.
HWND VisibleWindow(DWORD process) {
    Search search = {process, nullptr};
    EnumWindows(
        [](HWND window, LPARAM argument) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(argument);
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            if (owner != wanted.process || !IsWindowVisible(window)) {
                return TRUE;
            }
            wanted.found = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

// The milliseconds to the first visible window, negative without one. The program has ended then.
double TimeStart(std::wstring commandLine) {
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    const double start = tallymere::Milliseconds();
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &process)) {
        return -1;
    }
    HWND window = nullptr;
    while (window == nullptr && tallymere::Milliseconds() - start < LongestMilliseconds) {
        window = VisibleWindow(process.dwProcessId);
        if (window == nullptr) {
            Sleep(1);
        }
    }
    const double elapsed = tallymere::Milliseconds() - start;
    PostMessageW(window, WM_CLOSE, 0, 0);
    if (window == nullptr || WaitForSingleObject(process.hProcess, 10'000) != WAIT_OBJECT_0) {
        TerminateProcess(process.hProcess, 1);
        WaitForSingleObject(process.hProcess, INFINITE);
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return window == nullptr ? -1 : elapsed;
}

}  // namespace

int main(int count, char** arguments) {
    const long rounds = count > 1 ? std::strtol(arguments[1], nullptr, 10) : 0;
    for (long round = 0; round < rounds; round++) {
        for (int i = 2; i < count; i++) {
            const std::string program = arguments[i];
            const double time =
                TimeStart(L'"' + std::wstring(program.begin(), program.end()) + L'"');
            if (time < 0) {
                std::fprintf(stderr, "%s shows no window\n", arguments[i]);
                return 1;
            }
            std::printf("%s%.2f", i > 2 ? " " : "", time);
        }
        std::printf("\n");
        std::fflush(stdout);
    }
    return 0;
}
