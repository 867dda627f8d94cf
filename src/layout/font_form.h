// A font by name, independent of how the system makes it.
#pragma once

#include <cstdint>

namespace tallymere {

struct FontForm {
    const char16_t* name;  ///< cut to 31 characters
    int32_t height;        ///< of a line, in logical units
    int32_t weight = 0;    ///< 400 is normal, 700 bold; 0 leaves it to the system
    bool italic = false;
};

}  // namespace tallymere
