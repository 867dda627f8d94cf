#include "support/factor_oracle.h"

#include <gtest/gtest.h>
#include <pari/pari.h>

#include "support/pari_start_oracle.h"

namespace tallymere::testing_support {

namespace {

GEN ToPari(const Integer& n) {
    std::vector<char> text(mpz_sizeinbase(n, 10) + 2);
    mpz_get_str(text.data(), 10, n);
    return strtoi(text.data());
}

Integer FromPari(GEN n) {
    Integer value;
    char* text = GENtostr(n);
    mpz_set_str(value, text, 10);
    pari_free(text);
    return value;
}

}  // namespace

std::vector<OracleFactor> FactorsByPari(const Integer& n) {
    StartPari();
    const pari_sp top = avma;
    GEN matrix = Z_factor(ToPari(n));
    std::vector<OracleFactor> factors;
    GEN primes = gel(matrix, 1);
    GEN multiplicities = gel(matrix, 2);
    for (long i = 1; i < lg(primes); i++) {
        EXPECT_TRUE(isprime(gel(primes, i)));
        factors.push_back({FromPari(gel(primes, i)), itou(gel(multiplicities, i))});
    }
    set_avma(top);
    return factors;
}

}  // namespace tallymere::testing_support
