// The prime numbers of an interval, one after the other.
//
// Both searches visit the numbers from `start` on and hand each prime to a sink, in ascending
// order. They work at the width in force, poll the stop request between two numbers, within a proof
// as well, and need a ScratchStack. Nothing that they keep grows with the interval.
#pragma once

#include <cstdint>

namespace tallymere {

/// Takes the primes that a search finds.
struct PrimeSink {
    /// Takes a BigUint of the width in force, which is there during the call alone. Returns whether
    /// the search shall go on.
    bool (*take)(void* context, const uint64_t* prime);
    void* context;
    /// Hears of each number that the sieve leaves over, before it is judged, how many numbers of
    /// the interval lie before it. Hears nothing of 2. May be null.
    void (*visit)(void* context, uint64_t visited) = nullptr;
};

enum class SearchOutcome {
    Complete,     ///< all numbers were visited
    EndedBySink,  ///< the sink wanted no more
    Stopped,      ///< the stop request ended it; CalcErrorCancelled may be noted
    Failed,       ///< a CalcError is noted
};

/// An interval has 1 to so many numbers.
inline constexpr uint64_t MaxSearchCount = uint64_t{1} << 62;

/// What both searches are called by.
using PrimeSearchFunction = SearchOutcome (*)(const uint64_t* start, uint64_t count,
                                              PrimeSink sink);

/// The primes among `count` numbers from `start` on, each of them proven.
///
/// `start` is a BigUint of WideLimbs limbs, the width in force, and not 0. `count` is 1 to
/// MaxSearchCount. An interval that leaves the width is searched up to the end of the width and
/// then fails with CalcErrorOverflow. With a code noted before, nothing is visited: the search has
/// failed, or was stopped where that code is CalcErrorCancelled.
///
/// Method: a sieve over blocks. What it leaves over is prime where it has struck the multiples of
/// all primes up to the square root, else ProvePrimality decides.
SearchOutcome SearchPrimesExactly(const uint64_t* start, uint64_t count, PrimeSink sink);

/// The numbers among `count` from `start` on that IsCompositeNumber takes for prime.
///
/// `start` is a BigUint of the width in force, not 0. The rest is as in SearchPrimesExactly.
///
/// Method: a sieve over blocks by the primes of SmallPrimeTable, by which IsCompositeNumber divides
/// first as well; IsCompositeNumber judges the others.
SearchOutcome SearchPrimesProbably(const uint64_t* start, uint64_t count, PrimeSink sink);

}  // namespace tallymere
