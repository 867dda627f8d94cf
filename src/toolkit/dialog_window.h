// The windows of the program. They have one window class, which makes a window a dialog.
//
// A dialog remembers which control had the focus last and gives it back to it. It knows its default
// button, and it may run modally. Its controls handle the keyboard, see toolkit/control_data.h.
#pragma once

#include <cstdint>

#include "layout/dialog_placement.h"
#include "layout/logical_units.h"
#include "toolkit/win32.h"

namespace tallymere {

/// Handles a message of a window or of a control. `callDefault` is true on entry. A handler that
/// sets it to false has dealt with the message, and its return value is the message's result.
/// Otherwise the default handling follows, and its result counts.
using WindowHandler = LRESULT (*)(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                  bool& callDefault);

inline constexpr const char16_t* DialogClass = u"cwl_DialogWindow";

/// Makes a hidden dialog window. `owner` may be null. `style` has WS_ bits, and bits of
/// DialogStyle; WS_CAPTION is added. `size` is in logical units. It includes frame and title unless
/// `style` has DialogClientSize. The window stands in the upper left corner of the screen unless
/// `style` has DialogCentred. `handler` gets every message of the window from WM_NCCREATE on. It
/// is null for a window that does only what every dialog does.
HWND CreateDialogWindow(HWND owner, LayoutSize size, const char16_t* title, WindowHandler handler,
                        DWORD style, DWORD extendedStyle);

/// True for a window that CreateDialogWindow made.
bool IsDialogWindow(HWND window);

/// The control of a dialog that had the focus last; null for none. A window that is no dialog
/// always gives null, and setting does nothing.
HWND LastFocus(HWND dialog);
void SetLastFocus(HWND dialog, HWND control);

/// The button of a dialog that Return clicks; null at first.
HWND DefaultButton(HWND dialog);

/// Makes a push button the default button of a dialog. It gets the look of a default button, and
/// the former one loses it. For any other control nothing changes, and the result is false.
bool SetDefaultButton(HWND dialog, HWND button);

/// True while a dialog runs modally, see toolkit/modal_loop.h.
bool IsModal(HWND dialog);
void SetModal(HWND dialog, bool modal);

}  // namespace tallymere
