// The bases in which integers are read and written: one row for each.
//
// Whatever depends on a base reads its row: the prefix of numbers in formulas, the list in which a
// page offers bases, texts of integers and the console. A new base needs its row, its key on the
// calculator and its help.
#pragma once

#include <cstdint>
#include <iterator>

#include "core/digit_text.h"

namespace tallymere {

/// The digits of a base are the first ones of 0 to 9 and A to F, letters of either case.
struct NumberBase {
    int32_t base;           ///< 2 to 16
    char16_t prefixLetter;  ///< small, written behind "0" before a number; 0: there is no prefix
    int32_t groupSize;      ///< digits between two group separators
    /// Of a list that offers the base; 0: every list offers it. NumberBaseStyle in
    /// layout/number_base_layout.h has the bits that are taken.
    uint32_t styleBit;
};

/// In the order in which lists offer them.
// clang-format off
inline constexpr NumberBase NumberBases[] = {
    {2, u'y', 4, 2},
    {8, u't', 4, 4},
    {10, 0, 3, 0},
    {16, u'x', 4, 0},
};
// clang-format on

inline constexpr int64_t DecimalBase = 10;
inline constexpr int64_t HighestBase = 16;

/// Characters of the prefix of a base that has one.
inline constexpr int64_t NumberPrefixCharacters = 2;

/// The row of a base, null for a number that is none of them.
constexpr const NumberBase* FindNumberBase(int64_t base) {
    for (const NumberBase& row : NumberBases) {
        if (row.base == base) {
            return &row;
        }
    }
    return nullptr;
}

/// The row of the base whose prefix a NUL-terminated text begins with, with a letter of either
/// case; that of base 10 without one.
constexpr const NumberBase& NumberBaseOfPrefix(const char16_t* text) {
    if (text[0] == u'0' && IsLetter(text[1])) {
        for (const NumberBase& row : NumberBases) {
            if (row.prefixLetter == (text[1] | 0x20)) {
                return row;
            }
        }
    }
    return *FindNumberBase(DecimalBase);
}

/// The characters of the prefix before a number in a base, 0 where it has none.
constexpr int64_t PrefixLength(const NumberBase& row) {
    return row.prefixLetter != 0 ? NumberPrefixCharacters : 0;
}

/// Whether letters are among the digits, so that their case matters.
constexpr bool HasLetterDigits(const NumberBase& row) {
    return row.base > DecimalBase;
}

/// The bits of a digit where a digit stands for a whole number of bits, else 0.
constexpr int BitsPerDigit(int64_t base) {
    int bits = 0;
    while ((int64_t{1} << bits) < base) {
        bits++;
    }
    return (int64_t{1} << bits) == base ? bits : 0;
}

/// Whether the table holds what its readers rely on: bases from 2 to 16 in ascending order, 10
/// alone without a prefix, and different prefixes, of small letters that are no digits of any base.
constexpr bool AreNumberBasesSound() {
    int32_t last = 1;
    bool hasDecimal = false;
    for (const NumberBase& row : NumberBases) {
        const bool hasPrefix = row.prefixLetter != 0;
        if (row.base <= last || row.base > HighestBase || row.groupSize < 1 ||
            hasPrefix != (row.base != DecimalBase)) {
            return false;
        }
        if (hasPrefix && (row.prefixLetter <= u'f' || row.prefixLetter > u'z')) {
            return false;
        }
        for (const NumberBase& other : NumberBases) {
            if (&other != &row && hasPrefix && other.prefixLetter == row.prefixLetter) {
                return false;
            }
        }
        last = row.base;
        hasDecimal = hasDecimal || row.base == DecimalBase;
    }
    return hasDecimal;
}
static_assert(AreNumberBasesSound(), "a row of NumberBases is not as readers of the table want it");

}  // namespace tallymere
