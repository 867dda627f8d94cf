// A label and a count of digits.
#pragma once

#include <cstdint>

#include "layout/digit_count_layout.h"
#include "toolkit/win32.h"

namespace tallymere {

inline constexpr const char16_t* DigitCountClass = u"DigitCountControl";

/// Makes the control. The count shows 0 at first, and the label no text. The position is in logical
/// units. `style` is 0 or DigitCountLabelAbove.
HWND CreateDigitCountControl(HWND parent, int32_t x, int32_t y, uint32_t style);

/// Shows a count.
void ShowDigitCount(HWND control, int32_t count);

/// The children. The page sets the text of the label.
HWND DigitCountLabel(HWND control);
HWND DigitCountField(HWND control);

}  // namespace tallymere
