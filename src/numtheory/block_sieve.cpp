#include "numtheory/block_sieve.h"

#include <algorithm>
#include <bit>

namespace tallymere {

namespace {

constexpr int64_t BitsPerWord = 64;

constexpr int64_t WordsForBits(int64_t bits) {
    return (bits + BitsPerWord - 1) / BitsPerWord;
}

// Words that hold two arrays of as many 32-bit numbers as there are odd primes up to a bound: there
// are never more than bound / 8 + 512 of them.
constexpr int64_t WordsForPrimes(uint32_t bound) {
    return bound / 8 + 512;
}

inline void Strike(uint64_t* struck, uint64_t index) {
    struck[index / BitsPerWord] |= uint64_t{1} << (index % BitsPerWord);
}

inline bool IsStruck(const uint64_t* struck, uint64_t index) {
    return ((struck[index / BitsPerWord] >> (index % BitsPerWord)) & 1) != 0;
}

// a modulo p, for p below 2^32.
uint32_t RemainderBy(uint32_t p, const uint64_t* a, int64_t limbs) {
    uint64_t rest = 0;
    for (int64_t i = limbs; i-- > 0;) {
        rest = ((rest << 32) | (a[i] >> 32)) % p;
        rest = ((rest << 32) | (a[i] & 0xFFFFFFFFu)) % p;
    }
    return static_cast<uint32_t>(rest);
}

// How many odd numbers there are up to n.
constexpr int64_t CountOddNumbers(uint32_t n) {
    return (int64_t{n} + 1) / 2;
}

// Strikes the composite ones of the first `count` odd numbers. Bit i stands for 2 i + 1.
// Method: the sieve of Eratosthenes.
void StrikeOddComposites(uint64_t* struck, int64_t count) {
    std::fill_n(struck, WordsForBits(count), 0);
    for (const uint64_t p : SmallPrimeTable) {
        for (uint64_t i = p * p / 2; p != 2 && i < static_cast<uint64_t>(count); i += p) {
            Strike(struck, i);
        }
    }
}

// The number itself, or one above all squares of sieving primes if it is larger than those.
uint64_t SmallStart(const uint64_t* start, int64_t limbs) {
    const bool isSmall =
        start[0] <= uint64_t{MaxSieveBound} * MaxSieveBound &&
        std::all_of(start + 1, start + limbs, [](uint64_t limb) { return limb == 0; });
    return isSmall ? start[0] : ~uint64_t{0};
}

// How many odd numbers lie between `start`, which is odd, and the first odd multiple of p that is
// to be struck. `small` is SmallStart of it.
uint32_t DistanceToMultiple(uint32_t p, const uint64_t* start, int64_t limbs, uint64_t small) {
    const uint64_t square = uint64_t{p} * p;
    if (small < square) {
        TALLYMERE_REQUIRE(square - small < uint64_t{1} << 32);
        return static_cast<uint32_t>((square - small) / 2);
    }
    const uint32_t rest = RemainderBy(p, start, limbs);
    const uint32_t missing = rest == 0 ? 0 : p - rest;
    return (missing % 2 == 0 ? missing : missing + p) / 2;
}

}  // namespace

BlockSieve MakeBlockSieve(ScratchScope& scope, uint32_t highestBound, int64_t longestBlock) {
    TALLYMERE_REQUIRE(highestBound <= MaxSieveBound);
    TALLYMERE_REQUIRE(longestBlock >= 1 && longestBlock <= MaxSieveBlock);
    const int64_t words = WordsForPrimes(highestBound);
    auto* numbers = reinterpret_cast<uint32_t*>(scope.Take(words));
    return {.highestBound = highestBound,
            .bound = 2,
            .primeCount = 0,
            .primes = numbers,
            .next = numbers + words,
            .struck = scope.Take(WordsForBits(longestBlock)),
            .longestBlock = longestBlock};
}

void RaiseSieveBound(BlockSieve& sieve, uint32_t bound, const uint64_t* start, int64_t limbs) {
    TALLYMERE_REQUIRE(bound <= sieve.highestBound && start[0] % 2 == 1);
    if (bound <= sieve.bound) {
        return;
    }
    ScratchStackScope scope;
    const int64_t count = CountOddNumbers(bound);
    uint64_t* composite = scope.Take(WordsForBits(count));
    StrikeOddComposites(composite, count);
    const uint64_t small = SmallStart(start, limbs);
    for (int64_t i = CountOddNumbers(sieve.bound); i < count; i++) {
        if (!IsStruck(composite, i)) {
            const auto p = static_cast<uint32_t>(2 * i + 1);
            sieve.primes[sieve.primeCount] = p;
            sieve.next[sieve.primeCount] = DistanceToMultiple(p, start, limbs, small);
            sieve.primeCount++;
        }
    }
    sieve.bound = bound;
}

void SieveNextBlock(BlockSieve& sieve, int64_t count) {
    TALLYMERE_REQUIRE(count >= 1 && count <= sieve.longestBlock);
    uint64_t* struck = sieve.struck;
    std::fill_n(struck, WordsForBits(count), 0);
    const auto end = static_cast<uint32_t>(count);
    for (int64_t i = 0; i < sieve.primeCount; i++) {
        const uint32_t p = sieve.primes[i];
        uint32_t index = sieve.next[i];
        for (; index < end; index += p) {
            Strike(struck, index);
        }
        sieve.next[i] = index - end;
    }
}

int64_t NextUnstruck(const BlockSieve& sieve, int64_t index, int64_t count) {
    while (index < count) {
        const uint64_t left = ~sieve.struck[index / BitsPerWord] >> (index % BitsPerWord);
        if (left != 0) {
            return std::min(index + std::countr_zero(left), count);
        }
        index = (index / BitsPerWord + 1) * BitsPerWord;
    }
    return count;
}

uint32_t SieveBoundFor(uint64_t n, uint32_t highest) {
    TALLYMERE_REQUIRE(highest <= MaxSieveBound);
    uint32_t bound = 0;
    for (uint32_t bit = uint32_t{1} << 19; bit != 0; bit >>= 1) {
        const uint64_t next = bound | bit;
        if (next <= highest && next * next <= n) {
            bound |= bit;
        }
    }
    return bound;
}

}  // namespace tallymere
