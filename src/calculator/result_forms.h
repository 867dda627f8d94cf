// The forms of the result and the keys that lead from one to the next.
#pragma once

#include "calculator/calculator_state.h"

namespace tallymere {

/// The form that the key F↔S leads to: from automatic or mixed to fixed, then to scientific, then
/// back to automatic. A form that looks the same as automatic is skipped, so that each press
/// changes the display. It depends on calcResult, which must be a result under the settings in
/// force.
ResultForm FormAfterNotationKey();

/// The form that the key R↔M leads to: for a fraction mixed, then back to automatic; for an integer
/// always automatic.
ResultForm FormAfterMixedKey();

/// A press of the key F↔S or R↔M. If the result is valid, and for R↔M of the type rat, changes its
/// form and returns true. The page then shows the result again.
bool SwitchNotation();
bool SwitchMixed();

/// The number of digits of calcResultText when it is an integer of the type uint. The prefix of the
/// base does not count. -1 for other types and in scientific notation; the displayed count stays as
/// it is then.
int32_t ResultDigitCount();

}  // namespace tallymere
