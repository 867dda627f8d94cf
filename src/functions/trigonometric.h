// Sine, cosine and tangent of an angle in radians.
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

/// The same with ArgumentGuardDigits(x) guard digits, rounded; within SinCosErrorBound and
/// TanErrorBound, near zeros and poles see SinCosNearZeroFactor and TanNearZeroFactor.
void RealSinRounded(RealNumber* dest, const RealNumber* x);
void RealCosRounded(RealNumber* dest, const RealNumber* x);
void RealTanRounded(RealNumber* dest, const RealNumber* x);

}  // namespace tallymere
