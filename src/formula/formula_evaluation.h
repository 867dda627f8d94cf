// The entry to the formula engine: one line of text becomes one value of the current number type.
#pragma once

#include "formula/formula_evaluator.h"

namespace tallymere {

/// Evaluates the text of an evaluator that was cleared and given text, flags, variableCount,
/// variables and result. Precondition: text and result are not null, and result holds one value.
///
/// Afterwards either error is FormulaErrorNone and *result holds the value, or error, errorPosition
/// and errorLength tell what is wrong and *result is 0. In both cases calcError is CalcErrorNone,
/// and the ScratchStack is as it was found.
void EvaluateFormula(FormulaEvaluator& evaluator);

}  // namespace tallymere
