// Products of words against GMP.
#include <gmp.h>
#include <gtest/gtest.h>

#include <vector>

#include "core/long_products.h"
#include "support/random_source.h"

namespace tallymere {
namespace {

using namespace testing_support;

using Words = std::vector<uint64_t>;

static_assert(sizeof(mp_limb_t) == sizeof(uint64_t));

// Random words, or runs of zeros and ones, at which carries go far.
Words RandomWords(RandomSource& random, int64_t n) {
    Words words(static_cast<size_t>(n));
    const bool isRandom = random.Below(2) == 0;
    if (isRandom) {
        for (uint64_t& word : words) {
            word = random.Word();
        }
        return words;
    }
    bool isSet = random.Below(2) == 0;
    for (uint64_t& word : words) {
        word = isSet ? ~uint64_t{0} : 0;
        if (random.Below(6) == 0) {
            isSet = !isSet;
            word ^= ~uint64_t{0} << random.Below(64);
        }
    }
    return words;
}

void ExpectGmpProduct(const Words& longer, const Words& shorter) {
    const auto n = static_cast<int64_t>(longer.size());
    const auto m = static_cast<int64_t>(shorter.size());
    Words expected(longer.size() + shorter.size());
    mpn_mul(expected.data(), longer.data(), n, shorter.data(), m);
    constexpr ProductCutovers least = {4, 4, 4, 4};
    for (const ProductCutovers& cutovers : {least, MeasuredCutovers}) {
        SCOPED_TRACE(cutovers.words);
        Words product(expected.size());
        MultiplyWordArrays(product.data(), longer.data(), n, shorter.data(), m, cutovers);
        ASSERT_EQ(product, expected);
        MultiplyWordArrays(product.data(), shorter.data(), m, longer.data(), n, cutovers);
        ASSERT_EQ(product, expected);
    }
}

void ExpectGmpSquare(const Words& words) {
    const auto n = static_cast<int64_t>(words.size());
    Words expected(2 * words.size());
    mpn_sqr(expected.data(), words.data(), n);
    constexpr ProductCutovers least = {4, 4, 4, 4};
    for (const ProductCutovers& cutovers : {least, MeasuredCutovers}) {
        SCOPED_TRACE(cutovers.wordSquares);
        Words square(expected.size());
        MultiplyWordArrays(square.data(), words.data(), n, words.data(), n, cutovers);
        ASSERT_EQ(square, expected);
    }
}

TEST(LongProductsOracle, GmpAgreesAtAllPairsOfLengths) {
    RandomSource random;
    for (int64_t n = 1; n <= 120; n++) {
        SCOPED_TRACE(n);
        for (int64_t m = 1; m <= n; m++) {
            SCOPED_TRACE(m);
            for (int round = 0; round < TestRounds(3); round++) {
                ASSERT_NO_FATAL_FAILURE(
                    ExpectGmpProduct(RandomWords(random, n), RandomWords(random, m)));
            }
        }
        for (int round = 0; round < TestRounds(20); round++) {
            ASSERT_NO_FATAL_FAILURE(ExpectGmpSquare(RandomWords(random, n)));
        }
    }
}

TEST(LongProductsOracle, GmpAgreesAtRandomLengths) {
    RandomSource random;
    for (int round = 0; round < TestRounds(100); round++) {
        const int64_t n = random.Between(120, 2'100);
        const int64_t m = random.Between(1, n);
        SCOPED_TRACE(::testing::Message() << n << " by " << m);
        ASSERT_NO_FATAL_FAILURE(ExpectGmpProduct(RandomWords(random, n), RandomWords(random, m)));
        ASSERT_NO_FATAL_FAILURE(ExpectGmpProduct(RandomWords(random, n), RandomWords(random, n)));
        ASSERT_NO_FATAL_FAILURE(ExpectGmpSquare(RandomWords(random, n)));
    }
}

}  // namespace
}  // namespace tallymere
