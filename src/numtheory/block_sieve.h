// A sieve over blocks: which of a run of consecutive odd numbers have a small prime factor.
//
// The run may begin anywhere: for each sieving prime the sieve knows how far its next odd multiple
// is from the start of the next block. A prime strikes nothing below its own square, so that the
// sieve strikes no prime number.
// Source: the segmented sieve of Eratosthenes; Bays and Hudson, "The segmented sieve of
// Eratosthenes and primes in arithmetic progressions to 10^12", BIT 17 (1977).
#pragma once

#include <cstdint>

#include "core/scratch.h"
#include "numtheory/small_primes.h"

namespace tallymere {

/// The highest bound of the sieving primes: SmallPrimeTable alone finds all primes up to here.
inline constexpr uint32_t MaxSieveBound = FirstLargePrime * FirstLargePrime - 1;

/// The longest block: 32,768 bytes, which a processor keeps at hand.
inline constexpr int64_t MaxSieveBlock = int64_t{1} << 18;

struct BlockSieve {
    uint32_t highestBound;  ///< the room that was taken is for this bound
    uint32_t bound;         ///< the odd primes up to here sieve
    int64_t primeCount;     ///< how many they are
    uint32_t* primes;       ///< in ascending order
    uint32_t* next;         ///< for each of them, how many odd numbers lie between the start of the
                            ///< next block and the first number that it strikes there or behind it
    uint64_t* struck;       ///< a bit for each number of the last block: 1 where a prime strikes it
    int64_t longestBlock;   ///< the room of `struck` is for so many numbers
};

/// A sieve without primes yet, for blocks of up to `longestBlock` odd numbers, 1 to MaxSieveBlock,
/// and bounds up to `highestBound`, at most MaxSieveBound. It takes about highestBound bytes and
/// longestBlock / 8 bytes of the scope, and a raise of the bound takes up to bound / 16 bytes for a
/// while: 1.2 MB at the most.
BlockSieve MakeBlockSieve(ScratchScope& scope, uint32_t highestBound, int64_t longestBlock);

/// Lets the odd primes up to `bound` sieve the next block and all behind it; a lower bound than the
/// one before changes nothing. `start` is the first number of the next block, odd, and has `limbs`
/// limbs, least significant first. The square of the bound is below start + 2^32. Needs a
/// ScratchStack.
void RaiseSieveBound(BlockSieve& sieve, uint32_t bound, const uint64_t* start, int64_t limbs);

/// Sieves the next `count` odd numbers, 1 to longestBlock: bits 0 to count - 1 of sieve.struck.
void SieveNextBlock(BlockSieve& sieve, int64_t count);

/// The index of the first number from `index` on that the last block, of `count` numbers, has left
/// over; `count` if there is none.
int64_t NextUnstruck(const BlockSieve& sieve, int64_t index, int64_t count);

/// The largest b up to `highest`, which is at most MaxSieveBound, with b * b <= n.
uint32_t SieveBoundFor(uint64_t n, uint32_t highest);

}  // namespace tallymere
