#include "numtheory/residue_inverse.h"

#include <gtest/gtest.h>

#include "support/random_source.h"
#include "support/wide_oracle.h"

namespace tallymere {
namespace {

using namespace testing_support;

// An odd number of any length, 3 or more, and a number below it that often has a divisor of it.
template <typename Number>
struct Pair {
    Number n;
    Number a;
};

Pair<uint64_t> RandomPair(RandomSource& random, uint64_t /*kind*/) {
    const uint64_t common = random.Below(3) == 0 ? random.Below(1000) | 1 : 1;
    const uint64_t most = ~uint64_t{0} / common;
    const uint64_t n = common * (std::max<uint64_t>(random.Below(most) >> random.Below(50), 3) | 1);
    return {n, n / common < 2 ? 0 : common * random.Below(n / common)};
}

Pair<Wide> RandomPair(RandomSource& random, Wide /*kind*/) {
    Integer common(random.Below(3) == 0 ? (random.Word() >> random.Below(64)) | 1 : 1);
    Integer n = ToInteger(Wide{random.Word() >> random.Below(64), random.Word() | 1});
    Integer a = ToInteger(Wide{random.Word(), random.Word() << random.Below(64)});
    mpz_tdiv_q(n, n, common);
    mpz_setbit(n, 0);
    if (mpz_cmp(n, Integer(3)) < 0) {
        mpz_set_ui(n, 3);
    }
    mpz_mod(a, a, n);
    mpz_mul(n, n, common);
    mpz_mul(a, a, common);
    return mpz_sizeinbase(n, 2) > 128 ? Pair<Wide>{{0, 15}, {0, 5}}
                                      : Pair<Wide>{ToWide(n), ToWide(a)};
}

template <typename Number>
void ExpectDivisorsAndInversesOfGmp() {
    RandomSource random;
    int inverses = 0;
    int divisors = 0;
    for (int round = 0; round < TestRounds(20'000); round++) {
        const Pair<Number> pair = RandomPair(random, Number{});
        const Integer n = ToInteger(pair.n);
        Integer common;
        mpz_gcd(common, ToInteger(pair.a), n);
        SCOPED_TRACE(DecimalText(ToInteger(pair.a)) + " modulo " + DecimalText(n));
        ASSERT_EQ(mpz_cmp(ToInteger(CommonDivisor(pair.a, pair.n)), common), 0);

        const auto modulus = PrepareModulus(pair.n);
        Number inverse = ToResidue(modulus, pair.a);
        const Number divisor = InvertResidue(modulus, inverse);
        ASSERT_EQ(mpz_cmp(ToInteger(divisor), common), 0);
        if (divisor == NumberOf<Number>(1)) {
            Integer expected;
            mpz_invert(expected, ToInteger(pair.a), n);
            ASSERT_TRUE(IsBelow(inverse, pair.n));
            ASSERT_EQ(mpz_cmp(ToInteger(FromResidue(modulus, inverse)), expected), 0);
            inverses++;
        } else {
            divisors++;
        }
    }
    EXPECT_GT(inverses, 0);
    EXPECT_GT(divisors, 0);
}

TEST(ResidueInverse, WordsHaveTheDivisorsAndInversesOfGmp) {
    ExpectDivisorsAndInversesOfGmp<uint64_t>();
}

TEST(ResidueInverse, WidesHaveTheDivisorsAndInversesOfGmp) {
    ExpectDivisorsAndInversesOfGmp<Wide>();
}

TEST(ResidueInverse, ZeroHasTheModulusForDivisor) {
    EXPECT_EQ(CommonDivisor(uint64_t{0}, uint64_t{9}), 9u);
    uint64_t zero = 0;
    EXPECT_EQ(InvertResidue(PrepareModulus(uint64_t{9}), zero), 9u);
}

}  // namespace
}  // namespace tallymere
