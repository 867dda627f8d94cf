// What every control of the toolkit carries, and the one procedure behind all of them, which moves
// the focus, clicks the default button and leads the radio buttons of a group.
#pragma once

#include <cstdint>

#include "layout/logical_units.h"
#include "toolkit/dialog_window.h"
#include "toolkit/win32.h"

namespace tallymere {

/// A property of this name points to a control's record.
inline constexpr const char16_t* ControlDataProperty = u"cwl_ControlData";

/// Lives on the heap from AttachControlData to WM_NCDESTROY of the control.
struct ControlData {
    WNDPROC savedProc;      ///< the control's procedure before it was subclassed
    WindowHandler handler;  ///< sees every message first; null for none
    uint64_t reserved;      ///< 0
};

/// Makes a window a control of the toolkit: gives it a record and ControlProc, and the default
/// font. Without memory the window stays as it was, and the keyboard passes it by.
void AttachControlData(HWND window, WindowHandler handler);

/// Replaces the handler of a control of the toolkit, null for none.
void SetControlHandler(HWND control, WindowHandler handler);

/// The procedure of every control of the toolkit.
LRESULT CALLBACK ControlProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

/// Shows or hides a control. Its place on the window is repainted in either case.
void ShowControl(HWND control, bool show);

/// Moves and sizes a control; `place` is in logical units of the parent's client area.
void PlaceControl(HWND control, const LayoutRect& place);

/// Sizes are in logical units; the control's position stays.
void SetControlSize(HWND control, int32_t width, int32_t height);

/// Likewise; the height stays too.
void SetControlWidth(HWND control, int32_t width);

}  // namespace tallymere
