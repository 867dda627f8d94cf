// What the variables dialog decides: which variable its boxes show and when they are taken over.
//
// The dialog shows the table in a list and the selected variable in two boxes. What is typed there
// goes into the table by CommitBoxes: when a box loses the focus, and before the selection or the
// table changes in any other way than by deleting. After the functions here the dialog makes list
// and boxes show table and selection again and then calls BoxesWritten.
#pragma once

#include <cstdint>

#include "calculator/variable_table.h"

namespace tallymere {

/// No row of the list is selected.
inline constexpr int64_t NoVariable = -1;

/// What the dialog keeps besides the table.
struct VariablesDialog {
    int64_t selected = NoVariable;  ///< the row whose variable the boxes show
    bool nameChanged = false;       ///< the name box changed since it was written or taken over
    bool valueChanged = false;
};

/// The texts in the two boxes.
struct VariableBoxes {
    const char16_t* name;
    const char16_t* value;
};

/// Takes the text of the name box over for the variable at `index` if the box changed and there is
/// such a variable. Returns whether the variable's row in the list is to be written anew. An
/// invalid name raises UiErrorVariableName and is taken all the same, so that it can be mended.
bool CommitName(VariablesDialog& dialog, int64_t index, const char16_t* name);

/// Likewise for the value box, whose text has the separators in force.
void CommitValue(VariablesDialog& dialog, int64_t index, const char16_t* value);

/// Both for the selected variable; returns what CommitName does.
bool CommitBoxes(VariablesDialog& dialog, const VariableBoxes& boxes);

/// Notes that the boxes show what the table has: to be called after each writing of the boxes,
/// which they take for a change by the user.
void BoxesWritten(VariablesDialog& dialog);

/// Selects the variable at `index`; an index without variable selects none, and the boxes are
/// empty. What was typed into the boxes and not taken over is forgotten.
void SelectVariable(VariablesDialog& dialog, int64_t index);

/// Whether the buttons insert, delete, assign and take name are enabled: a variable is selected.
bool IsVariableSelected(const VariablesDialog& dialog);

/// The button add, with the count of variables for `position`, and insert, with the selected row:
/// puts a new variable there, see AddVariable, and selects it. Returns false and does nothing where
/// there can be none; the user is not told.
bool AddAndSelectVariable(VariablesDialog& dialog, int64_t position);

/// The button delete: removes the selected variable and selects the one that is in its row then, or
/// the last one. Returns false without one. What is in the boxes belongs to the removed variable.
bool DeleteSelectedVariable(VariablesDialog& dialog);

/// The button assign: the selected variable gets the text of the last result for its value. Returns
/// false without one.
bool AssignResult(VariablesDialog& dialog);

/// The button take name: the name of the selected variable, which goes into the formula in place of
/// the selection there; the formula counts as touched. Null without one.
const char16_t* TakeVariableName(const VariablesDialog& dialog);

}  // namespace tallymere
