// What puts operands on the stack of the driver: numbers, constants, names and the imaginary unit.
#pragma once

#include "formula/formula_evaluator.h"

namespace tallymere {

/// Pushes the number of a TokenValue token. Error 10200 where no operand may stand, 10208 when the
/// text cannot be converted (and 10210 when the conversion was stopped).
void ParseNumberToken(FormulaEvaluator& evaluator, const FormulaToken& token);

/// Pushes the value of a constant. Error 10205 for a constant other than pi.
void PushConstant(FormulaEvaluator& evaluator, const FormulaToken& token);

/// Pushes the value of a variable. Error 10211 when the used variables do not hold its name.
void PushVariable(FormulaEvaluator& evaluator, const FormulaToken& token);

/// Multiplies the value on top by `i`, or pushes `i` where no value is on top, whatever lies there.
/// Error 10207 outside cplx, 10208 at a value that has an imaginary part already.
void ApplyImaginaryUnit(FormulaEvaluator& evaluator, const FormulaToken& token);

}  // namespace tallymere
