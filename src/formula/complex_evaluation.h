// What formulas need of complex values. A value is the record of the real part with the record of
// the imaginary part behind it.
#pragma once

#include <cstdint>

namespace tallymere {

/// value = i.
void ComplexSetImaginaryUnit(uint64_t* value);

/// value = value * i when its imaginary part is a zero of either sign: the real part becomes the
/// imaginary part, and the real part +0. False, and nothing done, otherwise.
bool ComplexTurnImaginary(uint64_t* value);

}  // namespace tallymere
