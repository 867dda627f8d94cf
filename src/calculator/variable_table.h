// The user's variables: up to MaxVariables names with the texts of formulas.
//
// Texts are kept in storage form: "." as decimal point, no group separators. So they do not depend
// on the separators in force.
#pragma once

#include <cstdint>

#include "core/limits.h"

namespace tallymere {

/// Each variable owns its two buffers, of VariableNameCharacters + 1 and
/// ProductVariableCharacters + 1 characters.
struct Variable {
    char16_t* name;
    char16_t* value;  ///< in storage form
};

/// The first `count` variables are the user's, in the order of the list. Those from there to before
/// `madeCount` have buffers that will be used again; their names begin with "?".
struct VariableTable {
    Variable variables[ProductVariables];
    int64_t count;
    int64_t madeCount;
    bool variablesChanged;  ///< the table must be saved
};

/// The one table of the process, empty at the start. It belongs to the UI thread. During a run the
/// CalcThread reads it. Only the dialog changes it, and the dialog is disabled during a run.
extern VariableTable variableTable;

/// True when a name is not reserved and has only characters that names may have. Reserved are "e",
/// "i", "π", "pi" and "ans". Latin letters, "_" and Greek letters (U+0391 to U+03A9, U+03B1 to
/// U+03C9) may stand anywhere, digits anywhere but in the first place. The empty name is valid. The
/// length is not checked.
bool IsValidVariableName(const char16_t* name);

/// Puts a new variable in front of the one at `position`, or at the end for position = count. Its
/// value is empty. Its name is "var" and the smallest free number from 00 to 99; "var" alone when
/// no number is free. Returns false and changes nothing for a position outside the table, when the
/// table is full, and, with UiErrorInternal, without memory.
bool AddVariable(int64_t position);

/// Removes the variable at `index`, 0 <= index < count.
void DeleteVariable(int64_t index);

/// Gives the variable at `index` a name. A name that is too long ends with an ellipsis. An invalid
/// name is accepted.
void SetVariableName(int64_t index, const char16_t* name);

/// Gives the variable at `index` a value text, which has the separators in force. A text that is
/// too long ends with an ellipsis.
void SetVariableValue(int64_t index, const char16_t* text);

/// Copies a text in storage form with the first decimal separator in force in place of ".", as the
/// user and formulas expect it. The buffer has room for as many characters and a terminating 0.
void WriteInForce(char16_t* buffer, const char16_t* stored);

}  // namespace tallymere
