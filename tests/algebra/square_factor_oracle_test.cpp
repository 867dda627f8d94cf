// The square factor against the prime factors that PARI finds, and against the plain search up to
// the cube root.
#include <gtest/gtest.h>

#include "algebra/square_factor.h"
#include "numtheory/factorize_number.h"
#include "support/exact_oracle.h"
#include "support/exact_testing.h"
#include "support/factor_oracle.h"
#include "support/wide_oracle.h"

namespace tallymere {
namespace {

using namespace testing_support;

struct Split {
    Integer outer{1};
    Integer inner{1};
};

Split SplitByProduct(const Integer& n) {
    const WidthScope scope(FactorLimbs);
    UintBuffer number;
    UintBuffer outer;
    UintBuffer inner;
    WriteUint(number, n);
    EXPECT_TRUE(SplitSquareFactor(outer, inner, number));
    Split split;
    mpz_import(split.outer, FactorLimbs, -1, 8, 0, 0, outer.Get());
    mpz_import(split.inner, FactorLimbs, -1, 8, 0, 0, inner.Get());
    return split;
}

Split SplitByPari(const Integer& n) {
    Split split;
    for (const OracleFactor& factor : FactorsByPari(n)) {
        Integer power;
        mpz_pow_ui(power, factor.prime, factor.multiplicity / 2);
        mpz_mul(split.outer, split.outer, power);
        if (factor.multiplicity % 2 != 0) {
            mpz_mul(split.inner, split.inner, factor.prime);
        }
    }
    return split;
}

// Divides by all candidates up to the cube root of what is left. Squares and cubes are taken on the
// way, so that no prime is left twice.
Split SplitBySearch(const Integer& n) {
    Split split;
    Integer m = n;
    Integer root;
    unsigned long t = 2;
    for (;;) {
        if (mpz_perfect_square_p(m)) {
            mpz_sqrt(root, m);
            mpz_mul(split.outer, split.outer, root);
            return split;
        }
        if (mpz_root(root, m, 3) != 0) {
            mpz_mul(split.outer, split.outer, root);
            mpz_set(m, root);
            continue;
        }
        bool found = false;
        for (; !found; t += t == 2 ? 1 : 2) {
            if (mpz_cmp_ui(mpz_srcptr(root), t) < 0) {
                mpz_mul(split.inner, split.inner, m);
                return split;
            }
            while (mpz_divisible_ui_p(m, t)) {
                found = true;
                mpz_divexact_ui(m, m, t);
                if (!mpz_divisible_ui_p(m, t)) {
                    mpz_mul_ui(split.inner, split.inner, t);
                    break;
                }
                mpz_divexact_ui(m, m, t);
                mpz_mul_ui(split.outer, split.outer, t);
            }
        }
    }
}

void ExpectSplit(const Integer& n, const Split& expected) {
    const Split split = SplitByProduct(n);
    ASSERT_EQ(mpz_cmp(split.outer, expected.outer), 0) << DecimalText(n);
    ASSERT_EQ(mpz_cmp(split.inner, expected.inner), 0) << DecimalText(n);
}

TEST(SquareFactorOracle, AllSmallNumbers) {
    for (int n = 1; n <= TestRounds(20'000); n++) {
        const Integer number(static_cast<uint64_t>(n));
        ASSERT_NO_FATAL_FAILURE(ExpectSplit(number, SplitBySearch(number)));
    }
}

TEST(SquareFactorOracle, RandomNumbersOfEveryLength) {
    RandomSource random;
    for (unsigned long bits = 1; bits <= 128; bits++) {
        for (int round = 0; round < TestRounds(5); round++) {
            Integer n = ToInteger(Wide{random.Word(), random.Word()});
            mpz_setbit(n, 127);
            mpz_tdiv_q_2exp(n, n, 128 - bits);
            ASSERT_NO_FATAL_FAILURE(ExpectSplit(n, SplitByPari(n)));
            if (bits <= 54) {
                ASSERT_NO_FATAL_FAILURE(ExpectSplit(n, SplitBySearch(n)));
            }
        }
    }
}

// a b^2 c^3 with primes of every length.
TEST(SquareFactorOracle, NumbersWithSquares) {
    RandomSource random;
    for (int round = 0; round < TestRounds(500); round++) {
        Integer n(1);
        for (;;) {
            Integer power;
            mpz_ui_pow_ui(power, RandomPrime(random, static_cast<int>(random.Between(2, 60))),
                          static_cast<unsigned long>(random.Between(1, 3)));
            mpz_mul(power, power, n);
            if (mpz_sizeinbase(power, 2) > 128) {
                break;
            }
            n = power;
        }
        ASSERT_NO_FATAL_FAILURE(ExpectSplit(n, SplitByPari(n)));
    }
}

}  // namespace
}  // namespace tallymere
