#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "numtheory/factorize_number.h"
#include "prime_testing.h"
#include "support/exact_testing.h"
#include "support/factor_oracle.h"
#include "support/random_source.h"
#include "support/wide_oracle.h"

namespace tallymere {
namespace {

using namespace testing_support;

// Holds the list of n against PARI, and against n itself.
void ExpectFactorsOfPari(const Integer& n) {
    SCOPED_TRACE(DecimalText(n));
    WidthScope scope(FactorLimbs);
    const Wide value = ToWide(n);
    const uint64_t limbs[] = {value.low, value.high};
    FactorList list;
    ASSERT_EQ(FactorizeNumber(&list, limbs), FactorOutcome::Complete);
    ASSERT_TRUE(FactorListIsWellFormed(list));
    const std::vector<OracleFactor> expected = FactorsByPari(n);
    ASSERT_EQ(list.count, static_cast<int64_t>(expected.size()));
    Integer product(1);
    for (int64_t i = 0; i < list.count; i++) {
        const Integer prime = ToInteger(Wide{list.primes[i][1], list.primes[i][0]});
        const OracleFactor& factor = expected[static_cast<size_t>(i)];
        ASSERT_EQ(mpz_cmp(prime, factor.prime), 0) << DecimalText(prime);
        ASSERT_EQ(list.multiplicities[i], factor.multiplicity) << DecimalText(prime);
        Integer power;
        mpz_pow_ui(power, prime, list.multiplicities[i]);
        mpz_mul(product, product, power);
    }
    ASSERT_EQ(mpz_cmp(product, n), 0);
}

TEST(FactorizeNumberOracle, RandomNumbersOfEveryLength) {
    RandomSource random;
    const int rounds = TestRounds(10);
    for (unsigned long bits = 2; bits <= 128; bits++) {
        for (int round = 0; round < rounds; round++) {
            Integer n = ToInteger(Wide{random.Word(), random.Word()});
            mpz_setbit(n, 127);
            mpz_tdiv_q_2exp(n, n, 128 - bits);
            ASSERT_NO_FATAL_FAILURE(ExpectFactorsOfPari(n));
        }
    }
}

TEST(FactorizeNumberOracle, ProductsOfTwoPrimesOfEverySize) {
    RandomSource random;
    for (int bits = 2; bits <= 64; bits++) {
        for (const int other : {bits, 64}) {
            ASSERT_NO_FATAL_FAILURE(ExpectFactorsOfPari(
                Product({RandomPrime(random, bits), RandomPrime(random, other)})));
        }
    }
}

TEST(FactorizeNumberOracle, ProductsOfThreePrimes) {
    RandomSource random;
    for (int round = 0; round < TestRounds(200); round++) {
        const int first = static_cast<int>(random.Between(2, 42));
        const int second = static_cast<int>(random.Between(2, 42));
        const uint64_t p = RandomPrime(random, first);
        const uint64_t q = RandomPrime(random, second);
        ASSERT_NO_FATAL_FAILURE(ExpectFactorsOfPari(Product({p, q, RandomPrime(random, 42)})));
        ASSERT_NO_FATAL_FAILURE(ExpectFactorsOfPari(Product({p, p, q})));
    }
}

TEST(FactorizeNumberOracle, PowersOfPrimesOfEverySize) {
    RandomSource random;
    for (int bits = 2; bits <= 64; bits++) {
        const uint64_t prime = RandomPrime(random, bits);
        Integer power(prime);
        for (int exponent = 2; exponent * bits <= 128; exponent++) {
            mpz_mul_ui(power, power, prime);
            if (exponent <= 5 || (exponent + 1) * bits > 128) {
                ASSERT_NO_FATAL_FAILURE(ExpectFactorsOfPari(power));
            }
        }
    }
}

TEST(FactorizeNumberOracle, NumbersNextToPowersOfTwo) {
    for (const unsigned long bits :
         {20ul, 32ul, 36ul, 40ul, 44ul, 54ul, 63ul, 64ul, 65ul, 96ul, 127ul, 128ul}) {
        Integer n(1);
        mpz_mul_2exp(n, n, bits);
        mpz_sub_ui(n, n, 12);
        for (int i = 0; i < (bits == 128 ? 12 : 24); i++) {
            ASSERT_NO_FATAL_FAILURE(ExpectFactorsOfPari(n));
            mpz_add_ui(n, n, 1);
        }
    }
}

TEST(FactorizeNumberOracle, NumbersWithManyDivisors) {
    // Products of the first primes with falling exponents.
    RandomSource random;
    int longNumbers = 0;
    for (int round = 0; round < TestRounds(200); round++) {
        Integer n(1);
        Integer next(1);
        Integer prime(2);
        uint64_t exponent = 1 + random.Below(12);
        while (exponent > 0) {
            for (uint64_t k = 0; k < exponent; k++) {
                mpz_mul(next, next, prime);
            }
            if (mpz_sizeinbase(next, 2) > 128) {
                break;
            }
            n = next;
            mpz_nextprime(prime, prime);
            exponent -= random.Below(exponent == 1 ? 8 : 3) == 0 ? 1 : 0;
        }
        ASSERT_NO_FATAL_FAILURE(ExpectFactorsOfPari(n));
        longNumbers += mpz_sizeinbase(n, 2) > 110 ? 1 : 0;
    }
    EXPECT_GT(longNumbers, 0);
}

TEST(FactorizeNumberOracle, CarmichaelNumbersOfThreePrimes) {
    RandomSource random;
    const int rounds = TestRounds(70);
    int found = 0;
    while (found < rounds) {
        const ChernickFactors factors(1 + random.Below(uint64_t{8} << (found / 2)));
        const auto& [p, q, r] = factors;
        if (mpz_probab_prime_p(Integer(p), 20) != 0 && mpz_probab_prime_p(Integer(q), 20) != 0 &&
            mpz_probab_prime_p(Integer(r), 20) != 0) {
            ASSERT_NO_FATAL_FAILURE(ExpectFactorsOfPari(Product({p, q, r})));
            found++;
        }
    }
}

}  // namespace
}  // namespace tallymere
