// Sine, cosine and tangent of an angle in radians, and in degrees and gon.
//
// Inner forms are raw and work at the layout in force; the error bounds are those of
// functions/error_bounds.h. Outputs may be operands.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// Sine and cosine of x; either output may be null, both may not be the same record. Raw, within
/// RawSinCosErrorBound. Returns the guard limb of the one output asked for, and 0 where both are.
/// Zero gives a zero of its sign and 1. Where |x| holds 2^64 or more times pi / 4, from about
/// 1.4488e19 up, and for infinity each output is NaN with CalcErrorUndefined; a stop request gives
/// NaN with CalcErrorCancelled. Method: |x| = k pi / 4 + r with k even or r negative, and the
/// Taylor series of r.
Limb RealSinCos(RealNumber* sine, RealNumber* cosine, const RealNumber* x);

/// One of the two, as RealSinCos gives it.
Limb RealSin(RealNumber* dest, const RealNumber* x);
Limb RealCos(RealNumber* dest, const RealNumber* x);

/// sine / cosine; raw. Next to odd multiples of pi / 2 the tangent is very large, and at the
/// multiple itself, as the layout in force holds it, an infinity and CalcErrorOverflow if
/// reportOverflow; with guard digits no x gets there. Codes else as RealSinCos.
Limb RealTan(RealNumber* dest, const RealNumber* x);

// Rounded forms, within CircularErrorBound for every argument, next to zeros and poles as well.
// Method: x less the nearest multiple of the quarter turn, to as many digits as the rest needs, and
// the series of the rest.

/// Of an angle in radians; codes as RealSinCos. The rest is worked out with more digits for as long
/// as it lacks some, up to LongPiDigits: no angle that can be written with MaxPrecisionDigits and
/// its guard digits lies so near to a multiple that they would not do.
void RealSinRounded(RealNumber* dest, const RealNumber* x);
void RealCosRounded(RealNumber* dest, const RealNumber* x);
void RealTanRounded(RealNumber* dest, const RealNumber* x);

// Of an angle in degrees or gon, which is reduced exactly before it becomes radians. Multiples of
// the quarter turn give 0, 1 or -1 exactly, with +0 except for an angle of -0. The tangent at a
// pole is an infinity, with CalcErrorOverflow if reportOverflow. Codes as RealSinCos; the angle is
// too large by RealAngleIsTooLarge.

void RealSinDegreesRounded(RealNumber* dest, const RealNumber* x);
void RealCosDegreesRounded(RealNumber* dest, const RealNumber* x);
void RealTanDegreesRounded(RealNumber* dest, const RealNumber* x);
void RealSinGonRounded(RealNumber* dest, const RealNumber* x);
void RealCosGonRounded(RealNumber* dest, const RealNumber* x);
void RealTanGonRounded(RealNumber* dest, const RealNumber* x);

/// True for infinity and where |x| holds more than 2^64 eighths of a turn, each of so many units.
/// x is not NaN, unitsPerOctant 1 to 1000.
bool RealAngleIsTooLarge(const RealNumber* x, uint64_t unitsPerOctant);

}  // namespace tallymere
