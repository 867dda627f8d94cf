// Factorial, binomial coefficient and falling factorial of integers. A failure gives 0. A code that
// was noted before is kept.
#pragma once

#include <cstdint>

namespace tallymere {

/// dest = n!. CalcErrorOverflow when it does not fit.
void BigUintFactorial(uint64_t* dest, const uint64_t* n);

/// dest = n over k, or n (n - 1) ... (n - k + 1) when `falling` is true; 0 for k > n.
///
/// n over k is n over n - k too, and the smaller of both is the number of factors.
/// CalcErrorUndefined for more than 2^64 - 1 factors. CalcErrorOverflow when a product on the way
/// does not fit: for n over k that may be as large as the result times the number of factors. The
/// stop request is polled once for each factor; it gives CalcErrorCancelled.
void BigUintBinomial(uint64_t* dest, const uint64_t* n, const uint64_t* k, bool falling);

}  // namespace tallymere
