#include "support/rational_oracle.h"

#include <algorithm>

namespace tallymere::testing_support {

namespace {

// value = the signed sum of two magnitudes; where they cancel the sign is that of b.
uint64_t AddMagnitudes(Integer& value, const Integer& a, uint64_t signA, const Integer& b,
                       uint64_t signB) {
    if (signA == signB) {
        mpz_add(value, a, b);
        return signA;
    }
    mpz_sub(value, a, b);
    const uint64_t sign = value.Sign() > 0 ? signA : signB;
    mpz_abs(value, value);
    return sign;
}

// Both parts raised to the power p.
void RaiseParts(ExpectedRational& expected, const Integer& numerator, const Integer& denominator,
                const Integer& p) {
    if (!PowerOfGmp(expected.numerator, numerator, WordOf(p)) ||
        !PowerOfGmp(expected.denominator, denominator, WordOf(p))) {
        expected.Refuse(CalcErrorOverflow);
    } else {
        expected.Limit();
    }
}

// The root of an integer with an integer as degree; false for one that is not exact, and degree 0.
bool ExactRoot(Integer& root, const Integer& degree, const Integer& x) {
    return degree.Sign() != 0 && RootOfGmp(root, WordOf(degree), x);
}

// An integer that an operation of integers gives.
void TakeUint(ExpectedRational& expected, const ExpectedUint& value) {
    mpz_set(expected.numerator, value.value);
    expected.code = value.code;
}

// The product of so many factors n - count + i, each divided by i unless `falling`, in lowest terms
// after each.
void ExpectFactors(ExpectedRational& expected, const Fraction& n, uint64_t count, bool falling) {
    Integer position = n.numerator;
    if (n.sign != 0) {
        mpz_neg(position, position);
    }
    mpz_submul_ui(position, n.denominator, count);
    mpz_set_ui(expected.numerator, 1);
    Integer magnitude;
    mpz_abs(magnitude, position);
    if (!FitsUint(magnitude)) {
        expected.Refuse(CalcErrorOverflow);
    }
    for (uint64_t i = 1; i <= count && expected.code == CalcErrorNone; i++) {
        mpz_add(position, position, n.denominator);
        mpz_abs(magnitude, position);
        mpz_mul(expected.numerator, expected.numerator, magnitude);
        mpz_mul(expected.denominator, expected.denominator, n.denominator);
        if (!falling) {
            mpz_mul_ui(expected.denominator, expected.denominator, i);
        }
        expected.sign ^= position.Sign() < 0 ? 1 : 0;
        expected.Reduce();
        expected.Limit();
    }
}

}  // namespace

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

void ExpectSum(ExpectedRational& expected, const Fraction& a, const Fraction& b, bool subtract) {
    const uint64_t signB = b.sign ^ (subtract ? 1 : 0);
    if (mpz_cmp(a.denominator, b.denominator) == 0) {
        // Over one denominator the sum is made at the width as it is, and may not fit although the
        // reduced one would.
        expected.denominator = a.denominator;
        expected.sign = AddMagnitudes(expected.numerator, a.numerator, a.sign, b.numerator, signB);
        expected.Limit();
    } else {
        Integer left;
        Integer right;
        mpz_mul(left, a.numerator, b.denominator);
        mpz_mul(right, b.numerator, a.denominator);
        mpz_mul(expected.denominator, a.denominator, b.denominator);
        expected.sign = AddMagnitudes(expected.numerator, left, a.sign, right, signB);
    }
    expected.Reduce();
    expected.Limit();
}

void ExpectProduct(ExpectedRational& expected, const Fraction& a, const Fraction& b) {
    expected.sign = a.sign ^ b.sign;
    mpz_mul(expected.numerator, a.numerator, b.numerator);
    mpz_mul(expected.denominator, a.denominator, b.denominator);
    expected.Reduce();
    expected.Limit();
}

void ExpectQuotient(ExpectedRational& expected, const Fraction& a, const Fraction& b) {
    if (b.IsZero()) {
        expected.Refuse(CalcErrorExactDivisionByZero);
    } else {
        ExpectProduct(expected, a, {b.sign, b.denominator, b.numerator});
    }
}

void ExpectDivMod(ExpectedRational& quotient, ExpectedRational& remainder, const Fraction& a,
                  const Fraction& b) {
    if (b.IsZero()) {
        quotient.Refuse(CalcErrorExactDivisionByZero);
        remainder.Refuse(CalcErrorExactDivisionByZero);
        return;
    }
    Integer dividend;
    Integer divisor;
    mpz_mul(dividend, a.numerator, b.denominator);
    mpz_mul(divisor, a.denominator, b.numerator);
    quotient.sign = remainder.sign = a.sign ^ b.sign;
    mpz_fdiv_qr(quotient.numerator, remainder.numerator, dividend, divisor);
    mpz_mul(remainder.denominator, a.denominator, b.denominator);
    remainder.Reduce();
    quotient.Limit();
    remainder.Limit();
}

void ExpectPower(ExpectedRational& expected, const Fraction& base, const Fraction& e) {
    expected.sign = base.sign & (mpz_odd_p(mpz_srcptr(e.numerator)) != 0 ? 1 : 0);
    if (e.IsWhole()) {
        RaiseParts(expected, base.numerator, base.denominator, e.numerator);
    } else {
        // Roots of the exponent's denominator, with the parts of the base as degrees.
        Integer above;
        Integer below;
        if (base.IsNegative() || !ExactRoot(above, base.numerator, e.denominator) ||
            !ExactRoot(below, base.denominator, e.denominator)) {
            expected.Refuse(CalcErrorUndefined);
            return;
        }
        RaiseParts(expected, above, below, e.numerator);
    }
    if (e.sign != 0) {
        expected.Invert();
    }
}

void ExpectRoot(ExpectedRational& expected, const Fraction& n, const Fraction& x) {
    const bool odd = n.IsWhole() && mpz_odd_p(mpz_srcptr(n.numerator)) != 0;
    Integer above;
    Integer below;
    if ((x.IsNegative() && !odd) || !ExactRoot(above, n.numerator, x.numerator) ||
        !ExactRoot(below, n.numerator, x.denominator)) {
        expected.Refuse(CalcErrorUndefined);
        return;
    }
    expected.sign = x.sign;
    RaiseParts(expected, above, below, n.denominator);
    if (n.sign != 0) {
        expected.Invert();
    }
}

void ExpectLogarithm(ExpectedRational& expected, const Fraction& base, const Fraction& x) {
    const bool unit = !x.IsWhole() && mpz_cmp_ui(mpz_srcptr(x.numerator), 1) == 0;
    bool exact = false;
    if (base.IsWhole() && base.sign == 0 && mpz_cmp_ui(mpz_srcptr(base.numerator), 1) > 0 &&
        x.sign == 0 && !x.IsZero() && (x.IsWhole() || unit)) {
        const Integer& power = unit ? x.denominator : x.numerator;
        mpz_set_ui(expected.numerator, LogarithmOfGmp(base.numerator, power, &exact));
        expected.sign = unit ? 1 : 0;
    }
    if (!exact) {
        expected.Refuse(CalcErrorUndefined);
    }
}

void ExpectFactorial(ExpectedRational& expected, const Fraction& n) {
    if (!n.IsWhole() || n.sign != 0) {
        expected.Refuse(CalcErrorUndefined);
        return;
    }
    ExpectedUint factorial;
    ExpectFactorial(factorial, n.numerator);
    TakeUint(expected, factorial);
}

void ExpectBinomial(ExpectedRational& expected, const Fraction& n, const Fraction& k,
                    bool falling) {
    if (k.IsWhole() && !k.IsNegative() && n.IsWhole() && !n.IsNegative()) {
        ExpectedUint coefficient;
        ExpectBinomial(coefficient, n.numerator, k.numerator, falling);
        TakeUint(expected, coefficient);
    } else if (!k.IsWhole() || k.IsNegative() || mpz_fits_ulong_p(k.numerator) == 0) {
        expected.Refuse(CalcErrorUndefined);
    } else {
        ExpectFactors(expected, n, WordOf(k.numerator), falling);
    }
}

void ExpectOfIntegers(ExpectedRational& expected, const Fraction& a, const Fraction& b,
                      void (*gmp)(mpz_ptr, mpz_srcptr, mpz_srcptr)) {
    for (const Fraction* x : {&a, &b}) {
        if (!x->IsWhole() || x->sign != 0 || x->IsZero()) {
            expected.Refuse(CalcErrorUndefined);
            return;
        }
    }
    gmp(expected.numerator, a.numerator, b.numerator);
    expected.Limit();
}

Fraction FractionOf(const RationalNumber* q) {
    Fraction fraction;
    fraction.sign = RationalSign(q);
    mpz_set(fraction.numerator, LimbsView(RationalNumerator(q)));
    mpz_set(fraction.denominator, LimbsView(RationalDenominator(q)));
    return fraction;
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
