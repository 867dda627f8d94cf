#include "functions/guard_digits.h"

#include <algorithm>

namespace tallymere {

namespace {

// `least`, and from an exponent of `from` on exponent + more.
int64_t GuardDigitsByExponent(const RealNumber* x, int64_t least, int64_t from, int64_t more) {
    const int64_t exponent = RealExponent(x);
    return exponent < from ? least : std::min(exponent + more, MaxGuardDigits);
}

}  // namespace

int64_t ArgumentGuardDigits(const RealNumber* x) {
    return GuardDigitsByExponent(x, 4, 2, 3);
}

int64_t PowerGuardDigits(const RealNumber* y) {
    return GuardDigitsByExponent(y, 5, 0, 5);
}

int64_t FactorialGuardDigits(const RealNumber* x) {
    return GuardDigitsByExponent(x, 7, 0, 7);
}

int64_t IntegerPowerGuardDigits(int64_t n) {
    const uint64_t magnitude = IntegerMagnitude(n);
    return magnitude < 100 ? 3 : std::min(DigitCount(magnitude) + 1, DigitsPerLimb);
}

}  // namespace tallymere
