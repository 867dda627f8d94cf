// 128-bit products and carries: the one place that asks what the compiler offers.
//
// Every operation exists in portable form in `wide_portable`. Where the compiler offers 128-bit
// integers, the unqualified names use those; the tests hold the two against each other.
#pragma once

#include <bit>
#include <cstdint>

#include "core/contract.h"

namespace tallymere {

/// A 128-bit unsigned value in two words.
struct Wide {
    uint64_t high;
    uint64_t low;

    constexpr bool operator==(const Wide&) const = default;
};

namespace wide_portable {

/// x * y, exact.
constexpr Wide Multiply(uint64_t x, uint64_t y) {
    const uint64_t xLow = x & 0xFFFFFFFFu;
    const uint64_t xHigh = x >> 32;
    const uint64_t yLow = y & 0xFFFFFFFFu;
    const uint64_t yHigh = y >> 32;
    const uint64_t lowLow = xLow * yLow;
    const uint64_t highLow = xHigh * yLow;
    const uint64_t lowHigh = xLow * yHigh;
    const uint64_t middle = (lowLow >> 32) + (highLow & 0xFFFFFFFFu) + (lowHigh & 0xFFFFFFFFu);
    return {xHigh * yHigh + (highLow >> 32) + (lowHigh >> 32) + (middle >> 32),
            (middle << 32) | (lowLow & 0xFFFFFFFFu)};
}

/// x * y + a + b, exact.
constexpr Wide MultiplyAdd(uint64_t x, uint64_t y, uint64_t a, uint64_t b) {
    Wide sum = Multiply(x, y);
    sum.low += a;
    sum.high += sum.low < a ? 1u : 0u;
    sum.low += b;
    sum.high += sum.low < b ? 1u : 0u;
    return sum;
}

/// a + b modulo 2^128.
constexpr Wide Add(Wide a, Wide b) {
    const uint64_t low = a.low + b.low;
    return {a.high + b.high + (low < a.low ? 1u : 0u), low};
}

/// a - b modulo 2^128.
constexpr Wide Subtract(Wide a, Wide b) {
    return {a.high - b.high - (a.low < b.low ? 1u : 0u), a.low - b.low};
}

/// a - b, and + n if that is negative; a and b are at most n.
constexpr Wide SubtractModulo(Wide a, Wide b, Wide n) {
    const bool borrows = a.high < b.high || (a.high == b.high && a.low < b.low);
    const uint64_t mask = borrows ? ~uint64_t{0} : 0;
    return Add(Subtract(a, b), {n.high & mask, n.low & mask});
}

/// Adds `value` to the 192-bit sum (overflow, sum), without overflow of its own.
constexpr void Accumulate(uint64_t& overflow, Wide& sum, Wide value) {
    const Wide next = Add(sum, value);
    const bool carry = next.high < value.high || (next.high == value.high && next.low < value.low);
    overflow += carry ? 1u : 0u;
    sum = next;
}

/// The quotient of a 128-bit value by d, for value.high < d.
constexpr uint64_t Divide(Wide value, uint64_t d) {
    TALLYMERE_REQUIRE(value.high < d);
    uint64_t remainder = value.high;
    uint64_t quotient = 0;
    for (int bit = 63; bit >= 0; bit--) {
        const bool wraps = (remainder >> 63) != 0;
        remainder = (remainder << 1) | ((value.low >> bit) & 1);
        quotient <<= 1;
        if (wraps || remainder >= d) {
            remainder -= d;
            quotient |= 1;
        }
    }
    return quotient;
}

}  // namespace wide_portable

#ifdef __SIZEOF_INT128__

namespace wide_native {

__extension__ typedef unsigned __int128 Word128;

constexpr Word128 Join(Wide a) {
    return (Word128{a.high} << 64) | a.low;
}
constexpr Wide Split(Word128 a) {
    return {static_cast<uint64_t>(a >> 64), static_cast<uint64_t>(a)};
}

constexpr Wide Multiply(uint64_t x, uint64_t y) {
    return Split(Word128{x} * y);
}
constexpr Wide MultiplyAdd(uint64_t x, uint64_t y, uint64_t a, uint64_t b) {
    return Split(Word128{x} * y + a + b);
}
constexpr Wide Add(Wide a, Wide b) {
    return Split(Join(a) + Join(b));
}
constexpr Wide Subtract(Wide a, Wide b) {
    return Split(Join(a) - Join(b));
}
constexpr Wide SubtractModulo(Wide a, Wide b, Wide n) {
    const Word128 difference = Join(a) - Join(b);
    // Without a branch, which nobody could predict.
    const uint64_t mask = Join(a) < Join(b) ? ~uint64_t{0} : 0;
    return Split(difference + Join({n.high & mask, n.low & mask}));
}
constexpr void Accumulate(uint64_t& overflow, Wide& sum, Wide value) {
    const Word128 next = Join(sum) + Join(value);
    overflow += next < Join(value) ? 1u : 0u;
    sum = Split(next);
}

constexpr uint64_t Divide(Wide value, uint64_t d) {
    TALLYMERE_REQUIRE(value.high < d);
    return static_cast<uint64_t>(Join(value) / d);
}

}  // namespace wide_native

namespace wide = wide_native;
#else
namespace wide = wide_portable;
#endif

/// The high word of x * y.
constexpr uint64_t MultiplyHigh(uint64_t x, uint64_t y) {
    return wide::Multiply(x, y).high;
}

/// True when a >= b, as 128-bit values.
constexpr bool AtLeast(Wide a, Wide b) {
    return a.high > b.high || (a.high == b.high && a.low >= b.low);
}

/// Index 0 to 63 of the highest set bit of v, which must not be 0.
constexpr int HighestBit(uint64_t v) {
    TALLYMERE_REQUIRE(v != 0);
    return 63 - std::countl_zero(v);
}

}  // namespace tallymere
