// Powers with integer and with real exponents. functions/error_bounds.h has the error bounds.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// dest = x^n at the current precision; raw. Products of x, right to left over the bits of |n|
/// (Knuth, "The Art of Computer Programming", volume 2, 4.6.3, algorithm A), then the reciprocal
/// for n < 0. x^0 is 1, also for zero. An infinity to the 0 and a zero to a negative n give NaN and
/// CalcErrorUndefined. Where x^|n| leaves the range of the exponent the codes are those of its
/// products and, for n < 0, of the reciprocal.
Limb RealPowerInt(RealNumber* dest, const RealNumber* x, int64_t n);

/// The same with IntegerPowerGuardDigits(n) guard digits, rounded; within PowerIntErrorBound.
void RealPowerIntRounded(RealNumber* dest, const RealNumber* x, int64_t n);

/// dest = 2^n at the current precision; raw. From stored powers of two, with one product or
/// quotient by a machine integer while |n| < 128.
Limb RealPowerOfTwo(RealNumber* dest, int64_t n);

/// The same with IntegerPowerGuardDigits(n) guard digits, rounded; within PowerOfTwoErrorBound.
void RealPowerOfTwoRounded(RealNumber* dest, int64_t n);

/// dest = x^y = e^(y ln |x|) at the current precision; the inner form. Anything but an infinity to
/// the power 0 is 1, NaN too. NaN and CalcErrorUndefined where there is no value: an infinity to
/// the 0, a zero to a negative or infinite power, a negative x to an infinite power or to one that
/// is not an integer. x^+infinity is +infinity for every positive x, also below 1, and x^-infinity
/// +0.
Limb RealPower(RealNumber* dest, const RealNumber* x, const RealNumber* y);

/// The same with PowerGuardDigits(y) guard digits, rounded; within PowerErrorBound, for far
/// exponents of x see FarBaseErrorBound.
void RealPowerRounded(RealNumber* dest, const RealNumber* x, const RealNumber* y);

}  // namespace tallymere
