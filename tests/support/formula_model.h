// What a formula has to give in the type real, by recursive descent over its grammar. Shares no
// code with the lexer and the driver of the program, only the rounded arithmetic of the core.
#pragma once

#include <optional>
#include <string_view>

#include "support/formula_testing.h"

namespace tallymere::testing_support {

/// The outcome of a formula with flags TextGroup and the separators in force; nothing when the
/// formula needs a power, pi or a function of real other than abs, trunc, frac and round.
std::optional<FormulaOutcome> PredictFormula(std::u16string_view text,
                                             const Variables& variables = {});

}  // namespace tallymere::testing_support
