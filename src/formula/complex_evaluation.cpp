#include "formula/complex_evaluation.h"

#include "core/real_number.h"

namespace tallymere {

void ComplexSetImaginaryUnit(uint64_t* value) {
    RealSetZero(RealAt(value), 0);
    RealSetOne(RealAt(value + RealWords()));
}

bool ComplexTurnImaginary(uint64_t* value) {
    RealNumber* realPart = RealAt(value);
    RealNumber* imaginaryPart = RealAt(value + RealWords());
    if (!RealIsZero(imaginaryPart)) {
        return false;
    }
    RealCopy(imaginaryPart, realPart);
    RealSetZero(realPart, 0);
    return true;
}

}  // namespace tallymere
