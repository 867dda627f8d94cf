// The forms of the result and the keys that lead from one to the next.
#pragma once

#include "calculator/calculator_state.h"

namespace tallymere {

/// What the key F↔S leads to: from automatic or mixed to fixed, from there to scientific, and back
/// to automatic. A form that looks as automatic does is passed over, so that each press changes
/// what is seen. Looks at calcResult, which must be a result under the settings in force.
ResultForm FormAfterNotationKey();

/// What the key R↔M leads to: a fraction becomes mixed and from there automatic, an integer always
/// automatic.
ResultForm FormAfterMixedKey();

/// Presses of the two keys: change the form of the result and return true if it is valid, the
/// second only if it is of the type rat. The page then shows the result anew.
bool SwitchNotation();
bool SwitchMixed();

/// The digits of calcResultText, an integer of the type uint: letters and digits behind the prefix
/// of its base. -1 where the count that is shown stays as it is: for other types, and in
/// scientific notation.
int32_t ResultDigitCount();

}  // namespace tallymere
