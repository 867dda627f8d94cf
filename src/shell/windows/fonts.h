// Fonts by name.
#pragma once

#include "layout/font_form.h"
#include "toolkit/win32.h"

namespace tallymere {

/// Makes a font for the screen; null if that fails. The caller deletes it.
HFONT MakeFont(const FontForm& form);

}  // namespace tallymere
