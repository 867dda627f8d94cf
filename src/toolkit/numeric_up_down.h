// A field for an integer with two spin buttons.
#pragma once

#include <cstdint>

#include "layout/logical_units.h"
#include "toolkit/win32.h"

namespace tallymere {

inline constexpr const char16_t* NumericUpDownClass = u"cwl_NumericUpDown";

/// Called when the user has changed the number: when Return is pressed, when the field loses the
/// focus, and at each step of the spin buttons. Not called for each digit that is typed.
using NumericChanged = void (*)(HWND control, int32_t value);

/// Makes the control, with the range 0 to 100 and the position 0. `place` is in logical units. No
/// function is called until one is set.
HWND CreateNumericUpDown(HWND parent, const LayoutRect& place);

/// Sets the function that is called; null for none.
void SetNumericChanged(HWND control, NumericChanged changed);

/// Sets the range. A position outside it moves to its nearer end. Calls no function.
void SetNumericRange(HWND control, int32_t low, int32_t high);

/// The position, which is in the range. A number that is being typed counts already.
int32_t NumericPosition(HWND control);

/// Sets the position. Calls no function, and the control does not count it as reported: a user who
/// goes back to the number that was reported last is not heard.
void SetNumericPosition(HWND control, int32_t position);

/// Sets the position as a user does: the text shows it, and NumericChanged is called if it is
/// another one than it was called with last.
void ChooseNumericPosition(HWND control, int32_t position);

/// With `write` the text shows the position afterwards. With `notify` NumericChanged is called if
/// the position is not the one that it was called with last.
void SyncNumericUpDown(HWND control, bool write, bool notify);

/// The children.
HWND NumericEdit(HWND control);
HWND NumericSpin(HWND control);

}  // namespace tallymere
