// The part of the driver that takes operators, parentheses and function calls off the stack.
#pragma once

#include "formula/formula_evaluator.h"

namespace tallymere {

/// Precondition: a value is on top of the stack.
///
/// The token is an operator, `)`, `;` or the end of the text. First the operators that need not
/// wait for it are applied: before an operator those that level and associativity in
/// operator_table.cpp put first, and all back to the `(`, `;` or start of the text before the
/// others. Then the token acts: an operator or `;` is pushed, `)` closes its parentheses or calls
/// its function.
///
/// Errors: FormulaErrorSyntax at the value before a `;` that stands in no parentheses;
/// FormulaErrorLeftParenMissing at a `)` without `(`; FormulaErrorArgumentCount at a function with
/// a wrong number of arguments; FormulaErrorInternal at the token for arguments without a function;
/// and those of the operations.
void ReduceOnToken(FormulaEvaluator& evaluator, const FormulaToken& token);

/// Precondition: a value is on top of the stack and an operator below it.
///
/// Applies the operator, as a binary one when a value lies below it and else as a sign. The result
/// stands where the left operand, or the sign, stood.
///
/// Errors: FormulaErrorSyntax at an operator that is no sign but has no left operand, and at an
/// entry below the operator that is no operand.
void ApplyOperator(FormulaEvaluator& evaluator);

}  // namespace tallymere
