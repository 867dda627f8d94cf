#include "functions/complex_modulus.h"

#include "functions/hypotenuse.h"

namespace tallymere {

void ComplexAbs(ComplexNumber* dest, const ComplexNumber* z) {
    RealHypotRounded(RealPart(dest), RealPart(z), ImaginaryPart(z));
    ComplexClearImaginaryPart(dest);
}

}  // namespace tallymere
