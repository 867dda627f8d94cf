// A field for an integer with two spin buttons.
#pragma once

#include <cstdint>

#include "layout/logical_units.h"
#include "toolkit/win32.h"

namespace tallymere {

inline constexpr const char16_t* NumericUpDownClass = u"cwl_NumericUpDown";

/// Told when the user has changed the number: not at each digit typed, but when Return is pressed
/// or the field loses the focus, and at each step of the spin buttons.
using NumericChanged = void (*)(HWND control, int32_t value);

/// The range is 0 to 100, the position 0, and nobody is told; `place` in logical units.
HWND CreateNumericUpDown(HWND parent, const LayoutRect& place);

/// Null for nobody.
void SetNumericChanged(HWND control, NumericChanged changed);

/// A position outside of the range moves to its nearer end. Nobody is told.
void SetNumericRange(HWND control, int32_t low, int32_t high);

/// The position, which is in the range; what is being typed counts.
int32_t NumericPosition(HWND control);

/// Nobody is told.
void SetNumericPosition(HWND control, int32_t position);

/// With `write` the text is made to show the position. With `notify`, NumericChanged is told if the
/// position differs from what it was told last.
void SyncNumericUpDown(HWND control, bool write, bool notify);

/// The children.
HWND NumericEdit(HWND control);
HWND NumericSpin(HWND control);

}  // namespace tallymere
