#include "calculator/variables_dialog.h"

#include <algorithm>

#include "calculator/calculator_state.h"
#include "shell/settings_walk.h"
#include "shell/ui_error.h"

namespace tallymere {

namespace {

bool HasVariable(int64_t index) {
    return index >= 0 && index < variableTable.count;
}

}  // namespace

bool CommitName(VariablesDialog& dialog, int64_t index, const char16_t* name) {
    if (!dialog.nameChanged || !HasVariable(index)) {
        return false;
    }
    dialog.nameChanged = false;
    if (!SettingsKeepName(name)) {
        SetUiError(UiErrorVariableName, name);
        return true;
    }
    SetVariableName(index, name);
    const char16_t* taken = variableTable.variables[index].name;
    if (!IsValidVariableName(taken)) {
        SetUiError(UiErrorVariableName, taken);
    }
    return true;
}

void CommitValue(VariablesDialog& dialog, int64_t index, const char16_t* value) {
    if (!dialog.valueChanged || !HasVariable(index)) {
        return;
    }
    dialog.valueChanged = false;
    SetVariableValue(index, value);
}

bool CommitBoxes(VariablesDialog& dialog, const VariableBoxes& boxes) {
    CommitValue(dialog, dialog.selected, boxes.value);
    return CommitName(dialog, dialog.selected, boxes.name);
}

void BoxesWritten(VariablesDialog& dialog) {
    dialog.nameChanged = dialog.valueChanged = false;
}

void SelectVariable(VariablesDialog& dialog, int64_t index) {
    dialog.selected = HasVariable(index) ? index : NoVariable;
    BoxesWritten(dialog);
}

bool IsVariableSelected(const VariablesDialog& dialog) {
    return HasVariable(dialog.selected);
}

bool AddAndSelectVariable(VariablesDialog& dialog, int64_t position) {
    if (!AddVariable(position)) {
        return false;
    }
    SelectVariable(dialog, position);
    return true;
}

bool DeleteSelectedVariable(VariablesDialog& dialog) {
    if (!IsVariableSelected(dialog)) {
        return false;
    }
    DeleteVariable(dialog.selected);
    SelectVariable(dialog, std::min(dialog.selected, variableTable.count - 1));
    return true;
}

bool AssignResult(VariablesDialog& dialog) {
    if (!IsVariableSelected(dialog)) {
        return false;
    }
    SetVariableValue(dialog.selected, calculator.calcResultText);
    dialog.valueChanged = false;
    return true;
}

const char16_t* TakeVariableName(const VariablesDialog& dialog) {
    if (!IsVariableSelected(dialog)) {
        return nullptr;
    }
    calculator.formulaTouched = true;
    // This does not make the result stale. Only typing into the formula and the keypad do.
    return variableTable.variables[dialog.selected].name;
}

}  // namespace tallymere
