// The driver: a left-to-right operator-precedence machine on one stack, without a syntax tree.
//
// The lexer delivers one token at a time. The kind of that token and the kind of the entry on top
// of the stack decide what happens. Operators and functions are applied as soon as the levels in
// operator_table.cpp allow it. Three rules may surprise. There is no implicit multiplication except
// with `i`. A sign stands only at the start and after `(` and `;`. A sign binds like a sum, so -2^2
// is -4 and -3 mod 2 is -(3 mod 2).
#pragma once

#include "formula/formula_evaluator.h"

namespace tallymere {

/// Evaluates the text, with the variables that ResolveUsedVariables left in the evaluator.
/// Afterwards either error is FormulaErrorNone and *result holds the value, or the error fields are
/// set and *result is 0. An operation that notes a CalcError makes FormulaErrorOperationFailed at
/// the token that triggered it. A request to stop makes FormulaErrorAborted; it is looked for
/// before every token and within long operations. The ScratchStack is as it was found; `stack` and
/// `usedVariables` are null.
void RunFormula(FormulaEvaluator& evaluator);

/// One step of RunFormula: lets a token act on the stack and turns a CalcError into an error of the
/// formula.
void AcceptFormulaToken(FormulaEvaluator& evaluator, const FormulaToken& token);

}  // namespace tallymere
