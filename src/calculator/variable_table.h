// The user's variables: up to 100 names with the texts of formulas.
//
// Texts are kept in storage form, "." as decimal point and no group separators, so that they do not
// depend on the separators in force.
#pragma once

#include <cstdint>

#include "calculator/calculator_state.h"

namespace tallymere {

inline constexpr int64_t MaxVariables = 100;

/// Characters of a name and of a value text, the terminating 0 not counted. A variable can have
/// each result for its value.
inline constexpr int64_t VariableNameCharacters = 10;
inline constexpr int64_t VariableValueCharacters = CalcResultCharacters;

/// Each variable owns its two buffers, of VariableNameCharacters + 1 and VariableValueCharacters +
/// 1 characters.
struct Variable {
    char16_t* name;
    char16_t* value;  ///< in storage form
};

/// variables[0 .. count) are the user's, in the order of the list; variables[count .. madeCount)
/// have buffers that wait to be used again, and their names begin with "?".
struct VariableTable {
    Variable variables[MaxVariables];
    int64_t count;
    int64_t madeCount;
    bool variablesChanged;  ///< the table is to be saved
};

/// The one table of the process, empty at the start. It belongs to the UI thread; during a run the
/// CalcThread reads it, and the dialog, which alone changes it, is disabled.
extern VariableTable variableTable;

/// True unless the name is reserved ("e", "i", "π", "pi", "ans") or has a character that names may
/// not have: Latin letters, "_" and Greek letters (U+0391 to U+03A9, U+03B1 to U+03C9) may stand
/// everywhere, digits behind the first character. The empty name is valid; the length is not
/// looked at.
bool IsValidVariableName(const char16_t* name);

/// Puts a new variable before the one at `position`, or at the end with position = count. Its value
/// is empty, its name "var" and the smallest number from 00 to 99 that no other variable named so
/// has; with none free "var" alone. Returns false and changes nothing for a position outside the
/// table or with 100 variables.
bool AddVariable(int64_t position);

/// Removes the variable at `index`, 0 <= index < count.
void DeleteVariable(int64_t index);

/// Gives the variable at `index` a name. One that is too long ends in an ellipsis; an invalid one
/// is taken all the same.
void SetVariableName(int64_t index, const char16_t* name);

/// Gives the variable at `index` a value text, written with the separators in force. One that is
/// too long ends in an ellipsis.
void SetVariableValue(int64_t index, const char16_t* text);

/// Writes a text in storage form as the user sees it and formulas read it, with the first decimal
/// separator in force in place of ".". The buffer has room for as many characters and a 0.
void WriteInForce(char16_t* buffer, const char16_t* stored);

}  // namespace tallymere
