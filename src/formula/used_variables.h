// The table of the variables that a formula uses: each name once, in the order of first use.
#pragma once

#include "formula/formula_evaluator.h"

namespace tallymere {

/// The row whose name is exactly the text of the token, or null.
const UsedVariable* FindUsedVariable(const FormulaEvaluator& evaluator, const FormulaToken& token);

/// Adds the variable that the token names unless it is there already. FormulaErrorUndefinedName at
/// the token when no row of the evaluator has that name, FormulaErrorInternal when the table is
/// full.
void NoteUsedVariable(FormulaEvaluator& evaluator, const FormulaToken& token);

}  // namespace tallymere
