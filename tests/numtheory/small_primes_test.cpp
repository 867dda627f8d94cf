#include "numtheory/small_primes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <vector>

#include "core/wide_arithmetic.h"
#include "prime_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

TEST(SmallPrimeTable, HoldsThePrimesBelow1000) {
    std::vector<uint16_t> primes;
    for (uint16_t n = 0; n < 1000; n++) {
        if (IsPrimeByDivision(n)) {
            primes.push_back(n);
        }
    }
    ASSERT_EQ(primes.size(), 168u);
    EXPECT_TRUE(
        std::equal(primes.begin(), primes.end(), SmallPrimeTable.begin(), SmallPrimeTable.end()));
    EXPECT_EQ(SmallPrimeTable.front(), 2);
    EXPECT_EQ(SmallPrimeTable.back(), 997);
}

TEST(SmallPrimeTable, SettlesWhatIsBelowTheNextPrime) {
    EXPECT_EQ(HighestSmallPrime, 997u);
    EXPECT_TRUE(IsPrimeByDivision(FirstLargePrime));
    for (uint64_t n = 0; n < FirstLargePrime; n++) {
        EXPECT_EQ(IsSmallPrime(n), IsPrimeByDivision(n)) << n;
    }
    EXPECT_FALSE(IsSmallPrime(FirstLargePrime));
}

// The product of the factors; 0 where it does not fit 128 bits.
Wide ProductThatFits(const std::vector<uint64_t>& factors) {
    Wide product = {0, 1};
    for (const uint64_t factor : factors) {
        const Wide low = wide::Multiply(product.low, factor);
        const Wide high = wide::MultiplyAdd(product.high, factor, low.high, 0);
        if (high.high != 0) {
            return {0, 0};
        }
        product = {high.low, low.low};
    }
    return product;
}

TEST(MaxDistinctPrimes, IsTheMostThatFit128Bits) {
    std::vector<uint64_t> primes(SmallPrimeTable.begin(),
                                 SmallPrimeTable.begin() + MaxDistinctPrimes);
    EXPECT_NE(ProductThatFits(primes), (Wide{0, 0}));
    primes.push_back(SmallPrimeTable[MaxDistinctPrimes]);
    EXPECT_EQ(ProductThatFits(primes), (Wide{0, 0}));
}

TEST(MaxLargeFactors, IsTheMostThatFit128Bits) {
    std::vector<uint64_t> factors(MaxLargeFactors, FirstLargePrime);
    EXPECT_NE(ProductThatFits(factors), (Wide{0, 0}));
    factors.push_back(FirstLargePrime);
    EXPECT_EQ(ProductThatFits(factors), (Wide{0, 0}));
}

TEST(PrimeGapWheel, BeginsWithTheStepsTo17) {
    EXPECT_EQ(PrimeGapWheel.size(), 5767u);
    const std::vector<uint8_t> first(PrimeGapWheel.begin(), PrimeGapWheel.begin() + 9);
    EXPECT_EQ(first, (std::vector<uint8_t>{1, 1, 2, 2, 4, 2, 4, 2, 4}));
}

TEST(PrimeGapWheel, RepeatsStepsThatAddUpToItsPeriod) {
    const auto repeated = PrimeGapWheel.begin() + PrimeGapWheelRestart;
    EXPECT_EQ(std::accumulate(repeated, PrimeGapWheel.end(), 0), 30030);
    EXPECT_EQ(PrimeGapWheelPeriod, 30030u);
    EXPECT_EQ(PrimeGapWheel.end() - repeated, 5760);
    EXPECT_EQ(*std::max_element(repeated, PrimeGapWheel.end()), 22);
}

// Three turns, from each of both starts.
TEST(WheelWalk, VisitsTheSixPrimesAndWhatHasNoneOfThem) {
    std::vector<uint64_t> expected = {2, 3, 5, 7, 11, 13};
    for (uint64_t n = 17; n < 3 * 30030 + 17; n++) {
        if (std::gcd(n, uint64_t{30030}) == 1) {
            expected.push_back(n);
        }
    }
    WheelWalk walk = WheelStart;
    for (const uint64_t candidate : expected) {
        ASSERT_TRUE(AdvanceWheel(walk));
        ASSERT_EQ(walk.divisor, candidate);
    }
    walk = WheelStartForOddNumbers;
    for (size_t i = 1; i < expected.size(); i++) {
        ASSERT_TRUE(AdvanceWheel(walk));
        ASSERT_EQ(walk.divisor, expected[i]);
    }
}

// Of the numbers without the six primes, 2^64 - 15 is the last below 2^64 and 2^64 + 1 is the next.
TEST(WheelWalk, TellsWhereItLeaves64Bits) {
    const uint64_t turns = (~uint64_t{0} - 17) / 30030;
    WheelWalk walk = {17 + (turns - 1) * 30030, PrimeGapWheelRestart};
    uint64_t last = 0;
    int steps = 0;
    while (AdvanceWheel(walk)) {
        last = walk.divisor;
        steps++;
        ASSERT_LT(steps, 3 * 5760);
    }
    EXPECT_EQ(last, ~uint64_t{0} - 14);
    EXPECT_EQ(walk.divisor, 1u);
    EXPECT_GT(steps, 5760);
    EXPECT_TRUE(AdvanceWheel(walk));
}

}  // namespace
}  // namespace tallymere
