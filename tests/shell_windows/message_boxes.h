// Message boxes in a test: what they show is noted, and OK is pressed in each.
#pragma once

#include <string>

#include "core/number_context.h"
#include "shell/ui_error.h"
#include "toolkit/test_dialog.h"

namespace tallymere::testing_support {

/// What the message boxes of a test showed while they were open; of several boxes, the last.
struct SeenBoxes {
    int32_t boxes = 0;
    std::string title;
    std::string text;
    HWND owner = nullptr;
    int32_t buttons = 0;
    bool hasIcon = false;
    UiErrorCode pending = UiErrorNone;  ///< what was pending behind the box
    CalcError calcError = CalcErrorNone;
    uint8_t cancelFlag = 0;
    UiErrorCode raises = UiErrorNone;  ///< an error to raise behind the box
};

inline SeenBoxes seen;

inline BOOL CALLBACK LookAtBoxControl(HWND control, LPARAM) {
    if (IsSameClassName(WindowClassName(control).text, u"button")) {
        seen.buttons++;
    } else if ((WindowStyle(control) & SS_TYPEMASK) == SS_ICON) {
        seen.hasIcon = SendMessageW(control, STM_GETICON, 0, 0) != 0;
    } else {
        seen.text = TextOf(control);
    }
    return TRUE;
}

inline BOOL CALLBACK LookAtBox(HWND window, LPARAM) {
    if (!IsSameClassName(WindowClassName(window).text, u"#32770")) {
        return TRUE;
    }
    seen.boxes++;
    seen.title = TextOf(window);
    seen.owner = GetWindow(window, GW_OWNER);
    seen.buttons = 0;
    EnumChildWindows(window, LookAtBoxControl, 0);
    seen.pending = PendingUiError();
    seen.calcError = numberContext.calcError;
    seen.cancelFlag = cancelFlag;
    if (seen.raises != UiErrorNone) {
        SetUiError(seen.raises);
    }
    // At once, so that no later look finds the same box.
    EndDialog(window, IDOK);
    return FALSE;
}

inline void CALLBACK LookForBox(HWND, UINT, UINT_PTR, DWORD) {
    EnumThreadWindows(GetCurrentThreadId(), LookAtBox, 0);
}

/// Looks out for message boxes of this thread as long as it lives.
class MessageBoxWatch {
public:
    MessageBoxWatch() {
        seen = {};
        timer_ = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, LookForBox);
    }
    ~MessageBoxWatch() { KillTimer(nullptr, timer_); }
    MessageBoxWatch(const MessageBoxWatch&) = delete;
    MessageBoxWatch& operator=(const MessageBoxWatch&) = delete;

private:
    UINT_PTR timer_;
};

}  // namespace tallymere::testing_support
