// What the Prime Numbers page calculates: the primes of an interval, the next prime, the test of
// one number, each by the exact or the probabilistic method. The page and the console run it.
#pragma once

#include <cstdint>

#include "core/number_setup.h"
#include "prime_pages/page_output.h"

namespace tallymere {

enum PrimeMethod : uint32_t {
    NoMethod = 0,  ///< neither is chosen; a run does nothing
    ExactMethod = 1,
    ProbabilisticMethod = 2,
};

enum PrimeMode : uint32_t {
    IntervalMode = 1,
    NextPrimeMode = 2,
    TestMode = 3,
};

/// The largest interval, and the numbers that a run of another mode may visit.
inline constexpr int64_t MaxPrimeInterval = 2'147'483'647;

/// What the interval field of the page begins with.
inline constexpr const char16_t* InitialPrimeInterval = u"100";

struct PrimeRequest {
    PrimeMethod method;
    PrimeMode mode;
    const uint64_t* number;  ///< of the method's width, not 0; the caller keeps it during the run
    uint64_t count;          ///< 1 to MaxPrimeInterval; that largest one unless IntervalMode
    uint32_t printFlags;     ///< of prime_fields.h
    uint32_t parseFlags;     ///< likewise; what the number was read with
};

/// What a run of a method is calculated with: 2 limbs and 38 digits for the exact one, 65 limbs and
/// 1,252 digits for the others.
NumberSetup PrimeNumberSetup(PrimeMethod method);

/// The decimal digits that a number may have and be sure to fit, of the exact method, and those
/// that one may have at most, of each method. The texts of the methods name them.
inline constexpr int32_t ExactSureDigits = 38;
inline constexpr int32_t ExactMaxDigits = 39;
inline constexpr int32_t ProbabilisticMaxDigits = 1253;

/// Runs the request. PrimeNumberSetup of the method is in force, and the thread has a ScratchStack.
/// Sends the text of the run and ends when RunShouldEnd says so. What fails is pending as a
/// UiError: UiErrorPrimeNumberOverflow where a number of the interval, or of the way to the next
/// prime, does not fit; UiErrorTextOverflow where a piece of text does not; UiErrorStopped after a
/// stop. What was sent stays.
void PrimeWorker(const PrimeRequest& request, SendText send);

}  // namespace tallymere
