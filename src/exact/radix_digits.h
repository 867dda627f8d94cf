// Integers from digits and to digits in any radix from 2 to HighestBase, for the bases whose digits
// are neither bits nor groups of decimal limbs.
#pragma once

#include <bit>
#include <cstdint>

#include "core/contract.h"
#include "core/number_bases.h"
#include "exact/big_uint.h"
#include "exact/radix_conversion.h"

namespace tallymere {

/// True for a radix that the functions below take.
constexpr bool IsRadix(int64_t radix) {
    return radix >= 2 && radix <= HighestBase;
}

/// The most digits that m words, m >= 0, can make in a radix, counted by whole bits: exact where
/// the radix is a power of two, too high elsewhere.
constexpr int64_t MostDigitsOfRadix(int64_t m, int64_t radix) {
    TALLYMERE_REQUIRE(m >= 0 && IsRadix(radix));
    const int64_t bits = std::bit_width(static_cast<uint64_t>(radix)) - 1;
    return (BitsPerUintLimb * m + bits - 1) / bits;
}

/// x = x radix^k + the k digits of the text of `length` characters, length >= 0. Characters that
/// are no digits of the radix are passed over. False when that does not fit; x has no meaning then.
/// Method: one product for as many digits as a word holds.
bool AppendDigitsOfRadix(GrowingInteger& x, const char16_t* text, int64_t length, int64_t radix);

/// Writes the digits of the integer `a` so that they end before `end` and returns how many there
/// are; 0 has one. There must be room for MostDigitsOfRadix. `alphabet` has a character for each
/// digit. `a` is 0 afterwards. Method: one division for as many digits as a word holds.
int64_t TakeDigitsOfRadix(char16_t* end, uint64_t* a, int64_t radix, const char16_t* alphabet);

}  // namespace tallymere
