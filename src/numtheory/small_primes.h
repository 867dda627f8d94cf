// The primes below 1000, and the wheel that leads through all candidates for a divisor.
//
// The walk along the wheel starts at 1. Seven steps lead through 2, 3, 5, 7, 11 and 13 to 17. From
// there on it visits the numbers that have none of these six primes as a factor, 5,760 in each
// stretch of 30,030, and so every prime.
#pragma once

#include <array>
#include <cstdint>

#include "core/contract.h"

namespace tallymere {

inline constexpr int64_t SmallPrimeCount = 168;

/// The primes from 2 to 997 in ascending order.
extern const std::array<uint16_t, SmallPrimeCount> SmallPrimeTable;

/// The last of them, and the prime that follows it.
inline constexpr uint32_t HighestSmallPrime = 997;
inline constexpr uint32_t FirstLargePrime = 1'009;

/// The most distinct primes that a number of 128 bits can have: the product of the first 26 primes
/// is below 2^128, that of the first 27 is above it.
inline constexpr int64_t MaxDistinctPrimes = 26;

/// The most factors of FirstLargePrime or more that a number of 128 bits can have, equal ones
/// counted each.
inline constexpr int64_t MaxLargeFactors = 12;

/// True when n is in SmallPrimeTable. For an n below FirstLargePrime: true when n is prime.
bool IsSmallPrime(uint64_t n);

/// The product of the primes from 2 to 13: the length of the stretch that repeats.
inline constexpr uint64_t PrimeGapWheelPeriod = 2 * 3 * 5 * 7 * 11 * 13;

/// The steps of the wheel, and the first of those that repeat.
inline constexpr uint32_t PrimeGapWheelSize = 5'767;
inline constexpr uint32_t PrimeGapWheelRestart = 7;

/// The steps from 1 on. After the last of them comes number PrimeGapWheelRestart again.
extern const std::array<uint8_t, PrimeGapWheelSize> PrimeGapWheel;

/// True when a prime from 3 to 997 divides n, which has `limbs` limbs, 1 or more, least significant
/// first. n may be one of these primes itself, and 0 has them all.
bool HasSmallOddPrime(const uint64_t* n, int64_t limbs);

/// A place on the walk: a candidate, and the step that leads to the next one.
struct WheelWalk {
    uint64_t divisor;
    uint32_t index;  ///< below PrimeGapWheelSize
};

/// Before the first candidate, 2; and before 3, for numbers that are known to be odd.
inline constexpr WheelWalk WheelStart = {1, 0};
inline constexpr WheelWalk WheelStartForOddNumbers = {2, 1};

/// Goes to the next candidate. False when it is not below 2^64; divisor is too small by 2^64 then.
inline bool AdvanceWheel(WheelWalk& walk) {
    TALLYMERE_REQUIRE(walk.index < PrimeGapWheelSize);
    const uint64_t step = PrimeGapWheel[walk.index];
    walk.divisor += step;
    walk.index = walk.index + 1 == PrimeGapWheelSize ? PrimeGapWheelRestart : walk.index + 1;
    return walk.divisor >= step;
}

}  // namespace tallymere
