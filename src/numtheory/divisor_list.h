// The divisors of a number in ascending order, from its prime factors.
#pragma once

#include <cstdint>

#include "numtheory/factorize_number.h"

namespace tallymere {

/// The most divisors of a list.
inline constexpr int64_t MaxDivisors = 16'384;

/// The largest exponent of a prime for which a list is made.
inline constexpr uint64_t MaxDivisorMultiplicity = 255;

/// Divisors in the caller's array of MaxDivisors numbers, each of FactorLimbs limbs.
struct DivisorList {
    int64_t count;  ///< 0 to MaxDivisors; -1 when there were more
    uint64_t* divisors;
};

/// True when the divisors ascend; equal ones may follow each other.
bool DivisorListIsWellFormed(const DivisorList& list);

/// Inserts a number of FactorLimbs limbs at its place in the ascending list, behind equal ones. A
/// number beyond MaxDivisors makes the count -1, and then it stays -1.
void InsertSortedDivisor(DivisorList* list, const uint64_t* value);

/// Fills the list with all divisors of the number whose prime factors are `factors`, in ascending
/// order, 1 and the number among them. The factors are distinct primes, and the number is below
/// 2^128. For more than MaxDivisors, for an exponent outside 1 to MaxDivisorMultiplicity, and where
/// the count of `factors` is -1, the count is -1 and the array has no meaning. The stop
/// request is not polled: the time hardly grows faster than the number of divisors.
void BuildDivisorList(DivisorList* list, const FactorList* factors);

}  // namespace tallymere
