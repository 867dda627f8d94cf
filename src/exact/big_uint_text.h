// BigUint from text and to text, in bases 2, 8, 10 and 16.
//
// `flags` are bits of TextFlags: base (0 means 10), TextGroup, TextNeutral; for output also
// TextAlwaysSign, TextScientific, TextStripZeros, TextNoExponentPlus, TextLowerHex,
// TextNoTerminator.
#pragma once

#include <cstdint>

#include "core/text_flags.h"
#include "core/text_writer.h"

namespace tallymere {

/// The bits of a digit in base 2, 8 and 16; 0 for every other base.
constexpr int BitsPerDigit(int64_t base) {
    return base == 2 ? 1 : base == 8 ? 3 : base == 16 ? 4 : 0;
}

/// dest = the integer that the text denotes; `length` may be TextUntilZero. Spaces at both ends are
/// passed over, a "+" may lead, and with TextGroup group separators may stand between digits. In
/// base 10 a fraction and an exponent below 2^63 are allowed as long as the value is an integer:
/// "1.5e1", "100e-2". A failure gives 0: code 100 for another base, 301 for a text that denotes no
/// unsigned integer, 200 for one that does not fit. The digits before a negative exponent have to
/// fit by themselves; where they do not and a fraction is left as well, code 200 comes first. A
/// code that was noted before is kept.
void BigUintFromText(uint64_t* dest, const char16_t* text, int64_t length, uint32_t flags);

/// Appends the digits of a, grouped by 3 in base 10 and by 4 in others, or its scientific form, "+"
/// before it with TextAlwaysSign. Another base, and the scientific form in a base other than 10,
/// append "[P]" with code 100. Base 10 uses CoreScratch, about 6 words for each limb of a.
void BigUintWrite(TextWriter& writer, const uint64_t* a, uint32_t flags);

/// Writes a and returns the length, by the rules of NumberToText for buffer, capacity and
/// terminator; the capacity that suffices is BigUintTextLength.
int64_t BigUintToText(char16_t* buffer, int64_t capacity, const uint64_t* a, uint32_t flags);

/// An upper bound of the characters of any BigUint of the width in force, sign included.
int64_t BigUintTextLength(uint32_t flags);

}  // namespace tallymere
