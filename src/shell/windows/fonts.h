// Fonts by name.
#pragma once

#include <cstdint>

#include "toolkit/win32.h"

namespace tallymere {

struct FontForm {
    const char16_t* name;  ///< cut to 31 characters
    int32_t height;        ///< of a line, in logical units
    int32_t weight = 0;    ///< 400 is normal, 700 bold; 0 leaves it to the system
    bool italic = false;
};

/// Makes a font for the screen; null if that fails. The caller deletes it.
HFONT MakeFont(const FontForm& form);

}  // namespace tallymere
