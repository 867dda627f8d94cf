// Random numbers of up to 128 bits for the benchmarks of primes.
#pragma once

#include <cstdint>
#include <random>
#include <string>

#include "core/wide_arithmetic.h"

namespace tallymere::bench {

/// A random number of exactly so many bits, 1 to 128.
Wide RandomWide(std::mt19937_64& random, int64_t bits);

/// A random prime of exactly so many bits, 2 to 128.
Wide RandomWidePrime(std::mt19937_64& random, int64_t bits);

/// Its decimal digits.
std::string WideText(Wide n);

}  // namespace tallymere::bench
