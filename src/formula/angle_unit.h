// The unit of the angle that a function takes or gives.
#pragma once

#include <cstdint>

namespace tallymere {

enum class AngleUnit : uint8_t {
    None,  ///< the function has no angle
    Radians,
    Degrees,
    Gon,
};

}  // namespace tallymere
