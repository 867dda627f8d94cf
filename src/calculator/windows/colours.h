// Colours as the system writes them.
#pragma once

#include "layout/rgb_colour.h"
#include "toolkit/win32.h"

namespace tallymere {

inline COLORREF ToColorRef(const RgbColour& colour) {
    return RGB(colour.red, colour.green, colour.blue);
}

}  // namespace tallymere
