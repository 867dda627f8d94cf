// Factorial, binomial coefficient and falling factorial of integers.
#pragma once

#include <cstdint>

namespace tallymere {

/// dest = n!. 0 and code 200 when it does not fit. A code that was noted before is kept.
void BigUintFactorial(uint64_t* dest, const uint64_t* n);

/// dest = n over k, or with `falling` n (n - 1) ... (n - k + 1); 0 for k > n. A failure gives 0:
/// code 203 for more than 2^64 - 1 factors, 200 when a step does not fit, 207 when asked to stop,
/// which is polled once for each factor. A code that was noted before is kept.
void BigUintBinomial(uint64_t* dest, const uint64_t* n, const uint64_t* k, bool falling);

}  // namespace tallymere
