// Powers, roots and logarithms of fractions. The result is exact, or the operation is refused.
//
// A failure gives +0/1. CalcErrorOverflow: a power does not fit. CalcErrorExactDivisionByZero: 0 to
// a negative power, or a root of 0 of negative degree. CalcErrorUndefined: everything else. A code
// that was noted before is kept.
#pragma once

#include "exact/rational_number.h"

namespace tallymere {

/// dest = base^e; 0^0 is 1. For an integer e numerator and denominator are both raised to |e|.
///
/// An exponent e = p / q that is no integer has an odd meaning, which is kept on purpose. For a
/// base n / d of at least 0 the result is r^p / s^p or its reciprocal, where r is the n-th root of
/// q and s the d-th root of q, both exact. That is not the power, and it is not in lowest terms:
/// 1^(1/2) is 2/2. Callers that want the true value turn to real numbers.
///
/// Bases 2 and 10 and small exponents have faster routines below; the caller chooses them.
void RationalPower(RationalNumber* dest, const RationalNumber* base, const RationalNumber* e);

/// dest = base^e. Numerator and denominator are each raised to |e|.
void RationalPowerSmall(RationalNumber* dest, const RationalNumber* base, int64_t e);

/// dest = 2^e and dest = 10^e for an integer e. A negative e gives the reciprocal.
void RationalPowerOfTwo(RationalNumber* dest, const RationalNumber* e);
void RationalPowerOfTen(RationalNumber* dest, const RationalNumber* e);

/// dest = the square root of x >= 0. Both parts of x must be squares. A zero keeps its sign.
void RationalSquareRoot(RationalNumber* dest, const RationalNumber* x);

/// dest = the cube root of x. Both parts of x must be cubes. The sign stays.
void RationalCubeRoot(RationalNumber* dest, const RationalNumber* x);

/// dest = the n-th root of x for n = p / q other than 0: the p-th roots of both parts of x, which
/// must be exact, raised to q. A negative n gives the reciprocal. The sign of x stays. A negative x
/// needs an odd integer n.
void RationalRoot(RationalNumber* dest, const RationalNumber* n, const RationalNumber* x);

/// dest = the logarithm of x to an integer base of at least 2. x or 1 / x must be a power of the
/// base.
void RationalLog(RationalNumber* dest, const RationalNumber* base, const RationalNumber* x);

}  // namespace tallymere
