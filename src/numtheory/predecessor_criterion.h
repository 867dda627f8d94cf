// When the prime factors of a part of n - 1 say whether n is prime.
//
// n - 1 = F R, where F and R have no common factor, F is even and R is odd. It is known that each
// prime factor of n is 1 modulo F.
//
// Source: Brillhart, Lehmer and Selfridge, "New primality criteria and factorizations of
// 2^m +- 1", Math. Comp. 29 (1975), theorem 5 with m = 1. It goes on from Pocklington's theorem,
// which wants F^2 > n; here about 2 F^3 > n is enough.
#pragma once

#include "core/wide_arithmetic.h"

namespace tallymere {

/// True when F is so large that IsProductOfTwoOfTheForm can tell: when
/// n < (F + 1) (2 F^2 + (r - 1) F + 1), for r = R mod 2 F.
bool IsLargeEnoughFactor(Wide factored, Wide rest);

/// For a large enough F: true when n is (a F + 1) (b F + 1) for an a and a b of at least 1. If so,
/// n is composite; if not, n is prime.
bool IsProductOfTwoOfTheForm(Wide factored, Wide rest);

}  // namespace tallymere
