// The probabilistic test of primality against GMP.
#include <gtest/gtest.h>

#include "exact/big_uint.h"
#include "numtheory/primality_tests.h"
#include "support/exact_oracle.h"

namespace tallymere {
namespace {

using namespace testing_support;

// Whether base^((n - 1) / 2) is the symbol (base / n).
bool PassesInGmp(unsigned long base, mpz_srcptr n) {
    Integer exponent;
    mpz_tdiv_q_2exp(exponent, n, 1);
    Integer power(base);
    mpz_powm(power, power, exponent, n);
    const int symbol = mpz_ui_kronecker(base, n);
    if (symbol < 0) {
        mpz_sub(power, power, n);
    }
    const mpz_srcptr rest = power;
    return mpz_cmp_si(rest, symbol) == 0;
}

// Random odd numbers without a factor 3, and the next primes behind them.
TEST(PrimalityTestsOracle, GmpAgreesOnEulerTestsAndPrimes) {
    RandomSource random;
    const std::pair<int64_t, int> widths[] = {{1, 2'000}, {2, 1'000}, {5, 200}, {26, 4}, {65, 1}};
    for (const auto& [limbs, rounds] : widths) {
        WidthScope scope(limbs);
        UintBuffer n;
        for (int round = 0; round < TestRounds(rounds); round++) {
            FillUint(random, n, limbs);
            n.Get()[0] |= 1;
            const LimbsView view(n);
            const mpz_srcptr value = view;
            Integer prime;
            mpz_nextprime(prime, value);
            if (mpz_cmp_ui(value, 1009) >= 0 && FitsUint(prime)) {
                UintBuffer next;
                WriteUint(next, prime);
                ASSERT_EQ(IsCompositeNumber(next), 0) << next.Text();
            }
            if (mpz_cmp_ui(value, 1009) < 0 || mpz_divisible_ui_p(value, 3) != 0) {
                continue;
            }
            const bool passes2 = PassesInGmp(2, value);
            const bool passes3 = PassesInGmp(3, value);
            ASSERT_EQ(EulerTestBase2(n), passes2) << n.Text();
            ASSERT_EQ(EulerTestBase3(n), passes3) << n.Text();
            bool divides = false;
            for (unsigned long d = 3; d < 1000; d += 2) {
                divides = divides || mpz_divisible_ui_p(value, d) != 0;
            }
            ASSERT_EQ(IsCompositeNumber(n) == 0, !divides && passes2 && passes3) << n.Text();
        }
    }
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

TEST(PrimalityTestsOracle, GmpAgreesOnSymbols) {
    RandomSource random;
    for (const int64_t limbs : {1, 2, 26, 65}) {
        WidthScope scope(limbs);
        UintBuffer a;
        UintBuffer b;
        for (int round = 0; round < TestRounds(1'000); round++) {
            FillUint(random, a);
            FillUint(random, b);
            b.Get()[0] |= 1;
            const int expected = mpz_jacobi(LimbsView(a), LimbsView(b));
            if (expected != 0) {
                ASSERT_EQ(JacobiSymbol(a, b), expected) << a.Text() << " " << b.Text();
            }
        }
    }
}

}  // namespace
}  // namespace tallymere
