// Rounding of a number of which it is known how far it may be off.
#pragma once

#include <cstdint>

#include "core/real_layout.h"

namespace tallymere {

/// rounded = x, which is finite, not 0, and off by less than 10^error, rounded to `digits`. True
/// when all numbers that it may be round alike; else `rounded` means nothing. All of them have the
/// layout in force, and `rounded` is another one than x.
bool RoundsAlike(RealNumber* rounded, const RealNumber* x, int64_t error, int64_t digits);

}  // namespace tallymere
