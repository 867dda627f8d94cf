#include "layout/grid_keys.h"

namespace tallymere {

namespace {

constexpr GridKeyEffect Only(GridKeyAction action) {
    return {.action = action, .move = GridMove::RowUp, .endsRowSelect = false};
}

constexpr GridKeyEffect Moves(GridMove move, bool endsRowSelect = false) {
    return {.action = GridKeyAction::Move, .move = move, .endsRowSelect = endsRowSelect};
}

bool IsIn(uint32_t key, GridKey first, GridKey last) {
    return key >= first && key <= last;
}

// Shift, Control and Alt, also where the code names their side.
bool IsHeldKey(uint32_t key) {
    return key == GridKeyShift || key == GridKeyControl || key == GridKeyAlt ||
           IsIn(key, GridKeyLeftShift, GridKeyRightAlt);
}

bool IsIdleKey(uint32_t key) {
    switch (key) {
        case GridKeyReturn:
        case GridKeyAlt:
        case GridKeyPause:
        case GridKeyCapsLock:
        case GridKeyInsert:
        case GridKeyLeftWindows:
        case GridKeyRightWindows:
        case GridKeyMenu:
        case GridKeyNumLock:
            return true;
        default:
            return IsIn(key, GridKeyF1, GridKeyF24);
    }
}

// Keys that would open the editor empty, but not in order to clear the cell as Delete does.
bool IsSilentKey(const GridKeyStroke& stroke) {
    return stroke.isFromKeyboard && (IsHeldKey(stroke.key) || stroke.key == GridKeyEscape ||
                                     stroke.key == GridKeyScrollLock ||
                                     IsIn(stroke.key, GridKeyFirstMedia, GridKeyLastMedia) ||
                                     // Control with Alt is how some keyboards write characters.
                                     (stroke.control && !stroke.alt));
}

GridKeyEffect EffectOfTab(const GridKeyStroke& stroke) {
    if (stroke.control) {
        return Only(GridKeyAction::Nothing);
    }
    return Only(stroke.shift ? GridKeyAction::LeaveBackward : GridKeyAction::LeaveForward);
}

GridKeyEffect EffectOfOpeningKey(const GridState& state, const GridKeyStroke& stroke) {
    if (IsSilentKey(stroke) || !CanEditGridCursor(state)) {
        return Only(GridKeyAction::Nothing);
    }
    // With Control the bit belongs to AltGr, which writes characters.
    const bool isAltGr = stroke.isFromKeyboard && stroke.control;
    return Only(stroke.isAltBitSet && !isAltGr ? GridKeyAction::EditText : GridKeyAction::Type);
}

}  // namespace

GridKeyEffect EffectOfGridKey(const GridState& state, const GridKeyStroke& stroke) {
    switch (stroke.key) {
        case GridKeyUp:
            return Moves(GridMove::RowUp);
        case GridKeyDown:
            return Moves(GridMove::RowDown);
        case GridKeyPageUp:
            return Moves(GridMove::PageUp);
        case GridKeyPageDown:
            return Moves(GridMove::PageDown);
        case GridKeyLeft:
            return Moves(GridMove::ColumnLeft);
        case GridKeyRight:
            return Moves(GridMove::ColumnRight, state.isRowSelectActive);
        case GridKeyHome:
            return Moves(GridMove::FirstColumn);
        case GridKeyEnd:
            return Moves(GridMove::LastColumn);
        case GridKeyTab:
            return EffectOfTab(stroke);
        case GridKeyF1:
            return Only(GridKeyAction::Pass);
        default:
            return IsIdleKey(stroke.key) ? Only(GridKeyAction::Nothing)
                                         : EffectOfOpeningKey(state, stroke);
    }
}

bool OpensGridEditor(const GridKeyStroke& stroke, bool hasCharacters) {
    return hasCharacters || !stroke.isFromKeyboard || stroke.key == GridKeyDelete ||
           stroke.key == GridKeyBackspace;
}

bool OpensGridEditor(char16_t character, bool control, bool alt) {
    return IsGridText(character) && (alt || !control);
}

GridEditorAction EffectOfGridEditorKey(const GridState& state, uint32_t key, bool control,
                                       const GridEditorFacts& editor) {
    const auto passIf = [](bool passes) {
        return passes ? GridEditorAction::Pass : GridEditorAction::Stay;
    };
    const bool isCaret = editor.selectionStart == editor.selectionEnd;
    const auto hasColumn = [&state](GridDirection direction) {
        return NextGridColumn(state.table, state.cursorColumn, direction) != state.cursorColumn;
    };
    switch (key) {
        case GridKeyTab:
            return control ? GridEditorAction::Swallow : GridEditorAction::Pass;
        case GridKeyEscape:
            return GridEditorAction::Cancel;
        case GridKeyUp:
        case GridKeyPageUp:
            return passIf(state.cursorRow > 1);
        case GridKeyDown:
        case GridKeyPageDown:
            return passIf(state.cursorRow < GridDataRows(state.table));
        case GridKeyLeft:
            return passIf(isCaret && editor.selectionStart == 0 && hasColumn(GridBackward));
        case GridKeyRight:
            return passIf(isCaret && editor.selectionStart == editor.length &&
                          hasColumn(GridForward));
        default:
            return GridEditorAction::Stay;
    }
}

GridEditorAction EffectOfGridEditorCharacter(char16_t character) {
    switch (character) {
        case u'\r':
            return GridEditorAction::Pass;
        // Their keys have done what they do; the characters would only sound a bell.
        case u'\t':
        case u'\x1B':
            return GridEditorAction::Swallow;
        default:
            return GridEditorAction::Stay;
    }
}

bool IsGridText(char16_t character) {
    constexpr char16_t Delete = 0x7F;
    return character >= u' ' && character != Delete;
}

}  // namespace tallymere
