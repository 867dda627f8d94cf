// Which messages change the text of a field. In the formula field they make the result stale. The
// result field ignores them; there only selecting and copying work.
#pragma once

#include <cstdint>

namespace tallymere {

/// Messages of the system. The values are those of the system.
enum FieldMessage : uint32_t {
    FieldUndoEdit = 0x00C7,
    FieldKeyDown = 0x0100,
    FieldCharacter = 0x0102,
    FieldCut = 0x0300,
    FieldPaste = 0x0302,
    FieldClear = 0x0303,
    FieldUndo = 0x0304,
};

/// Keys and characters that these messages carry.
inline constexpr uint64_t FieldDeleteKey = 0x2E;
inline constexpr uint64_t FieldBackspace = 8;
inline constexpr uint64_t FieldLineFeed = 10;  ///< of Ctrl+Return, which begins a new line
inline constexpr uint64_t FieldReturn = 13;
inline constexpr uint64_t FieldPasteKey = 22;  ///< the character of Ctrl+V

/// True when a message changes the text. `parameter` is its first argument: a key or a character.
/// Of the control characters only backspace and the line feed count. Others, such as that of
/// Ctrl+V, lead to messages of their own.
bool ChangesFieldText(uint32_t message, uint64_t parameter);

}  // namespace tallymere
