// The lexer of formulas.
//
// White space is U+000A, U+000D and U+0020 alone. A name starts with a letter of IsNameLetter and
// goes on with those and digits; one that is in the tables of functions, operators and constants is
// such a token. A number starts with a digit, and the prefix of its base (core/number_bases.h)
// belongs to it. The lexer only finds where a number ends: 1.2.3 and 0y9 are one token each, which
// the conversion refuses.
#pragma once

#include "formula/formula_evaluator.h"

namespace tallymere {

/// Reads the token at `position`, a 0-based index in the evaluator's text, and moves behind it.
/// Fills the kind, the id that belongs to it, position and length, and sets value to null. The end
/// of the text and a character that starts no token have length 0 and are not passed.
///
/// The imaginary unit leaves token.length as it was: an error that quotes it shows the length of
/// the token before it.
void NextFormulaToken(const FormulaEvaluator& evaluator, FormulaToken& token, uint64_t& position);

}  // namespace tallymere
