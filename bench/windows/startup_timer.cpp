// Measures how long programs take from their start to their first visible window and until all of
// their windows are made, and what memory they need then.
//
//   startup_timer ROUNDS PROGRAM ...
//
// Starts the programs in turn, ROUNDS times each, and closes the window of each before the next.
// Prints a line for each round, with three figures of each program: the milliseconds to its visible
// window, the milliseconds to its last window, and its working set in MB. Fails when one shows no
// window.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "toolkit/win32.h"

#include <psapi.h>

#include "milliseconds.h"

namespace {

constexpr double LongestMilliseconds = 60'000;

// A program that has made no window for so long has made them all.
constexpr double SettledMilliseconds = 500;

constexpr double BytesPerMegabyte = 1'000'000;

struct Figures {
    double visible;  ///< milliseconds
    double allMade;  ///< milliseconds
    double workingSet;
};

// The top-level windows of a process: a visible one, null if there is none, and how many there are.
struct Windows {
    DWORD process;
    HWND visible;
    int32_t count;
};

Windows WindowsOf(DWORD process) {
    Windows windows = {process, nullptr, 0};
    EnumWindows(
        [](HWND window, LPARAM argument) -> BOOL {
            auto& found = *reinterpret_cast<Windows*>(argument);
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            if (owner == found.process) {
                found.count++;
                if (IsWindowVisible(window)) {
                    found.visible = window;
                }
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&windows));
    return windows;
}

// The moment when the last window of the process was made.
double MomentOfLastWindow(DWORD process, HWND window) {
    double moment = 0;
    double change = 0;
    int32_t count = 0;
    do {
        if (const int32_t now = WindowsOf(process).count; now != count) {
            count = now;
            change = tallymere::Milliseconds();
            // It answers when it has made the controls of that window.
            SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_BLOCK,
                                static_cast<UINT>(LongestMilliseconds), nullptr);
            moment = tallymere::Milliseconds();
        }
        Sleep(5);
    } while (tallymere::Milliseconds() - change < SettledMilliseconds);
    return moment;
}

double WorkingSet(HANDLE process) {
    PROCESS_MEMORY_COUNTERS memory = {};
    GetProcessMemoryInfo(process, &memory, sizeof memory);
    return static_cast<double>(memory.WorkingSetSize) / BytesPerMegabyte;
}

// Negative figures for a program that shows no window. It has ended when this returns.
Figures MeasureStart(std::wstring commandLine) {
    constexpr Figures None = {-1, -1, -1};
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    const double start = tallymere::Milliseconds();
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &process)) {
        return None;
    }
    HWND window = nullptr;
    while (window == nullptr && tallymere::Milliseconds() - start < LongestMilliseconds) {
        window = WindowsOf(process.dwProcessId).visible;
        if (window == nullptr) {
            Sleep(1);
        }
    }
    Figures figures = None;
    if (window != nullptr) {
        figures.visible = tallymere::Milliseconds() - start;
        figures.allMade = MomentOfLastWindow(process.dwProcessId, window) - start;
        figures.workingSet = WorkingSet(process.hProcess);
    }
    PostMessageW(window, WM_CLOSE, 0, 0);
    if (window == nullptr || WaitForSingleObject(process.hProcess, 10'000) != WAIT_OBJECT_0) {
        TerminateProcess(process.hProcess, 1);
        WaitForSingleObject(process.hProcess, INFINITE);
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return figures;
}

}  // namespace

int main(int count, char** arguments) {
    const long rounds = count > 1 ? std::strtol(arguments[1], nullptr, 10) : 0;
    for (long round = 0; round < rounds; round++) {
        for (int i = 2; i < count; i++) {
            const std::string program = arguments[i];
            const Figures figures =
                MeasureStart(L'"' + std::wstring(program.begin(), program.end()) + L'"');
            if (figures.visible < 0) {
                std::fprintf(stderr, "%s shows no window\n", arguments[i]);
                return 1;
            }
            std::printf("%s%.2f %.2f %.2f", i > 2 ? " " : "", figures.visible, figures.allMade,
                        figures.workingSet);
        }
        std::printf("\n");
        std::fflush(stdout);
    }
    return 0;
}
