#include "toolkit/dialog_window.h"

#include "layout/default_look.h"
#include "toolkit/control_focus.h"
#include "toolkit/environment.h"
#include "toolkit/modal_loop.h"
#include "toolkit/push_button_look.h"
#include "toolkit/wide_text.h"
#include "toolkit/window_class.h"

namespace tallymere {

namespace {

enum DialogSlot : int32_t {
    HandlerSlot,
    LastFocusSlot,
    DefaultButtonSlot,
    ModalSlot,
    DialogSlotCount,
};

void ResizeToClient(HWND dialog, LayoutSize client) {
    const LayoutRect place = PlaceInParent(dialog);
    const LayoutSize size =
        WindowSizeForClient(client, {place.width, place.height}, ClientSize(dialog));
    SetWindowPos(dialog, nullptr, 0, 0, size.width, size.height,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Centre(HWND dialog) {
    const LayoutRect place = PlaceInParent(dialog);
    const LayoutPoint corner =
        CentredPosition({GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)},
                        {place.width, place.height});
    SetWindowPos(dialog, nullptr, corner.x, corner.y, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void PlaceNewDialog(HWND dialog, const CREATESTRUCTW& creation) {
    if ((creation.style & DialogClientSize) != 0) {
        ResizeToClient(dialog, {creation.cx, creation.cy});
    }
    if ((creation.style & DialogCentred) != 0) {
        Centre(dialog);
    }
}

void RestoreFocus(HWND dialog) {
    HWND control = LastFocus(dialog);
    if (control == nullptr) {
        control = NextTabStop(dialog, true);
    }
    if (control != dialog) {
        FocusControl(control);
        InvalidateRect(control, nullptr, TRUE);
    }
}

LRESULT CALLBACK DialogWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NCCREATE:
            SetSlot(window, HandlerSlot,
                    reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
            break;
        case WM_CREATE:
            PlaceNewDialog(window, *reinterpret_cast<const CREATESTRUCTW*>(lParam));
            break;
        case WM_CLOSE:
            if (IsModal(window)) {
                EndModal(window);
            }
            break;
        default:
            break;
    }
    // Messages before WM_NCCREATE come before the handler is set.
    if (const auto handler = GetSlot<WindowHandler>(window, HandlerSlot); handler != nullptr) {
        bool callDefault = true;
        const LRESULT result = handler(window, message, wParam, lParam, callDefault);
        if (!callDefault) {
            return result;
        }
    }
    if (message == WM_SETFOCUS) {
        RestoreFocus(window);
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

ToolkitClass dialogClass = {DialogClass, DialogWindowProc, 0, DialogSlotCount, false};

}  // namespace

HWND CreateDialogWindow(HWND owner, LayoutSize size, const char16_t* title, WindowHandler handler,
                        DWORD style, DWORD extendedStyle) {
    RegisterToolkitClass(dialogClass);
    return CreateWindowExW(extendedStyle, ToWide(DialogClass), ToWide(title), style | WS_CAPTION, 0,
                           0, ToScreenPixels(size.width), ToScreenPixels(size.height), owner,
                           nullptr, programInstance, reinterpret_cast<void*>(handler));
}

bool IsDialogWindow(HWND window) {
    return IsSameClassName(WindowClassName(window).text, DialogClass);
}

HWND LastFocus(HWND dialog) {
    return IsDialogWindow(dialog) ? GetSlot<HWND>(dialog, LastFocusSlot) : nullptr;
}

void SetLastFocus(HWND dialog, HWND control) {
    if (IsDialogWindow(dialog)) {
        SetSlot(dialog, LastFocusSlot, control);
    }
}

HWND DefaultButton(HWND dialog) {
    return IsDialogWindow(dialog) ? GetSlot<HWND>(dialog, DefaultButtonSlot) : nullptr;
}

bool SetDefaultButton(HWND dialog, HWND button) {
    if (!IsDialogWindow(dialog) || !IsPushButton(button)) {
        return false;
    }
    ApplyLooks(LooksAfterNewDefault(WindowsTree{}, DefaultButton(dialog), button));
    SetSlot(dialog, DefaultButtonSlot, button);
    return true;
}

bool IsModal(HWND dialog) {
    return IsDialogWindow(dialog) && GetSlot<LONG_PTR>(dialog, ModalSlot) == 1;
}

void SetModal(HWND dialog, bool modal) {
    if (IsDialogWindow(dialog)) {
        SetSlot<LONG_PTR>(dialog, ModalSlot, modal ? 1 : 0);
    }
}

}  // namespace tallymere
