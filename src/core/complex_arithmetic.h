// Arithmetic of complex numbers, from operations on their parts by the school formulas. Every
// intermediate value is rounded to the precision in force.
//
// Codes are those of the operations on the parts. CalcErrorComplexNotAllowed is noted where an
// operation needs an order or an integer and a value is not real. The sign of a zero part follows
// from the sums and products that make it, unless a function says otherwise. Operands must be
// well-formed. functions/error_bounds.h has the error bounds of products, quotients and
// reciprocals; sums and differences are those of RealAdd, part by part.
#pragma once

#include "core/complex_number.h"
#include "core/real_rounding.h"

namespace tallymere {

/// For two real values -1, 0 or 1, as RealCompare of the real parts; ignoreSign compares their
/// magnitudes. Other values have no order: the result is 0 if both parts are equal and 1 if not.
/// With ignoreSign it is then 1 even for equal values, and CalcErrorComplexNotAllowed is noted.
int ComplexCompare(const ComplexNumber* a, const ComplexNumber* b, bool ignoreSign = false);

/// dest = a + b, part by part.
void ComplexAdd(ComplexNumber* dest, const ComplexNumber* a, const ComplexNumber* b);

/// dest = a - b, part by part.
void ComplexSub(ComplexNumber* dest, const ComplexNumber* a, const ComplexNumber* b);

/// dest = a * b: (x + iy)(c + id) = (xc - yd) + i(xd + yc). The product of two real values is real.
void ComplexMul(ComplexNumber* dest, const ComplexNumber* a, const ComplexNumber* b);

/// dest = z * k, part by part. A real z gives a real product.
void ComplexMulUint(ComplexNumber* dest, const ComplexNumber* z, uint64_t k);

/// dest = a / b: (x + iy) / (c + id) = ((xc + yd) + i(yc - xd)) / (c^2 + d^2). A real b divides the
/// two parts one by one, with the codes of RealDiv: for b = 0 a finite part that is not 0 gives an
/// infinity and CalcErrorOverflow. The quotient of two real values is real.
void ComplexDiv(ComplexNumber* dest, const ComplexNumber* a, const ComplexNumber* b);

/// dest = z / k, part by part. A real z gives a real quotient.
void ComplexDivUint(ComplexNumber* dest, const ComplexNumber* z, uint64_t k);

/// dest = 1 / z: (x - iy) / (x^2 + y^2). The reciprocal of a real value is real.
void ComplexReciprocal(ComplexNumber* dest, const ComplexNumber* z);

/// As RealDivMod for two real values; either output may be null, and either may be an operand.
/// Otherwise CalcErrorComplexNotAllowed and NaN in what is wanted.
void ComplexDivMod(ComplexNumber* quotient, ComplexNumber* remainder, const ComplexNumber* a,
                   const ComplexNumber* b);

/// Rounds each part to d significant digits as RealRoundDigitsAny; a d below 1 gives NaN and
/// CalcErrorUndefined.
void ComplexRoundDigits(ComplexNumber* dest, const ComplexNumber* z, int64_t d);

/// dest = function(a, b) for real values, with +0 as imaginary part. Otherwise the function does
/// not run, and dest is NaN with CalcErrorComplexNotAllowed.
void ComplexRealOnly(ComplexNumber* dest, const ComplexNumber* a, const ComplexNumber* b,
                     RealRoundedBinary function);

/// Writes src, a value of sourceDigits digits, to dest with `digits` digits, both parts rounded;
/// dest must have room for that layout and may be src. Digits outside 1 to MaxPrecisionDigits set
/// CalcErrorBadParameter and leave dest as it is.
void ComplexConvertPrecision(ComplexNumber* dest, int64_t digits, const ComplexNumber* src,
                             int64_t sourceDigits);

/// Writes |z| and returns true when z is a real integer whose magnitude fits 64 bits; else writes
/// 0.
bool ComplexToUint(uint64_t* out, const ComplexNumber* z);

/// Writes z and returns true when z is a real integer in the signed 64-bit range; else writes 0.
bool ComplexToInt(int64_t* out, const ComplexNumber* z);

}  // namespace tallymere
