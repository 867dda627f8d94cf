// Undo for a field whose text is written as a whole at each change. Writing it as a whole empties
// the undo of the system's control. There is one step of undo, and like the system's it can itself
// be undone.
#pragma once

#include <cstdint>
#include <string_view>

#include "toolkit/field_state.h"
#include "toolkit/win32.h"

namespace tallymere {

/// The kind of a change. Several changes by typing, or several by erasing, count as one while the
/// caret stays where the last of them left it.
enum TextChangeKind : int32_t { TextTyped, TextErased, TextReplaced };

/// A change of a text. It can be undone as long as the field has the text `after`.
struct TextChange {
    FieldState before;
    FieldState after;
    TextChangeKind kind;
};

/// Remembers a change of a field, and forgets the one before it. Without memory it remembers none.
void NoteTextChange(HWND field, FieldState before, FieldState after, TextChangeKind kind);

/// The change that led to the text of a field; null when none is remembered.
TextChange* TextChangeTo(HWND field, std::u16string_view text);

/// Call it after a change was undone: exchanges before and after, so that the undo can be undone.
void TurnTextChange(TextChange& change);

/// Forgets the change of a field. Call it before the field is destroyed, or when its old text must
/// not come back.
void ForgetTextChange(HWND field);

}  // namespace tallymere
