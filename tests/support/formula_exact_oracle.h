// What the operators and functions of formulas have to give in the types uint and rat, on integers
// and fractions of GMP. Native only.
#pragma once

#include "support/formula_values.h"

namespace tallymere::testing_support {

/// Of the type uint. "round" must not be asked for: its value is that of the slot it finds.
extern const ModelArithmetic UintArithmetic;

/// Of the type rat.
extern const ModelArithmetic RationalArithmetic;

}  // namespace tallymere::testing_support
