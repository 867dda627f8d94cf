#include "numtheory/block_sieve.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "prime_testing.h"
#include "support/random_source.h"

namespace tallymere {
namespace {

using namespace testing_support;

// Numbers of three limbs, so that carries can go anywhere.
struct Number {
    uint64_t limbs[3];
};

Number Plus(Number n, uint64_t k) {
    for (uint64_t& limb : n.limbs) {
        limb += k;
        k = limb < k ? 1 : 0;
    }
    return n;
}

// Bit by bit.
uint64_t Remainder(const Number& n, uint64_t p) {
    uint64_t rest = 0;
    for (int i = 3 * 64; i-- > 0;) {
        rest = (2 * rest + ((n.limbs[i / 64] >> (i % 64)) & 1)) % p;
    }
    return rest;
}

bool IsBelow(const Number& n, uint64_t k) {
    return n.limbs[2] == 0 && n.limbs[1] == 0 && n.limbs[0] < k;
}

std::vector<uint32_t> OddPrimesTo(uint32_t bound) {
    const std::vector<bool> isPrime = SieveNumbers(uint64_t{bound} + 1);
    std::vector<uint32_t> primes;
    for (uint32_t n = 3; n <= bound; n += 2) {
        if (isPrime[n]) {
            primes.push_back(n);
        }
    }
    return primes;
}

bool IsStruck(const BlockSieve& sieve, int64_t index) {
    return ((sieve.struck[index / 64] >> (index % 64)) & 1) != 0;
}

class BlockSieveTest : public ::testing::Test {
protected:
    void SetUp() override { CreateScratchStack(); }
    void TearDown() override {
        EXPECT_EQ(*CurrentScratchStack().top, CurrentScratchStack().base);
        DestroyScratchStack();
    }

    // Sieves blocks of these lengths, each after a raise to its bound, and holds each number to
    // plain division.
    void CheckBlocks(Number start, const std::vector<int64_t>& lengths,
                     const std::vector<uint32_t>& bounds) {
        SCOPED_TRACE("start " + std::to_string(start.limbs[2]) + ", " +
                     std::to_string(start.limbs[1]) + ", " + std::to_string(start.limbs[0]));
        ScratchStackScope scope;
        BlockSieve sieve = MakeBlockSieve(scope, bounds.back(), lengths.back());
        for (size_t block = 0; block < lengths.size(); block++) {
            RaiseSieveBound(sieve, bounds[block], start.limbs, 3);
            const std::vector<uint32_t> primes = OddPrimesTo(bounds[block]);
            ASSERT_EQ(sieve.bound, bounds[block]);
            ASSERT_EQ(std::vector<uint32_t>(sieve.primes, sieve.primes + sieve.primeCount), primes);
            SieveNextBlock(sieve, lengths[block]);
            for (int64_t i = 0; i < lengths[block]; i++) {
                const Number n = Plus(start, 2 * static_cast<uint64_t>(i));
                bool hasFactor = false;
                for (const uint64_t p : primes) {
                    hasFactor = hasFactor || (!IsBelow(n, p * p) && Remainder(n, p) == 0);
                }
                ASSERT_EQ(IsStruck(sieve, i), hasFactor) << "block " << block << ", number " << i;
            }
            start = Plus(start, 2 * static_cast<uint64_t>(lengths[block]));
        }
    }
};

TEST_F(BlockSieveTest, StrikesTheMultiplesOfItsPrimesFromTheirSquaresOn) {
    CheckBlocks({{1, 0, 0}}, {1, 2, 64, 65, 200}, {2, 3, 7, 40, 41});
    CheckBlocks({{3, 0, 0}}, {40, 200}, {12, 60});
    CheckBlocks({{9, 0, 0}}, {10, 63, 64}, {5, 20, 21});
    CheckBlocks({{961, 0, 0}}, {100, 300}, {31, 100});
    CheckBlocks({{963, 0, 0}}, {100, 300}, {30, 31});
    CheckBlocks({{959, 0, 0}}, {100, 300}, {997, 1'000});
}

TEST_F(BlockSieveTest, BeginsAnywhere) {
    RandomSource random;
    const uint64_t ones = ~uint64_t{0};
    CheckBlocks({{ones - 100, ones, 0}}, {30, 30, 30}, {50, 100, 300});
    CheckBlocks({{ones - 60, 0, 0}}, {30, 30, 30}, {50, 100, 300});
    CheckBlocks({{ones, ones, ones - 1}}, {30, 30, 30}, {50, 100, 300});
    for (int i = TestRounds(40); i > 0; i--) {
        Number start = {{random.Word() | 1, 0, 0}};
        if (i % 3 > 0) {
            start.limbs[1] = random.Word();
        }
        if (i % 3 > 1) {
            start.limbs[2] = random.Word() >> 1;
        }
        CheckBlocks(start, {1 + random.Between(0, 100), 200}, {120, 250});
    }
}

TEST_F(BlockSieveTest, HasRoomForThePrimesOfAnyBound) {
    const Number start = {{1, 1, 0}};
    std::vector<uint32_t> bounds = {3, 5, 500, 1'000, 2'000, 3'000, 4'000, 5'000, 10'000, 100'000};
    bounds.push_back(MaxSieveBound);
    for (const uint32_t bound : bounds) {
        ScratchStackScope scope;
        BlockSieve sieve = MakeBlockSieve(scope, bound, 1);
        RaiseSieveBound(sieve, bound, start.limbs, 3);
        const std::vector<uint32_t> primes = OddPrimesTo(bound);
        ASSERT_EQ(std::vector<uint32_t>(sieve.primes, sieve.primes + sieve.primeCount), primes);
        for (size_t i = 0; i < primes.size(); i++) {
            const Number next = Plus(start, 2 * uint64_t{sieve.next[i]});
            ASSERT_LT(sieve.next[i], primes[i]);
            ASSERT_EQ(Remainder(next, primes[i]), 0u) << primes[i];
        }
    }
}

TEST_F(BlockSieveTest, KeepsItsBoundWhereALowerOneIsAskedFor) {
    const Number start = {{1'000'001, 0, 0}};
    ScratchStackScope scope;
    BlockSieve sieve = MakeBlockSieve(scope, 100, 10);
    RaiseSieveBound(sieve, 100, start.limbs, 3);
    RaiseSieveBound(sieve, 50, start.limbs, 3);
    EXPECT_EQ(sieve.bound, 100u);
    EXPECT_EQ(sieve.primeCount, 24);
}

TEST_F(BlockSieveTest, TakesWhatItSaysAtTheMost) {
    ScratchArea& stack = CurrentScratchStack();
    const int64_t usual = stack.highWaterWords;
    stack.highWaterWords = 0;
    {
        const Number start = {{1, 1, 0}};
        ScratchStackScope scope;
        BlockSieve sieve = MakeBlockSieve(scope, MaxSieveBound, MaxSieveBlock);
        RaiseSieveBound(sieve, MaxSieveBound, start.limbs, 3);
    }
    EXPECT_LE(stack.highWaterWords * BytesPerWord, 1'200'000);
    stack.highWaterWords = std::max(usual, stack.highWaterWords);
}

TEST_F(BlockSieveTest, TellsWhatIsLeftOver) {
    ScratchStackScope scope;
    BlockSieve sieve = MakeBlockSieve(scope, 3, 200);
    std::vector<int64_t> kept = {0, 5, 63, 64, 66, 127, 199};
    std::fill_n(sieve.struck, 4, ~uint64_t{0});
    for (const int64_t index : kept) {
        sieve.struck[index / 64] &= ~(uint64_t{1} << (index % 64));
    }
    for (const int64_t count : {1, 6, 63, 64, 65, 67, 128, 199, 200}) {
        for (int64_t from = 0; from <= count; from++) {
            int64_t expected = count;
            for (size_t i = kept.size(); i-- > 0;) {
                expected = kept[i] >= from && kept[i] < count ? kept[i] : expected;
            }
            ASSERT_EQ(NextUnstruck(sieve, from, count), expected) << from << " of " << count;
        }
    }
}

TEST(SieveBoundForNumber, IsTheSquareRootOrTheHighestBound) {
    for (const uint64_t root : {1, 2, 3, 30, 31, 32, 1'000, 65'535, 65'536, 1'018'080}) {
        EXPECT_EQ(SieveBoundFor(root * root, MaxSieveBound), root);
        EXPECT_EQ(SieveBoundFor(root * root - 1, MaxSieveBound), root - 1);
        EXPECT_EQ(SieveBoundFor(root * root + 2 * root, MaxSieveBound), root);
        EXPECT_EQ(SieveBoundFor(~uint64_t{0}, static_cast<uint32_t>(root)), root);
    }
    EXPECT_EQ(SieveBoundFor(0, MaxSieveBound), 0u);
    EXPECT_EQ(SieveBoundFor(~uint64_t{0}, MaxSieveBound), MaxSieveBound);
}

}  // namespace
}  // namespace tallymere
