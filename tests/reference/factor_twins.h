// Plain twins of the prime factors and the divisors of a number: the walk along the wheel of
// candidates up to the square root, and divisors layer by layer.
//
// The width in force must be FactorLimbs, and no code may be noted before.
#pragma once

#include <cstdint>

#include "numtheory/divisor_list.h"
#include "numtheory/factorize_number.h"

namespace tallymere::reference {

/// The candidates are numbers that share no factor with 30030, and the six primes of it. The square
/// root is taken anew after each factor. `list` is that of FactorizeNumber for a number of 0 or
/// more that nobody stops.
void TwinFactorizeNumber(FactorList* list, const uint64_t* n);

/// Breadth first by the number of prime factors of a divisor: each layer is made of the one before,
/// a product that is there already is found again by a search from the start, and every new one is
/// inserted at its place. Layers have 4,096 numbers at most, lists 16,384.
void TwinBuildDivisorList(DivisorList* list, const FactorList* factors);

}  // namespace tallymere::reference
