// Pollard's rho in Brent's form: the search for a divisor that is best for small numbers.
//
// Sources: Pollard, "A Monte Carlo method for factorization", BIT 15 (1975); Brent, "An improved
// Monte Carlo factorization algorithm", BIT 20 (1980).
#pragma once

#include <cstdint>

namespace tallymere {

/// A divisor of n between 1 and n, or 0 if about `steps` steps do not find one. n is odd and at
/// least 3. A step takes x to x^2 + constant modulo n, for a constant from 1 to n - 1. A prime
/// factor p is found after about the square root of p steps. The stop request is not polled.
uint64_t FindDivisorByRho(uint64_t n, uint64_t constant, uint64_t steps);

}  // namespace tallymere
