// Which messages change the text of a field: they make the result stale in the formula field and
// are swallowed in the result field, where only selecting and copying work.
#pragma once

#include <cstdint>

namespace tallymere {

/// With the values that the system gives them.
enum FieldMessage : uint32_t {
    FieldUndoEdit = 0x00C7,
    FieldKeyDown = 0x0100,
    FieldCharacter = 0x0102,
    FieldCut = 0x0300,
    FieldPaste = 0x0302,
    FieldClear = 0x0303,
    FieldUndo = 0x0304,
};

/// Keys and characters of such messages.
inline constexpr uint64_t FieldDeleteKey = 0x2E;
inline constexpr uint64_t FieldBackspace = 8;
inline constexpr uint64_t FieldLineFeed = 10;  ///< of Ctrl+Return, which begins a new line
inline constexpr uint64_t FieldReturn = 13;
inline constexpr uint64_t FieldPasteKey = 22;  ///< the character of Ctrl+V

/// Whether a message changes the text. `parameter` is its first argument: a key or a character.
/// Other control characters, such as that of Ctrl+V, lead to messages of their own.
bool ChangesFieldText(uint32_t message, uint64_t parameter);

}  // namespace tallymere
