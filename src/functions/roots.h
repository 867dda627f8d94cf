// Roots.
//
// Square and cube root go by Newton's iteration from a seed in machine arithmetic
// (functions/root_seeds.h), with the argument scaled by a small square or cube to [1, 4) or [1, 8).
// Roots of other degrees go by logarithm and exponential. functions/error_bounds.h has the error
// bounds.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// dest = the square root of x at the current precision; raw, within RawRootErrorBound. A zero and
/// +infinity give themselves; a negative x gives NaN and CalcErrorUndefined.
Limb RealSqrt(RealNumber* dest, const RealNumber* x);

/// The same with 2 guard digits, rounded; within SqrtErrorBound.
void RealSqrtRounded(RealNumber* dest, const RealNumber* x);

/// dest = the cube root of x, with its sign, at the current precision; raw, within
/// RawRootErrorBound. Zeros and infinities give themselves.
Limb RealCbrt(RealNumber* dest, const RealNumber* x);

/// The same with 3 guard digits, rounded; within UsualErrorBound.
void RealCbrtRounded(RealNumber* dest, const RealNumber* x);

/// dest = the n-th root of x, with its sign, at the current precision; the inner form. An n that is
/// not a positive integer gives NaN and CalcErrorUndefined, also with a NaN x; a NaN n gives NaN
/// silently. Zero gives itself, an infinity too; a negative x with an even n gives NaN and
/// CalcErrorUndefined.
Limb RealRoot(RealNumber* dest, const RealNumber* n, const RealNumber* x);

/// The same with 5 guard digits, rounded; within RootErrorBound, for far exponents of x see
/// FarBaseErrorBound.
void RealRootRounded(RealNumber* dest, const RealNumber* n, const RealNumber* x);

/// RealRoot for a machine integer n.
Limb RealRootInt(RealNumber* dest, int64_t n, const RealNumber* x);

}  // namespace tallymere
