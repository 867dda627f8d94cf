// The text of an edit control that gets long lines with soft breaks, see layout/soft_breaks.h.
//
// Plain texts and selections are those without soft breaks, broken ones those that the control has.
#pragma once

#include <string_view>

#include "toolkit/field_state.h"
#include "toolkit/win32.h"

namespace tallymere {

/// What the system's control makes of a message, past all handlers.
LRESULT AskEdit(HWND field, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

/// Whether the text has more than LongLineCharacters, broken or plain. Others have no soft breaks.
bool HasLongText(HWND field);

HeapText BrokenText(HWND field);
HeapText PlainText(HWND field);

TextSelection BrokenSelection(HWND field);
void SelectBroken(HWND field, TextSelection selection);

/// Plain text and selection. Without memory the text is empty, and the selection is of no use.
FieldState PlainState(HWND field);

/// Does what WM_SETTEXT does for a plain text, which may be null. Returns its result: FALSE without
/// memory, and the text is as before.
LRESULT WritePlainText(HWND field, const char16_t* text);

/// Writes a plain text as a change by the user: what is seen of it stays where it is, the caret is
/// scrolled into view, and the field is modified. EN_CHANGE is left to the caller. False without
/// memory, and the text is as before.
bool ChangePlainText(HWND field, std::u16string_view text, TextSelection selection);

/// Puts the soft breaks where they belong after a change of text, width or font.
void BreakAnew(HWND field);

}  // namespace tallymere
