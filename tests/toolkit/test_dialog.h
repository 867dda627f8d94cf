// A dialog window for each test, and hands for its controls.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "toolkit/control_data.h"
#include "toolkit/control_focus.h"
#include "toolkit/dialog_window.h"
#include "toolkit/environment.h"
#include "toolkit/standard_controls.h"
#include "toolkit/wide_text.h"
#include "toolkit/win32.h"

namespace tallymere::testing_support {

/// The text of a window, which is ASCII.
inline std::string TextOf(HWND window) {
    wchar_t text[256];
    const int length = GetWindowTextW(window, text, 256);
    return {text, text + length};
}

/// Sends a key that goes down and comes up, as the message loop would, without the character.
inline void PressKey(HWND control, int key, int heldKey = 0) {
    BYTE keys[256] = {};
    if (heldKey != 0) {
        keys[heldKey] = 0x80;
    }
    SetKeyboardState(keys);
    SendMessageW(control, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
    SendMessageW(control, WM_KEYUP, static_cast<WPARAM>(key), static_cast<LPARAM>(0xC0000001));
    keys[heldKey] = 0;
    SetKeyboardState(keys);
}

inline void TypeCharacter(HWND control, char16_t character) {
    SendMessageW(control, WM_CHAR, character, 1);
}

inline bool HasDefaultLook(HWND button) {
    return (WindowStyle(button) & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
}

inline bool IsChecked(HWND button) {
    return SendMessageW(button, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

/// What the dialog of a test heard, and what it does.
struct Heard {
    HWND lastClicked = nullptr;  ///< the control of the last BN_CLICKED
    int32_t clicks = 0;
};

inline Heard heard;

inline LRESULT HearCommands(HWND, UINT message, WPARAM wParam, LPARAM lParam, bool&) {
    if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED) {
        heard.lastClicked = reinterpret_cast<HWND>(lParam);
        heard.clicks++;
    }
    return 0;
}

/// A shown dialog, whose focus is at first on itself.
class ToolkitTest : public ::testing::Test {
protected:
    ToolkitTest() {
        programInstance = GetModuleHandleW(nullptr);
        osVersionCode = 0x0A00;
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

    HWND Button(const char16_t* text) { return CreateButton(dialog, {0, 0, 60, 20}, text); }
    HWND Edit(DWORD style = 0) { return CreateEdit(dialog, {0, 0, 60, 20}, u"", style, 0); }
    HWND Radio(const char16_t* text) { return CreateRadioButton(dialog, {0, 0, 60, 20}, text); }

    HWND dialog;
};

}  // namespace tallymere::testing_support
