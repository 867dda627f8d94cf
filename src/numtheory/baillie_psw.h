// Proofs of primality below 2^64, by the Baillie-PSW test: the strong test to base 2, then the
// strong Lucas test with Selfridge's parameters.
//
// No composite number below 2^64 passes both. Feitsma and Galway listed all pseudoprimes to base 2
// there, and none of them is a Lucas pseudoprime.
//
// Sources: Baillie and Wagstaff, "Lucas pseudoprimes", Math. Comp. 35 (1980); Baillie, Fiori and
// Wagstaff, "Strengthening the Baillie-PSW primality test", Math. Comp. 90 (2021), which reports
// the check of the list.
#pragma once

#include <cstdint>

namespace tallymere {

/// True when n is prime.
bool IsPrimeWord(uint64_t n);

/// The same for an odd n of at least 3, without a trial division before the test: for numbers that
/// a sieve has left over.
bool IsPrimeOddWord(uint64_t n);

}  // namespace tallymere
