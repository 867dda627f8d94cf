// The prime factors of a number of up to 128 bits.
//
// Small factors are found by division along the wheel of candidates, the others by FindDivisor
// (factor_search.h), until every cofactor is proven to be prime by ProvePrimality (prime_proof.h).
#pragma once

#include <cstdint>

#include "core/wide_arithmetic.h"
#include "numtheory/small_primes.h"
#include "numtheory/wide_integers.h"

namespace tallymere {

/// The limbs of each number: the width that factors are calculated at.
inline constexpr int64_t FactorLimbs = WideLimbs;

/// The distinct primes of a number in ascending order, with their exponents.
struct FactorList {
    int64_t count;  ///< 0 to MaxDistinctPrimes; -1 when there were more, or at another width
    uint64_t primes[MaxDistinctPrimes][FactorLimbs];
    uint64_t multiplicities[MaxDistinctPrimes];
};

/// True when the primes ascend, none is below 2, and no exponent is 0.
bool FactorListIsWellFormed(const FactorList& list);

enum class FactorOutcome {
    Complete,    ///< the list holds all factors; it is empty for 0 and 1
    Stopped,     ///< the stop request ended the search; the list holds what was found until then
    WrongWidth,  ///< the width in force is not FactorLimbs; count is -1
};

/// Puts the prime at its place in the list, or raises its exponent by `multiplicity`, 1 or more. A
/// prime beyond MaxDistinctPrimes makes the count -1, and then it stays -1.
void AddFactor(FactorList* list, Wide prime, uint64_t multiplicity);

/// Fills the list with the prime factors of the BigUint n of FactorLimbs limbs, which is not
/// changed. The stop request is heard within a few milliseconds.
FactorOutcome FactorizeNumber(FactorList* list, const uint64_t* n);

}  // namespace tallymere
