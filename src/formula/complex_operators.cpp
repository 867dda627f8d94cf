#include "formula/complex_operators.h"

#include "core/complex_arithmetic.h"
#include "core/real_integer.h"
#include "formula/real_power.h"
#include "functions/complex_powers.h"

namespace tallymere {

namespace {

// a = z * k, negated if `negative`; z may be a.
void MultiplyBySmall(ComplexNumber* a, const ComplexNumber* z, uint64_t k, bool negative) {
    ComplexMulUint(a, z, k);
    if (negative) {
        ComplexNegate(a);
    }
}

bool IsNegative(const ComplexNumber* z) {
    return RealSign(RealPart(z)) != 0;
}

}  // namespace

void ComplexMultiplyBy(ComplexNumber* a, const ComplexNumber* b) {
    uint64_t k = 0;
    if (ComplexToUint(&k, a)) {
        MultiplyBySmall(a, b, k, IsNegative(a));
    } else if (ComplexToUint(&k, b)) {
        MultiplyBySmall(a, a, k, IsNegative(b));
    } else {
        ComplexMul(a, a, b);
    }
}

void ComplexDivideBy(ComplexNumber* a, const ComplexNumber* b) {
    uint64_t k = 0;
    if (!ComplexToUint(&k, b)) {
        ComplexDiv(a, a, b);
        return;
    }
    ComplexDivUint(a, a, k);
    if (IsNegative(b)) {
        ComplexNegate(a);
    }
}

void ComplexRaiseTo(ComplexNumber* a, const ComplexNumber* b) {
    if (!ComplexIsReal(b)) {
        ComplexSetNaN(a, CalcErrorComplexNotAllowed);
    } else if (ComplexIsReal(a)) {
        RealApplyPower(RealPart(a), RealPart(b));
        ComplexClearImaginaryPart(a);
    } else {
        ComplexPower(a, a, b);
    }
}

void ComplexReduceModulo(ComplexNumber* a, const ComplexNumber* b) {
    ComplexDivMod(nullptr, a, a, b);
}

void ComplexSetImaginaryUnit(ComplexNumber* z) {
    RealSetZero(RealPart(z), 0);
    RealSetOne(ImaginaryPart(z));
}

bool ComplexTurnImaginary(ComplexNumber* z) {
    if (!ComplexIsReal(z)) {
        return false;
    }
    RealCopy(ImaginaryPart(z), RealPart(z));
    RealSetZero(RealPart(z), 0);
    return true;
}

}  // namespace tallymere
