// Sums, products, quotients and comparisons of fractions.
//
// Products are formed at twice the width and reduced there. So a product, quotient or remainder
// overflows only when it does not fit in lowest terms. Sums have two more limits, see
// RationalAddSub. A failure gives +0/1, and CalcErrorUndefined unless another code is stated. A
// code that was noted before is kept.
//
// An operand need not be in lowest terms: its value counts. Operations that multiply both parts of
// both operands give lowest terms again. Those by a machine integer, the integer part, the fraction
// and the reciprocal do not look for a common factor that the operand already had.
#pragma once

#include "core/real_integer.h"
#include "exact/rational_number.h"

namespace tallymere {

/// Divides both by their greatest common divisor. A numerator of 0 makes the denominator 1. A
/// denominator of 0 with any other numerator notes CalcErrorExactDivisionByZero. They must not
/// overlap.
void ReduceFraction(uint64_t* numerator, uint64_t* denominator);

/// dest = a + b, or a - b when `subtract` is true. When operands of different signs cancel, the
/// zero has the sign of b (of -b with `subtract`).
///
/// CalcErrorOverflow when the result does not fit, and in two more cases. Equal denominators: the
/// sum of the numerators does not fit the width. Others: the sum of the cross products does not fit
/// twice the width.
void RationalAddSub(RationalNumber* dest, const RationalNumber* a, const RationalNumber* b,
                    bool subtract);

/// dest = a * b, or a / b when `divide` is true. CalcErrorOverflow when the result does not fit,
/// CalcErrorExactDivisionByZero for a / 0.
void RationalMulDiv(RationalNumber* dest, const RationalNumber* a, const RationalNumber* b,
                    bool divide);

/// dest = a * k. CalcErrorOverflow when it does not fit.
void RationalMulSmall(RationalNumber* dest, const RationalNumber* a, uint64_t k);

/// dest = a * k / d in one step, for k and d without a common factor. The codes are those of
/// RationalMulSmall and RationalDivSmall.
void RationalScaleSmall(RationalNumber* dest, const RationalNumber* a, uint64_t k, uint64_t d);

/// dest = a / k. CalcErrorOverflow when it does not fit, CalcErrorExactDivisionByZero for k = 0.
/// But 0 / 0 is 0 here and notes nothing.
void RationalDivSmall(RationalNumber* dest, const RationalNumber* a, uint64_t k);

/// quotient = floor(|a / b|), remainder = |a| - quotient |b|, both with the sign of a / b. Either
/// may be null; they must not overlap. CalcErrorExactDivisionByZero for b = 0, CalcErrorOverflow
/// when a result that is asked for does not fit. In both cases both results are +0/1.
void RationalDivMod(RationalNumber* quotient, RationalNumber* remainder, const RationalNumber* a,
                    const RationalNumber* b);

/// dest = 1 / a. CalcErrorExactDivisionByZero for a = 0.
void RationalReciprocal(RationalNumber* dest, const RationalNumber* a);

/// dest = the integer part of a: its fraction is dropped, its sign stays. A denominator of 0 gives
/// +0/1 and CalcErrorExactDivisionByZero.
void RationalTrunc(RationalNumber* dest, const RationalNumber* a);

/// dest = a - trunc(a). The sign of a stays. A denominator of 0 as for RationalTrunc.
void RationalFraction(RationalNumber* dest, const RationalNumber* a);

/// -1, 0 or 1 as a is below, equal to or above b. With `ignoreSign` it compares |a| with |b|. Zeros
/// are equal whatever their signs.
int RationalCompare(const RationalNumber* a, const RationalNumber* b, bool ignoreSign);

/// Compares a with k, or with -k when `negative` is true.
int RationalCompareSmall(const RationalNumber* a, uint64_t k, bool negative);

/// *out = a, and returns true, when a is an integer from 0 to 2^64 - 1. Else *out = 0, and returns
/// false. `flags`, bits of IntegerFlags, allow more: AllowFraction drops a fraction first,
/// AllowNegative takes the magnitude. A zero counts as not negative, also one that is left when the
/// fraction is dropped.
bool RationalToUnsigned(uint64_t* out, const RationalNumber* a, uint32_t flags);

/// *out = q, and returns true, when q is an integer from -2^63 to 2^63 - 1. Else *out = 0, and
/// returns false.
bool RationalToSigned(int64_t* out, const RationalNumber* q);

}  // namespace tallymere
