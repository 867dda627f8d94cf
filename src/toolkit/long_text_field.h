// A multi-line field for texts of any length. The system's control behind it gets long lines with
// soft breaks, see layout/soft_breaks.h; who writes, reads or selects the text through messages
// never meets them.
#pragma once

#include "layout/logical_units.h"
#include "toolkit/win32.h"

namespace tallymere {

/// An edit control with frame and vertical scroll bar whose handler is HandleLongText; `place` in
/// logical units.
HWND CreateLongTextField(HWND parent, const LayoutRect& place, const char16_t* text);

/// The handler of such a field. A handler that takes its place gives it all messages that it does
/// not keep for itself. Text, selection, positions and undo work as in any edit control, with these
/// differences: a limit of its length counts the soft breaks, and soft breaks in a text that is
/// written or pasted get lost where it is long.
LRESULT HandleLongText(HWND field, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault);

/// Whether a message is Shift+Insert, for which the system's control may paste without the message
/// for it, and HandleLongText sends it.
bool IsPasteKey(UINT message, WPARAM wParam);

}  // namespace tallymere
