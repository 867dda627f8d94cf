#include "support/mpfr_oracle.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "support/real_testing.h"

namespace tallymere::testing_support {

namespace {

constexpr double BitsPerDigit = 3.3219280948873626;

// Digits below the last place of a result that decide how it compares.
constexpr int64_t FineDigits = 20;

// Powers of ten up to this one are kept as integers.
constexpr int64_t LargestExactPower = 50'000;

// x * 10^k.
void ScaleByPowerOfTen(Float& x, int64_t k) {
    const int64_t magnitude = k < 0 ? -k : k;
    if (magnitude <= LargestExactPower) {
        const Integer& power = PowerOfTenInteger(magnitude);
        (k < 0 ? mpfr_div_z : mpfr_mul_z)(x, x, power, MPFR_RNDN);
        return;
    }
    Float power(0);
    mpfr_set_prec(power, mpfr_get_prec(x));
    mpfr_ui_pow_ui(power, 10, static_cast<unsigned long>(magnitude), MPFR_RNDN);
    (k < 0 ? mpfr_div : mpfr_mul)(x, x, power, MPFR_RNDN);
}

// The magnitude of a value as an integer of p + fine digits, and its exponent.
struct ScaledMagnitude {
    Integer units;
    int64_t exponent;
};

ScaledMagnitude MagnitudeOf(const FunctionValue& exact, int64_t fine) {
    const int64_t p = numberContext.precisionDigits;
    int64_t exponent = ExponentOf(exact.value);
    Float scaled = exact.value;
    mpfr_abs(scaled, scaled, MPFR_RNDN);
    ScaledMagnitude result;
    ScaleByPowerOfTen(scaled, p - 1 + fine - exponent);
    mpfr_get_z(result.units, scaled, MPFR_RNDN);
    if (mpz_cmp(result.units, PowerOfTenInteger(p + fine)) >= 0) {
        exponent++;
        ScaleByPowerOfTen(scaled, -1);
        mpfr_get_z(result.units, scaled, MPFR_RNDN);
    }
    result.exponent = exponent + exact.scale;
    return result;
}

// True when units below 10^fine lie so near to one half that the error of the value could decide.
bool IsNearTie(const Integer& units, int64_t fine) {
    Integer rest;
    mpz_fdiv_r(rest, units, PowerOfTenInteger(fine));
    mpz_mul_ui(rest, rest, 2);
    mpz_sub(rest, rest, PowerOfTenInteger(fine));
    return mpz_cmpabs_ui(rest, 20) <= 0;
}

// log10 of the magnitude of a non-zero integer.
double LogarithmOfInteger(const Integer& value) {
    long exponent = 0;
    const double fraction = mpz_get_d_2exp(&exponent, value);
    return std::log10(std::fabs(fraction)) + static_cast<double>(exponent) / BitsPerDigit;
}

Deviation CompareFinite(const RealNumber* result, const FunctionValue& exact,
                        const ScaledMagnitude& magnitude, int64_t fine) {
    const int64_t p = numberContext.precisionDigits;
    Deviation deviation;
    deviation.exponent = magnitude.exponent;
    deviation.ulps = std::numeric_limits<double>::infinity();
    deviation.logUlps = deviation.ulps;
    deviation.correctlyRounded = false;
    if (!RealIsWellFormed(result) || RealIsInfinite(result) || RealIsNaN(result)) {
        return deviation;
    }
    // Result and value in units of 10^unit ulp; a result that is far below the value is 0.
    Integer found;
    Integer value = magnitude.units;
    int64_t unit = -fine;
    if (!RealIsZero(result)) {
        const int64_t distance = RealExponent(result) - magnitude.exponent;
        if (distance > 20 * p + 1000) {
            return deviation;
        }
        if (distance >= -p - fine) {
            ReadMantissa(found, result);
            const int64_t shift = distance + fine;
            Integer& scaled = shift >= 0 ? found : value;
            mpz_mul(scaled, scaled, PowerOfTenInteger(std::llabs(shift)));
            unit = std::min(unit, distance);
        }
    }
    const bool negative = mpfr_sgn(static_cast<mpfr_srcptr>(exact.value)) < 0;
    if ((RealSign(result) != 0) != negative) {
        mpz_neg(found, found);
    }
    Integer difference;
    mpz_sub(difference, found, value);
    if (difference.Sign() == 0) {
        deviation.ulps = 0;
    } else {
        deviation.logUlps = LogarithmOfInteger(difference) + static_cast<double>(unit);
        deviation.ulps = std::pow(10.0, deviation.logUlps);
    }
    if (unit == -fine) {
        Integer half = PowerOfTenInteger(fine);
        mpz_fdiv_q_2exp(half, half, 1);
        mpz_add(value, value, half);
        mpz_fdiv_q(value, value, PowerOfTenInteger(fine));
        mpz_mul(value, value, PowerOfTenInteger(fine));
        deviation.correctlyRounded = mpz_cmp(value, found) == 0;
    }
    return deviation;
}

}  // namespace

Float::Float(int64_t digits) {
    [[maybe_unused]] static const bool widestRange =
        mpfr_set_emin(mpfr_get_emin_min()) == 0 && mpfr_set_emax(mpfr_get_emax_max()) == 0;
    mpfr_init2(value_, static_cast<mpfr_prec_t>(BitsPerDigit * static_cast<double>(digits)) + 32);
    mpfr_set_zero(value_, 1);
}

Float::Float(const Float& other) {
    mpfr_init2(value_, mpfr_get_prec(other.value_));
    mpfr_set(value_, other.value_, MPFR_RNDN);
}

Float& Float::operator=(const Float& other) {
    if (this != &other) {
        mpfr_set_prec(value_, mpfr_get_prec(other.value_));
        mpfr_set(value_, other.value_, MPFR_RNDN);
    }
    return *this;
}

int64_t ExponentOf(const Float& x) {
    // log10(2) * 2^64, rounded down; the quotient is rounded down as well.
    constexpr __int128 LogOfTwo = 5'553'023'288'523'357'132;
    return static_cast<int64_t>(((mpfr_get_exp(static_cast<mpfr_srcptr>(x)) - 1) * LogOfTwo) >> 64);
}

DecimalValue DecimalOf(const RealNumber* x) {
    DecimalValue value;
    value.digits = numberContext.precisionDigits;
    if (RealIsZero(x)) {
        return value;
    }
    ReadMantissa(value.mantissa, x);
    if (RealSign(x) != 0) {
        mpz_neg(value.mantissa, value.mantissa);
    }
    value.exponent = RealExponent(x);
    return value;
}

void RealFromDecimal(RealNumber* dest, const DecimalValue& value) {
    std::string text(mpz_sizeinbase(value.mantissa, 10) + 2, '\0');
    mpz_get_str(text.data(), 10, value.mantissa);
    text.resize(text.find('\0'));
    RealFromPlainText(dest, text + "e" + std::to_string(value.exponent - value.digits + 1));
}

DecimalValue DecimalNear(const Float& x) {
    DecimalValue value;
    value.digits = numberContext.precisionDigits;
    if (mpfr_zero_p(static_cast<mpfr_srcptr>(x))) {
        return value;
    }
    const ScaledMagnitude magnitude = MagnitudeOf({x}, 0);
    value.mantissa = magnitude.units;
    value.exponent = magnitude.exponent;
    if (mpfr_sgn(static_cast<mpfr_srcptr>(x)) < 0) {
        mpz_neg(value.mantissa, value.mantissa);
    }
    return value;
}

DecimalValue Neighbour(const DecimalValue& x, int64_t steps) {
    DecimalValue moved = x;
    (steps < 0 ? mpz_sub_ui : mpz_add_ui)(moved.mantissa, moved.mantissa,
                                          static_cast<unsigned long>(std::llabs(steps)));
    if (mpz_cmpabs(moved.mantissa, PowerOfTenInteger(x.digits)) >= 0) {
        mpz_tdiv_q_ui(moved.mantissa, moved.mantissa, 10);
        moved.exponent++;
    }
    while (mpz_sgn(static_cast<mpz_srcptr>(moved.mantissa)) != 0 &&
           mpz_cmpabs(moved.mantissa, PowerOfTenInteger(x.digits - 1)) < 0) {
        mpz_mul_ui(moved.mantissa, moved.mantissa, 10);
        moved.exponent--;
    }
    return moved;
}

Float FloatOf(const DecimalValue& x, int64_t digits) {
    // Powers of ten with exponents of 19 digits lose as many.
    Float value(std::max(digits, x.digits) + 20);
    mpfr_set_z(value, x.mantissa, MPFR_RNDN);
    ScaleByPowerOfTen(value, x.exponent - x.digits + 1);
    return value;
}

Float SignificandOf(const DecimalValue& x, int64_t digits) {
    DecimalValue significand = x;
    significand.exponent = 0;
    return FloatOf(significand, digits);
}

Deviation CompareResult(const RealNumber* result, const ExactComputation& exact) {
    const int64_t p = numberContext.precisionDigits;
    int64_t fine = FineDigits;
    int64_t spare = 30;
    for (;;) {
        const FunctionValue value = exact(p + spare);
        if (mpfr_nan_p(static_cast<mpfr_srcptr>(value.value)) ||
            mpfr_inf_p(static_cast<mpfr_srcptr>(value.value))) {
            Deviation deviation;
            deviation.inDomain = false;
            return deviation;
        }
        if (mpfr_zero_p(static_cast<mpfr_srcptr>(value.value))) {
            Deviation deviation;
            deviation.isZero = true;
            deviation.correctlyRounded = RealIsZero(result);
            if (!deviation.correctlyRounded) {
                deviation.ulps = std::numeric_limits<double>::infinity();
            }
            deviation.logUlps = deviation.ulps;
            if (!RealIsSpecial(result)) {
                deviation.exponent = RealExponent(result);
                deviation.logUlps = static_cast<double>(p);
            }
            return deviation;
        }
        if (spare < fine + 5 + value.lost) {
            spare = fine + 10 + value.lost;
            continue;
        }
        const ScaledMagnitude magnitude = MagnitudeOf(value, fine);
        if (fine > FineDigits || !IsNearTie(magnitude.units, fine)) {
            return CompareFinite(result, value, magnitude, fine);
        }
        // A tie, or next to one as cos(10^-10) at 20 digits is: decided by many more digits.
        fine = 4 * p + 100;
        spare = fine + 10 + value.lost;
    }
}

}  // namespace tallymere::testing_support
