#include "support/rational_oracle.h"

#include <algorithm>

namespace tallymere::testing_support {

void ExpectedRational::Refuse(CalcError why) {
    sign = 0;
    mpz_set_ui(numerator, 0);
    mpz_set_ui(denominator, 1);
    code = why;
}

void ExpectedRational::Reduce() {
    Integer common;
    mpz_gcd(common, numerator, denominator);
    if (common.Sign() != 0) {
        mpz_divexact(numerator, numerator, common);
        mpz_divexact(denominator, denominator, common);
    }
}

void ExpectedRational::Limit() {
    if (!FitsUint(numerator) || !FitsUint(denominator)) {
        Refuse(CalcErrorOverflow);
    }
}

void ExpectedRational::Invert() {
    if (code != CalcErrorNone) {
        return;
    }
    if (numerator.Sign() == 0) {
        Refuse(CalcErrorExactDivisionByZero);
    } else {
        mpz_swap(numerator, denominator);
    }
}

bool ExpectedRational::operator==(const RationalNumber* found) const {
    return found->sign == sign && mpz_cmp(LimbsView(RationalNumerator(found)), numerator) == 0 &&
           mpz_cmp(LimbsView(RationalDenominator(found)), denominator) == 0;
}

std::string ExpectedRational::Text() const {
    return (sign != 0 ? "-" : "") + IntegerText(numerator) + "/" + IntegerText(denominator) +
           " with code " + std::to_string(code);
}

void WriteRational(RationalNumber* dest, uint64_t sign, const Integer& numerator,
                   const Integer& denominator) {
    Integer below;
    Integer above;
    mpz_fdiv_r_2exp(above, numerator, UintBits());
    mpz_fdiv_r_2exp(below, denominator, UintBits());
    if (below.Sign() == 0) {
        mpz_set_ui(below, 1);
    }
    Integer common;
    mpz_gcd(common, above, below);
    mpz_divexact(above, above, common);
    mpz_divexact(below, below, common);
    dest->sign = sign;
    WriteUint(RationalNumerator(dest), above);
    WriteUint(RationalDenominator(dest), below);
}

void FillFraction(RandomSource& random, RationalNumber* dest) {
    UintBuffer part;
    Integer numerator;
    Integer denominator(1);
    const int64_t most = RandomLength(random, numberContext.uintLimbs);
    FillUint(random, part, random.Between(0, most));
    mpz_set(numerator, LimbsView(part));
    FillUint(random, part, random.Between(0, most));
    switch (random.Below(6)) {
        case 0:  // An integer.
            break;
        case 1:  // A unit fraction.
            mpz_set_ui(numerator, 1);
            mpz_set(denominator, LimbsView(part));
            break;
        case 2:  // A small one.
            mpz_set_ui(numerator, random.Below(20));
            mpz_set_ui(denominator, random.Between(1, 12));
            break;
        default:
            mpz_set(denominator, LimbsView(part));
    }
    WriteRational(dest, random.Below(2), numerator, denominator);
}

void FillFractionPartner(RandomSource& random, RationalNumber* dest, const RationalNumber* a) {
    const LimbsView numerator(RationalNumerator(a));
    const LimbsView denominator(RationalDenominator(a));
    FillFraction(random, dest);
    Integer above;
    Integer below;
    mpz_set(above, LimbsView(RationalNumerator(dest)));
    mpz_set(below, LimbsView(RationalDenominator(dest)));
    const uint64_t sign = RationalSign(dest);
    switch (random.Below(8)) {
        case 0:
            mpz_set(above, numerator);
            mpz_set(below, denominator);
            break;
        case 1:
            mpz_set(below, denominator);
            break;
        case 2:  // What cancels in a product,
            mpz_mul_ui(above, denominator, random.Between(1, 9));
            mpz_mul_ui(below, numerator, random.Between(1, 9));
            break;
        case 3:  // and in a quotient.
            mpz_mul_ui(above, numerator, random.Between(1, 9));
            mpz_mul_ui(below, denominator, random.Between(1, 9));
            break;
        default:
            return;
    }
    WriteRational(dest, sign, above, below);
}

}  // namespace tallymere::testing_support
