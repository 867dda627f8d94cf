// Rounding to the precision, to a number of digits and to an integer, and the tests for integers.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// A function that rounds its result; dest may be an operand.
using RealRoundedUnary = void (*)(RealNumber* dest, const RealNumber* x);
using RealRoundedBinary = void (*)(RealNumber* dest, const RealNumber* a, const RealNumber* b);

/// Rounds half up in magnitude by the guard limb alone: ties go away from zero. Special values
/// stay, and so does everything under noRounding. A carry out of the leading digit raises the
/// exponent; at the top of the range it makes an infinity (CalcErrorOverflow if reportOverflow).
void RealRound(RealNumber* x, Limb guard);

/// Rounds a finite non-zero x to d significant digits, d > 0, half up in magnitude; d >= p copies.
/// Truncates under noRounding. A carry above the exponent range makes an infinity
/// (CalcErrorOverflow if reportOverflow).
void RealRoundDigits(RealNumber* dest, const RealNumber* x, int64_t d);

/// The same for all values and any d: special values are copied, and a d below 1 gives NaN and
/// CalcErrorUndefined.
void RealRoundDigitsAny(RealNumber* dest, const RealNumber* x, int64_t d);

/// True for zero and integers, false for infinity and NaN. A number whose digits all stand before
/// the decimal point is one without a look at them.
bool RealIsInteger(const RealNumber* x);

/// True if the units digit of the integer part is even, and for zero. False for infinity and NaN.
bool RealIsEven(const RealNumber* x);

/// Truncates towards zero. Special values are copied, a magnitude below 1 gives signed zero.
void RealIntegerPart(RealNumber* dest, const RealNumber* x);

/// Rounds to the nearest integer, as RealRoundDigits to the digits before the decimal point. A
/// magnitude below 1 gives 1 from 0.5 on and zero below, with the sign of x. Special values are
/// copied.
void RealRoundToInteger(RealNumber* dest, const RealNumber* x);

/// x minus its integer part, in normal form. Zero, infinity and integers give signed zero.
void RealFractionPart(RealNumber* dest, const RealNumber* x);

}  // namespace tallymere
