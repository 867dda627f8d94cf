// The lexer of formulas.
//
// White space is U+000A, U+000D and U+0020 alone. A name starts with a Latin letter, `_` or a Greek
// letter (U+0391 to U+03A9, U+03B1 to U+03C9) and goes on with those and digits. A number starts
// with a digit; `0x`, `0y` and `0t` before it are the bases 16, 2 and 8. The lexer only finds where
// a number ends: 1.2.3 and 0y9 are one token each, which the conversion refuses.
#pragma once

#include "formula/formula_evaluator.h"

namespace tallymere {

/// Reads the token at `position`, a 0-based index in the evaluator's text, and moves behind it.
/// Fills id, position and length and sets value to null. A character that starts no token gives
/// TokenInvalid of length 0 and is not passed; so does the end with TokenEnd.
///
/// The imaginary unit leaves token.length as it was: an error that quotes it shows the length of
/// the token before it.
void NextFormulaToken(const FormulaEvaluator& evaluator, FormulaToken& token, uint64_t& position);

/// True for a letter that a name may start with: Latin, Greek or `_`.
bool IsNameLetter(char16_t c);

/// The base of a number from its first two characters: 16, 2 or 8 with a prefix, else 10. `text` is
/// at a digit of a NUL-terminated text.
uint32_t NumberBase(const char16_t* text);

}  // namespace tallymere
