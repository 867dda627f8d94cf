// The text of an edit control whose long lines have soft breaks, see layout/soft_breaks.h.
//
// A broken text or selection is the control's own, which counts soft breaks. A plain one is without
// them.
#pragma once

#include <cstdint>
#include <string_view>

#include "toolkit/field_state.h"
#include "toolkit/win32.h"

namespace tallymere {

/// Sends a message to the system's control, past all handlers, and returns its result.
LRESULT AskEdit(HWND field, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

/// True when the text has more than LongLineCharacters characters. Any other text has no soft
/// breaks, so it does not matter whether they are counted.
bool HasLongText(HWND field);

HeapText BrokenText(HWND field);
HeapText PlainText(HWND field);

TextSelection BrokenSelection(HWND field);
void SelectBroken(HWND field, TextSelection selection);

/// The plain text and selection. Without memory the text is empty and the selection has no meaning.
FieldState PlainState(HWND field);

/// Does what WM_SETTEXT does, for a plain text, which may be null. Returns the result of that
/// message: FALSE without memory, and the text is as before.
LRESULT WritePlainText(HWND field, const char16_t* text);

/// Writes a plain text like a change by the user. The visible part stays where it is, the caret is
/// scrolled into view, and the field counts as modified. The caller sends EN_CHANGE. False without
/// memory, and the text is as before.
bool ChangePlainText(HWND field, std::u16string_view text, TextSelection selection);

/// Puts a plain text at the end, selects the end and scrolls there. It takes time for the new text
/// alone, as far as the control allows. It cannot be undone, and neither can what was done before.
/// False when the control cannot take so much text: the text is as before.
bool AppendPlainText(HWND field, std::u16string_view text);

/// Measures texts in the font of a field, against the width of its lines. It lives only as long as
/// neither changes.
class FieldRuler {
public:
    explicit FieldRuler(HWND field);
    ~FieldRuler();
    FieldRuler(const FieldRuler&) = delete;
    FieldRuler& operator=(const FieldRuler&) = delete;

    /// How many of the characters fit one line, 0 or more. It breaks lines where the control does:
    /// behind a blank unless the field has a rule of its own.
    int64_t Fitting(std::u16string_view next);

private:
    HWND field_;
    HDC dc_;
    int width_;
    bool breaksAtBlanks_;
    HGDIOBJ fontBefore_;
    size_t window_ = 64;
};

/// Places all soft breaks anew, after a change of text, width or font.
void BreakAnew(HWND field);

}  // namespace tallymere
