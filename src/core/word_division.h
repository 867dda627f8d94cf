// Division by one machine word through its reciprocal, which is looked up or computed once, and
// inverses modulo 2^64.
#pragma once

#include <cstdint>

#include "core/contract.h"
#include "core/wide_arithmetic.h"

namespace tallymere {

/// Stands for the reciprocal of a power of two.
inline constexpr uint64_t PowerOfTwoReciprocal = 0x8000000000000000u;

/// What Divide128 needs to know of d >= 1: PowerOfTwoReciprocal if d is a power of two, else
/// floor(2^(64 + floor(log2 d)) / d).
constexpr uint64_t ComputeDivisorReciprocal(uint64_t d) {
    TALLYMERE_REQUIRE(d >= 1);
    return (d & (d - 1)) == 0 ? PowerOfTwoReciprocal
                              : wide::Divide({uint64_t{1} << HighestBit(d), 0}, d);
}

/// The same, up to 2000 from a table; 0 for d = 0.
uint64_t DivisorReciprocal(uint64_t d);

/// The quotient of the 128-bit value (high, low) by d, for high < d; writes the remainder.
/// `reciprocal` is DivisorReciprocal(d).
uint64_t Divide128(uint64_t* remainder, uint64_t high, uint64_t low, uint64_t d,
                   uint64_t reciprocal);

/// The inverse of an odd word modulo 2^64.
/// Method: Newton's iteration, which doubles the right bits each time, from 3 n xor 2, which has 5.
constexpr uint64_t InverseModuloWord(uint64_t n) {
    TALLYMERE_REQUIRE((n & 1) != 0);
    uint64_t inverse = (3 * n) ^ 2;
    for (int bits = 5; bits < 64; bits *= 2) {
        inverse *= 2 - n * inverse;
    }
    return inverse;
}

}  // namespace tallymere
