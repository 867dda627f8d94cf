// Moving the exponents of a polynomial's coefficients near to 0, so that nothing on the way to its
// roots leaves the range of exponents.
#pragma once

#include "algebra/polynomial.h"

namespace tallymere {

/// Multiplies x by a power of ten, and the polynomial, of degree 1 or more, by another one: the
/// exponents of the highest and the lowest coefficient, which must not be 0, become less than the
/// degree. Returns false when a coefficient is then above 10^ScaledExponents; one below
/// 10^-ScaledExponents becomes 0. The roots of the polynomial that was are those of the new one
/// times 10^*order.
bool ScaleExponents(Polynomial& polynomial, int64_t* order);
inline constexpr int64_t ScaledExponents = int64_t{1} << 55;

/// Multiplies a number in the layout in force by 10^order. Beyond the range of exponents it becomes
/// what RealSetOverflow or RealSetUnderflow makes of it.
void ScaleNumber(RealNumber* x, int64_t order);

}  // namespace tallymere
