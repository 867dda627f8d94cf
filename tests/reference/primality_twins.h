// Plain twins of the tests of primality: every power by square and divide at twice the width, the
// Jacobi symbol step by step, and division by every candidate up to the square root.
//
// They share nothing with the program. Arrays hold the least significant limb first.
#pragma once

#include <cstdint>

#include "reference/big_uint_multiply_twins.h"

namespace tallymere::reference {

/// 0 when n is taken for a prime, else 1.
int TwinIsCompositeNumber(const TwinLimbs& n);

/// For an odd n.
bool TwinEulerTestBase2(const TwinLimbs& n);
bool TwinEulerTestBase3(const TwinLimbs& n);

/// For an odd b; correct where a and b have no common factor.
int32_t TwinJacobiSymbol(const TwinLimbs& a, const TwinLimbs& b);

/// True when no number from 2 to the square root of n divides n, which is 2 or more. The candidates
/// are those of the wheel over the primes up to 13.
bool TwinIsPrimeByWalk(uint64_t n);

}  // namespace tallymere::reference
