// A row of a list from which the user chooses.
#pragma once

#include <cstdint>

namespace tallymere {

struct ListRow {
    const char16_t* text;
    int32_t value;  ///< what the choice of the row means
};

}  // namespace tallymere
