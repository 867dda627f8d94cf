// Random formulas: valid ones, and what becomes of them when text is mangled.
#pragma once

#include <string>

#include "support/formula_testing.h"
#include "support/random_source.h"

namespace tallymere::testing_support {

/// The variables that random formulas use: good ones, and some that fail.
const Variables& RandomFormulaVariables();

/// A formula that keeps to the grammar, with operands of all kinds, up to `depth` levels of
/// parentheses and functions, and now and then something that fails. For the type in force; in uint
/// without "round", whose value depends on what was calculated before.
std::u16string RandomFormula(RandomSource& random, int depth);

/// A nest of up to 45 levels, about half of which fit the stack, mostly closed again.
std::u16string RandomNest(RandomSource& random);

/// Replaces, inserts, deletes, doubles or cuts off some characters, so that most results are no
/// formulas.
void Mangle(RandomSource& random, std::u16string& text);

/// Where the text has a word whose work grows with the size of its operands, shortens exponents to
/// three characters and takes out powers, exponentials and products of anything but small numbers,
/// so that no evaluation takes long.
void KeepShort(std::u16string& text);

}  // namespace tallymere::testing_support
