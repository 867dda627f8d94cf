// The absolute value of a complex number.
#pragma once

#include "core/complex_number.h"

namespace tallymere {

/// dest = |z|, the hypotenuse of the parts with 3 guard digits, rounded, as real part; the
/// imaginary part is +0. Within UsualErrorBound (functions/error_bounds.h).
void ComplexAbs(ComplexNumber* dest, const ComplexNumber* z);

}  // namespace tallymere
