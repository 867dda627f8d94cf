// The absolute value of a complex number. Stands at the top of core/, as the one operation on the
// record that needs an elementary function.
#pragma once

#include "core/complex_number.h"

namespace tallymere {

/// dest = |z|, the hypotenuse of the parts with 3 guard digits, rounded, as real part; the
/// imaginary part is +0.
void ComplexAbs(ComplexNumber* dest, const ComplexNumber* z);

}  // namespace tallymere
