#include "formula/real_power.h"

#include "core/real_integer.h"
#include "functions/exponential.h"
#include "functions/powers.h"

namespace tallymere {

void RealApplyPower(RealNumber* a, const RealNumber* b) {
    int64_t base = 0;  // stays 0 where a is no machine integer
    int64_t exponent = 0;
    RealToInt(&base, a, IntegerExact);
    const bool integerExponent = RealToInt(&exponent, b, IntegerExact);
    if (base == 2) {
        if (integerExponent) {
            RealPowerOfTwoRounded(a, exponent);
        } else {
            RealExp2Rounded(a, b);
        }
    } else if (base == 10) {
        if (integerExponent) {
            RealSetOne(a);
            RealSetExponent(a, exponent);
        } else {
            RealExp10Rounded(a, b);
        }
    } else if (integerExponent) {
        RealPowerIntRounded(a, a, exponent);
    } else {
        RealPowerRounded(a, a, b);
    }
}

}  // namespace tallymere
