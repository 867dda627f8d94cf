// Whether n is prime, from the prime factors of a part of n - 1.
//
// n - 1 = F R. F, the factored part, is the product of those prime factors of n - 1 that are known,
// each with its full power. R, the rest, is what they leave over; its factors need not be known. So
// F and R have no common factor, F is even and R is odd.
//
// The caller has already shown, by powers modulo n, that each prime factor of n is 1 modulo F.
// Where F is large, that leaves few ways for n to be composite, and where F is large enough, only
// one: n is the product of two factors a F + 1 and b F + 1.
//
// Source: Brillhart, Lehmer and Selfridge, "New primality criteria and factorizations of
// 2^m +- 1", Math. Comp. 29 (1975), theorem 5 with m = 1. It goes on from Pocklington's theorem,
// which wants F^2 > n; here about 2 F^3 > n is enough.
#pragma once

#include "core/wide_arithmetic.h"

namespace tallymere {

/// True when F is large enough for IsProductOfTwoFactors to settle whether n is prime. That is when
/// n < (F + 1) (2 F^2 + (r - 1) F + 1), for r = R mod 2 F. F is even and above 0, R is odd, and F R
/// is below 2^128.
bool IsFactoredPartLargeEnough(Wide factoredPart, Wide rest);

/// For a large enough F: true when n is (a F + 1) (b F + 1) for an a and a b of at least 1. If so,
/// n is composite; if not, n is prime.
bool IsProductOfTwoFactors(Wide factoredPart, Wide rest);

}  // namespace tallymere
