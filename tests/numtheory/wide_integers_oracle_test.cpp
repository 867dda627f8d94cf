#include "numtheory/wide_integers.h"

#include <gtest/gtest.h>

#include "support/random_source.h"
#include "support/wide_oracle.h"

namespace tallymere {
namespace {

using namespace testing_support;

// Numbers of every length from 1 to 128 bits, and of many ones.
Wide RandomWide(RandomSource& random) {
    Wide a = {random.Word(), random.Word()};
    if (random.Below(4) == 0) {
        a = {~uint64_t{0}, ~random.Below(3)};
    }
    const uint64_t bits = random.Below(128);
    return bits >= 64 ? Wide{0, a.high >> (bits - 64)}
                      : Wide{a.high >> bits, ((a.high << 1) << (63 - bits)) | (a.low >> bits)};
}

TEST(WideIntegers, ProductsAndDivisionsAreThoseOfGmp) {
    RandomSource random;
    for (int round = 0; round < TestRounds(100'000); round++) {
        const Wide a = RandomWide(random);
        const Wide b = RandomWide(random);
        Integer expected;
        mpz_mul(expected, ToInteger(a), ToInteger(b));
        ASSERT_EQ(MultiplyLow(a, b), ToWide(expected));
        const uint64_t d = (random.Word() >> random.Below(64)) | random.Below(2);
        if (d != 0) {
            ASSERT_EQ(RemainderByWord(a, d), mpz_tdiv_q_ui(expected, ToInteger(a), d));
            ASSERT_EQ(QuotientByWord(a, d), ToWide(expected));
        }
    }
}

TEST(WideIntegers, ExactQuotientsAreThoseOfGmp) {
    RandomSource random;
    for (int round = 0; round < TestRounds(100'000); round++) {
        const Wide n = RandomWide(random);
        Wide d = RandomWide(random);
        d.low |= 1;
        Integer quotient;
        Integer product;
        mpz_tdiv_q(quotient, ToInteger(n), ToInteger(d));
        mpz_mul(product, quotient, ToInteger(d));
        ASSERT_EQ(DivideExactly(ToWide(product), d), ToWide(quotient));
    }
}

TEST(WideIntegers, SquareRootsAreRoundedDown) {
    EXPECT_EQ(SquareRootOf({0, 0}), 0u);
    EXPECT_EQ(SquareRootOf({~uint64_t{0}, ~uint64_t{0}}), ~uint64_t{0});
    RandomSource random;
    for (int round = 0; round < TestRounds(20'000); round++) {
        const Wide n = RandomWide(random);
        Integer root;
        mpz_sqrt(root, ToInteger(n));
        ASSERT_EQ(SquareRootOf(n), mpz_get_ui(root));
        // Next to a square.
        const uint64_t exact = random.Word() >> random.Below(64);
        const Wide square = wide::Multiply(exact, exact);
        ASSERT_EQ(SquareRootOf(square), exact);
        if (exact != 0) {
            ASSERT_EQ(SquareRootOf(wide::Subtract(square, {0, 1})), exact - 1);
        }
    }
}

}  // namespace
}  // namespace tallymere
