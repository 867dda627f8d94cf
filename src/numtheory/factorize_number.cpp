#include "numtheory/factorize_number.h"

#include "core/contract.h"
#include "core/number_context.h"
#include "core/stop_request.h"
#include "numtheory/factor_search.h"
#include "numtheory/prime_proof.h"

namespace tallymere {

namespace {

// The walk along the wheel ends with the first candidate above this. A longer walk costs more for
// numbers without small factors than it saves for others.
constexpr uint64_t TrialBound = 1'000;
static_assert(TrialBound >= HighestSmallPrime, "so that MaxLargeFactors holds for what is left");

Wide PrimeAt(const FactorList& list, int64_t i) {
    return WideFromLimbs(list.primes[i]);
}

// Divides r by d as often as it goes; returns how often. d divides r.
uint64_t DivideOut(Wide& r, uint64_t d) {
    uint64_t multiplicity = 0;
    do {
        r = QuotientByWord(r, d);
        multiplicity++;
    } while (RemainderByWord(r, d) == 0);
    return multiplicity;
}

// True when d^2 > r, for a d that is little above TrialBound.
bool IsAboveRoot(uint64_t d, Wide r) {
    return r.high == 0 && d * d > r.low;
}

// Takes the small factors out of r, which is 2 or more. What is left is 1, a prime that is in the
// list too, or has no factor up to TrialBound; returns true in that last case.
bool TakeSmallFactors(FactorList* list, Wide& r) {
    WheelWalk walk = WheelStart;
    for (;;) {
        AdvanceWheel(walk);
        const uint64_t d = walk.divisor;
        if (IsAboveRoot(d, r)) {
            if (r != Widen(1)) {
                AddFactor(list, r, 1);
            }
            return false;
        }
        if (d > TrialBound) {
            return true;
        }
        if (RemainderByWord(r, d) == 0) {
            AddFactor(list, Widen(d), DivideOut(r, d));
        }
    }
}

// Takes the factors out of `rest`, which has none up to TrialBound. Complete or Stopped.
FactorOutcome TakeLargeFactors(FactorList* list, Wide rest) {
    // What is still to be split or proven: the product of these and of the list is n.
    Wide parts[MaxLargeFactors] = {rest};
    int64_t count = 1;
    while (count > 0) {
        const Wide part = parts[count - 1];
        const Primality primality = ProvePrimality(part);
        if (primality == Primality::Unknown) {
            return FactorOutcome::Stopped;
        }
        if (primality == Primality::Prime) {
            AddFactor(list, part, 1);
            count--;
            continue;
        }
        const Wide divisor = FindDivisor(part);
        if (IsZero(divisor)) {
            return FactorOutcome::Stopped;
        }
        TALLYMERE_REQUIRE(count < MaxLargeFactors);
        parts[count - 1] = divisor;
        parts[count] = DivideExactly(part, divisor);
        count++;
    }
    return FactorOutcome::Complete;
}

}  // namespace

bool FactorListIsWellFormed(const FactorList& list) {
    if (list.count < -1 || list.count > MaxDistinctPrimes) {
        return false;
    }
    Wide last = Widen(1);
    for (int64_t i = 0; i < list.count; i++) {
        const Wide prime = PrimeAt(list, i);
        if (AtLeast(last, prime) || list.multiplicities[i] == 0) {
            return false;
        }
        last = prime;
    }
    return true;
}

void AddFactor(FactorList* list, Wide prime, uint64_t multiplicity) {
    TALLYMERE_REQUIRE(multiplicity >= 1 && FactorListIsWellFormed(*list));
    if (list->count < 0) {
        return;
    }
    int64_t place = list->count;
    for (; place > 0; place--) {
        const Wide other = PrimeAt(*list, place - 1);
        if (other == prime) {
            list->multiplicities[place - 1] += multiplicity;
            return;
        }
        if (AtLeast(prime, other)) {
            break;
        }
    }
    if (list->count == MaxDistinctPrimes) {
        list->count = -1;
        return;
    }
    for (int64_t i = list->count; i > place; i--) {
        WideToLimbs(list->primes[i], PrimeAt(*list, i - 1));
        list->multiplicities[i] = list->multiplicities[i - 1];
    }
    WideToLimbs(list->primes[place], prime);
    list->multiplicities[place] = multiplicity;
    list->count++;
}

FactorOutcome FactorizeNumber(FactorList* list, const uint64_t* n) {
    if (numberContext.uintLimbs != FactorLimbs) {
        list->count = -1;
        return FactorOutcome::WrongWidth;
    }
    list->count = 0;
    Wide rest = WideFromLimbs(n);
    if (IsBelow(rest, Widen(2))) {
        return FactorOutcome::Complete;
    }
    if (StopRequested()) {
        return FactorOutcome::Stopped;
    }
    return TakeSmallFactors(list, rest) ? TakeLargeFactors(list, rest) : FactorOutcome::Complete;
}

}  // namespace tallymere
