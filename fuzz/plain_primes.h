// Plain number theory up to 128 bits, for harnesses: what is slow and short.
#pragma once

#include <cstdint>

#include "core/wide_arithmetic.h"

namespace tallymere::fuzz {

__extension__ typedef unsigned __int128 Integer128;

constexpr Integer128 ToInteger(Wide a) {
    return Integer128{a.high} << 64 | a.low;
}
constexpr Wide ToWide(Integer128 a) {
    return {static_cast<uint64_t>(a >> 64), static_cast<uint64_t>(a)};
}

/// The strong test to the first 13 prime bases: a proof below 3.3 * 10^24. No number above is known
/// that it is wrong about, except some that were made for it.
bool IsPlainlyPrime(Integer128 n);

}  // namespace tallymere::fuzz
