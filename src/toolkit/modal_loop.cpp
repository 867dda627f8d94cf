#include "toolkit/modal_loop.h"

#include <cstdint>
#include <memory>
#include <new>

#include "toolkit/dialog_window.h"

namespace tallymere {

namespace {

// Posted to the thread when a dialog ends, so that its loop gets a message. Another loop inside may
// take it, that of a message box for one. So the loop looks at the dialog itself.
constexpr UINT ModalEndMessage = WM_APP + 1;

// Collects the enabled windows of the thread except the dialog. With `windows` null it only counts
// them.
struct OtherWindows {
    HWND dialog;
    HWND* windows;
    int64_t count;
    int64_t capacity;
};

BOOL CALLBACK NoteWindow(HWND window, LPARAM parameter) {
    OtherWindows& others = *reinterpret_cast<OtherWindows*>(parameter);
    if (window == others.dialog || !IsWindowEnabled(window)) {
        return TRUE;
    }
    if (others.windows != nullptr) {
        if (others.count == others.capacity) {
            return FALSE;
        }
        others.windows[others.count] = window;
    }
    others.count++;
    return TRUE;
}

void NoteThreadWindows(OtherWindows& others) {
    EnumThreadWindows(GetCurrentThreadId(), NoteWindow, reinterpret_cast<LPARAM>(&others));
}

void EnableAll(const OtherWindows& others, bool enable) {
    for (int64_t i = 0; i < others.count; i++) {
        EnableWindow(others.windows[i], enable);
    }
}

void HandleMessagesUntilEnd(HWND dialog) {
    MSG message;
    BOOL result = 1;
    while (IsModal(dialog) && (result = GetMessageW(&message, nullptr, 0, 0)) >= 1) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    if (result == 0) {
        // The request to end the program is for the main loop, so it is posted again.
        PostQuitMessage(static_cast<int>(message.wParam));
    }
}

}  // namespace

bool RunModal(HWND dialog) {
    if (!IsDialogWindow(dialog)) {
        return false;
    }
    SetModal(dialog, true);
    ShowWindow(dialog, SW_SHOWNORMAL);
    SetForegroundWindow(dialog);
    if (!IsWindowVisible(dialog)) {
        SetModal(dialog, false);
        return false;
    }
    OtherWindows counted = {dialog, nullptr, 0, 0};
    NoteThreadWindows(counted);
    const std::unique_ptr<HWND[]> windows(new (std::nothrow)
                                              HWND[static_cast<size_t>(counted.count)]);
    if (windows == nullptr) {
        SetModal(dialog, false);
        return false;
    }
    OtherWindows others = {dialog, windows.get(), 0, counted.count};
    NoteThreadWindows(others);
    EnableAll(others, false);
    HandleMessagesUntilEnd(dialog);
    EnableAll(others, true);
    SetModal(dialog, false);
    return true;
}

void EndModal(HWND dialog) {
    const HWND owner = GetWindow(dialog, GW_OWNER);
    if (owner != nullptr && IsWindowVisible(owner)) {
        if (!IsWindowEnabled(owner)) {
            EnableWindow(owner, TRUE);
        }
        SetFocus(owner);
    }
    SetModal(dialog, false);
    PostMessageW(nullptr, ModalEndMessage, 0, 0);
}

}  // namespace tallymere
