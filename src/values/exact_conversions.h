// Between decimal numbers and exact ones.
//
// The conversions of a stored value, Convert..., run at the precision and width that they are
// given, `digits` from 1 to MaxPrecisionDigits and `limbs` from 1 to MaxUintLimbs; anything else
// notes code 100 and leaves the destination as it is. The other ones run at those in force.
// Precision and width are put back on every way out. Destinations overlap no operand.
#pragma once

#include "core/complex_number.h"
#include "core/real_number.h"
#include "exact/rational_number.h"

namespace tallymere {

/// dest = the integer in m words of 64 bits, least significant first, whatever the width in force;
/// raw.
Limb RealFromBigUint(RealNumber* dest, const uint64_t* words, int64_t m);

/// dest = the integer part of |x| in m words, least significant first, whatever the width in force.
/// 0 and code 200 when it does not fit, as infinity does not; 0 and code 203 for NaN.
void BigUintFromReal(uint64_t* dest, int64_t m, const RealNumber* x);

/// dest = q, divided with 2 guard digits and rounded once. A zero keeps its sign. Parts that are
/// longer are cut to the guard digits before, which may move the last digit of the result by one.
void RealFromRational(RealNumber* dest, const RationalNumber* q);

/// dest = x, a BigUint of `limbs` limbs. 0 for zeros of either sign; 0 and code 203 unless x is an
/// integer and not negative; 0 and code 200 when it does not fit. A code that was noted before is
/// kept.
void ConvertRealToUint(uint64_t* dest, int64_t limbs, const RealNumber* x, int64_t digits);

/// dest = x as a fraction of `limbs` limbs a part, a zero with its sign. +0/1 and code 203 unless x
/// is an integer; +0/1 and code 200 when it does not fit. A code that was noted before is kept.
void ConvertRealToRational(RationalNumber* dest, int64_t limbs, const RealNumber* x,
                           int64_t digits);

/// dest = q, a fraction of `limbs` limbs a part, as RealFromRational gives it at `digits`; in the
/// complex form with an imaginary part of +0.
void ConvertRationalToReal(RealNumber* dest, int64_t digits, const RationalNumber* q,
                           int64_t limbs);
void ConvertRationalToComplex(ComplexNumber* dest, int64_t digits, const RationalNumber* q,
                              int64_t limbs);

}  // namespace tallymere
