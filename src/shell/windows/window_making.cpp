#include "shell/windows/window_making.h"

#include <algorithm>

#include "shell/windows/page_run.h"
#include "shell/windows/program_windows.h"

namespace tallymere {

namespace {

constexpr UINT_PTR MakingTimer = 1;

std::span<const ProgramWindow> programWindows;
size_t nextWindow = 0;

void Make(const ProgramWindow& row) {
    row.make();
    ShutOutOfBusyPage(*row.window);
}

// The system sends a timer behind all other messages, input and painting among them. So the windows
// that are there answer between two that are made.
void CALLBACK MakeNextWindow(HWND owner, UINT, UINT_PTR timer, DWORD) {
    if (IsRunUnderWay()) {
        return;
    }
    while (nextWindow < programWindows.size() && *programWindows[nextWindow].window != nullptr) {
        nextWindow++;
    }
    if (nextWindow == programWindows.size()) {
        KillTimer(owner, timer);
        return;
    }
    // Counted before it is made: while it reports an error, the next one may be made.
    Make(programWindows[nextWindow++]);
}

const ProgramWindow* RowOf(const HWND* window) {
    const auto row = std::ranges::find(programWindows, window, &ProgramWindow::window);
    return row == programWindows.end() ? nullptr : &*row;
}

}  // namespace

void BeginMakingWindows(std::span<const ProgramWindow> windows) {
    programWindows = windows;
    nextWindow = 0;
    SetTimer(hiddenOwnerWindow, MakingTimer, USER_TIMER_MINIMUM, MakeNextWindow);
}

bool HasProgramWindow(const HWND* window) {
    return *window != nullptr || RowOf(window) != nullptr;
}

HWND EnsureWindow(const HWND* window) {
    if (const ProgramWindow* row = RowOf(window);
        *window == nullptr && row != nullptr && !IsRunUnderWay()) {
        Make(*row);
    }
    return *window;
}

}  // namespace tallymere
