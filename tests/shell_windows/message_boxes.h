// Message boxes in a test: a button is pressed in each, and what it showed is noted.
#pragma once

#include <string>

#include "core/number_context.h"
#include "shell/ui_error.h"
#include "toolkit/test_dialog.h"

namespace tallymere::testing_support {

/// The id of a button that no message box has.
inline constexpr WORD NoButton = 0;

/// Presses a button of every message box of this thread as soon as it is there, and tells what the
/// last one said.
class MessageBoxAnswer {
public:
    /// With NoButton the box stays, and the test has to close it.
    explicit MessageBoxAnswer(WORD button = IDOK) {
        button_ = button;
        caption = text = "";
        owner = nullptr;
        boxes = buttons = 0;
        hasIcon = false;
        raises = UiErrorNone;
        hook_ = SetWindowsHookExW(WH_CBT, Answer, nullptr, GetCurrentThreadId());
    }
    ~MessageBoxAnswer() { UnhookWindowsHookEx(hook_); }
    MessageBoxAnswer(const MessageBoxAnswer&) = delete;
    MessageBoxAnswer& operator=(const MessageBoxAnswer&) = delete;

    static inline int32_t boxes;  ///< how many there were
    static inline std::string caption;
    static inline std::string text;
    static inline HWND owner;
    static inline HWND box;  ///< itself
    static inline int32_t buttons;
    static inline bool hasIcon;

    // What was pending behind the box.
    static inline UiErrorCode pending;
    static inline CalcError calcError;
    static inline uint8_t cancelled;

    static inline UiErrorCode raises;  ///< an error to raise behind the box

private:
    static constexpr int TextControl = 0xFFFF;

    static LRESULT CALLBACK Answer(int code, WPARAM wParam, LPARAM lParam) {
        const auto active = reinterpret_cast<HWND>(wParam);
        if (code == HCBT_ACTIVATE && GetDlgItem(active, TextControl) != nullptr) {
            box = active;
            boxes++;
            caption = TextOf(box);
            text = TextOf(GetDlgItem(box, TextControl));
            owner = GetWindow(box, GW_OWNER);
            buttons = 0;
            EnumChildWindows(box, LookAtControl, 0);
            pending = PendingUiError();
            calcError = numberContext.calcError;
            cancelled = cancelFlag;
            if (raises != UiErrorNone) {
                SetUiError(raises);
            }
            PostMessageW(box, WM_COMMAND, button_, 0);
        }
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }

    static BOOL CALLBACK LookAtControl(HWND control, LPARAM) {
        if (IsSameClassName(WindowClassName(control).text, u"button")) {
            buttons++;
        } else if ((WindowStyle(control) & SS_TYPEMASK) == SS_ICON) {
            hasIcon = SendMessageW(control, STM_GETICON, 0, 0) != 0;
        }
        return TRUE;
    }

    static inline WORD button_;
    HHOOK hook_;
};

}  // namespace tallymere::testing_support
