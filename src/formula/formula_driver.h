// The driver: a left-to-right operator-precedence machine on one stack, without a syntax tree.
//
// The lexer delivers one token at a time; the pair of its id and the id on top of the stack decides
// what happens, and operators and functions are applied as soon as precedence allows. What follows
// from that and may surprise: there is no implicit multiplication except with `i`; a sign stands
// only at the start and after `(` and `;`; and it binds like a sum, so -2^2 is -4 and -3 mod 2 is
// -(3 mod 2).
#pragma once

#include "formula/formula_evaluator.h"

namespace tallymere {

/// Evaluates the text, with the variables that ResolveUsedVariables left in the evaluator.
/// Afterwards either error is 0 and *result holds the value, or the error fields are set and
/// *result is 0. An operation that notes a CalcError makes error 10203 at the token that triggered
/// it, or 10210 for a request to stop. The ScratchStack is as it was found; `stack` and
/// `usedVariables` are null.
void RunFormula(FormulaEvaluator& evaluator);

/// One step of RunFormula: lets a token act on the stack and turns a CalcError into an error of the
/// formula.
void AcceptFormulaToken(FormulaEvaluator& evaluator, const FormulaToken& token);

}  // namespace tallymere
