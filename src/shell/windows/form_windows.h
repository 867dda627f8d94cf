// Windows of pages, and controls made from the tables of the forms and placed by their layouts.
#pragma once

#include <cstdint>
#include <span>

#include "shell/form_control.h"
#include "toolkit/dialog_window.h"
#include "toolkit/win32.h"

namespace tallymere {

/// Makes the window of a page, hidden, in the middle of the screen, with a frame that can be
/// dragged. `size` is that of its client area in logical units.
HWND CreatePageWindow(LayoutSize size, const char16_t* title, WindowHandler handler);

/// Makes the first `count` controls of a form in a window and stores them in `controls`, each at
/// its index. A control with no entry of the text table has no text.
void CreateFormControls(HWND window, const FormControl* form, int32_t count, HWND* controls);

/// The place of a control of a form in its parent, in a client area, both in logical units.
using FormPlacer = LayoutRect (*)(int32_t control, LayoutSize client);

/// Puts each control where the layout wants it in the client area that the window has now. The
/// index of a control is that in its form.
void PlaceFormControls(HWND window, std::span<const HWND> controls, FormPlacer place);

}  // namespace tallymere
