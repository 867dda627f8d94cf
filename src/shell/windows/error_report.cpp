#include "shell/windows/error_report.h"

#include "core/limits.h"
#include "shell/ui_message.h"
#include "shell/ui_text.h"
#include "toolkit/wide_text.h"
#include "toolkit/win32.h"

namespace tallymere {

namespace {

BOOL CALLBACK TakeUsableWindow(HWND window, LPARAM found) {
    if (!IsWindowVisible(window) || !IsWindowEnabled(window)) {
        return TRUE;
    }
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

// A box without an owner would leave all windows open to the user. No window is active while
// another program is in front; then it is the uppermost one that can be used, such as the page
// whose run has just ended.
HWND OwnerOfMessageBox() {
    HWND owner = GetActiveWindow();
    if (owner == nullptr) {
        EnumThreadWindows(GetCurrentThreadId(), TakeUsableWindow, reinterpret_cast<LPARAM>(&owner));
    }
    return owner;
}

}  // namespace

void ReportUiError() {
    char16_t message[UiErrorMessageCapacity + 1];
    if (TakeUiErrorMessage(message, UiErrorMessageCapacity)) {
        MessageBoxW(OwnerOfMessageBox(), ToWide(message), ToWide(uiText.TextErrError),
                    MB_ICONERROR);
    }
}

}  // namespace tallymere
