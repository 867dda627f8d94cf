// Integers between words, the 64-bit limbs of a BigUint, least significant first, and decimal
// limbs, those of base 10^19, most significant first. The width in force plays no part.
#pragma once

#include <cstdint>

#include "core/limb.h"

namespace tallymere {

/// The most decimal limbs that m words can make: 1039 / 1024 is just above 64 log10(2) / 19.
constexpr int64_t MaxDecimalLimbs(int64_t m) {
    return (m * 1039 + 1023) / 1024;
}

/// Writes the integer in m words as decimal limbs into the MaxDecimalLimbs(m) limbs that end
/// at `end`, with zeros in front, and returns how many there are from the first that is not 0 on;
/// 0 has none. They must not overlap the words. Uses CoreScratch, about 3 limbs for each word of a
/// long integer. Method: the upper half of the words times a power of 2^64, plus the lower half,
/// down to parts that are divided by 10^19 again and again.
int64_t WordsToDecimalLimbs(Limb* end, const uint64_t* words, int64_t m);

/// An integer that grows within an array of `capacity` words. Those from `length` on are undefined;
/// the highest in use is not 0.
struct GrowingInteger {
    uint64_t* words;
    int64_t capacity;
    int64_t length;  ///< words in use
};

/// x = x factor + addend, factor >= 1; false, with x then of no use, when that does not fit.
bool MultiplyAdd(GrowingInteger& x, uint64_t factor, uint64_t addend);

/// x = x 10^(19 count) + the integer in so many decimal limbs; false, with x then of no use, when
/// that does not fit.
bool AppendDecimalLimbs(GrowingInteger& x, const Limb* limbs, int64_t count);

/// x = x 10^places; false, with x then of no use, when that does not fit. Any number of places is
/// dealt with at once: 0 stays, and everything else soon does not fit.
bool MultiplyByPowerOfTen(GrowingInteger& x, uint64_t places);

}  // namespace tallymere
