// Proofs of primality against GMP.
#include <gtest/gtest.h>

#include "numtheory/baillie_psw.h"
#include "numtheory/prime_proof.h"
#include "support/wide_oracle.h"

namespace tallymere {
namespace {

using namespace testing_support;

// GMP's test is the one of Baillie, Pomerance, Selfridge and Wagstaff and 20 strong tests more.
Primality ByGmp(const Integer& n) {
    return mpz_probab_prime_p(n, 24) != 0 ? Primality::Prime : Primality::Composite;
}

// Odd numbers of every length, and the next prime behind each.
TEST(PrimeProofOracle, GmpAgreesOnNumbersOfEveryLength) {
    RandomSource random;
    for (int round = 0; round < TestRounds(20'000); round++) {
        const auto bits = static_cast<int>(random.Between(2, 127));
        Wide n = {random.Word(), random.Word() | 1};
        n = bits > 64 ? Wide{n.high >> (128 - bits), n.low} : Wide{0, (n.low >> (64 - bits)) | 1};
        const Integer value = ToInteger(n);
        ASSERT_EQ(ProvePrimality(n), ByGmp(value)) << DecimalText(value);
        if (n.high == 0) {
            ASSERT_EQ(IsPrimeWord(n.low), ByGmp(value) == Primality::Prime) << n.low;
        }
        if (round % 16 == 0) {
            Integer prime;
            mpz_nextprime(prime, value);
            ASSERT_EQ(ProvePrimality(ToWide(prime)), Primality::Prime) << DecimalText(prime);
        }
    }
}

// A stretch below and above each bound between two ways of proof.
TEST(PrimeProofOracle, GmpAgreesRoundTheBoundsOfEachProof) {
    for (const char* bound :
         {"1009", "1018081", "18446744073709551616", "3317044064679887385961981",
          "340282366920938463463374607431768211455"}) {
        Integer value;
        mpz_set_str(value, bound, 10);
        mpz_sub_ui(value, value, 900);
        for (int i = 0; i < 1'800; i++) {
            mpz_add_ui(value, value, 1);
            if (mpz_sizeinbase(value, 2) > 128) {
                break;
            }
            ASSERT_EQ(ProvePrimality(ToWide(value)), ByGmp(value)) << DecimalText(value);
        }
    }
}

TEST(PrimeProofOracle, GmpAgreesOnRandomWords) {
    RandomSource random;
    for (int round = 0; round < TestRounds(300'000); round++) {
        const uint64_t n = (random.Word() >> random.Below(40)) | 1;
        const Integer value = ToInteger(n);
        ASSERT_EQ(IsPrimeWord(n), ByGmp(value) == Primality::Prime) << n;
    }
}

}  // namespace
}  // namespace tallymere
