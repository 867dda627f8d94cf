// Factorial, binomial coefficients, divisors and multiples of fractions.
//
// A failure gives +0/1, and CalcErrorUndefined unless another code is stated. A code that was noted
// before is kept.
#pragma once

#include "exact/rational_number.h"

namespace tallymere {

/// dest = n! for an integer n without a sign. A zero with a sign is refused too. CalcErrorOverflow
/// when it does not fit.
void RationalFactorial(RationalNumber* dest, const RationalNumber* n);

/// dest = n over k, or n (n - 1) ... (n - k + 1) when `falling` is true. n is any fraction; k is an
/// integer from 0 to 2^64 - 1. The sign of a zero does not matter.
///
/// Two integers n, k >= 0 are calculated by BigUintBinomial. CalcErrorOverflow when a product on
/// the way does not fit. The stop request is polled once for each factor; it gives
/// CalcErrorCancelled.
void RationalBinomial(RationalNumber* dest, const RationalNumber* n, const RationalNumber* k,
                      bool falling);

/// dest = the greatest common divisor of two positive integers.
void RationalGcd(RationalNumber* dest, const RationalNumber* a, const RationalNumber* b);

/// dest = the least common multiple of two positive integers. CalcErrorOverflow when it does not
/// fit.
void RationalLcm(RationalNumber* dest, const RationalNumber* a, const RationalNumber* b);

}  // namespace tallymere
