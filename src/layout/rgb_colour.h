// A colour of text, independent of how the system writes it.
#pragma once

#include <cstdint>

namespace tallymere {

struct RgbColour {
    uint8_t red;
    uint8_t green;
    uint8_t blue;

    bool operator==(const RgbColour&) const = default;
};

}  // namespace tallymere
