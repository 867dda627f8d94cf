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

/// A polynomial in x that PARI keeps.
class PariPolynomial {
public:
    /// From PARI's own notation, such as "x^2-2".
    explicit PariPolynomial(const char* text);
    ~PariPolynomial();
    PariPolynomial(const PariPolynomial&) = delete;
    PariPolynomial& operator=(const PariPolynomial&) = delete;

    /// Finds all roots to so many digits, and returns how many there are.
    int64_t CountRoots(int64_t digits) const;

private:
    void* polynomial_;
};

/// "2.15.2" or the like.
const char* PariVersion();

}  // namespace tallymere::bench
