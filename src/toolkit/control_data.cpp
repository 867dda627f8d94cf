#include "toolkit/control_data.h"

#include <new>

#include "layout/control_keys.h"
#include "layout/default_look.h"
#include "toolkit/control_focus.h"
#include "toolkit/environment.h"
#include "toolkit/push_button_look.h"
#include "toolkit/wide_text.h"

namespace tallymere {

namespace {

// The controls whose records were used last. Every message to a control needs its record, and under
// Wine reading a property asks another process. Only the UI thread uses this: all controls are its
// own.
struct KnownControl {
    HWND control;
    ControlData* data;
};
constexpr size_t KnownControlCount = 512;
KnownControl knownControls[KnownControlCount] = {};

KnownControl& PlaceOf(HWND control) {
    // The lowest bit of a handle is mostly 0, so it is left out.
    return knownControls[reinterpret_cast<uintptr_t>(control) / 2 % KnownControlCount];
}

ControlData* DataOf(HWND control) {
    KnownControl& known = PlaceOf(control);
    if (known.control != control) {
        known = {control,
                 static_cast<ControlData*>(GetPropW(control, ToWide(ControlDataProperty)))};
    }
    return known.data;
}

// Call it when a control gets or loses its record.
void ForgetControl(HWND control) {
    PlaceOf(control) = {};
}

void NoteFocus(HWND control) {
    const HWND root = GetAncestor(control, GA_ROOT);
    if (root == nullptr) {
        return;
    }
    const HWND last = LastFocus(root);
    SetLastFocus(root, control);
    ApplyLooks(LooksAfterFocus(WindowsTree{}, control, last, DefaultButton(root)));
}

// Clicks a button for the Return key. A click gives the button the focus, but Return must not, so
// the focus goes back.
void ClickDefaultButton(HWND control) {
    const HWND root = GetAncestor(control, GA_ROOT);
    const HWND button = DefaultButton(root);
    const HWND focused = GetFocus();
    SendMessageW(button, BM_CLICK, 0, 0);
    if (GetFocus() == button) {
        FocusControl(focused);
    } else {
        SetLastFocus(root, focused);
    }
}

void MoveInRadioGroup(HWND button, WalkDirection direction) {
    const HWND target = RadioArrowTarget(WindowsTree{}, button, direction);
    if (target != nullptr) {
        SendMessageW(target, BM_CLICK, 0, 0);
        SetFocus(target);
        ShowFocusRectangle(target);
    }
}

bool IsKeyHeld(int key) {
    return GetKeyState(key) < 0;
}

ControlKeyAction ActionOfKeyMessage(HWND control, UINT message, WPARAM wParam, LPARAM lParam) {
    const bool isDown = message == WM_KEYDOWN;
    return ActionOfKey(
        {.key = static_cast<uint32_t>(wParam),
         .isDown = isDown,
         .isRepeated = isDown && (HIWORD(lParam) & KF_REPEAT) != 0,
         .shift = IsKeyHeld(VK_SHIFT),
         .control = IsKeyHeld(VK_CONTROL)},
        {.isPushButton = IsPushButton(control),
         .isRadioButton = IsRadioButton(control),
         .wantsReturn = WantsReturn(control),
         .wantsAllKeys = WantsAllKeys(control),
         .hasDefaultButton = DefaultButton(GetAncestor(control, GA_ROOT)) != nullptr});
}

// Returns true when the key must still reach the control's own procedure.
bool ForwardsKey(HWND control, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (ActionOfKeyMessage(control, message, wParam, lParam)) {
        case KeyForward:
            return true;
        case KeySwallow:
            break;
        case KeyTabForward:
            ShowFocusRectangle(FocusNextControl(control, true));
            break;
        case KeyTabBackward:
            ShowFocusRectangle(FocusNextControl(control, false));
            break;
        case KeyClickItself:
            SendMessageW(control, BM_CLICK, 0, 0);
            break;
        case KeyClickDefault:
            ClickDefaultButton(control);
            break;
        case KeyRadioForward:
            MoveInRadioGroup(control, WalkForward);
            break;
        case KeyRadioBackward:
            MoveInRadioGroup(control, WalkBackward);
            break;
    }
    return false;
}

}  // namespace

void AttachControlData(HWND window, WindowHandler handler) {
    const auto procedure = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
    auto* data = new (std::nothrow) ControlData{procedure, handler, 0};
    if (data == nullptr || !SetPropW(window, ToWide(ControlDataProperty), data)) {
        delete data;
        return;
    }
    ForgetControl(window);
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(ControlProc));
    if (defaultGuiFont != nullptr) {
        SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(defaultGuiFont), FALSE);
    }
}

void SetControlHandler(HWND control, WindowHandler handler) {
    if (ControlData* data = DataOf(control); data != nullptr) {
        data->handler = handler;
    }
}

LRESULT CALLBACK ControlProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    ControlData* data = DataOf(window);
    const WNDPROC savedProc =
        data != nullptr ? data->savedProc
                        : reinterpret_cast<WNDPROC>(GetClassLongPtrW(window, GCLP_WNDPROC));
    if (data != nullptr && data->handler != nullptr) {
        bool callDefault = true;
        const LRESULT result = data->handler(window, message, wParam, lParam, callDefault);
        if (!callDefault) {
            return result;
        }
    }
    bool forwards = true;
    switch (message) {
        case WM_SETFOCUS:
            NoteFocus(window);
            break;
        case WM_NCDESTROY:
            delete data;
            ForgetControl(window);
            RemovePropW(window, ToWide(ControlDataProperty));
            break;
        case WM_CHAR:
            forwards = ForwardsCharacter(static_cast<uint32_t>(wParam), WantsReturn(window));
            break;
        case WM_KEYDOWN:
        case WM_KEYUP:
            forwards = ForwardsKey(window, message, wParam, lParam);
            break;
        default:
            break;
    }
    return forwards ? CallWindowProcW(savedProc, window, message, wParam, lParam) : 0;
}

void ShowControl(HWND control, bool show) {
    ShowWindow(control, show ? SW_SHOW : SW_HIDE);
    const HWND root = GetAncestor(control, GA_ROOT);
    RECT area = {};
    GetWindowRect(control, &area);
    MapWindowPoints(HWND_DESKTOP, root, reinterpret_cast<POINT*>(&area), 2);
    InvalidateRect(root, &area, TRUE);
}

void PlaceControl(HWND control, const LayoutRect& place) {
    const LayoutRect pixels = ToScreenPixels(place);
    // The control is painted again and its picture is not moved along. The parent paints its
    // background later and could erase a moved picture.
    SetWindowPos(control, nullptr, pixels.x, pixels.y, pixels.width, pixels.height,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
}

void SetControlSize(HWND control, int32_t width, int32_t height) {
    SetWindowPos(control, nullptr, 0, 0, ToScreenPixels(width), ToScreenPixels(height),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void SetControlWidth(HWND control, int32_t width) {
    SetWindowPos(control, nullptr, 0, 0, ToScreenPixels(width), PlaceInParent(control).height,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace tallymere
