#include "calculator/key_press.h"

#include "calculator/calculator_state.h"
#include "calculator/result_forms.h"
#include "shell/ui_error.h"

namespace tallymere {

namespace {

constexpr KeyText NoText = {};

void AddEdit(FieldEdits& edits, int64_t from, int64_t to, const KeyText& text) {
    edits.edits[edits.count++] = {from, to, text};
}

// Adds the edits that InsertForAction describes.
void AddEditsForAction(FieldEdits& edits, KeyAction action, int64_t length,
                       const KeypadStyle& style) {
    calculator.formulaTouched = true;
    if (action == ActionClearAll) {
        ClearErrors();
        ResetCalculator();
    }
    if (action == ActionClearAll || action == ActionClearFormula) {
        AddEdit(edits, 0, length, NoText);
        return;
    }
    if (action == ActionBackspace) {
        // Erases at the end of the formula, wherever the caret is.
        if (length > 0) {
            AddEdit(edits, length - 1, length, NoText);
        }
        return;
    }
    if (action == ActionBracketFormula) {
        AddEdit(edits, 0, 0, TextForAction(ActionOpen, style));
        AddEdit(edits, length + 1, length + 1, TextForAction(ActionClose, style));
        return;
    }
    const KeyText text = TextForAction(action, style);
    if (text.text[0] == 0) {
        SetUiError(UiErrorInternal);
        return;
    }
    AddEdit(edits, AtSelection, AtSelection, text);
}

KeyEffect PressFormulaKey(KeyAction action, int64_t length, const KeypadStyle& style) {
    MarkResultStale();
    KeyEffect effect = {action == ActionClearAll ? KeyClearsAll : KeyEditsFormula, {}};
    if (!calculator.formulaTouched) {
        AddEdit(effect.edits, 0, length, NoText);
        length = 0;
    }
    AddEditsForAction(effect.edits, action, length, style);
    return effect;
}

KeyCommand PressCommandKey(KeyAction action) {
    if (action == ActionEvaluate) {
        return KeyEvaluates;
    }
    if (action == ActionSwitchNotation) {
        return SwitchNotation() ? KeyShowsResult : KeyDoesNothing;
    }
    if (action == ActionSwitchMixed) {
        return SwitchMixed() ? KeyShowsResult : KeyDoesNothing;
    }
    return action == ActionShowVariables ? KeyShowsVariables : KeyDoesNothing;
}

}  // namespace

FieldEdits InsertForAction(KeyAction action, int64_t length, const KeypadStyle& style) {
    FieldEdits edits;
    AddEditsForAction(edits, action, length, style);
    return edits;
}

KeyEffect CalcKeyPressed(int32_t index, int64_t length, const KeypadStyle& style) {
    if (index < 0 || index >= KeyCount) {
        SetUiError(UiErrorInternal);
        return {};
    }
    const KeyAction action = KeypadEntry(index, style).action;
    if (EditsFormula(action)) {
        return PressFormulaKey(action, length, style);
    }
    return {PressCommandKey(action), {}};
}

}  // namespace tallymere
