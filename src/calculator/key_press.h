// What a press of a key does. Changes of the formula are given as edits of the formula field.
#pragma once

#include <cstdint>

#include "calculator/keypad.h"

namespace tallymere {

/// Stands for the selection, or for the caret when nothing is selected.
inline constexpr int64_t AtSelection = -1;

/// Replaces the characters from `from` to before `to`; when `from` is AtSelection, replaces the
/// selection. The caret is behind the new text then.
struct FieldEdit {
    int64_t from;
    int64_t to;
    KeyText text;
};

/// Edits, to be made in this order. The key of the two parentheses needs three after a result: it
/// empties the formula first.
struct FieldEdits {
    FieldEdit edits[3] = {};
    int32_t count = 0;

    const FieldEdit* begin() const { return edits; }
    const FieldEdit* end() const { return edits + count; }
};

/// What an action does to a formula of `length` characters. The action is one from
/// FirstFormulaAction to before FirstCommandAction; any other raises UiErrorInternal. The formula
/// counts as touched then. ActionClearAll empties it and calls ResetCalculator; the caller must
/// empty the result field too.
FieldEdits InsertForAction(KeyAction action, int64_t length, const KeypadStyle& style);

/// What the page must do for a press of a key.
enum KeyCommand : int32_t {
    KeyDoesNothing,
    KeyEditsFormula,    ///< make the edits
    KeyClearsAll,       ///< make the edits, empty the result field, hide the bracket mark
    KeyEvaluates,       ///< see BeginEvaluation
    KeyShowsResult,     ///< the result has another form: show it again
    KeyShowsVariables,  ///< show the variables dialog beside the page
};

struct KeyEffect {
    KeyCommand command = KeyDoesNothing;
    FieldEdits edits;
};

/// A press of the key at `index` with a formula of `length` characters. The settings of the
/// calculator must be in force (CalcNumberSetup) and no error pending.
///
/// A key that edits the formula marks the result as stale. The first key after a result starts a
/// new formula: if the formula was not touched since the result, it is emptied first. Only the key
/// ans continues with the result. The keys F↔S and R↔M work only on a valid result.
///
/// An index outside 0 to 71 raises UiErrorInternal. Afterwards the page reports a pending error. If
/// a command raised it, the page marks the result as stale.
KeyEffect CalcKeyPressed(int32_t index, int64_t length, const KeypadStyle& style);

}  // namespace tallymere
