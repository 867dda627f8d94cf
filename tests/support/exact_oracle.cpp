#include "support/exact_oracle.h"

#include <algorithm>
#include <cmath>

namespace tallymere::testing_support {

std::string IntegerText(mpz_srcptr value) {
    std::string text(mpz_sizeinbase(value, 10) + 2, '\0');
    mpz_get_str(text.data(), 10, value);
    return text.substr(0, text.find('\0'));
}

bool FitsUint(mpz_srcptr value) {
    return static_cast<int64_t>(mpz_sizeinbase(value, 2)) <= UintBits();
}

void WriteUint(uint64_t* dest, mpz_srcptr value) {
    ASSERT_TRUE(mpz_sgn(value) >= 0 && FitsUint(value)) << IntegerText(value);
    const auto limbs = static_cast<int64_t>(mpz_size(value));
    std::copy(mpz_limbs_read(value), mpz_limbs_read(value) + limbs, dest);
    std::fill(dest + limbs, dest + numberContext.uintLimbs, 0);
}

bool PowerOfGmp(Integer& power, mpz_srcptr base, uint64_t e) {
    if (mpz_cmp_ui(base, 1) > 0) {
        const uint64_t most = 2 * UintBits() + 64;
        if (e > most || (mpz_sizeinbase(base, 2) - 1) * e > most) {
            return false;
        }
        mpz_pow_ui(power, base, e);
        return true;
    }
    mpz_set_ui(power, e == 0 ? 1 : mpz_get_ui(base));
    return true;
}

uint64_t LogarithmOfGmp(mpz_srcptr base, mpz_srcptr x, bool* exact) {
    const auto logarithm = [](mpz_srcptr value) {
        long exponent = 0;
        const double mantissa = mpz_get_d_2exp(&exponent, value);
        return std::log2(mantissa) + static_cast<double>(exponent);
    };
    auto k = static_cast<uint64_t>(std::max(0.0, std::floor(logarithm(x) / logarithm(base))));
    Integer power;
    mpz_pow_ui(power, base, k);
    while (mpz_cmp(power, x) > 0) {
        mpz_divexact(power, power, base);
        k--;
    }
    Integer next;
    while (mpz_mul(next, power, base), mpz_cmp(next, x) <= 0) {
        mpz_swap(power, next);
        k++;
    }
    *exact = mpz_cmp(power, x) == 0;
    return k;
}

bool RootOfGmp(Integer& dest, uint64_t n, mpz_srcptr x) {
    if (n >= mpz_sizeinbase(x, 2)) {
        // x < 2^n.
        mpz_set_ui(dest, mpz_sgn(x) != 0 ? 1 : 0);
        return n == 1 || mpz_cmp_ui(x, 1) <= 0;
    }
    return mpz_root(dest, x, n) != 0;
}

void ExpectedUint::Refuse(CalcError why) {
    mpz_set_ui(value, 0);
    code = why;
    exact = false;
}

void ExpectedUint::Limit() {
    if (value.Sign() < 0 || !FitsUint(value)) {
        Refuse(CalcErrorOverflow);
    }
}

uint64_t WordOf(mpz_srcptr value) {
    return mpz_fits_ulong_p(value) != 0 ? mpz_get_ui(value) : ~uint64_t{0};
}

void ExpectPower(ExpectedUint& expected, mpz_srcptr base, mpz_srcptr e) {
    // From 2^64 on every power overflows but those of 0 and 1.
    if (PowerOfGmp(expected.value, base, WordOf(e))) {
        expected.Limit();
    } else {
        expected.Refuse(CalcErrorOverflow);
    }
}

void ExpectRoot(ExpectedUint& expected, mpz_srcptr degree, mpz_srcptr x) {
    if (mpz_sgn(degree) == 0) {
        expected.Refuse(CalcErrorUndefined);
    } else {
        expected.exact = RootOfGmp(expected.value, WordOf(degree), x);
    }
}

void ExpectLogarithm(ExpectedUint& expected, mpz_srcptr base, mpz_srcptr x) {
    if (mpz_sgn(x) == 0 || mpz_cmp_ui(base, 1) <= 0) {
        expected.Refuse(CalcErrorOverflow);
    } else {
        mpz_set_ui(expected.value, LogarithmOfGmp(base, x, &expected.exact));
    }
}

void ExpectFactorial(ExpectedUint& expected, mpz_srcptr n) {
    // n! has more bits than n from n = 4 on.
    if (const uint64_t k = WordOf(n); k > std::max<uint64_t>(UintBits(), 4)) {
        expected.Refuse(CalcErrorOverflow);
    } else {
        mpz_fac_ui(expected.value, k);
        expected.Limit();
    }
}

void ExpectBinomial(ExpectedUint& expected, mpz_srcptr n, mpz_srcptr k, bool falling) {
    if (mpz_cmp(k, n) > 0) {
        return;
    }
    Integer rest;
    mpz_sub(rest, n, k);
    const bool fromTheOtherEnd = !falling && mpz_cmp(rest, k) < 0;
    Integer factor;
    mpz_set(factor, fromTheOtherEnd ? k : mpz_srcptr(rest));
    const mpz_srcptr count = fromTheOtherEnd ? mpz_srcptr(rest) : k;
    if (mpz_fits_ulong_p(count) == 0) {
        expected.Refuse(CalcErrorUndefined);
        return;
    }
    mpz_set_ui(expected.value, 1);
    for (uint64_t i = 1; i <= mpz_get_ui(count); i++) {
        mpz_add_ui(factor, factor, 1);
        mpz_mul(expected.value, expected.value, factor);
        expected.Limit();
        if (expected.code != CalcErrorNone) {
            return;
        }
        if (!falling) {
            mpz_divexact_ui(expected.value, expected.value, i);
        }
    }
}

uint64_t RandomWord(RandomSource& random) {
    const uint64_t power = uint64_t{1} << random.Below(64);
    switch (random.Below(8)) {
        case 0:
            return random.Below(3);
        case 1:
            return power;
        case 2:
            return power - 1;
        case 3:
            return power + 1;
        case 4:
            return ~random.Below(3);
        default:
            return random.Word() >> random.Below(64);
    }
}

void FillUintPartner(RandomSource& random, uint64_t* dest, const uint64_t* a) {
    const int64_t limbs = numberContext.uintLimbs;
    Integer value;
    switch (random.Below(6)) {
        case 0:  // a, or a little beside it.
            mpz_set(value, LimbsView(a));
            break;
        case 1:  // What makes the sum just fit, or just not.
            mpz_ui_pow_ui(value, 2, UintBits());
            mpz_sub(value, value, LimbsView(a));
            break;
        case 2:  // a from some limb on.
            std::copy(a, a + limbs, dest);
            for (int64_t i = random.Between(0, limbs); i > 0; i--) {
                dest[i - 1] = random.Word();
            }
            return;
        default:
            FillUint(random, dest);
            return;
    }
    const int64_t beside = random.Between(-2, 2);
    (beside < 0 ? mpz_sub_ui : mpz_add_ui)(value, value, static_cast<uint64_t>(std::abs(beside)));
    if (value.Sign() < 0 || !FitsUint(value)) {
        mpz_set(value, LimbsView(a));
    }
    WriteUint(dest, value);
}

void FillFactors(RandomSource& random, uint64_t* a, uint64_t* b) {
    const int64_t limbs = numberContext.uintLimbs;
    const int64_t part = random.Between(0, limbs);
    FillUint(random, a, part);
    switch (random.Below(4)) {
        case 0:
            FillUint(random, b);
            break;
        case 1:
        case 2:
            FillUint(random, b, std::min(limbs, limbs - part + random.Between(0, 2)));
            break;
        default: {  // The largest b with a product that fits, or one more.
            Integer largest;
            mpz_ui_pow_ui(largest, 2, UintBits());
            mpz_sub_ui(largest, largest, 1);
            if (!LimbsView(a).IsZero()) {
                mpz_fdiv_q(largest, largest, LimbsView(a));
                mpz_add_ui(largest, largest, random.Below(2));
            }
            if (!FitsUint(largest)) {
                mpz_sub_ui(largest, largest, 1);
            }
            WriteUint(b, largest);
        }
    }
}

int64_t RandomLength(RandomSource& random, int64_t most) {
    return random.Below(8) == 0 ? random.Between(0, most)
                                : random.Between(0, std::min<int64_t>(most, 8));
}

}  // namespace tallymere::testing_support
