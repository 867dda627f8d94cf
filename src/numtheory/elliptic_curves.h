// The elliptic curve method: the search for a divisor whose time depends on the size of the divisor
// and hardly on that of the number.
//
// Curves are Montgomery's b y^2 = x^3 + a x^2 + x with Suyama's parameter, so that the order of the
// group is a multiple of 12. A curve finds a prime factor p of n when its order modulo p has small
// prime factors alone. The first stage multiplies a point by the powers of primes up to a bound.
// The second stage allows for one prime more, up to a second bound: it multiplies the differences
// of x of small multiples of the point and of multiples of a step.
//
// Sources: Lenstra, "Factoring integers with elliptic curves", Annals of Mathematics 126 (1987);
// Montgomery, "Speeding the Pollard and elliptic curve methods of factorization", Mathematics of
// Computation 48 (1987); Suyama's parameter as in Zimmermann and Dodson, "20 years of ECM" (2006).
#pragma once

#include <cstdint>

#include "core/wide_arithmetic.h"
#include "numtheory/curve_plans.h"

namespace tallymere {

/// A divisor of n between 1 and n by one curve with the bounds of the plan, or 0 if that does not
/// find one. n is odd and at least 3. `parameter` is 6 or more and below 2^32; it chooses the
/// curve. Takes no more than 30,000 bytes of the thread's stack. The stop request is not polled: a
/// curve of the longest plan takes less than a millisecond.
uint64_t FindDivisorByCurve(uint64_t n, uint64_t parameter, const CurvePlan& plan);
Wide FindDivisorByCurve(Wide n, uint64_t parameter, const CurvePlan& plan);

}  // namespace tallymere
