// Primes by the plainest means, for tests of the number theory.
#pragma once

#include <cstdint>
#include <vector>

namespace tallymere::testing_support {

/// Whether n is a prime, for each n below `end`, which is 2 or more: the sieve of Eratosthenes.
inline std::vector<bool> SieveNumbers(uint64_t end) {
    std::vector<bool> isPrime(end, true);
    isPrime[0] = isPrime[1] = false;
    for (uint64_t p = 2; p * p < end; p++) {
        for (uint64_t multiple = p * p; isPrime[p] && multiple < end; multiple += p) {
            isPrime[multiple] = false;
        }
    }
    return isPrime;
}

/// Whether n, below 2^32, is a prime: division by all numbers up to the square root.
inline bool IsPrimeByDivision(uint64_t n) {
    for (uint64_t d = 2; d * d <= n; d++) {
        if (n % d == 0) {
            return false;
        }
    }
    return n >= 2;
}

/// 6 k + 1, 12 k + 1 and 18 k + 1. Where all three are primes, their product is a Carmichael
/// number. Source: Chernick, "On Fermat's simple theorem", Bulletin of the AMS 45 (1939).
struct ChernickFactors {
    explicit ChernickFactors(uint64_t k) : p(6 * k + 1), q(12 * k + 1), r(18 * k + 1) {}
    uint64_t p;
    uint64_t q;
    uint64_t r;
};

}  // namespace tallymere::testing_support
