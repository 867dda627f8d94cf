// One step back for a field whose text is written as a whole at each change, which empties the undo
// of the system's control. Like the system's, the step back can be taken back.
#pragma once

#include <cstdint>
#include <string_view>

#include "toolkit/field_state.h"
#include "toolkit/win32.h"

namespace tallymere {

/// What typing and erasing add to each other is one change as long as the caret stays where the
/// last of them left it.
enum TextChangeKind : int32_t { TextTyped, TextErased, TextReplaced };

/// A change that can be taken back as long as the text is the one that it led to.
struct TextChange {
    FieldState before;
    FieldState after;
    TextChangeKind kind;
};

/// Remembers a change of a field instead of the one before it. Without memory none is remembered.
void NoteTextChange(HWND field, FieldState before, FieldState after, TextChangeKind kind);

/// The change that led to the text of a field, null where none is remembered.
TextChange* TextChangeTo(HWND field, std::u16string_view text);

/// The change has been taken back, which can be taken back itself.
void TurnTextChange(TextChange& change);

/// Before a field is gone, or when its text is not to be given back.
void ForgetTextChange(HWND field);

}  // namespace tallymere
