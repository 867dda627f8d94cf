// Arrays of 64-bit words times one word, and sums and differences of such arrays: the inner loops
// of products and divisions of exact integers. A division subtracts products; it uses the loop that
// adds, on complements.
//
// Arrays hold n words, least significant first. Every loop exists in portable form in
// `words_portable`. On x86-64 it exists in `words_carry_chains` as well, with two chains of carries
// at a time, which only processors with the extensions BMI2 and ADX have; the functions outside of
// both choose when the program runs. The tests hold the two against each other.
#pragma once

#include <cstdint>

#include "core/wide_arithmetic.h"

#if defined(__x86_64__) && defined(__GNUC__)
#define TALLYMERE_CARRY_CHAINS 1
#endif

namespace tallymere {

/// dest = src * k; returns the word above the top one. dest may be src.
uint64_t MultiplyWords(uint64_t* dest, const uint64_t* src, int64_t n, uint64_t k);

/// dest = dest + src * k; returns the word above the top one. dest may be src.
uint64_t MultiplyAddWords(uint64_t* dest, const uint64_t* src, int64_t n, uint64_t k);

/// dest = a + b and dest = a - b; return the carry and the borrow, 0 or 1. dest may be a or b.
uint64_t AddWords(uint64_t* dest, const uint64_t* a, const uint64_t* b, int64_t n);
uint64_t SubtractWords(uint64_t* dest, const uint64_t* a, const uint64_t* b, int64_t n);

namespace words_portable {
uint64_t Add(uint64_t* dest, const uint64_t* a, const uint64_t* b, int64_t n);
uint64_t Subtract(uint64_t* dest, const uint64_t* a, const uint64_t* b, int64_t n);
uint64_t Multiply(uint64_t* dest, const uint64_t* src, int64_t n, uint64_t k);

/// Inline, for rows so short that a call would count.
inline uint64_t MultiplyAdd(uint64_t* dest, const uint64_t* src, int64_t n, uint64_t k) {
    uint64_t carry = 0;
    for (int64_t i = 0; i < n; i++) {
        const Wide product = wide::Add(wide::Multiply(src[i], k), {0, carry});
        const Wide sum = wide::Add(product, {0, dest[i]});
        dest[i] = sum.low;
        carry = sum.high;
    }
    return carry;
}
}  // namespace words_portable

#ifdef TALLYMERE_CARRY_CHAINS
namespace words_carry_chains {
/// True when the processor can run the next two.
bool Supported();
uint64_t Multiply(uint64_t* dest, const uint64_t* src, int64_t n, uint64_t k);
uint64_t MultiplyAdd(uint64_t* dest, const uint64_t* src, int64_t n, uint64_t k);

/// These run on every x86-64.
uint64_t Add(uint64_t* dest, const uint64_t* a, const uint64_t* b, int64_t n);
uint64_t Subtract(uint64_t* dest, const uint64_t* a, const uint64_t* b, int64_t n);
}  // namespace words_carry_chains
#endif

}  // namespace tallymere
