// A dialog window for each test, and hands for its controls.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "toolkit/control_data.h"
#include "toolkit/control_focus.h"
#include "toolkit/dialog_window.h"
#include "toolkit/environment.h"
#include "toolkit/loop_deadline.h"
#include "toolkit/standard_controls.h"
#include "toolkit/whole_text.h"
#include "toolkit/wide_text.h"
#include "toolkit/win32.h"
#include "toolkit/window_class.h"

namespace tallymere::testing_support {

/// The text of a window, which is ASCII.
inline std::string TextOf(HWND window) {
    wchar_t text[256];
    const int length = GetWindowTextW(window, text, 256);
    return {text, text + length};
}

/// Sends a key that goes down and comes up, as the message loop would, without the character, while
/// other keys are held.
inline void PressKey(HWND control, int key, int heldKey = 0, int otherHeldKey = 0) {
    BYTE keys[256] = {};
    for (const int held : {heldKey, otherHeldKey}) {
        keys[held] = held != 0 ? 0x80 : 0;
    }
    SetKeyboardState(keys);
    SendMessageW(control, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
    SendMessageW(control, WM_KEYUP, static_cast<WPARAM>(key), static_cast<LPARAM>(0xC0000001));
    std::fill_n(keys, 256, BYTE{0});
    SetKeyboardState(keys);
}

inline void TypeCharacter(HWND control, char16_t character) {
    SendMessageW(control, WM_CHAR, character, 1);
}

inline bool HasClass(HWND window, const char16_t* name) {
    return IsSameClassName(WindowClassName(window).text, name);
}

inline bool HasDefaultLook(HWND button) {
    return (WindowStyle(button) & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
}

inline bool IsChecked(HWND button) {
    return SendMessageW(button, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

/// The keys and characters that reached the procedure of the class of PlainControl.
inline std::vector<UINT> keyMessages;

/// The name of a class whose windows do nothing.
inline const char16_t* PlainControl() {
    constexpr WNDPROC procedure = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_KEYDOWN || message == WM_KEYUP || message == WM_CHAR) {
            keyMessages.push_back(message);
        }
        return DefWindowProcW(window, message, wParam, lParam);
    };
    static ToolkitClass plainClass = {u"ToolkitTestControl", procedure, 0, 0, false};
    RegisterToolkitClass(plainClass);
    return plainClass.name;
}

/// What the dialog of a test heard, and what it does.
struct Heard {
    HWND lastClicked = nullptr;  ///< the control of the last BN_CLICKED
    int32_t clicks = 0;
    int32_t erasures = 0;  ///< how often the dialog's background was painted
};

inline Heard heard;

inline LRESULT HearCommands(HWND, UINT message, WPARAM wParam, LPARAM lParam, bool&) {
    if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED) {
        heard.lastClicked = reinterpret_cast<HWND>(lParam);
        heard.clicks++;
    }
    if (message == WM_ERASEBKGND) {
        heard.erasures++;
    }
    return 0;
}

/// A shown dialog, whose focus is at first on itself.
class ToolkitTest : public ::testing::Test {
protected:
    ToolkitTest() {
        programInstance = GetModuleHandleW(nullptr);
        osVersionCode = 0x0A00;
        isWine = true;
        screenDpi = LogicalDpi;
        const INITCOMMONCONTROLSEX common = {sizeof common, 0xFFFF};
        InitCommonControlsEx(&common);
        heard = {};
        dialog = CreateDialogWindow(nullptr, {400, 300}, u"Dialog", HearCommands, WS_SYSMENU, 0);
        ShowWindow(dialog, SW_SHOWNORMAL);
        SetFocus(dialog);
    }

    ~ToolkitTest() override {
        DestroyWindow(dialog);
        screenDpi = LogicalDpi;
    }

    HWND Plain() {
        return CreateControl(dialog, PlainControl(), {0, 0, 60, 20}, nullptr, WS_TABSTOP);
    }
    HWND Button(const char16_t* text) { return CreateButton(dialog, {0, 0, 60, 20}, text); }
    HWND Edit(DWORD style = 0) { return CreateEdit(dialog, {0, 0, 60, 20}, u"", style, 0); }
    HWND Radio(const char16_t* text) { return CreateRadioButton(dialog, {0, 0, 60, 20}, text); }

    HWND dialog;
    LoopDeadline deadline;
};

}  // namespace tallymere::testing_support
