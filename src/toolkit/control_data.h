// The record of every control of the toolkit, and the one window procedure of all controls. The
// procedure moves the focus, clicks the default button and handles the radio buttons of a group.
#pragma once

#include <cstdint>

#include "layout/logical_units.h"
#include "toolkit/dialog_window.h"
#include "toolkit/win32.h"

namespace tallymere {

/// The window property of this name points to the record of a control.
inline constexpr const char16_t* ControlDataProperty = u"cwl_ControlData";

/// The record of a control. It lives on the heap, from AttachControlData to WM_NCDESTROY.
struct ControlData {
    WNDPROC savedProc;      ///< the control's procedure before it was subclassed
    WindowHandler handler;  ///< sees every message first; null for none
    uint64_t reserved;      ///< 0
};

/// Makes a window a control of the toolkit: gives it a record, ControlProc and the default font.
/// Without memory the window stays as it was, and the keyboard skips it.
void AttachControlData(HWND window, WindowHandler handler);

/// Replaces the handler of a control of the toolkit, null for none.
void SetControlHandler(HWND control, WindowHandler handler);

/// The procedure of every control of the toolkit.
LRESULT CALLBACK ControlProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

/// Shows or hides a control. In both cases its place on the window is painted again.
void ShowControl(HWND control, bool show);

/// Moves and sizes a control; `place` is in logical units of the parent's client area.
void PlaceControl(HWND control, const LayoutRect& place);

/// Changes the size of a control, in logical units. The position stays.
void SetControlSize(HWND control, int32_t width, int32_t height);

/// Changes the width of a control, in logical units. Position and height stay.
void SetControlWidth(HWND control, int32_t width);

}  // namespace tallymere
