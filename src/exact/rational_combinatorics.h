// Factorial, binomial coefficients, divisors and multiples of fractions.
//
// A failure gives +0/1 and code 203 unless another is stated; a code that was noted before is kept.
#pragma once

#include "exact/rational_number.h"

namespace tallymere {

/// dest = n! for an integer n without a sign; a minus zero has one. Code 200 when it does not fit.
void RationalFactorial(RationalNumber* dest, const RationalNumber* n);

/// dest = n over k, or with `falling` n (n - 1) ... (n - k + 1), for any n and an integer k >= 0 of
/// one limb; for integers n >= 0 as BigUintBinomial. Zeros count as such whatever their signs.
/// Code 200 when one of the products on the way does not fit. Asked to stop, code 207: polled once
/// for each factor.
void RationalBinomial(RationalNumber* dest, const RationalNumber* n, const RationalNumber* k,
                      bool falling);

/// dest = the greatest common divisor of two positive integers.
void RationalGcd(RationalNumber* dest, const RationalNumber* a, const RationalNumber* b);

/// dest = the least common multiple of two positive integers. Code 200 when it does not fit.
void RationalLcm(RationalNumber* dest, const RationalNumber* a, const RationalNumber* b);

}  // namespace tallymere
