// Sums, products, quotients of fractions.
//
// Products are made at twice the width and reduced there, so a product, quotient or remainder
// overflows only when it does not fit in lowest terms; sums have two more limits. A failure gives
// +0/1 and code 203 unless another is stated; a code that was noted before is kept.
//
// Operands out of lowest terms, which only some powers leave, are taken for their value. Operations
// by way of both products give lowest terms again; those by a word, the integer part, the fraction
// and the reciprocal keep what factor they do not touch.
#pragma once

#include "core/real_integer.h"
#include "exact/rational_number.h"

namespace tallymere {

/// Divides both by their greatest common divisor. A numerator of 0 makes the denominator 1; a
/// denominator of 0 with another numerator is code 202.
void ReduceFraction(uint64_t* numerator, uint64_t* denominator);

/// dest = a + b, or a - b with `subtract`. A zero that comes of different signs has the sign of b
/// (of -b with `subtract`). Code 200 when the result does not fit, and also when the sum of the
/// numerators of equal denominators does not, or that of the cross products of others does not fit
/// twice the width.
void RationalAddSub(RationalNumber* dest, const RationalNumber* a, const RationalNumber* b,
                    bool subtract);

/// dest = a * b, or a / b with `divide`. Code 200 when the result does not fit, 202 for b = 0.
void RationalMulDiv(RationalNumber* dest, const RationalNumber* a, const RationalNumber* b,
                    bool divide);

/// dest = a * k. Code 200 when it does not fit.
void RationalMulSmall(RationalNumber* dest, const RationalNumber* a, uint64_t k);

/// dest = a * k / d for k and d without a common factor, in one go. Codes as those of the two.
void RationalScaleSmall(RationalNumber* dest, const RationalNumber* a, uint64_t k, uint64_t d);

/// dest = a / k. 0 / 0 is 0; else code 202 for k = 0. Code 200 when it does not fit.
void RationalDivSmall(RationalNumber* dest, const RationalNumber* a, uint64_t k);

/// quotient = the integer |a / b| rounded down, remainder = |a| - quotient |b|, both with the sign
/// of a / b. Either may be null; they must not be the same record. Code 202 for b = 0, 200 when one
/// that is asked for does not fit; both are failed then.
void RationalDivMod(RationalNumber* quotient, RationalNumber* remainder, const RationalNumber* a,
                    const RationalNumber* b);

/// dest = 1 / a. Code 202 for a = 0.
void RationalReciprocal(RationalNumber* dest, const RationalNumber* a);

/// dest = the integer part of a, towards 0, with the sign of a.
void RationalTrunc(RationalNumber* dest, const RationalNumber* a);

/// dest = a - trunc(a), with the sign of a.
void RationalFraction(RationalNumber* dest, const RationalNumber* a);

/// -1, 0 or 1 as a is below, equal to or above b; `ignoreSign` compares magnitudes. Zeros are equal
/// whatever their signs.
int RationalCompare(const RationalNumber* a, const RationalNumber* b, bool ignoreSign);

/// Compares a with k, or -k if `negative`.
int RationalCompareSmall(const RationalNumber* a, uint64_t k, bool negative);

/// *out = a as an unsigned 64-bit number; false and 0 when it is none, or not by `flags`, which are
/// bits of IntegerFlags. A zero, also one that is left of a fraction, is never negative.
bool RationalToUnsigned(uint64_t* out, const RationalNumber* a, uint32_t flags);

/// Writes q and returns true when q is an integer in the signed 64-bit range; else writes 0.
bool RationalToSigned(int64_t* out, const RationalNumber* q);

}  // namespace tallymere
