// Quotients: by a machine integer, and of two numbers through the Newton reciprocal.
//
// `Div` in a name means the quotient of two records here, and `Mul`, `Sub` and `Add` name the other
// operations on records in the same way. Functions on bare arrays of limbs have the whole word,
// such as LimbsMultiply.
#pragma once

#include "core/real_number.h"
#include "core/word_division.h"

namespace tallymere {

/// Largest errors of the raw reciprocal and the raw quotient, in units of the last place.
inline constexpr int64_t RawReciprocalErrorBound = 12;
inline constexpr int64_t RawQuotientErrorBound = 22;

/// The rounded forms round a number that is not quite the exact one. It is less than ...Below under
/// the exact one, or at most ...Above over it, in thousandths of a unit in the last place. So the
/// result is correctly rounded, unless the exact one lies as close as that to a tie.
inline constexpr int64_t ReciprocalErrorBelow = 112;
inline constexpr int64_t ReciprocalErrorAbove = 102;
inline constexpr int64_t QuotientErrorBelow = 22;
inline constexpr int64_t QuotientErrorAbove = 11;

/// dest = x / d with the sign of x; raw. The digits are those of the exact quotient. `reciprocal`
/// is DivisorReciprocal(d), or 0 to have it looked up. 0 / 0 gives NaN and CalcErrorUndefined; x /
/// 0 gives an infinity and CalcErrorOverflow if reportOverflow.
Limb RealDivUint(RealNumber* dest, const RealNumber* x, uint64_t d, uint64_t reciprocal = 0);

/// dest = 1 / x for finite non-zero x; raw, within RawReciprocalErrorBound. Method: Newton's
/// iteration y <- y (2 - x y) from a seed of about 15 digits.
Limb RealReciprocalRaw(RealNumber* dest, const RealNumber* x);

/// The same for all values: 1 / 0 is an infinity and CalcErrorOverflow if reportOverflow, 1 /
/// infinity is 0.
Limb RealReciprocalAny(RealNumber* dest, const RealNumber* x);

/// dest = 1 / x with 2 guard digits, rounded; ReciprocalErrorBelow and ReciprocalErrorAbove.
void RealReciprocal(RealNumber* dest, const RealNumber* x);

/// dest = a / b at the current precision; raw, within RawQuotientErrorBound. 0 / 0 and
/// infinity / infinity give NaN and CalcErrorUndefined; finite / 0 an infinity and
/// CalcErrorOverflow if reportOverflow.
Limb RealDivRaw(RealNumber* dest, const RealNumber* a, const RealNumber* b);

/// dest = a / b with 3 guard digits, rounded; QuotientErrorBelow and QuotientErrorAbove.
void RealDiv(RealNumber* dest, const RealNumber* a, const RealNumber* b);

}  // namespace tallymere
