// What a press of a key does to the formula, as edits of the formula field.
#pragma once

#include <cstdint>

#include "calculator/keypad.h"

namespace tallymere {

/// A position that stands for the selection, or the caret where nothing is selected.
inline constexpr int64_t AtSelection = -1;

/// Replaces the characters from `from` to before `to`, or the selection where `from` is
/// AtSelection, and leaves the caret behind what it put there.
struct FieldEdit {
    int64_t from;
    int64_t to;
    KeyText text;
};

/// Edits to be made in this order. The most are made by the key of the two parentheses after a
/// result: it empties the formula first.
struct FieldEdits {
    FieldEdit edits[3] = {};
    int32_t count = 0;

    const FieldEdit* begin() const { return edits; }
    const FieldEdit* end() const { return edits + count; }
};

/// What an action from FirstFormulaAction to before FirstCommandAction does to a formula of
/// `length` characters; the formula counts as touched from then on. ActionClearAll clears it and
/// sets the calculator back (ResetCalculator); the result field is to be emptied too. An action
/// that puts nothing into a formula raises UiErrorInternal.
FieldEdits InsertForAction(KeyAction action, int64_t length, const KeypadStyle& style);

/// What the page does at a press of a key.
enum KeyCommand : int32_t {
    KeyDoesNothing,
    KeyEditsFormula,    ///< make the edits
    KeyClearsAll,       ///< make the edits, empty the result field, hide the bracket mark
    KeyEvaluates,       ///< see BeginEvaluation
    KeyShowsResult,     ///< the result has another form: show it anew
    KeyShowsVariables,  ///< show the variables dialog beside the page
};

struct KeyEffect {
    KeyCommand command = KeyDoesNothing;
    FieldEdits edits;
};

/// A press of the key at `index` with a formula of `length` characters. The settings of the
/// calculator must be in force (RestoreCalcContext) and no error pending.
///
/// A key that edits the formula marks the result as stale. If the formula was not touched since the
/// result came, it is emptied first: the first key after a result starts a new formula, and only
/// the key ans goes on with the result. The keys F↔S and R↔M act on a valid result alone.
///
/// An index outside of 0 to 71 raises UiErrorInternal. Afterwards the page reports a pending error
/// and, where a command raised it, marks the result as stale.
KeyEffect CalcKeyPressed(int32_t index, int64_t length, const KeypadStyle& style);

}  // namespace tallymere
