// What a formula has to give, by recursive descent over its grammar. Shares no code with the lexer
// and the driver of the program.
#pragma once

#include <string_view>

#include "support/formula_testing.h"
#include "support/formula_values.h"

namespace tallymere::testing_support {

/// The outcome of a formula in the type in force, whose arithmetic is given, with flags TextGroup
/// and the separators in force.
FormulaOutcome PredictFormula(std::u16string_view text, const Variables& variables = {},
                              const ModelArithmetic& arithmetic = DecimalArithmetic);

}  // namespace tallymere::testing_support
