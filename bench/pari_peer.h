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

    /// And with so many digits of its coefficients.
    PariPolynomial(const char* text, int64_t digits);

    /// Calculate, and return how many coefficients the result has.
    int64_t CountProduct(const PariPolynomial& other) const;
    int64_t CountQuotientAndRemainder(const PariPolynomial& divisor) const;
    int64_t CountPower(int64_t exponent) const;

    /// Finds all roots to so many digits, and returns how many there are.
    int64_t CountRoots(int64_t digits) const;

private:
    void* polynomial_;
};

/// A system of linear equations that PARI keeps.
class PariSystem {
public:
    /// From PARI's own notation of a matrix and a column, such as "[1,2;3,4]" and "[5;6]". Numbers
    /// have so many digits, or are exact for 0.
    PariSystem(const char* matrix, const char* rightSide, int64_t digits);
    ~PariSystem();
    PariSystem(const PariSystem&) = delete;
    PariSystem& operator=(const PariSystem&) = delete;

    /// Finds the unknowns, and returns how many there are.
    int64_t CountUnknowns() const;

private:
    void* matrix_;
    void* rightSide_;
};

/// "2.15.2" or the like.
const char* PariVersion();

}  // namespace tallymere::bench
