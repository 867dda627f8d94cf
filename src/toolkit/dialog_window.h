// The windows of the program: one class for all of them, which brings what makes a window a dialog.
//
// A dialog remembers which control had the focus last and gives it back, knows its default button
// and may run modally. The keyboard is the business of its controls, see toolkit/control_data.h.
#pragma once

#include <cstdint>

#include "layout/dialog_placement.h"
#include "layout/logical_units.h"
#include "toolkit/win32.h"

namespace tallymere {

/// Handles a message of a window or of a control and returns the message's result. `callDefault` is
/// true on entry; when it is false on return, nothing else is done with the message, else the
/// result is that of what is done by default.
using WindowHandler = LRESULT (*)(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                  bool& callDefault);

inline constexpr const char16_t* DialogClass = u"cwl_DialogWindow";

/// Makes a dialog window, hidden, with its upper left corner in that of the screen unless `style`
/// asks otherwise. `owner` may be null. `size` is in logical units and counts frame and title
/// unless `style` has DialogClientSize. `style` are WS_ bits and those of DialogStyle; WS_CAPTION
/// is added. `handler` gets every message of the window, the one of its creation included; null for
/// a window that does only what every dialog does.
HWND CreateDialogWindow(HWND owner, LayoutSize size, const char16_t* title, WindowHandler handler,
                        DWORD style, DWORD extendedStyle);

/// True for a window that CreateDialogWindow made.
bool IsDialogWindow(HWND window);

/// The control of a dialog that had the focus last, null for none. Any other window has none and
/// keeps none.
HWND LastFocus(HWND dialog);
void SetLastFocus(HWND dialog, HWND control);

/// The button of a dialog that Return clicks; null at first.
HWND DefaultButton(HWND dialog);

/// Makes a push button the default button of a dialog and gives it the look of one, which the
/// former one loses. False, and nothing is changed, for any other control.
bool SetDefaultButton(HWND dialog, HWND button);

/// Whether a dialog runs modally, see toolkit/modal_loop.h.
bool IsModal(HWND dialog);
void SetModal(HWND dialog, bool modal);

}  // namespace tallymere
