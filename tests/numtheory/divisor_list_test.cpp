#include "numtheory/divisor_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "prime_testing.h"
#include "reference/factor_twins.h"
#include "support/exact_testing.h"
#include "support/random_source.h"

namespace tallymere {
namespace {

using namespace testing_support;

// A list in an array of the full length, behind which a guard must stay as it is.
class Divisors {
public:
    Divisors() : words_(2 * MaxDivisors + 1, Guard), list_{0, words_.data()} {}
    ~Divisors() { EXPECT_EQ(words_.back(), Guard); }
    Divisors(const Divisors&) = delete;
    Divisors& operator=(const Divisors&) = delete;

    DivisorList* Get() { return &list_; }
    int64_t Count() const { return list_.count; }
    Wide At(int64_t i) const { return {words_[2 * i + 1], words_[2 * i]}; }
    // The numbers of a list that all fit one word.
    std::vector<uint64_t> Words() const {
        std::vector<uint64_t> values;
        for (int64_t i = 0; i < list_.count; i++) {
            EXPECT_EQ(At(i).high, 0u);
            values.push_back(At(i).low);
        }
        return values;
    }
    bool operator==(const Divisors& other) const {
        return Count() == other.Count() &&
               (Count() < 0 ||
                std::equal(words_.begin(), words_.begin() + 2 * Count(), other.words_.begin()));
    }

private:
    static constexpr uint64_t Guard = 0x6a09e667f3bcc908;
    std::vector<uint64_t> words_;
    DivisorList list_;
};

struct Factor {
    uint64_t prime;
    uint64_t multiplicity;
};

FactorList MakeFactors(const std::vector<Factor>& factors) {
    FactorList list = {};
    for (const Factor& factor : factors) {
        list.primes[list.count][0] = factor.prime;
        list.multiplicities[list.count] = factor.multiplicity;
        list.count++;
    }
    return list;
}

constexpr uint64_t FirstPrimes[] = {2, 3, 5, 7, 11, 13, 17, 19, 23, 29, 31, 37, 41, 43, 47};

// The product of the first primes with these exponents.
FactorList FactorsOfFirstPrimes(const std::vector<uint64_t>& multiplicities) {
    FactorList list = {};
    for (const uint64_t multiplicity : multiplicities) {
        list.primes[list.count][0] = FirstPrimes[list.count];
        list.multiplicities[list.count] = multiplicity;
        list.count++;
    }
    return list;
}

void ExpectListOfTwin(const FactorList& factors) {
    WidthScope scope(FactorLimbs);
    Divisors ours;
    BuildDivisorList(ours.Get(), &factors);
    Divisors twin;
    reference::TwinBuildDivisorList(twin.Get(), &factors);
    EXPECT_TRUE(DivisorListIsWellFormed(*ours.Get()));
    ASSERT_EQ(ours.Count(), twin.Count());
    ASSERT_TRUE(ours == twin);
}

int64_t DivisorCount(const FactorList& factors) {
    Divisors divisors;
    BuildDivisorList(divisors.Get(), &factors);
    return divisors.Count();
}

TEST(DivisorList, HoldsAllDivisorsInAscendingOrder) {
    Divisors divisors;
    FactorList factors = MakeFactors({{2, 3}, {3, 2}, {5, 1}});
    BuildDivisorList(divisors.Get(), &factors);
    EXPECT_EQ(divisors.Words(),
              (std::vector<uint64_t>{1,  2,  3,  4,  5,  6,  8,  9,  10, 12,  15,  18,
                                     20, 24, 30, 36, 40, 45, 60, 72, 90, 120, 180, 360}));
    factors = MakeFactors({{997, 1}});
    BuildDivisorList(divisors.Get(), &factors);
    EXPECT_EQ(divisors.Words(), (std::vector<uint64_t>{1, 997}));
}

TEST(DivisorList, OfANumberWithoutFactorsHoldsOne) {
    Divisors divisors;
    const FactorList factors = MakeFactors({});
    BuildDivisorList(divisors.Get(), &factors);
    EXPECT_EQ(divisors.Words(), (std::vector<uint64_t>{1}));
}

TEST(DivisorList, OfTwoToThe127Has128Powers) {
    Divisors divisors;
    const FactorList factors = MakeFactors({{2, 127}});
    BuildDivisorList(divisors.Get(), &factors);
    ASSERT_EQ(divisors.Count(), 128);
    for (int64_t i = 0; i < 128; i++) {
        const Wide power = i < 64 ? Wide{0, uint64_t{1} << i} : Wide{uint64_t{1} << (i - 64), 0};
        EXPECT_EQ(divisors.At(i), power);
    }
}

// The first prime above n.
uint64_t NextPrime(uint64_t n) {
    do {
        n++;
    } while (!IsPrimeByDivision(n));
    return n;
}

TEST(DivisorList, EqualsTheTwinForRandomFactors) {
    RandomSource random;
    for (int round = 0; round < TestRounds(100); round++) {
        FactorList factors = {};
        Wide product = {0, 1};
        uint64_t prime = 1;
        while (factors.count < 8) {
            prime = NextPrime(prime + random.Below(uint64_t{1} << random.Below(16)));
            const uint64_t multiplicity = 1 + random.Below(4);
            Wide next = product;
            bool fits = true;
            for (uint64_t k = 0; k < multiplicity; k++) {
                const Wide low = wide::Multiply(next.low, prime);
                const Wide high = wide::Multiply(next.high, prime);
                next = {high.low + low.high, low.low};
                fits = fits && high.high == 0 && next.high >= low.high;
            }
            if (!fits) {
                break;
            }
            product = next;
            factors.primes[factors.count][0] = prime;
            factors.multiplicities[factors.count] = multiplicity;
            factors.count++;
        }
        ASSERT_NO_FATAL_FAILURE(ExpectListOfTwin(factors));
    }
}

TEST(DivisorList, EqualsTheTwinWhereDivisorsAreLong) {
    FactorList factors = MakeFactors({{2, 1}, {(uint64_t{1} << 61) - 1, 2}});
    ExpectListOfTwin(factors);
    // A prime of two limbs, 2^127 - 1.
    factors = MakeFactors({{~uint64_t{0}, 1}});
    factors.primes[0][1] = ~uint64_t{0} >> 1;
    ExpectListOfTwin(factors);
    // 2^128 - 1.
    factors = MakeFactors({{3, 1},
                           {5, 1},
                           {17, 1},
                           {257, 1},
                           {641, 1},
                           {65'537, 1},
                           {274'177, 1},
                           {6'700'417, 1},
                           {67'280'421'310'721, 1}});
    ExpectListOfTwin(factors);
}

TEST(DivisorList, EqualsTheTwinForHighlyCompositeNumbers) {
    // 1,344, 3,840 and 8,640 divisors; the twin takes a time that grows with the square.
    ExpectListOfTwin(FactorsOfFirstPrimes({6, 3, 2, 1, 1, 1, 1}));
    ExpectListOfTwin(FactorsOfFirstPrimes({4, 2, 1, 1, 1, 1, 1, 1, 1, 1}));
    ExpectListOfTwin(FactorsOfFirstPrimes({8, 4, 2, 1, 1, 1, 1, 1, 1}));
}

TEST(DivisorList, RefusesMoreThan16384Divisors) {
    const std::vector<uint64_t> fourteen(14, 1);
    EXPECT_EQ(DivisorCount(FactorsOfFirstPrimes(fourteen)), 16'384);
    std::vector<uint64_t> more = fourteen;
    more[0] = 2;
    EXPECT_EQ(DivisorCount(FactorsOfFirstPrimes(more)), -1);
    EXPECT_EQ(DivisorCount(FactorsOfFirstPrimes(std::vector<uint64_t>(15, 1))), -1);
    EXPECT_EQ(DivisorCount(MakeFactors({{2, 16}, {3, 15}, {5, 10}})), 17 * 16 * 11);
}

TEST(DivisorList, RefusesExponentsOutsideOneTo255) {
    EXPECT_EQ(DivisorCount(MakeFactors({{2, 0}})), -1);
    EXPECT_EQ(DivisorCount(MakeFactors({{2, 256}})), -1);
    EXPECT_EQ(DivisorCount(MakeFactors({{2, ~uint64_t{0}}})), -1);
    EXPECT_EQ(DivisorCount(MakeFactors({{2, 1}, {3, 0}})), -1);
    EXPECT_EQ(DivisorCount(MakeFactors({{2, 1}, {3, 256}})), -1);
}

TEST(DivisorList, RefusesAListOfFactorsThatOverflowed) {
    FactorList factors = MakeFactors({});
    factors.count = -1;
    EXPECT_EQ(DivisorCount(factors), -1);
}

// The most divisors with the same number of prime factors, among all numbers with up to MaxDivisors
// divisors whose exponents begin as those of `layers`, which holds how many divisors have 0, 1, 2
// ... prime factors; further exponents are `most` or less. `count` is the sum of the layers.
uint64_t LargestLayer(const std::vector<uint64_t>& layers, uint64_t most, uint64_t count) {
    uint64_t largest = *std::max_element(layers.begin(), layers.end());
    for (uint64_t m = 1; m <= most && count * (m + 1) <= MaxDivisors; m++) {
        std::vector<uint64_t> product(layers.size() + m, 0);
        for (size_t i = 0; i < layers.size(); i++) {
            for (uint64_t k = 0; k <= m; k++) {
                product[i + k] += layers[i];
            }
        }
        largest = std::max(largest, LargestLayer(product, m, count * (m + 1)));
    }
    return largest;
}

TEST(DivisorList, NeedsNoLimitForDivisorsWithTheSameNumberOfPrimeFactors) {
    // The twin refuses more than 4,096 of them.
    EXPECT_EQ(LargestLayer({1}, MaxDivisorMultiplicity, 1), 3'432u);
}

TEST(DivisorListIsWellFormed, WantsNumbersThatDoNotFall) {
    std::vector<uint64_t> words = {3, 0, 3, 0, 1, 1};
    EXPECT_TRUE(DivisorListIsWellFormed({3, words.data()}));
    words[3] = 2;
    EXPECT_FALSE(DivisorListIsWellFormed({3, words.data()}));
    EXPECT_TRUE(DivisorListIsWellFormed({-1, words.data()}));
    EXPECT_FALSE(DivisorListIsWellFormed({-2, words.data()}));
    EXPECT_FALSE(DivisorListIsWellFormed({MaxDivisors + 1, words.data()}));
}

TEST(InsertSortedDivisor, KeepsTheOrder) {
    Divisors divisors;
    for (const Wide value : {Wide{0, 7}, Wide{1, 0}, Wide{0, 3}, Wide{0, 9}, Wide{0, 1}}) {
        const uint64_t limbs[] = {value.low, value.high};
        InsertSortedDivisor(divisors.Get(), limbs);
    }
    ASSERT_EQ(divisors.Count(), 5);
    EXPECT_EQ(divisors.At(0), (Wide{0, 1}));
    EXPECT_EQ(divisors.At(1), (Wide{0, 3}));
    EXPECT_EQ(divisors.At(2), (Wide{0, 7}));
    EXPECT_EQ(divisors.At(3), (Wide{0, 9}));
    EXPECT_EQ(divisors.At(4), (Wide{1, 0}));
}

TEST(InsertSortedDivisor, TakesEqualNumbers) {
    Divisors divisors;
    for (const uint64_t value : {5, 3, 5, 3, 4}) {
        const uint64_t limbs[] = {value, 0};
        InsertSortedDivisor(divisors.Get(), limbs);
    }
    EXPECT_EQ(divisors.Words(), (std::vector<uint64_t>{3, 3, 4, 5, 5}));
}

TEST(InsertSortedDivisor, RefusesOneMoreThan16384ForGood) {
    Divisors divisors;
    for (uint64_t value = 1; value <= MaxDivisors; value++) {
        const uint64_t limbs[] = {value, 0};
        InsertSortedDivisor(divisors.Get(), limbs);
    }
    EXPECT_EQ(divisors.Count(), MaxDivisors);
    const uint64_t one[] = {1, 0};
    InsertSortedDivisor(divisors.Get(), one);
    EXPECT_EQ(divisors.Count(), -1);
    InsertSortedDivisor(divisors.Get(), one);
    EXPECT_EQ(divisors.Count(), -1);
}

}  // namespace
}  // namespace tallymere
