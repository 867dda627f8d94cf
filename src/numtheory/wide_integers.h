// Integers of 64 and of 128 bits: what the searches need of them beyond sums and products of words.
//
// A search that is written once for both kinds, as a template, takes either as its Number.
#pragma once

#include <bit>
#include <cstdint>

#include "core/contract.h"
#include "core/wide_arithmetic.h"
#include "core/word_division.h"

namespace tallymere {

/// The limbs of a BigUint that holds any number of 128 bits.
inline constexpr int64_t WideLimbs = 2;

/// The number in WideLimbs limbs, the least significant first, and such limbs from a number.
constexpr Wide WideFromLimbs(const uint64_t* limbs) {
    return {limbs[1], limbs[0]};
}
constexpr void WideToLimbs(uint64_t* limbs, Wide a) {
    limbs[0] = a.low;
    limbs[1] = a.high;
}

/// A word as a number of either kind.
template <typename Number>
constexpr Number NumberOf(uint64_t word);
template <>
constexpr uint64_t NumberOf<uint64_t>(uint64_t word) {
    return word;
}
template <>
constexpr Wide NumberOf<Wide>(uint64_t word) {
    return {0, word};
}

/// A number of either kind as a Wide.
constexpr Wide Widen(uint64_t a) {
    return {0, a};
}
constexpr Wide Widen(Wide a) {
    return a;
}

constexpr bool IsZero(uint64_t a) {
    return a == 0;
}
constexpr bool IsZero(Wide a) {
    return (a.high | a.low) == 0;
}

constexpr bool IsOdd(uint64_t a) {
    return (a & 1) != 0;
}
constexpr bool IsOdd(Wide a) {
    return (a.low & 1) != 0;
}

constexpr bool IsBelow(uint64_t a, uint64_t b) {
    return a < b;
}
constexpr bool IsBelow(Wide a, Wide b) {
    return !AtLeast(a, b);
}

/// Bit i of a, for i from 0 to 63 or to 127. Bit 0 is the lowest.
constexpr bool BitOf(uint64_t a, int i) {
    return ((a >> i) & 1) != 0;
}
constexpr bool BitOf(Wide a, int i) {
    return BitOf(i >= 64 ? a.high : a.low, i % 64);
}

/// The bits of a without leading zeros; 0 for a = 0.
constexpr int BitLength(uint64_t a) {
    return 64 - std::countl_zero(a);
}
constexpr int BitLength(Wide a) {
    return a.high != 0 ? 64 + BitLength(a.high) : BitLength(a.low);
}

/// How often 2 divides a, for a > 0.
constexpr int CountTrailingZeros(uint64_t a) {
    TALLYMERE_REQUIRE(a != 0);
    return std::countr_zero(a);
}
constexpr int CountTrailingZeros(Wide a) {
    TALLYMERE_REQUIRE(!IsZero(a));
    return a.low != 0 ? std::countr_zero(a.low) : 64 + std::countr_zero(a.high);
}

/// a - b, for b of at most a.
constexpr uint64_t Difference(uint64_t a, uint64_t b) {
    TALLYMERE_REQUIRE(a >= b);
    return a - b;
}
constexpr Wide Difference(Wide a, Wide b) {
    TALLYMERE_REQUIRE(AtLeast(a, b));
    return wide::Subtract(a, b);
}

/// a / 2, rounded down.
constexpr uint64_t Half(uint64_t a) {
    return a >> 1;
}
constexpr Wide Half(Wide a) {
    return {a.high >> 1, (a.high << 63) | (a.low >> 1)};
}

/// a without its factors 2, for a > 0.
constexpr uint64_t OddPart(uint64_t a) {
    TALLYMERE_REQUIRE(a != 0);
    return a >> std::countr_zero(a);
}
constexpr Wide OddPart(Wide a) {
    TALLYMERE_REQUIRE(!IsZero(a));
    if (a.low == 0) {
        return {0, OddPart(a.high)};
    }
    const int zeros = std::countr_zero(a.low);
    return {a.high >> zeros, ((a.high << 1) << (63 - zeros)) | (a.low >> zeros)};
}

/// a b modulo 2^128.
constexpr Wide MultiplyLow(Wide a, Wide b) {
    Wide product = wide::Multiply(a.low, b.low);
    product.high += a.high * b.low + a.low * b.high;
    return product;
}

/// The remainder of n by d, for d >= 1.
constexpr uint64_t RemainderByWord(Wide n, uint64_t d) {
    TALLYMERE_REQUIRE(d >= 1);
    if (n.high == 0) {
        return n.low % d;
    }
    const uint64_t high = n.high % d;
    return n.low - wide::Divide({high, n.low}, d) * d;
}

/// The quotient of n by d, rounded down, for d >= 1.
constexpr Wide QuotientByWord(Wide n, uint64_t d) {
    TALLYMERE_REQUIRE(d >= 1);
    const uint64_t high = n.high / d;
    return {high, wide::Divide({n.high - high * d, n.low}, d)};
}

/// The quotient of n by an odd d that divides it.
/// Method: the product with the inverse of d modulo 2^128. That inverse is made of the one modulo
/// 2^64 by a step of Newton's iteration.
constexpr Wide DivideExactly(Wide n, Wide d) {
    TALLYMERE_REQUIRE(IsOdd(d));
    const Wide inverse = {0, InverseModuloWord(d.low)};
    const Wide error = wide::Subtract({0, 2}, MultiplyLow(d, inverse));
    return MultiplyLow(n, MultiplyLow(inverse, error));
}

/// The square root of n, rounded down. Method: bit by bit, from the highest down.
constexpr uint64_t SquareRootOf(Wide n) {
    uint64_t root = 0;
    for (uint64_t bit = uint64_t{1} << 63; bit != 0; bit >>= 1) {
        if (AtLeast(n, wide::Multiply(root | bit, root | bit))) {
            root |= bit;
        }
    }
    return root;
}

}  // namespace tallymere
