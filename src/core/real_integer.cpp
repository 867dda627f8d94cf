#include "core/real_integer.h"

#include "core/contract.h"
#include "core/limb_tools.h"
#include "core/real_rounding.h"

namespace tallymere {

namespace {

// A magnitude of 10^19 or more but below 10^20, from its 20 leading digits.
bool ReadTwentyDigits(uint64_t* out, const Limb* limbs) {
    const int64_t n = numberContext.realLimbs;
    const int64_t t = numberContext.topLimbDigits;
    const uint64_t high = RealLeadingDigits(limbs, DigitsPerLimb);
    // The first limb holds t of the 20 digits, the second the other 20 - t, which are 1 to 19.
    const Limb next = n > 1 ? limbs[1] : 0;
    const uint64_t lastDigit = DivideByPowerOfTen(next, t - 1).quotient % 10;
    const Wide value = wide::Add(wide::Multiply(high, 10), {0, lastDigit});
    *out = value.low;
    return value.high == 0;
}

}  // namespace

Limb RealFromUint(RealNumber* dest, uint64_t k) {
    RealSetZero(dest, 0);
    if (k == 0) {
        return 0;
    }
    const int64_t t = numberContext.topLimbDigits;
    const int64_t digits = DigitCount(k);
    Limb* limbs = RealLimbs(dest);
    dest->header = MakeHeader(digits - 1, 0);
    if (digits <= t) {
        limbs[0] = k * PowerOfTen(t - digits);
        return 0;
    }
    const LimbQuotient parts = DivideByPowerOfTen(k, digits - t);
    const Limb rest = parts.remainder * PowerOfTen(DigitsPerLimb - (digits - t));
    limbs[0] = parts.quotient;
    if (numberContext.realLimbs == 1) {
        return rest;
    }
    limbs[1] = rest;
    return 0;
}

void RealFromInt(RealNumber* dest, int64_t k) {
    RealRound(dest, RealFromUint(dest, IntegerMagnitude(k)));
    RealSetSign(dest, k < 0 ? 1 : 0);
}

bool RealToUint(uint64_t* out, const RealNumber* x, uint32_t flags) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE((flags & ~uint32_t{AllowFraction | AllowNegative}) == 0);
    *out = 0;
    if (RealIsSpecial(x)) {
        return RealIsZero(x);
    }
    if (RealSign(x) != 0 && (flags & AllowNegative) == 0) {
        return false;
    }
    const int64_t exponent = RealExponent(x);
    if (exponent > DigitsPerLimb || ((flags & AllowFraction) == 0 && !RealIsInteger(x))) {
        return false;
    }
    if (exponent < 0) {
        return true;
    }
    if (exponent < DigitsPerLimb) {
        *out = RealLeadingDigits(RealLimbs(x), exponent + 1);
        return true;
    }
    if (!ReadTwentyDigits(out, RealLimbs(x))) {
        *out = 0;
        return false;
    }
    return true;
}

bool RealToInt(int64_t* out, const RealNumber* x, uint32_t flags) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE((flags & ~uint32_t{AllowFraction | AllowNegative}) == 0);
    *out = 0;
    uint64_t magnitude = 0;
    if (!RealToUint(&magnitude, x, flags | AllowNegative)) {
        return false;
    }
    const bool negative = RealSign(x) != 0;
    const uint64_t limit = static_cast<uint64_t>(INT64_MAX) + (negative ? 1 : 0);
    if (magnitude > limit) {
        return false;
    }
    *out = static_cast<int64_t>(negative ? 0 - magnitude : magnitude);
    return true;
}

uint64_t RealLeadingDigits(const Limb* limbs, int64_t k) {
    TALLYMERE_REQUIRE(k >= 1 && k <= DigitsPerLimb && FirstLimbIsNormal(limbs));
    const int64_t t = numberContext.topLimbDigits;
    if (k <= t) {
        return DivideByPowerOfTen(limbs[0], t - k).quotient;
    }
    const Limb next = numberContext.realLimbs > 1 ? limbs[1] : 0;
    return limbs[0] * PowerOfTen(k - t) +
           DivideByPowerOfTen(next, DigitsPerLimb - (k - t)).quotient;
}

void RealSetLeading(Limb* limbs, uint64_t v) {
    TALLYMERE_REQUIRE(v >= PowerOfTen(DigitsPerLimb - 1) && v < LimbBase);
    const int64_t n = numberContext.realLimbs;
    const int64_t t = numberContext.topLimbDigits;
    LimbsClear(limbs, n);
    const LimbQuotient parts = DivideByPowerOfTen(v, DigitsPerLimb - t);
    limbs[0] = parts.quotient;
    if (n > 1) {
        limbs[1] = parts.remainder * PowerOfTen(t);
    }
}

}  // namespace tallymere
