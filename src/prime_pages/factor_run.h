// What the Prime Factors page calculates: the prime factors or the divisors of each number of an
// interval. The page and the console run it.
#pragma once

#include <cstdint>

#include "core/number_setup.h"
#include "numtheory/divisor_list.h"
#include "prime_pages/page_output.h"

namespace tallymere {

/// The largest interval, and the one that a blank field means.
inline constexpr int64_t MaxFactorInterval = 1'000'000;
inline constexpr int32_t BlankFactorInterval = 1;

/// Words of the room for a list of divisors.
inline constexpr int64_t FactorDivisorWords = MaxDivisors * FactorLimbs;

struct FactorRequest {
    bool showDivisors;             ///< divisors instead of prime factors
    bool showCount;                ///< with showDivisors alone: their number as well
    uint64_t number[FactorLimbs];  ///< the first of the interval, not 0
    int32_t interval;              ///< 1 to MaxFactorInterval
    uint32_t printFlags;           ///< of prime_fields.h
    uint32_t parseFlags;           ///< likewise; what the number was read with
    uint64_t* divisors;            ///< FactorDivisorWords of the caller; null unless showDivisors
};

/// What a run is calculated with: 2 limbs and 38 digits.
NumberSetup FactorNumberSetup();

/// Runs the request. FactorNumberSetup is in force, and the thread has a ScratchStack. Sends a line
/// for each number and ends when RunShouldEnd says so. What fails is pending as a UiError: with
/// showDivisors, UiErrorTooManyPrimeFactors with the number for one with more than MaxDivisors
/// divisors; UiErrorPrimeFactorOverflow when the number behind one of the interval does not fit;
/// UiErrorTextOverflow when a piece of text does not; UiErrorInternal at another width;
/// UiErrorStopped after a stop. What was sent stays; a line of divisors may end in its midst.
void FactorWorker(const FactorRequest& request, SendText send);

}  // namespace tallymere
