// Factorial, binomial coefficient and falling factorial of integers. A failure gives 0; a code that
// was noted before is kept.
#pragma once

#include <cstdint>

namespace tallymere {

/// dest = n!. Code 200 when it does not fit.
void BigUintFactorial(uint64_t* dest, const uint64_t* n);

/// dest = n over k, or with `falling` n (n - 1) ... (n - k + 1); 0 for k > n. Code 203 for more
/// than 2^64 - 1 factors, 200 when a step does not fit (n over k times a number up to k must), 207
/// when asked to stop, which is polled once for each factor.
void BigUintBinomial(uint64_t* dest, const uint64_t* n, const uint64_t* k, bool falling);

}  // namespace tallymere
