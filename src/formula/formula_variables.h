// The variables of a formula: which of them it uses, and their values.
#pragma once

#include "formula/formula_evaluator.h"

namespace tallymere {

/// Finds the names that occur in the text and evaluates the text of each of them once, in the order
/// of their first use. The lexer alone reads the text here, up to its end or to the first invalid
/// character, so an unknown name is reported before a syntax error that stands earlier.
///
/// Errors: 10211 at a name that is in no row; 10212 at the first use of a variable whose text fails
/// for whatever reason, be it a request to stop. The text of a variable is evaluated without
/// variables, so every name in it makes it fail.
///
/// The rows and values are left on the ScratchStack for RunFormula; the caller gives them back.
/// With variableCount 0 nothing is done but to set usedVariables to null.
void ResolveUsedVariables(FormulaEvaluator& evaluator);

}  // namespace tallymere
