// Powers of complex numbers with real exponents. The error bound is ComplexPowerIntErrorBound of
// functions/error_bounds.h for exponents up to 12, and grows with the exponent.
#pragma once

#include "core/complex_number.h"

namespace tallymere {

/// dest = z^n, by rounded products right to left over the bits of |n|, without guard digits, and
/// the reciprocal for n < 0. A real z, and any z for n = 0, goes by RealPowerIntRounded of the real
/// part, so that 0^-1 is NaN with CalcErrorUndefined and i^0 is 1.
void ComplexPowerInt(ComplexNumber* dest, const ComplexNumber* z, int64_t n);

/// dest = z^y. For two real values this is RealPowerRounded of the real parts. A y that is not real
/// gives NaN and CalcErrorComplexNotAllowed. For any other z the exponent must be an integer of the
/// signed 64-bit range, else NaN and CalcErrorUndefined, and the rest is done by ComplexPowerInt.
void ComplexPower(ComplexNumber* dest, const ComplexNumber* z, const ComplexNumber* y);

}  // namespace tallymere
