#include "shell/windows/program_windows.h"

namespace tallymere {

HWND hiddenOwnerWindow = nullptr;
HWND mainWindow = nullptr;
HWND pageWindows[PageCount] = {};
HWND optionsWindow = nullptr;
HWND aboutWindow = nullptr;
HWND variablesWindow = nullptr;

void ShowProgramWindow(HWND window) {
    if (window != nullptr) {
        ShowWindow(window, SW_SHOWNORMAL);
        SetForegroundWindow(window);
    }
}

void HideProgramWindow(HWND window) {
    const HWND owner = GetWindow(window, GW_OWNER);
    if (owner != nullptr) {
        SetActiveWindow(owner);
    }
    ShowWindow(window, SW_HIDE);
}

void HidePageWindow(HWND page) {
    ShowWindow(page, SW_HIDE);
    SetActiveWindow(mainWindow);
}

}  // namespace tallymere
