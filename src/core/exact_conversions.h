// Between decimal numbers and exact ones.
//
// The public conversions, Convert..., run at the precision and width that they are given, `digits`
// from 1 to MaxPrecisionDigits and `limbs` from 1 to MaxUintLimbs, else code 100; the others at
// those in force. The context is put back at the end.
#pragma once

#include "core/complex_number.h"
#include "core/real_number.h"
#include "exact/rational_number.h"

namespace tallymere {

/// Raw: dest = the integer in m limbs, least significant first; returns the guard limb.
Limb RealFromBigUint(RealNumber* dest, const uint64_t* limbs, int64_t m);

/// out = the integer part of |x| in m limbs. 0 and code 200 when it does not fit, 203 for NaN.
void BigUintFromReal(uint64_t* out, int64_t m, const RealNumber* x);

/// dest = q, rounded once.
void RealFromRational(RealNumber* dest, const RationalNumber* q);

/// out = x, a BigUint of `limbs` limbs. 0 and code 203 unless x is an integer of at least 0.
void ConvertRealToUint(uint64_t* out, int64_t limbs, const RealNumber* x, int64_t digits);

/// out = x as a fraction of `limbs` limbs a part. 0/1 and code 203 unless x is an integer.
void ConvertRealToRational(RationalNumber* out, int64_t limbs, const RealNumber* x, int64_t digits);

/// dest = q, a fraction of `limbs` limbs a part, rounded to `digits`; in the complex form with an
/// imaginary part of +0.
void ConvertRationalToReal(RealNumber* dest, int64_t digits, const RationalNumber* q,
                           int64_t limbs);
void ConvertRationalToComplex(ComplexNumber* dest, int64_t digits, const RationalNumber* q,
                              int64_t limbs);

}  // namespace tallymere
