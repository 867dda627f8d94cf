// Powers, roots and logarithms of fractions: exact, or refused.
//
// A failure gives +0/1 and code 203 unless another is stated; a code that was noted before is kept.
#pragma once

#include "exact/rational_number.h"

namespace tallymere {

/// dest = base^e. The caller sees to bases and exponents that have a faster way.
void RationalPower(RationalNumber* dest, const RationalNumber* base, const RationalNumber* e);

/// dest = base^e, numerator and denominator each raised to |e|.
void RationalPowerSmall(RationalNumber* dest, const RationalNumber* base, int64_t e);

/// dest = 2^e and 10^e for an integer e; a negative e gives the reciprocal.
void RationalPowerOfTwo(RationalNumber* dest, const RationalNumber* e);
void RationalPowerOfTen(RationalNumber* dest, const RationalNumber* e);

/// dest = the square root of x >= 0 whose parts are both squares.
void RationalSquareRoot(RationalNumber* dest, const RationalNumber* x);

/// dest = the cube root of x, whose parts are both cubes; the sign stays.
void RationalCubeRoot(RationalNumber* dest, const RationalNumber* x);

/// dest = the n-th root of x, n a fraction other than 0.
void RationalRoot(RationalNumber* dest, const RationalNumber* n, const RationalNumber* x);

/// dest = the logarithm of x to an integer base of at least 2: for x or 1 / x an exact power.
void RationalLog(RationalNumber* dest, const RationalNumber* base, const RationalNumber* x);

}  // namespace tallymere
