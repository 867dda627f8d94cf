// What puts operands on the stack of the driver: numbers, constants, names and the imaginary unit.
#pragma once

#include "formula/formula_evaluator.h"

namespace tallymere {

/// Pushes the number of a TokenValue. FormulaErrorSyntax where no operand may stand,
/// FormulaErrorBadNumber when the text cannot be converted, FormulaErrorAborted when the conversion
/// was stopped.
void ParseNumberToken(FormulaEvaluator& evaluator, const FormulaToken& token);

/// Pushes the value of a constant. CalcErrorUnknownType in a number type that does not have it.
void PushConstant(FormulaEvaluator& evaluator, const FormulaToken& token);

/// Pushes the value of a variable. FormulaErrorUndefinedName when the used variables do not hold
/// its name.
void PushVariable(FormulaEvaluator& evaluator, const FormulaToken& token);

/// Multiplies the value on top by `i`, or pushes `i` where no value is on top, whatever lies there.
/// FormulaErrorNeedsComplex outside cplx, FormulaErrorBadNumber at a value that has an imaginary
/// part already.
void ApplyImaginaryUnit(FormulaEvaluator& evaluator, const FormulaToken& token);

}  // namespace tallymere
