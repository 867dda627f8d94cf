// PARI's side of the benchmarks. Its header stays out of other files, since it defines many short
// names.
#pragma once

#include <cstdint>

#include "core/wide_arithmetic.h"

namespace tallymere::bench {

/// Starts PARI. The other functions do so at the first call, which then takes longer.
void PreparePari();

/// Whether a word is prime, without a doubt.
bool PariIsPrimeWord(uint64_t n);

/// Whether n is prime, by a proof.
bool PariIsPrime(Wide n);

/// Factors n, and returns how many distinct primes there are.
int64_t PariFactor(Wide n);

/// "2.15.2" or the like.
const char* PariVersion();

}  // namespace tallymere::bench
