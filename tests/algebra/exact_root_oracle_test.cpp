// Values of exact roots against MPFR: every digit, also where p and q sqrt(r) cancel.
#include <gtest/gtest.h>

#include "algebra/exact_equation_testing.h"
#include "algebra/exact_root.h"
#include "support/mpfr_oracle.h"
#include "support/rational_oracle.h"

namespace tallymere {
namespace {

using namespace testing_support;

// The value of a fraction, with a relative error below 10^-digits.
Float FloatOfFraction(const Fraction& value, int64_t digits) {
    Float result(digits + 10);
    Float denominator(digits + 10);
    mpfr_set_z(result, value.numerator, MPFR_RNDN);
    mpfr_set_z(denominator, value.denominator, MPFR_RNDN);
    mpfr_div(result, result, denominator, MPFR_RNDN);
    mpfr_setsign(result, mpfr_srcptr(result), value.IsNegative(), MPFR_RNDN);
    return result;
}

// p + q sqrt(r), of which `withP` and `withQ` say what is there.
FunctionValue ExactValueOf(const ExactRoot& root, bool withP, bool withQ, int64_t digits) {
    // More than numbers of two limbs can cancel.
    const int64_t inside = digits + 400;
    FunctionValue result{Float(inside)};
    mpfr_set_zero(result.value, 1);
    if (withQ) {
        Float radicand(inside);
        Integer r;
        mpz_import(r, FactorLimbs, -1, 8, 0, 0, root.r);
        mpfr_set_z(radicand, r, MPFR_RNDN);
        mpfr_sqrt(radicand, radicand, MPFR_RNDN);
        mpfr_mul(result.value, radicand, FloatOfFraction(FractionOf(root.q), inside), MPFR_RNDN);
    }
    if (withP) {
        mpfr_add(result.value, result.value, FloatOfFraction(FractionOf(root.p), inside),
                 MPFR_RNDN);
    }
    return result;
}

// Holds the value to as many digits as are in force, and to fewer.
void ExpectRoundedOnce(const ExactRoot& root, int64_t digits) {
    EquationScope scope(digits);
    ComplexBuffer value;
    ExactRootToComplex(value, root, digits);
    ASSERT_EQ(TakeCode(), CalcErrorNone);
    ExpectWellFormed(value.Get());
    const bool hasTerm = root.q != nullptr;
    const Deviation realPart = CompareResult(RealPart(value.Get()), [&](int64_t asked) {
        return ExactValueOf(root, true, hasTerm && !root.imaginary, asked);
    });
    ASSERT_TRUE(realPart.inDomain && realPart.correctlyRounded) << PlainText(value.Get());
    if (hasTerm && root.imaginary) {
        const Deviation imaginaryPart =
            CompareResult(ImaginaryPart(value.Get()),
                          [&](int64_t asked) { return ExactValueOf(root, false, true, asked); });
        ASSERT_TRUE(imaginaryPart.inDomain && imaginaryPart.correctlyRounded)
            << PlainText(value.Get());
    } else {
        ASSERT_EQ(PlainText(ImaginaryPart(value.Get())), "0");
    }
    // In a longer layout the same digits stand.
    PrecisionScope longer(2 * digits + 7);
    ComplexBuffer longValue;
    ExactRootToComplex(longValue, root, digits);
    ASSERT_EQ(PlainText(longValue.Get()), [&] {
        PrecisionScope before(digits);
        return PlainText(value.Get());
    }());
}

constexpr int64_t Digits[] = {1, 5, 10, 19, 38, 100};

TEST(ExactRootOracle, RandomRoots) {
    RandomSource random;
    WidthScope scope(FactorLimbs);
    for (int round = 0; round < TestRounds(1'000); round++) {
        RationalBuffer p;
        RationalBuffer q;
        UintBuffer r;
        FillRational(random, p, FactorLimbs);
        do {
            FillRational(random, q, FactorLimbs);
        } while (RationalIsZero(q));
        // A radicand that is a square of a prime or more only costs time, so none is looked for.
        do {
            FillUint(random, r);
        } while (BigUintIsZero(r) || BigUintEqualsSmall(r, 1));
        SCOPED_TRACE(RationalPlainText(p) + " " + RationalPlainText(q) + " " + r.Text());
        const int64_t digits = Digits[random.Below(std::size(Digits))];
        ASSERT_NO_FATAL_FAILURE(ExpectRoundedOnce(FractionRoot(p), digits));
        ASSERT_NO_FATAL_FAILURE(ExpectRoundedOnce({p, q, r, true}, digits));
        ASSERT_NO_FATAL_FAILURE(ExpectRoundedOnce({p, q, r, false}, digits));
    }
}

// p is the integer next to q sqrt(r), so that all its digits cancel.
TEST(ExactRootOracle, RootsThatCancel) {
    RandomSource random;
    WidthScope scope(FactorLimbs);
    for (int round = 0; round < TestRounds(500); round++) {
        Integer square(random.Word() >> random.Below(60));
        mpz_add_ui(square, square, 2);
        UintBuffer r;
        RationalBuffer p;
        const RationalBuffer q("-1");
        WriteRational(p, 0, square, Integer(1));
        mpz_mul(square, square, square);
        mpz_sub_ui(square, square, 1);
        WriteUint(r, square);
        SCOPED_TRACE(RationalPlainText(p) + " " + r.Text());
        ASSERT_NO_FATAL_FAILURE(
            ExpectRoundedOnce({p, q, r, false}, Digits[random.Below(std::size(Digits))]));
    }
}

}  // namespace
}  // namespace tallymere
