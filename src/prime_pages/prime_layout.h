// How both pages share the space. Lengths are logical units.
#pragma once

#include "layout/logical_units.h"

namespace tallymere {

/// Distances from the right or the lower edge of the client area.
inline constexpr int32_t PrimeNumberRoom = 62;   ///< what the number field leaves of the width
inline constexpr int32_t PrimeOutputRoom = 32;   ///< what the output box leaves of the width
inline constexpr int32_t PrimeButtonsRoom = 33;  ///< to the top of the buttons
inline constexpr int32_t PrimeCloseRoom = 100;   ///< to the left edge of Close

/// What follows the client area of a page. Controls are named by their index in its form.
struct PrimeLayout {
    int32_t number;
    int32_t output;
    int32_t outputRoom;  ///< what the output box leaves of the height
    int32_t start;
    int32_t stop;
    int32_t close;
};

/// The place of a control in its parent, in a client area; `place` is that of its form. In an area
/// that is too small, sizes are negative; the system treats them as 0.
constexpr LayoutRect PlacePrimeControl(const PrimeLayout& layout, int32_t control, LayoutRect place,
                                       LayoutSize client) {
    if (control == layout.number) {
        place.width = client.width - PrimeNumberRoom;
    } else if (control == layout.output) {
        place.width = client.width - PrimeOutputRoom;
        place.height = client.height - layout.outputRoom;
    } else if (control == layout.start || control == layout.stop || control == layout.close) {
        place.y = client.height - PrimeButtonsRoom;
    }
    if (control == layout.close) {
        place.x = client.width - PrimeCloseRoom;
    }
    return place;
}

}  // namespace tallymere
