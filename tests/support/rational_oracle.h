// GMP as the judge of fractions: as exact_oracle.h is for integers. Native only.
#pragma once

#include <array>
#include <string>

#include "support/exact_oracle.h"
#include "support/rational_testing.h"

namespace tallymere::testing_support {

/// A fraction as integers of GMP.
struct Fraction {
    uint64_t sign = 0;
    Integer numerator;
    Integer denominator{1};

    bool IsZero() const { return numerator.Sign() == 0; }
    bool IsWhole() const { return mpz_cmp_ui(mpz_srcptr(denominator), 1) == 0; }
    bool IsNegative() const { return sign != 0 && !IsZero(); }
};

/// What an operation has to leave: a fraction, which is +0/1 with a code.
struct ExpectedRational : Fraction {
    CalcError code = CalcErrorNone;

    void Refuse(CalcError why);
    /// Brings parts other than a denominator of 0 to lowest terms.
    void Reduce();
    /// Refuses parts that do not fit, with CalcErrorOverflow.
    void Limit();
    /// The reciprocal, or CalcErrorExactDivisionByZero; nothing where a code is noted already.
    void Invert();

    bool operator==(const RationalNumber* found) const;
    std::string Text() const;
};

// What operations of fractions give; `expected` is new.

/// a + b, or a - b with `subtract`.
void ExpectSum(ExpectedRational& expected, const Fraction& a, const Fraction& b, bool subtract);
void ExpectProduct(ExpectedRational& expected, const Fraction& a, const Fraction& b);
void ExpectQuotient(ExpectedRational& expected, const Fraction& a, const Fraction& b);

/// The integer quotient of the magnitudes and what is left, both with the sign of a / b; each is
/// limited for itself.
void ExpectDivMod(ExpectedRational& quotient, ExpectedRational& remainder, const Fraction& a,
                  const Fraction& b);

/// base^e with the oddities of RationalPower.
void ExpectPower(ExpectedRational& expected, const Fraction& base, const Fraction& e);

/// The n-th root of x, exact or refused.
void ExpectRoot(ExpectedRational& expected, const Fraction& n, const Fraction& x);
void ExpectLogarithm(ExpectedRational& expected, const Fraction& base, const Fraction& x);
void ExpectFactorial(ExpectedRational& expected, const Fraction& n);

/// n over k, or with `falling` the product of its factors above. Of two integers that of integers.
void ExpectBinomial(ExpectedRational& expected, const Fraction& n, const Fraction& k, bool falling);

/// gmp(a, b) for positive integers: their greatest divisor or least multiple.
void ExpectOfIntegers(ExpectedRational& expected, const Fraction& a, const Fraction& b,
                      void (*gmp)(mpz_ptr, mpz_srcptr, mpz_srcptr));

/// A record of the width in force.
Fraction FractionOf(const RationalNumber* q);

/// dest = the fraction of these parts in lowest terms, each cut to its low bits where it does not
/// fit; 1 in place of a denominator of 0.
void WriteRational(RationalNumber* dest, uint64_t sign, const Integer& numerator,
                   const Integer& denominator);

/// A fraction of parts of any length that RandomLength gives: integers, unit fractions, zeros with
/// either sign.
void FillFraction(RandomSource& random, RationalNumber* dest);

/// A partner for a: itself, its negative, one of the same denominator, one that cancels most of it
/// in a product, or as FillFraction.
void FillFractionPartner(RandomSource& random, RationalNumber* dest, const RationalNumber* a);

/// The operands of one operation: Count fractions of the width in force and one word.
template <size_t Count>
struct RationalSet {
    std::array<RationalBuffer, Count> operands;
    uint64_t word = 0;

    RationalNumber* operator[](size_t i) { return operands[i].Get(); }
    const RationalNumber* operator[](size_t i) const { return operands[i].Get(); }
    Fraction Value(size_t i) const { return FractionOf(operands[i].Get()); }
    int64_t SignedWord() const { return static_cast<int64_t>(word); }

    std::string Text() const {
        std::string text;
        for (const RationalBuffer& operand : operands) {
            text += RationalPlainText(operand.Get()) + "\n";
        }
        return text + "word " + std::to_string(word);
    }
};

/// As JudgeUint.
template <size_t Count, typename Expect, typename Run>
void JudgeRational(const RationalSet<Count>& set, size_t place, Expect expect, Run run) {
    ExpectedRational expected;
    expect(expected, set);
    RationalBuffer own;
    RationalSet<Count> given = set;
    RationalNumber* dest = place < Count ? given[place] : own.Get();
    run(dest, std::as_const(given));
    const CalcError code = TakeCode();
    ASSERT_TRUE(IsResult(dest, Terms::AsTheOperand)) << set.Text();
    ASSERT_TRUE(expected == dest && code == expected.code)
        << set.Text() << "\nresult in place " << place << "\ngave " << RationalPlainText(dest)
        << " with code " << code << "\nfor " << expected.Text();
    for (size_t i = 0; i < Count; i++) {
        ASSERT_TRUE(i == place || given.operands[i] == set.operands[i])
            << set.Text() << "\noperand " << i << " was changed";
    }
}

/// As CompareUint.
template <size_t Count, typename Fill, typename Expect, typename Run>
void CompareRational(Fill fill, Expect expect, Run run) {
    RandomSource random;
    for (const int64_t limbs : AllUintWidths) {
        const WidthScope scope(limbs);
        RationalSet<Count> set;
        for (int round = OperandSets(); round > 0; round--) {
            fill(random, set);
            ASSERT_NO_FATAL_FAILURE(
                JudgeRational<Count>(set, static_cast<size_t>(round) % (Count + 1), expect, run));
        }
    }
}

}  // namespace tallymere::testing_support
