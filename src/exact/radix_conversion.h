// Integers between two forms: words, the 64-bit limbs of a BigUint, least significant first; and
// decimal limbs, which have base 10^19, most significant first. The width in force plays no part.
#pragma once

#include <cstdint>

#include "core/limb.h"

namespace tallymere {

/// An upper bound of the decimal limbs of an integer in m words. 1039 / 1024 is just above
/// 64 log10(2) / 19.
constexpr int64_t MaxDecimalLimbs(int64_t m) {
    return (m * 1039 + 1023) / 1024;
}

/// Writes the integer in m words, m >= 0, as decimal limbs. They fill the MaxDecimalLimbs(m) limbs
/// that end at `end`, with zeros in front, and must not overlap the words. Returns the number of
/// limbs from the first that is not 0; that is 0 for the integer 0. Uses CoreScratch, about 3 limbs
/// for each word of a long integer.
/// Method: divide and conquer. An integer is the upper half of its words times a power of 2^64,
/// plus the lower half. Short parts are divided by 10^19 until they are 0.
int64_t WordsToDecimalLimbs(Limb* end, const uint64_t* words, int64_t m);

/// An integer that grows within an array of `capacity` words. The words from `length` on are
/// undefined. The highest word in use is not 0.
struct GrowingInteger {
    uint64_t* words;
    int64_t capacity;
    int64_t length;  ///< words in use, 0 to capacity
};

/// True when x has the invariant above.
bool GrowingIntegerIsWellFormed(const GrowingInteger& x);

/// x = x factor + addend, factor >= 1. False when that does not fit; x has no meaning then.
bool MultiplyAdd(GrowingInteger& x, uint64_t factor, uint64_t addend);

/// x = x 10^(19 count) + the integer in `count` decimal limbs, count >= 0. False when that does not
/// fit; x has no meaning then.
bool AppendDecimalLimbs(GrowingInteger& x, const Limb* limbs, int64_t count);

/// x = x 10^places. False when that does not fit; x has no meaning then. Fast for any number of
/// places: 0 stays 0, and every other x soon does not fit.
bool MultiplyByPowerOfTen(GrowingInteger& x, uint64_t places);

}  // namespace tallymere
