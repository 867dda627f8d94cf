// BigUint from text and to text, in the bases of core/number_bases.h.
//
// `flags` are bits of TextFlags: base (0 means 10), TextGroup, TextPlainSeparators; for output also
// TextAlwaysSign, TextScientific, TextStripZeros, TextNoExponentPlus, TextLowerHex,
// TextNoTerminator.
#pragma once

#include <cstdint>

#include "core/text_flags.h"
#include "core/text_writer.h"

namespace tallymere {

/// dest = the integer that the text denotes. `length` is in characters and may be TextUntilZero.
///
/// Spaces at both ends are skipped. A "+" may stand in front. With TextGroup, group separators may
/// stand between digits. In base 10 the number may have a fraction, and an exponent below 2^63, as
/// long as its value is an integer: "1.5e1", "100e-2".
///
/// A failure gives 0. CalcErrorBadParameter: the base has no row in NumberBases. CalcErrorSyntax:
/// the text denotes no unsigned integer. CalcErrorOverflow: the value does not fit. With a negative
/// exponent the digits in front of it must fit by themselves; where they do not, CalcErrorOverflow
/// wins over the CalcErrorSyntax of a fraction. A code that was noted before is kept.
void BigUintFromText(uint64_t* dest, const char16_t* text, int64_t length, uint32_t flags);

/// Appends the digits of a, in groups of as many digits as its base has, or its scientific
/// form. With TextAlwaysSign a "+" comes first. Another base appends "[P]" and notes
/// CalcErrorBadParameter; so does the scientific form in a base other than 10. A base whose digits
/// are no whole number of bits uses CoreScratch, about 6 words for each limb of a.
void BigUintWrite(TextWriter& writer, const uint64_t* a, uint32_t flags);

/// Writes a and returns the length in characters. Buffer, capacity and terminator are as for
/// NumberToText (values/number_text.h). A capacity of BigUintTextLength always suffices.
int64_t BigUintToText(char16_t* buffer, int64_t capacity, const uint64_t* a, uint32_t flags);

/// An upper bound of the characters of any BigUint of the width in force, its sign included.
int64_t BigUintTextLength(uint32_t flags);

}  // namespace tallymere
