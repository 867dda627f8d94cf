#include "support/function_arguments_oracle.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

#include "core/real_integer.h"
#include "support/real_testing.h"

namespace tallymere::testing_support {

namespace {

// x^(numerator / 2) as a factor of `value`.
void MultiplyByHalfPower(Float& value, const char* base, int64_t numerator, int64_t digits) {
    Float factor(digits);
    mpfr_set_str(factor, base, 10, MPFR_RNDN);
    mpfr_sqrt(factor, factor, MPFR_RNDN);
    mpfr_pow_si(factor, factor, static_cast<long>(numerator), MPFR_RNDN);
    mpfr_mul(value, value, factor, MPFR_RNDN);
}

// arctan(1 / n) * numerator / 2, added to `angle`.
void AddHalfAngles(Float& angle, unsigned long n, int64_t numerator, int64_t digits) {
    Float step(digits);
    mpfr_set_ui(step, 1, MPFR_RNDN);
    mpfr_div_ui(step, step, n, MPFR_RNDN);
    mpfr_atan(step, step, MPFR_RNDN);
    mpfr_mul_si(step, step, static_cast<long>(numerator), MPFR_RNDN);
    mpfr_div_2ui(step, step, 1, MPFR_RNDN);
    mpfr_add(angle, angle, step, MPFR_RNDN);
}

// An exponent in the domain: near 0, of the size of the precision, or anywhere.
int64_t DrawExponent(RandomSource& random, const ArgumentDomain& domain, uint64_t kind) {
    const int64_t p = numberContext.precisionDigits;
    int64_t exponent = 0;
    switch (kind) {
        case 0:
            exponent = random.Between(-2, 2);
            break;
        case 1:
            exponent = random.Between(-25, 25);
            break;
        case 2:
            exponent = random.Between(1, 3) * p / 2 + random.Between(-3, 23);
            exponent = random.Below(2) == 0 ? exponent : -exponent;
            break;
        default:
            exponent = static_cast<int64_t>(
                std::pow(10.0, static_cast<double>(random.Between(0, 1700)) / 100.0));
            exponent = random.Below(2) == 0 ? exponent : -exponent;
    }
    if (exponent < domain.leastExponent || exponent > domain.greatestExponent) {
        return random.Between(std::max<int64_t>(domain.leastExponent, -5),
                              std::min<int64_t>(domain.greatestExponent, 5));
    }
    return exponent;
}

// Few digits: most of the mantissa becomes zero.
void KeepFewDigits(RandomSource& random, RealNumber* dest) {
    Limb* limbs = RealLimbs(dest);
    const int64_t t = numberContext.topLimbDigits;
    const int64_t kept = random.Between(1, std::min<int64_t>(3, t));
    Limb unit = 1;
    for (int64_t i = 0; i < t - kept; i++) {
        unit *= 10;
    }
    limbs[0] -= limbs[0] % unit;
    std::fill(limbs + 1, limbs + numberContext.realLimbs, 0);
}

}  // namespace

SpecialPoint PointAt(std::string_view decimal) {
    return [text = std::string(decimal)](RandomSource&, int64_t digits) {
        Float point(digits);
        mpfr_set_str(point, text.c_str(), 10, MPFR_RNDN);
        return point;
    };
}

SpecialPoint PowersOfTen(int64_t low, int64_t high) {
    return [low, high](RandomSource& random, int64_t digits) {
        Float point(digits);
        mpfr_set_ui(point, 10, MPFR_RNDN);
        mpfr_pow_si(point, point, static_cast<long>(random.Between(low, high)), MPFR_RNDN);
        return point;
    };
}

SpecialPoint Fractions(int64_t low, int64_t high, uint64_t divisor) {
    return [low, high, divisor](RandomSource& random, int64_t digits) {
        Float point(digits);
        mpfr_set_si(point, static_cast<long>(random.Between(low, high)), MPFR_RNDN);
        mpfr_div_ui(point, point, divisor, MPFR_RNDN);
        return point;
    };
}

SpecialPoint QuartersOfPi(int64_t largestExponent) {
    return [largestExponent](RandomSource& random, int64_t digits) {
        Float point(digits + largestExponent);
        mpfr_const_pi(point, MPFR_RNDN);
        mpfr_div_2ui(point, point, 2, MPFR_RNDN);
        const int64_t exponent = random.Below(2) == 0 ? 1 : random.Between(1, largestExponent);
        uint64_t count = 1;
        for (int64_t i = 0; i < exponent; i++) {
            count *= 10;
        }
        mpfr_mul_ui(point, point, random.Below(count), MPFR_RNDN);
        return point;
    };
}

SpecialPoint LogarithmicSteps(int64_t lowestPower, int64_t highestPower) {
    return [lowestPower, highestPower](RandomSource& random, int64_t digits) {
        Float point = PowersOfTen(lowestPower, highestPower)(random, digits);
        if (random.Below(4) == 0) {
            mpfr_sqrt_ui(point, 10, MPFR_RNDN);
        }
        const uint64_t factors = random.Below(4);
        if (factors != 0) {
            // Whole powers of the first where the second decides.
            const int64_t twelves = random.Between(-13, 13);
            MultiplyByHalfPower(point, "1.2", factors == 1 ? 2 * twelves - 1 : 2 * twelves, digits);
        }
        if (factors >= 2) {
            MultiplyByHalfPower(point, "1.01", 2 * random.Between(-9, 10) - 1, digits);
        }
        return point;
    };
}

SpecialPoint ExponentialSteps(unsigned long base, int64_t lowestPower, int64_t highestPower) {
    return [=](RandomSource& random, int64_t digits) {
        Float point = LogarithmicSteps(lowestPower, highestPower)(random, digits);
        mpfr_log(point, point, MPFR_RNDN);
        if (base != 0) {
            Float logarithm(digits);
            mpfr_log_ui(logarithm, base, MPFR_RNDN);
            mpfr_div(point, point, logarithm, MPFR_RNDN);
        }
        return point;
    };
}

SpecialPoint TangentSteps() {
    return [](RandomSource& random, int64_t digits) {
        Float angle(digits);
        const int64_t steps = random.Between(0, 16);
        const bool first = random.Below(2) == 0;
        AddHalfAngles(angle, 21, first ? 2 * steps + 1 : 2 * steps, digits);
        if (!first) {
            AddHalfAngles(angle, 351, 2 * random.Between(-8, 8) + 1, digits);
        }
        mpfr_tan(angle, angle, MPFR_RNDN);
        if (random.Below(3) == 0) {
            mpfr_ui_div(angle, 1, angle, MPFR_RNDN);
        }
        return angle;
    };
}

SpecialPoint PerfectPowers(unsigned long degree, int64_t largestExponent) {
    return [=](RandomSource& random, int64_t digits) {
        Float point(digits);
        const uint64_t root =
            random.Below(2) == 0 ? random.Between(1, 150) : random.Between(1, 99'999);
        mpfr_set_ui(point, root, MPFR_RNDN);
        mpfr_div_ui(point, point, 50, MPFR_RNDN);
        mpfr_pow_ui(point, point, degree, MPFR_RNDN);
        Float power = PowersOfTen(-largestExponent, largestExponent)(random, digits);
        mpfr_mul(point, point, power, MPFR_RNDN);
        return point;
    };
}

void DrawArgument(RandomSource& random, RealNumber* dest, const ArgumentDomain& domain) {
    const uint64_t kind = random.Below(10);
    if ((kind >= 7 || domain.pointsOnly) && !domain.points.empty()) {
        const int64_t digits = numberContext.precisionDigits + 25;
        const Float point = domain.points[random.Below(domain.points.size())](random, digits);
        DecimalValue value = DecimalNear(point);
        if (!value.IsZero() && (domain.negative || value.Sign() > 0)) {
            value = Neighbour(value, random.Between(-3, 3));
            if (!value.IsZero() && (domain.negative || value.Sign() > 0)) {
                if (domain.negative && random.Below(2) == 0) {
                    mpz_neg(value.mantissa, value.mantissa);
                }
                RealFromDecimal(dest, value);
                return;
            }
        }
    }
    FillMantissa(random, RealLimbs(dest));
    if (kind == 6) {
        KeepFewDigits(random, dest);
    }
    // Exponents near 0 half of the time.
    const uint64_t size = kind < 3 || kind == 6 ? 0 : random.Below(4);
    const uint64_t sign = domain.negative ? random.Below(2) : 0;
    dest->header = MakeHeader(DrawExponent(random, domain, size), sign);
}

int64_t DrawInteger(RandomSource& random, int64_t low, int64_t high) {
    const double smallest = std::log(static_cast<double>(low) + 1);
    const double largest = std::log(static_cast<double>(high) + 1);
    const double share = static_cast<double>(random.Below(1'000'001)) / 1'000'000;
    const double drawn = std::exp(smallest + share * (largest - smallest)) - 1;
    return drawn >= static_cast<double>(high) ? high : std::max(low, static_cast<int64_t>(drawn));
}

void DrawIntegerArgument(RandomSource& random, RealNumber* dest, int64_t low, int64_t high) {
    // No rounding, so that it stays at most `high`.
    RealFromUint(dest, static_cast<uint64_t>(DrawInteger(random, low, high)));
}

}  // namespace tallymere::testing_support
