// Powers, roots and logarithms of fractions: exact, or refused.
//
// A failure gives +0/1: code 200 for a power that does not fit, 202 for a negative power or a
// root of negative degree of 0, 203 for everything else. A code that was noted before is kept.
#pragma once

#include "exact/rational_number.h"

namespace tallymere {

/// dest = base^e; 0^0 is 1. For e = p / q that is no integer and a base n / d of at least 0 the
/// result is r^p / s^p or its reciprocal, not in lowest terms, with r the n-th and s the d-th root
/// of q, both exact; that is not the power, and callers turn to real numbers for its value. The
/// caller sees to bases and exponents that have a faster way.
void RationalPower(RationalNumber* dest, const RationalNumber* base, const RationalNumber* e);

/// dest = base^e, numerator and denominator each raised to |e|.
void RationalPowerSmall(RationalNumber* dest, const RationalNumber* base, int64_t e);

/// dest = 2^e and 10^e for an integer e; a negative e gives the reciprocal.
void RationalPowerOfTwo(RationalNumber* dest, const RationalNumber* e);
void RationalPowerOfTen(RationalNumber* dest, const RationalNumber* e);

/// dest = the square root of x >= 0 whose parts are both squares; a zero keeps its sign.
void RationalSquareRoot(RationalNumber* dest, const RationalNumber* x);

/// dest = the cube root of x, whose parts are both cubes; the sign stays.
void RationalCubeRoot(RationalNumber* dest, const RationalNumber* x);

/// dest = the n-th root of x for n = p / q other than 0: the p-th roots of both parts, which must
/// be exact, raised to q. The sign of x stays; a negative x asks for an odd integer n.
void RationalRoot(RationalNumber* dest, const RationalNumber* n, const RationalNumber* x);

/// dest = the logarithm of x to an integer base of at least 2: for x or 1 / x an exact power.
void RationalLog(RationalNumber* dest, const RationalNumber* base, const RationalNumber* x);

}  // namespace tallymere
