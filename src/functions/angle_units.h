// Angles in degrees (360 to a full turn) and gon (400) to radians and back.
//
// All four work with 2 guard digits and round; special values stay as they are. dest may be x. pi /
// 4 is the stored constant, and stands for 45 degrees or 50 gon. Error bounds, of
// functions/error_bounds.h: DegToRadErrorBound, RadToDegErrorBound and RadToGonErrorBound, and
// UsualErrorBound from gon to radians.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// dest = (x / 45) pi / 4, or (x / 50) pi / 4.
void RealDegToRad(RealNumber* dest, const RealNumber* x);
void RealGonToRad(RealNumber* dest, const RealNumber* x);

/// dest = (x * 45) / (pi / 4), or (x * 50) / (pi / 4); above the range an infinity and
/// CalcErrorOverflow if reportOverflow.
void RealRadToDeg(RealNumber* dest, const RealNumber* x);
void RealRadToGon(RealNumber* dest, const RealNumber* x);

}  // namespace tallymere
