#include "functions/complex_modulus.h"

#include "core/contract.h"
#include "functions/hypotenuse.h"

namespace tallymere {

void ComplexAbs(ComplexNumber* dest, const ComplexNumber* z) {
    TALLYMERE_REQUIRE(ComplexIsWellFormed(z));
    TALLYMERE_REQUIRE(ComplexSameOrApart(dest, z));
    RealHypotRounded(RealPart(dest), RealPart(z), ImaginaryPart(z));
    ComplexClearImaginaryPart(dest);
}

}  // namespace tallymere
