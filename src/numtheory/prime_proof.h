// Proofs of primality for numbers below 2^128. What is called prime here is prime.
//
// - Below 2^64: the Baillie-PSW test of baillie_psw.h, which is verified there.
// - Below 3,317,044,064,679,887,385,961,981: the strong test to the first 13 primes, which no
//   composite number there passes. Source: Sorenson and Webster, "Strong pseudoprimes to twelve
//   prime bases", Math. Comp. 86 (2017).
// - Above: a certificate from prime factors of n - 1, whose conditions predecessor_criterion.h has.
//   Source: Brillhart, Lehmer and Selfridge, "New primality criteria and factorizations of
//   2^m +- 1", Math. Comp. 29 (1975).
// - Where no certificate is found: division by all candidates of the wheel up to the square root.
#pragma once

#include <cstdint>

#include "core/wide_arithmetic.h"

namespace tallymere {

enum class Primality {
    Composite,  ///< 0 and 1 as well
    Prime,      ///< proven
    Unknown,    ///< the stop request ended the search
};

/// Whether n is prime. Unknown only after a stop was requested, which is polled every millisecond;
/// below 3,317,044,064,679,887,385,961,981 the answer comes sooner than that.
Primality ProvePrimality(Wide n);

/// By the certificate, and by the walk where none is found, for an odd n of at least 3 that need
/// not be prime. It proves the factors of n - 1 by ProvePrimality, each at most half of n. Unknown
/// after a stop was requested.
Primality ProveByPredecessor(Wide n);

/// The last resort: divides n, which is odd and at least 3, by the candidates of the wheel up to
/// its square root. Unknown when a stop was requested before the end.
Primality ProveByWalk(Wide n);

}  // namespace tallymere
