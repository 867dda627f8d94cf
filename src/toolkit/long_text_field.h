// A multi-line field for texts of any length.
//
// On Windows it is the system's edit control and nothing else: texts go to it and come from it by
// the messages for that. The control of Wine is too slow for long texts. There, see isWine, it has
// soft breaks in long lines, see layout/soft_breaks.h, and whoever writes, reads or selects the
// text by messages does not see them. Which way is taken must not change while there is a field.
#pragma once

#include "layout/logical_units.h"
#include "toolkit/win32.h"

namespace tallymere {

/// Makes an edit control with a frame and a vertical scroll bar. Its handler is HandleLongText.
/// `place` is in logical units.
HWND CreateLongTextField(HWND parent, const LayoutRect& place, const char16_t* text);

/// The handler of such a field. Another handler may replace it, but must pass on all messages that
/// it does not use up.
///
/// Text, selection, positions and undo work as in any edit control, with three differences on Wine.
/// A limit of the length counts soft breaks too. When a long text that is written or pasted
/// contains the characters of a soft break, they are lost. And a text of more than 65,536
/// characters is wrapped for a new size 0.2 s after the last change of the size.
LRESULT HandleLongText(HWND field, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault);

/// Puts a text at the end of such a field, selects the end and scrolls there. Unlike EM_REPLACESEL
/// it does not take time on Wine for the text that is there already. It cannot be undone, and
/// neither can what was done before. False when the control cannot take so much text: the text is
/// as before.
bool AppendLongText(HWND field, const char16_t* text);

/// True when a message is the key Shift+Insert. The system's control may paste for it without a
/// WM_PASTE message, so HandleLongText sends one.
bool IsPasteKey(UINT message, WPARAM wParam);

}  // namespace tallymere
