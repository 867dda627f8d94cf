#include "support/gmp_oracle.h"

#include <algorithm>
#include <map>

namespace tallymere::testing_support {

namespace {

constexpr uint64_t GuardBase = 10'000'000'000'000'000'000u;

// Decimal digits of a positive integer.
int64_t DigitsOf(const Integer& value) {
    const int64_t estimate = static_cast<int64_t>(mpz_sizeinbase(value, 10));
    return mpz_cmp(value, PowerOfTenInteger(estimate - 1)) < 0 ? estimate - 1 : estimate;
}

// value * 10^k, rounded down for a negative k.
void Scale(Integer& value, int64_t k) {
    if (k >= 0) {
        mpz_mul(value, value, PowerOfTenInteger(k));
    } else {
        mpz_fdiv_q(value, value, PowerOfTenInteger(-k));
    }
}

// floor(exact * 10^k).
Integer ScaledFloor(const ExactValue& exact, int64_t k) {
    const int64_t power = exact.exponent + k;
    Integer numerator = exact.numerator;
    Integer denominator = exact.denominator;
    Scale(power >= 0 ? numerator : denominator, power >= 0 ? power : -power);
    mpz_fdiv_q(numerator, numerator, denominator);
    return numerator;
}

// value * 10^unit rounded half up to p digits; value has more than p digits.
RoundedValue RoundHalfUp(Integer value, int64_t unit) {
    const int64_t p = numberContext.precisionDigits;
    const int64_t digits = DigitsOf(value);
    Integer half = PowerOfTenInteger(digits - p - 1);
    mpz_mul_ui(half, half, 5);
    mpz_add(value, value, half);
    Scale(value, p - digits);
    RoundedValue rounded{value, unit + digits - 1};
    if (mpz_cmp(rounded.mantissa, PowerOfTenInteger(p)) == 0) {
        Scale(rounded.mantissa, -1);
        rounded.exponent++;
    }
    return rounded;
}

int CompareRounded(const RoundedValue& a, const RoundedValue& b) {
    if (a.exponent != b.exponent) {
        return a.exponent < b.exponent ? -1 : 1;
    }
    return mpz_cmp(a.mantissa, b.mantissa);
}

}  // namespace

const Integer& PowerOfTenInteger(int64_t k) {
    static std::map<int64_t, Integer> powers;
    const auto [place, isNew] = powers.try_emplace(k);
    if (isNew) {
        mpz_ui_pow_ui(place->second, 10, static_cast<unsigned long>(k));
    }
    return place->second;
}

void ReadMantissa(Integer& mantissa, const RealNumber* x) {
    const uint64_t* limbs = &x->header + 1;
    const int64_t n = numberContext.realLimbs;
    if (n <= 60) {
        mpz_set_ui(mantissa, limbs[0]);
        for (int64_t i = 1; i < n; i++) {
            mpz_mul_ui(mantissa, mantissa, GuardBase);
            mpz_add_ui(mantissa, mantissa, limbs[i]);
        }
        return;
    }
    std::string digits = std::to_string(limbs[0]);
    for (int64_t i = 1; i < n; i++) {
        const std::string part = std::to_string(limbs[i]);
        digits.append(19 - part.size(), '0').append(part);
    }
    mpz_set_str(mantissa, digits.c_str(), 10);
}

AllowedResults RoundExact(const ExactValue& exact, const ErrorBounds& bounds) {
    // All digits of the value that matter and ErrorDigits below them.
    const int64_t wanted = numberContext.precisionDigits + ErrorDigits;
    const int64_t leading =
        DigitsOf(exact.numerator) - DigitsOf(exact.denominator) + exact.exponent;
    int64_t scale = wanted - leading + 1;
    Integer value = ScaledFloor(exact, scale);
    const int64_t surplus = DigitsOf(value) - wanted;
    Scale(value, -surplus);
    scale -= surplus;
    Integer least = value;
    Integer most = value;
    mpz_sub_ui(least, least, bounds.below);
    mpz_add_ui(most, most, bounds.above == 0 ? 0 : bounds.above + 1);
    return {RoundHalfUp(least, -scale), RoundHalfUp(most, -scale)};
}

bool IsAllowed(const RealNumber* x, uint64_t sign, const AllowedResults& allowed) {
    if (RealIsSpecial(x) || !RealIsWellFormed(x) || (x->header & 1) != sign) {
        return false;
    }
    RoundedValue found;
    ReadMantissa(found.mantissa, x);
    found.exponent = static_cast<int64_t>(x->header) >> 1;
    return CompareRounded(allowed.least, found) <= 0 && CompareRounded(found, allowed.most) <= 0;
}

bool IsRawWithin(const RealNumber* x, Limb guard, const ExactValue& exact, uint64_t below,
                 uint64_t above) {
    if (RealIsSpecial(x) || !RealIsWellFormed(x) || guard >= GuardBase) {
        return false;
    }
    const int64_t exponent = static_cast<int64_t>(x->header) >> 1;
    Integer raw;
    ReadMantissa(raw, x);
    mpz_mul_ui(raw, raw, GuardBase);
    mpz_add_ui(raw, raw, guard);
    const Integer floor = ScaledFloor(exact, numberContext.precisionDigits + 18 - exponent);
    mpz_sub(raw, floor, raw);
    // exact - raw < below and raw - exact <= above, both bounds being integers.
    Integer limit(above);
    mpz_neg(limit, limit);
    return mpz_cmp(raw, Integer(below)) < 0 && mpz_cmp(raw, limit) >= 0;
}

bool IsExactly(const RealNumber* x, uint64_t sign, const Integer& value, int64_t exponent) {
    if (!RealIsWellFormed(x) || (x->header & 1) != sign) {
        return false;
    }
    if (value.Sign() == 0) {
        return RealIsZero(x);
    }
    if (RealIsSpecial(x)) {
        return false;
    }
    Integer found;
    Integer expected = value;
    ReadMantissa(found, x);
    const int64_t unit = (static_cast<int64_t>(x->header) >> 1) - numberContext.precisionDigits + 1;
    Scale(unit >= exponent ? found : expected,
          unit >= exponent ? unit - exponent : exponent - unit);
    return mpz_cmp(found, expected) == 0;
}

}  // namespace tallymere::testing_support
