// Integers from digits and to digits in any radix from 2 to 16, for the bases whose digits are
// neither bits nor groups of decimal limbs.
#pragma once

#include <bit>
#include <cstdint>

#include "exact/big_uint.h"
#include "exact/radix_conversion.h"

namespace tallymere {

/// The most digits that m words can make in a radix, counted by whole bits: exact where the radix
/// is a power of two, too high elsewhere.
constexpr int64_t MostDigitsOfRadix(int64_t m, int64_t radix) {
    const int64_t bits = std::bit_width(static_cast<uint64_t>(radix)) - 1;
    return (BitsPerUintLimb * m + bits - 1) / bits;
}

/// x = x radix^k + the k digits of the text; characters that are no digits of the radix are passed
/// over. False, with x then of no use, when that does not fit. Method: one product for as many
/// digits as a word holds.
bool AppendDigitsOfRadix(GrowingInteger& x, const char16_t* text, int64_t length, int64_t radix);

/// Writes the digits of the integer `a` so that they end before `end` and returns how many there
/// are; 0 has one. There must be room for MostDigitsOfRadix. `alphabet` has a character for each
/// digit. `a` is 0 afterwards. Method: one division for as many digits as a word holds.
int64_t TakeDigitsOfRadix(char16_t* end, uint64_t* a, int64_t radix, const char16_t* alphabet);

}  // namespace tallymere
