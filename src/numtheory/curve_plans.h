// What a curve of the elliptic curve method works with: the multiplier of its first stage, and the
// primes that its second stage covers.
#pragma once

#include <cstdint>
#include <span>

namespace tallymere {

/// The most small and large multiples that a second stage works with.
inline constexpr int64_t MaxSmallMultiples = 240;
inline constexpr int64_t MaxLargeMultiples = 160;

/// The bounds of a curve, and their tables.
///
/// Each prime above firstBound and up to secondBound is c step + s or c step - s. Here s is a small
/// multiple, which is below step / 2 and has no common factor with step, and c is one of largeCount
/// numbers from firstLarge on. The words covered[i * coveredWords] to
/// covered[i * coveredWords + coveredWords - 1] belong to the i-th c: bit k, counted through them,
/// is set if the k-th s makes such a prime.
struct CurvePlan {
    uint64_t firstBound;
    uint64_t secondBound;
    const uint64_t* multiplier;  ///< the least common multiple of 1 to firstBound, low word first
    int64_t multiplierBits;
    uint64_t step;  ///< a multiple of 6
    const uint16_t* smallMultiples;
    int64_t smallCount;
    uint64_t firstLarge;  ///< 1 or more
    int64_t largeCount;   ///< 2 or more
    const uint64_t* covered;
    int64_t coveredWords;
};

/// True when the numbers of a plan are in their ranges. The tables are not looked at.
bool CurvePlanIsWellFormed(const CurvePlan& plan);

inline constexpr int64_t CurvePlanCount = 6;

/// The plans in the order of their bounds, each for divisors of a few bits more. Their tables, some
/// 10,000 bytes, are made by the first call, in less than a millisecond.
std::span<const CurvePlan, CurvePlanCount> CurvePlans();

}  // namespace tallymere
