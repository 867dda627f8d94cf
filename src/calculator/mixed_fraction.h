// The mixed form of a fraction: its whole part and the fraction that is left.
#pragma once

#include <cstdint>

#include "exact/rational_number.h"

namespace tallymere {

/// Writes q as "2+1/3", "0+1/3", "-2-1/3" or "0-1/3" into a buffer of capacity + 1 characters and
/// ends it with a 0. A negative number has a "-" in front of its fraction, and one in front of its
/// whole part unless that is 0. A text longer than the capacity ends with an ellipsis and raises
/// UiErrorTextOverflow. `flags` are those of BigUintToText. The thread needs a ScratchStack.
void MixedFractionToText(char16_t* buffer, int64_t capacity, const RationalNumber* q,
                         uint32_t flags);

}  // namespace tallymere
