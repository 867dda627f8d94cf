// What a formula has to give in the types real and cplx, by recursive descent over its grammar.
// Shares no code with the lexer and the driver of the program, only the rounded routines of the
// layers below.
#pragma once

#include <string_view>

#include "support/formula_testing.h"

namespace tallymere::testing_support {

/// The outcome of a formula in the type in force, real or cplx, with flags TextGroup and the
/// separators in force.
FormulaOutcome PredictFormula(std::u16string_view text, const Variables& variables = {});

}  // namespace tallymere::testing_support
