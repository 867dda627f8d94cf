// Conversions between decimal numbers and exact ones.
//
// Convert... work on a stored value at a precision and a width of their own: `digits` from 1 to
// MaxPrecisionDigits and `limbs` from 1 to MaxUintLimbs. Anything else notes
// CalcErrorBadParameter and leaves the destination unchanged. The other conversions use the
// precision and the width in force. Both are as before on return. A destination overlaps no
// operand.
#pragma once

#include "core/complex_number.h"
#include "core/real_number.h"
#include "exact/rational_number.h"

namespace tallymere {

/// dest = the integer in m words of 64 bits, m >= 0, least significant first. Raw: truncated to the
/// precision in force; the result of the call is the guard limb. The width in force plays no part.
Limb RealFromBigUint(RealNumber* dest, const uint64_t* words, int64_t m);

/// dest = the integer part of |x| in m words, m >= 0, least significant first. The width in force
/// plays no part. 0 and CalcErrorOverflow when it does not fit; infinity does not. 0 and
/// CalcErrorUndefined for NaN.
void BigUintFromReal(uint64_t* dest, int64_t m, const RealNumber* x);

/// The guard digits with which RealFromRational divides.
inline constexpr int64_t RationalQuotientGuardDigits = 2;

/// The relative error of that quotient before it is rounded, in units of
/// 10^-(p + RationalQuotientGuardDigits), where p is the precision. The quotient is less than
/// ...Below under the true one and less than ...Above over it.
inline constexpr int64_t RationalQuotientErrorBelow = 41;
inline constexpr int64_t RationalQuotientErrorAbove = 21;

/// dest = q, rounded once. A zero keeps its sign. An integer is rounded correctly. Any other q is
/// divided with RationalQuotientGuardDigits guard digits, and with the error that
/// RationalQuotientErrorBelow and ...Above state. So the last digit may be off by one. A
/// denominator of 0 divides like the real number 0.
void RealFromRational(RealNumber* dest, const RationalNumber* q);

/// dest = x, a BigUint of `limbs` limbs. A zero of either sign gives 0. CalcErrorUndefined and 0
/// unless x is an integer and not negative. CalcErrorOverflow and 0 when it does not fit. A code
/// that was noted before is kept.
void ConvertRealToUint(uint64_t* dest, int64_t limbs, const RealNumber* x, int64_t digits);

/// dest = x, a fraction with `limbs` limbs in each part. A zero keeps its sign. CalcErrorUndefined
/// and +0/1 unless x is an integer. CalcErrorOverflow and +0/1 when it does not fit. A code that
/// was noted before is kept.
void ConvertRealToRational(RationalNumber* dest, int64_t limbs, const RealNumber* x,
                           int64_t digits);

/// dest = q, a fraction with `limbs` limbs in each part, as RealFromRational gives it at `digits`
/// digits. The complex form has an imaginary part of +0.
void ConvertRationalToReal(RealNumber* dest, int64_t digits, const RationalNumber* q,
                           int64_t limbs);
void ConvertRationalToComplex(ComplexNumber* dest, int64_t digits, const RationalNumber* q,
                              int64_t limbs);

}  // namespace tallymere
