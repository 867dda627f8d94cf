// Angles in degrees (360 to a full turn) and gon (400) to radians and back.
//
// All four work with 2 guard digits and round; special values stay as they are. dest may be x. The
// factor is kept as 45 or 50 units to pi / 4, the form in which pi is stored.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// dest = (x / 45) pi / 4, or (x / 50) pi / 4.
void RealDegToRad(RealNumber* dest, const RealNumber* x);
void RealGonToRad(RealNumber* dest, const RealNumber* x);

/// dest = (x * 45) / (pi / 4), or (x * 50) / (pi / 4); above the range an infinity and code 200 if
/// reportOverflow.
void RealRadToDeg(RealNumber* dest, const RealNumber* x);
void RealRadToGon(RealNumber* dest, const RealNumber* x);

}  // namespace tallymere
