// The square factor of an integer, for square roots in lowest terms.
#pragma once

#include <cstdint>

namespace tallymere {

/// Writes outer and inner with n = outer^2 * inner, where no square but 1 divides inner, and
/// returns true. For n = 0 they are 0 and 1. All are BigUint of FactorLimbs limbs
/// (numtheory/factorize_number.h), the width in force. outer and inner must not overlap each other
/// or n.
///
/// The stop request is heard within a few milliseconds: outer is 1 and inner is n then, and the
/// result is false. No code is noted.
///
/// Method: the prime factors of n. A search for divisors of n, up to the cube root of n, comes to
/// the same end without them. But it takes hours for the product of two primes of 64 bits.
bool SplitSquareFactor(uint64_t* outer, uint64_t* inner, const uint64_t* n);

}  // namespace tallymere
