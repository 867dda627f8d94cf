// The variables of a formula: which of them it uses, and their values.
#pragma once

#include "formula/formula_evaluator.h"

namespace tallymere {

/// Finds the names that occur in the text and evaluates the text of each of them once, in the order
/// of their first use. The lexer alone reads the text here, up to its end or to the first invalid
/// character, so an unknown name is reported before a syntax error that stands earlier.
///
/// FormulaErrorUndefinedName at a name that is in no row. FormulaErrorVariableFailed at the first
/// use of a variable whose text fails for any reason; a request to stop during its evaluation is
/// one. The text of a variable is evaluated without variables, so every name in it makes it fail.
///
/// The rows and values stay on the ScratchStack for RunFormula; the caller gives them back. With
/// variableCount 0 there are no rows, and usedVariables is null.
void ResolveUsedVariables(FormulaEvaluator& evaluator);

}  // namespace tallymere
