#include "functions/guard_digits.h"

#include <algorithm>

namespace tallymere {

int64_t ArgumentGuardDigits(const RealNumber* x) {
    const int64_t exponent = RealExponent(x);
    return exponent < 2 ? 4 : std::min(exponent, MaxGuardDigits - 3) + 3;
}

int64_t PowerGuardDigits(const RealNumber* y) {
    const int64_t exponent = RealExponent(y);
    return exponent < 0 ? 5 : std::min(exponent, MaxGuardDigits - 5) + 5;
}

int64_t IntegerPowerGuardDigits(int64_t n) {
    const uint64_t magnitude = IntegerMagnitude(n);
    return magnitude < 100 ? 3 : std::min(DigitCount(magnitude) + 1, DigitsPerLimb);
}

}  // namespace tallymere
