// Runs of digit characters to machine integers and back: what all number texts are made of.
#pragma once

#include <cstdint>

#include "core/limb.h"

namespace tallymere {

constexpr bool IsDecimalDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

/// A to Z in either case.
constexpr bool IsLetter(char16_t c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

/// 0 to 9 for a decimal digit, 10 to 35 for a letter A to Z of either case, else -1.
constexpr int DigitValue(char16_t c) {
    if (IsDecimalDigit(c)) {
        return c - u'0';
    }
    const int letter = (c | 0x20) - u'a';
    return letter >= 0 && letter < 26 ? 10 + letter : -1;
}

/// How many decimal digits `text` begins with, looking at no more than `length` characters.
int64_t DecimalRunLength(const char16_t* text, int64_t length);

/// The value of `count` decimal digits, 0 <= count <= 19.
uint64_t DecimalRunValue(const char16_t* digits, int64_t count);

/// Writes the last `count` decimal digits of v, leading zeros included, 0 <= count <= 19.
void WriteDecimalRun(char16_t* dest, uint64_t v, int64_t count);

/// Writes all 19 digits of a limb.
void WriteLimbDigits(char16_t* dest, Limb limb);

}  // namespace tallymere
