// What a key does in a grid, on a cell and in the edit control inside a cell.
#pragma once

#include <cstdint>

#include "layout/grid_cursor.h"
#include "layout/grid_state.h"

namespace tallymere {

/// Keys that mean something to a grid. The values are the system's codes.
enum GridKey : uint32_t {
    GridKeyBackspace = 0x08,
    GridKeyTab = 0x09,
    GridKeyReturn = 0x0D,
    GridKeyShift = 0x10,
    GridKeyControl = 0x11,
    GridKeyAlt = 0x12,
    GridKeyPause = 0x13,
    GridKeyCapsLock = 0x14,
    GridKeyEscape = 0x1B,
    GridKeyPageUp = 0x21,
    GridKeyPageDown = 0x22,
    GridKeyEnd = 0x23,
    GridKeyHome = 0x24,
    GridKeyLeft = 0x25,
    GridKeyUp = 0x26,
    GridKeyRight = 0x27,
    GridKeyDown = 0x28,
    GridKeyInsert = 0x2D,
    GridKeyDelete = 0x2E,
    GridKeyLeftWindows = 0x5B,
    GridKeyRightWindows = 0x5C,
    GridKeyMenu = 0x5D,
    GridKeyF1 = 0x70,
    GridKeyF24 = 0x87,
    GridKeyNumLock = 0x90,
    GridKeyScrollLock = 0x91,
    GridKeyLeftShift = 0xA0,
    GridKeyRightAlt = 0xA5,
    GridKeyFirstMedia = 0xA6,
    GridKeyLastMedia = 0xB7,
};

/// A key that goes down.
struct GridKeyStroke {
    uint32_t key = 0;  ///< a GridKey or another code
    bool shift = false;
    bool control = false;
    bool alt = false;
    bool isAltBitSet = false;     ///< bit 29 of the flags of the key
    bool isFromKeyboard = false;  ///< false for one that a program sends, with a count of 0
};

enum class GridKeyAction {
    Nothing,
    Pass,          ///< the system handles the key
    Move,          ///< the cursor moves, and the editor opens
    LeaveForward,  ///< the focus goes to the next control
    LeaveBackward,
    Type,      ///< the editor opens with the characters of the key, see OpensGridEditor
    EditText,  ///< the editor opens with the text of the cell
};

struct GridKeyEffect {
    GridKeyAction action;
    GridMove move;       ///< with Move
    bool endsRowSelect;  ///< row select is not active from now on, before the move

    bool operator==(const GridKeyEffect&) const = default;
};

/// What a key does on the cell of the cursor.
///
/// The grid sends itself the key Shift to open its editor. From the keyboard Shift, Control, Alt
/// and other keys without a character do nothing, nor does Escape, nor a key with Control alone:
/// the editor would open empty, and whatever ends it would clear the cell.
GridKeyEffect EffectOfGridKey(const GridState& state, const GridKeyStroke& stroke);

/// Whether a key whose effect is Type opens the editor; `hasCharacters` says that it has typed
/// text. Without text Delete and Backspace alone open it from the keyboard, and each key that a
/// program sends. A dead key does not: its character comes with the next key.
bool OpensGridEditor(const GridKeyStroke& stroke, bool hasCharacters);

/// Whether a character that comes to a grid without a key of its own, such as from an input method,
/// opens the editor. One with Control alone is a command, such as Control with the space bar.
bool OpensGridEditor(char16_t character, bool control, bool alt);

/// The edit control inside a cell when a key goes down.
struct GridEditorFacts {
    int32_t selectionStart;  ///< both are the place of the caret when nothing is selected
    int32_t selectionEnd;
    int32_t length;  ///< of the text, in characters
};

enum class GridEditorAction {
    Stay,     ///< the edit control handles the key
    Pass,     ///< the text goes into the cell, and the grid gets the key
    Cancel,   ///< the editor closes, and the cell stays as it is
    Swallow,  ///< nothing happens
};

/// What a key does in the edit control inside the cell of the cursor.
GridEditorAction EffectOfGridEditorKey(const GridState& state, uint32_t key, bool control,
                                       const GridEditorFacts& editor);

/// What a character does there: Pass for Return, which ends the editor.
GridEditorAction EffectOfGridEditorCharacter(char16_t character);

/// True for a character that a key puts into the editor that it opens.
bool IsGridText(char16_t character);

}  // namespace tallymere
