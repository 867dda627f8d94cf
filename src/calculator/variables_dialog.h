// What the variables dialog decides: which variable its boxes show, and when their texts go into
// the table.
//
// The dialog shows the table in a list, and the selected variable in two boxes. CommitBoxes puts
// what is typed there into the table. The dialog calls it when a box loses the focus, and before
// the selection or the table changes, except before a variable is deleted. After each function here
// the dialog updates list and boxes and then calls BoxesWritten.
#pragma once

#include <cstdint>

#include "calculator/variable_table.h"

namespace tallymere {

/// No row of the list is selected.
inline constexpr int64_t NoVariable = -1;

/// What the dialog keeps besides the table.
struct VariablesDialog {
    int64_t selected = NoVariable;  ///< the row whose variable the boxes show
    bool nameChanged = false;       ///< the user changed the name box and it is not committed yet
    bool valueChanged = false;
};

/// The texts in the two boxes.
struct VariableBoxes {
    const char16_t* name;
    const char16_t* value;
};

/// If the name box has changed and there is a variable at `index`, gives it the text of the box.
/// Returns true when the variable's name must be written again, in the list and in its box. An
/// invalid name raises UiErrorVariableName, but is accepted, so that the user can correct it. One
/// that the settings file would not give back is refused: the variable keeps its name.
bool CommitName(VariablesDialog& dialog, int64_t index, const char16_t* name);

/// The same for the value box. Its text has the separators in force.
void CommitValue(VariablesDialog& dialog, int64_t index, const char16_t* value);

/// Does both for the selected variable. Returns the result of CommitName.
bool CommitBoxes(VariablesDialog& dialog, const VariableBoxes& boxes);

/// Notes that the boxes show what the table has. Call it after each writing of the boxes, because
/// they report that as a change by the user.
void BoxesWritten(VariablesDialog& dialog);

/// Selects the variable at `index`. An index without a variable selects none, and the boxes are
/// empty. Text in the boxes that is not committed is lost.
void SelectVariable(VariablesDialog& dialog, int64_t index);

/// True when a variable is selected. Then the buttons insert, delete, assign and take name are
/// enabled.
bool IsVariableSelected(const VariablesDialog& dialog);

/// The buttons add and insert: puts a new variable at `position`, see AddVariable, and selects it.
/// The position is the count of variables for add, and the selected row for insert. When no
/// variable can be added, returns false and does nothing; the user gets no message.
bool AddAndSelectVariable(VariablesDialog& dialog, int64_t position);

/// The button delete: removes the selected variable. Selects the variable that is in its row then,
/// or the last one. Returns false when none is selected. Text in the boxes that is not committed is
/// lost.
bool DeleteSelectedVariable(VariablesDialog& dialog);

/// The button assign: the value of the selected variable becomes the text of the last result.
/// Returns false when none is selected.
bool AssignResult(VariablesDialog& dialog);

/// The button take name: returns the name of the selected variable, null when none is selected. The
/// page puts it into the formula in place of the selection there. The formula counts as touched.
const char16_t* TakeVariableName(const VariablesDialog& dialog);

}  // namespace tallymere
