#include "formula/real_operators.h"

#include "core/real_div_mod.h"
#include "core/real_divide.h"
#include "core/real_integer.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"

namespace tallymere {

namespace {

// a = x * k, negated if `negative`; x may be a.
void MultiplyBySmall(RealNumber* a, const RealNumber* x, uint64_t k, bool negative) {
    RealRound(a, RealMulUint(a, x, k));
    if (negative) {
        RealNegate(a);
    }
}

}  // namespace

void RealMultiplyBy(RealNumber* a, const RealNumber* b) {
    uint64_t k = 0;
    if (RealToUint(&k, a, AllowNegative)) {
        MultiplyBySmall(a, b, k, RealSign(a) != 0);
    } else if (RealToUint(&k, b, AllowNegative)) {
        MultiplyBySmall(a, a, k, RealSign(b) != 0);
    } else {
        RealMul(a, a, b);
    }
}

void RealDivideBy(RealNumber* a, const RealNumber* b) {
    uint64_t k = 0;
    if (!RealToUint(&k, b, AllowNegative)) {
        RealDiv(a, a, b);
        return;
    }
    RealRound(a, RealDivUint(a, a, k));
    if (RealSign(b) != 0) {
        RealNegate(a);
    }
}

void RealReduceModulo(RealNumber* a, const RealNumber* b) {
    RealDivMod(nullptr, a, a, b);
}

}  // namespace tallymere
