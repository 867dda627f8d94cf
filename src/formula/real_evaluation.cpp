#include "formula/real_evaluation.h"

#include <algorithm>

#include "core/real_integer.h"
#include "core/real_rounding.h"
#include "formula/formula_token.h"

namespace tallymere {

void RealApplyFunction1(uint32_t functionId, RealNumber* dest, const RealNumber* x) {
    switch (functionId) {
        case FunctionAbs:
            RealCopy(dest, x);
            RealSetSign(dest, 0);
            break;
        case FunctionTrunc:
            RealIntegerPart(dest, x);
            break;
        case FunctionFrac:
            RealFractionPart(dest, x);
            break;
        case FunctionRound:
            RealRoundToInteger(dest, x);
            break;
        default:
            RealSetNaN(dest, CalcErrorUnknownType);
    }
}

void RealRoundToInteger(RealNumber* dest, const RealNumber* x) {
    constexpr int64_t maxDigits = (int64_t{1} << 31) - 1;
    const int64_t exponent = RealExponent(x);
    const uint64_t sign = RealSign(x);
    if (RealIsSpecial(x)) {
        RealCopy(dest, x);
    } else if (exponent >= 0) {
        RealRoundDigits(dest, x, std::min(exponent + 1, maxDigits));
    } else if (exponent == -1 && RealLeadingDigits(RealLimbs(x), 1) >= 5) {
        RealSetOne(dest);
        RealSetSign(dest, sign);
    } else {
        RealSetZero(dest, sign);
    }
}

}  // namespace tallymere
