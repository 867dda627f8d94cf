// The part of the driver that takes operators, parentheses and function calls off the stack.
#pragma once

#include "formula/formula_evaluator.h"

namespace tallymere {

/// With a value on top of the stack: applies what binds tighter than the token - an operator, `)`,
/// `;` or the end of the text - and then lets the token act: an operator or `;` is pushed, `)`
/// closes its parentheses or calls its function.
///
/// Level 3 is `^`, from right to left; level 2 `*`, `/` and mod; level 1 `+`, `-` and the signs.
///
/// Errors: 10200 at the value before a `;` that stands in no parentheses; 10201 at a `)` without
/// `(`; 10206 at a function with a wrong number of arguments; and those of the operations.
void ReduceOnToken(FormulaEvaluator& evaluator, const FormulaToken& token);

/// Applies the operator below the value on top, as a binary operator when a value lies below it and
/// else as a sign. The result stands where the left operand, or the sign, stood.
///
/// `token` is the one that led here. Errors: 10200 at an operator that is no sign but has no left
/// operand, and at an entry below it that is no operand; 10205 at the token for an unknown
/// operator.
void ApplyOperator(FormulaEvaluator& evaluator, const FormulaToken& token);

}  // namespace tallymere
