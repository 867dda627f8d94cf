#include "formula/rational_operators.h"

#include "exact/big_uint.h"
#include "exact/rational_arithmetic.h"
#include "exact/rational_powers.h"

namespace tallymere {

namespace {

// True when q is an integer whose magnitude, which is written, fits 64 bits.
bool IsSmall(uint64_t* magnitude, const RationalNumber* q) {
    return RationalToUnsigned(magnitude, q, AllowNegative);
}

// a = routine(x, k) for a small operand of magnitude k, negated if `negative`. A failure has no
// sign.
void ApplySmall(void (*routine)(RationalNumber*, const RationalNumber*, uint64_t),
                RationalNumber* a, const RationalNumber* x, uint64_t k, bool negative) {
    CalcErrorScope scope;
    routine(a, x, k);
    if (negative && numberContext.calcError == CalcErrorNone) {
        RationalNegate(a);
    }
}

}  // namespace

void RationalAddTo(RationalNumber* a, const RationalNumber* b) {
    RationalAddSub(a, a, b, false);
}

void RationalSubtractFrom(RationalNumber* a, const RationalNumber* b) {
    RationalAddSub(a, a, b, true);
}

void RationalMultiplyBy(RationalNumber* a, const RationalNumber* b) {
    uint64_t k = 0;
    if (IsSmall(&k, a)) {
        ApplySmall(RationalMulSmall, a, b, k, RationalSign(a) != 0);
    } else if (IsSmall(&k, b)) {
        ApplySmall(RationalMulSmall, a, a, k, RationalSign(b) != 0);
    } else {
        RationalMulDiv(a, a, b, false);
    }
}

void RationalDivideBy(RationalNumber* a, const RationalNumber* b) {
    uint64_t k = 0;
    if (IsSmall(&k, b)) {
        ApplySmall(RationalDivSmall, a, a, k, RationalSign(b) != 0);
    } else {
        RationalMulDiv(a, a, b, true);
    }
}

void RationalRaiseTo(RationalNumber* a, const RationalNumber* b) {
    int64_t base = 0;  // stays 0 where a is no machine integer
    int64_t exponent = 0;
    RationalToSigned(&base, a);
    if (base == 2) {
        RationalPowerOfTwo(a, b);
    } else if (base == 10) {
        RationalPowerOfTen(a, b);
    } else if (RationalToSigned(&exponent, b)) {
        RationalPowerSmall(a, a, exponent);
    } else {
        RationalPower(a, a, b);
    }
}

void RationalReduceModulo(RationalNumber* a, const RationalNumber* b) {
    RationalDivMod(nullptr, a, a, b);
}

}  // namespace tallymere
