// GMP as the judge of exact numbers: their values as integers of GMP, what an operation has to
// leave, and the loop that asks an operation and GMP about the same operands. Native only.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>

#include "core/calc_error.h"
#include "support/exact_testing.h"
#include "support/gmp_oracle.h"

namespace tallymere::testing_support {

static_assert(GMP_NUMB_BITS == 64 && sizeof(mp_limb_t) == sizeof(uint64_t));

/// Limbs as an integer of GMP, without a copy: it lives as long as they stay as they are.
class LimbsView {
public:
    LimbsView(const uint64_t* limbs, int64_t count) { mpz_roinit_n(value_, limbs, count); }
    /// A BigUint of the width in force.
    explicit LimbsView(const uint64_t* a) : LimbsView(a, numberContext.uintLimbs) {}
    bool IsZero() const { return mpz_sgn(value_) == 0; }
    /// The lowest limb.
    uint64_t Low() const { return mpz_get_ui(value_); }
    operator mpz_srcptr() const { return value_; }

private:
    mpz_t value_;
};

/// The value in decimal.
std::string IntegerText(mpz_srcptr value);

/// True when value >= 0 has a BigUint of the width in force.
bool FitsUint(mpz_srcptr value);

/// dest = value, which must fit.
void WriteUint(uint64_t* dest, mpz_srcptr value);

/// base^e at the most; false, and a value that does not matter, when it surely has more than
/// 2 UintBits() + 64 bits.
bool PowerOfGmp(Integer& power, mpz_srcptr base, uint64_t e);

/// floor(log x / log base) for base >= 2 and x >= 1; `exact` tells whether it is one.
uint64_t LogarithmOfGmp(mpz_srcptr base, mpz_srcptr x, bool* exact);

/// dest = floor of the n-th root of x, for n >= 1; true when exact.
bool RootOfGmp(Integer& dest, uint64_t n, mpz_srcptr x);

/// What an operation has to leave: a value, which is 0 with a code, and what it returns.
struct ExpectedUint {
    Integer value;
    CalcError code = CalcErrorNone;
    bool exact = false;

    void Refuse(CalcError why);
    /// Refuses a value that is negative or does not fit, with CalcErrorOverflow.
    void Limit();
};

// What operations of integers give, as values of GMP; `expected` is new.

/// base^e; 0^0 is 1.
void ExpectPower(ExpectedUint& expected, mpz_srcptr base, mpz_srcptr e);

/// The floor of the root of this degree, of which 2^64 and above count as 2^64 - 1.
void ExpectRoot(ExpectedUint& expected, mpz_srcptr degree, mpz_srcptr x);

/// The floor of the logarithm of x.
void ExpectLogarithm(ExpectedUint& expected, mpz_srcptr base, mpz_srcptr x);

/// n!.
void ExpectFactorial(ExpectedUint& expected, mpz_srcptr n);

/// n over k, or with `falling` the product of the k largest integers up to n. The product is made
/// factor by factor and has to fit after each, before it is divided.
void ExpectBinomial(ExpectedUint& expected, mpz_srcptr n, mpz_srcptr k, bool falling);

/// value as a word; 2^64 - 1 for larger ones.
uint64_t WordOf(mpz_srcptr value);

/// Operand sets for each operation: so many at widths up to 65, and at wider ones.
inline constexpr int SetsAtSmallWidths = 50'000;
inline constexpr int SetsAtLargeWidths = 500;

/// The operand sets at the width in force; fewer under a sanitizer.
inline int OperandSets() {
    return TestRounds(numberContext.uintLimbs <= 65 ? SetsAtSmallWidths : SetsAtLargeWidths);
}

/// 0, 1, 2^k, 2^k - 1, 2^k + 1, or random bits of any number.
uint64_t RandomWord(RandomSource& random);

/// A partner for a: equal to it, near it, near 2^(64 uintLimbs) - a, or as FillUint.
void FillUintPartner(RandomSource& random, uint64_t* dest, const uint64_t* a);

/// Two values whose product just fits, or just does not, or that are as FillUint makes them.
void FillFactors(RandomSource& random, uint64_t* a, uint64_t* b);

/// A number of limbs up to `most`, and in seven of eight cases up to 8: for operations whose work
/// at the full length forbids many sets.
int64_t RandomLength(RandomSource& random, int64_t most);

/// The operands of one operation: Count integers of the width in force and one word.
template <size_t Count>
struct UintSet {
    std::array<UintBuffer, Count> operands;
    uint64_t word = 0;

    uint64_t* operator[](size_t i) { return operands[i].Get(); }
    const uint64_t* operator[](size_t i) const { return operands[i].Get(); }
    LimbsView Value(size_t i) const { return LimbsView(operands[i].Get()); }
    int64_t SignedWord() const { return static_cast<int64_t>(word); }

    std::string Text() const {
        std::string text;
        for (const UintBuffer& operand : operands) {
            text += operand.Text() + "\n";
        }
        return text + "word " + std::to_string(word);
    }
};

/// What run(dest, set) returns, or `none` for an operation that returns nothing.
template <typename Run, typename Set>
bool Returned(Run run, uint64_t* dest, const Set& set, bool none) {
    if constexpr (std::is_same_v<decltype(run(dest, set)), bool>) {
        return run(dest, set);
    } else {
        run(dest, set);
        return none;
    }
}

/// One set: run(dest, set) against what expect(expected, set) says, with the result in place number
/// `place` of the operands or, from Count on, in one of its own. The other operands must stay.
template <size_t Count, typename Expect, typename Run>
void JudgeUint(UintSet<Count>& set, size_t place, Expect expect, Run run) {
    ExpectedUint expected;
    expect(expected, std::as_const(set));
    UintBuffer own;
    UintSet<Count> given = set;
    uint64_t* dest = place < Count ? given[place] : own.Get();
    const bool exact = Returned(run, dest, std::as_const(given), expected.exact);
    const CalcError code = TakeCode();
    ASSERT_TRUE(BigUintWidthIsWellFormed()) << set.Text();
    ASSERT_TRUE(mpz_cmp(LimbsView(dest), expected.value) == 0 && code == expected.code &&
                exact == expected.exact)
        << set.Text() << "\nresult in place " << place << "\ngave " << UintText(dest)
        << " with code " << code << (exact ? ", exact" : "") << "\nfor "
        << IntegerText(expected.value) << " with code " << expected.code
        << (expected.exact ? ", exact" : "");
    for (size_t i = 0; i < Count; i++) {
        ASSERT_TRUE(i == place || given.operands[i] == set.operands[i])
            << set.Text() << "\noperand " << i << " was changed";
    }
}

/// Judges an operation at every width with OperandSets() sets that fill(random, set) makes; the
/// place of the result goes round.
template <size_t Count, typename Fill, typename Expect, typename Run>
void CompareUint(Fill fill, Expect expect, Run run) {
    RandomSource random;
    for (const int64_t limbs : AllUintWidths) {
        const WidthScope scope(limbs);
        UintSet<Count> set;
        for (int round = OperandSets(); round > 0; round--) {
            fill(random, set);
            ASSERT_NO_FATAL_FAILURE(
                JudgeUint<Count>(set, static_cast<size_t>(round) % (Count + 1), expect, run));
        }
    }
}

}  // namespace tallymere::testing_support
