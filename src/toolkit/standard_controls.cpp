#include "toolkit/standard_controls.h"

#include "layout/control_kinds.h"
#include "toolkit/control_data.h"
#include "toolkit/control_focus.h"
#include "toolkit/environment.h"
#include "toolkit/wide_text.h"
#include "toolkit/window_class.h"

namespace tallymere {

namespace {

constexpr const char16_t* StaticClass = u"static";
constexpr const char16_t* TrackbarClass = u"msctls_trackbar32";
constexpr const char16_t* OldGroupBoxClass = u"cwl_WinXpGroupBox";

void AddTabStop(HWND window) {
    SetWindowLongPtrW(window, GWL_STYLE, GetWindowLongPtrW(window, GWL_STYLE) | WS_TABSTOP);
}

// The window that has the focus for a combobox: its edit control if text can be typed into it, else
// the combobox itself.
HWND InnerControl(HWND comboBox) {
    COMBOBOXINFO info = {};
    info.cbSize = sizeof info;
    SendMessageW(comboBox, CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info));
    return info.hwndItem != nullptr ? info.hwndItem : comboBox;
}

// The group box for systems whose own group box does not paint the controls inside it well.
enum OldGroupBoxSlot : int32_t { FrameSlot, OldGroupBoxSlotCount };

LRESULT CALLBACK OldGroupBoxProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE: {
            const auto& creation = *reinterpret_cast<const CREATESTRUCTW*>(lParam);
            SetSlot(window, FrameSlot,
                    CreateWindowExW(0, ToWide(ButtonClass), creation.lpszName,
                                    WS_CHILD | WS_VISIBLE | BS_GROUPBOX, 0, 0, creation.cx,
                                    creation.cy, window, nullptr, programInstance, nullptr));
            return 0;
        }
        case WM_SETTEXT:
        case WM_SETFONT:
            return SendMessageW(GetSlot<HWND>(window, FrameSlot), message, wParam, lParam);
        default:
            return DefWindowProcW(window, message, wParam, lParam);
    }
}

ToolkitClass oldGroupBoxClass = {OldGroupBoxClass, OldGroupBoxProc, CS_HREDRAW | CS_VREDRAW,
                                 OldGroupBoxSlotCount, false};

}  // namespace

HWND CreateControl(HWND parent, const char16_t* className, const LayoutRect& place,
                   const char16_t* text, DWORD style, DWORD extendedStyle, WindowHandler handler) {
    const LayoutRect pixels = ToScreenPixels(place);
    const HWND control = CreateWindowExW(
        extendedStyle, ToWide(className), ToWide(text), style | WS_CHILD | WS_VISIBLE, pixels.x,
        pixels.y, pixels.width, pixels.height, parent, nullptr, programInstance, nullptr);
    AttachControlData(control, handler);
    return control;
}

HWND CreateButton(HWND parent, const LayoutRect& place, const char16_t* text, DWORD style) {
    return CreateControl(parent, ButtonClass, place, text, PushButtonStyle(style) | WS_TABSTOP);
}

HWND CreateCheckBox(HWND parent, const LayoutRect& place, const char16_t* text) {
    return CreateControl(parent, ButtonClass, place, text, BS_AUTOCHECKBOX | WS_TABSTOP);
}

HWND CreateRadioButton(HWND parent, const LayoutRect& place, const char16_t* text) {
    return CreateControl(parent, ButtonClass, place, text, BS_AUTORADIOBUTTON | WS_TABSTOP);
}

HWND CreateDropList(HWND parent, const LayoutRect& place) {
    const HWND list = CreateControl(parent, ComboBoxClass, place, nullptr, CBS_DROPDOWNLIST);
    const HWND inner = InnerControl(list);
    if (inner != list) {
        AttachControlData(inner, nullptr);
    }
    AddTabStop(inner);
    return list;
}

HWND CreateStatic(HWND parent, const LayoutRect& place, const char16_t* text, DWORD style) {
    return CreateControl(parent, StaticClass, place, text, StaticStyle(style));
}

HWND CreateEdit(HWND parent, const LayoutRect& place, const char16_t* text, DWORD style,
                DWORD extendedStyle) {
    const HWND edit =
        CreateControl(parent, EditClass, place, text, style | WS_TABSTOP, extendedStyle);
    SendMessageW(edit, EM_SETLIMITTEXT, EditTextLimit, 0);
    return edit;
}

HWND CreateTrackbar(HWND parent, int32_t x, int32_t width) {
    return CreateControl(parent, TrackbarClass, {x, TrackbarY, width, TrackbarHeight}, nullptr,
                         WS_TABSTOP | TBS_BOTH | TBS_NOTICKS);
}

HWND CreateGroupBox(HWND parent, const LayoutRect& place, const char16_t* text,
                    WindowHandler handler) {
    if (osVersionCode >= OsVersionVista) {
        return CreateControl(parent, ButtonClass, place, text, BS_GROUPBOX, 0, handler);
    }
    RegisterToolkitClass(oldGroupBoxClass);
    return CreateControl(parent, OldGroupBoxClass, place, text, 0, 0, handler);
}

}  // namespace tallymere
