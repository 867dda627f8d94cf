// From a run of decimal digits to the text of a number: signs, notations, grouping, exponents.
#pragma once

#include <cstdint>

#include "core/text_flags.h"
#include "core/text_writer.h"

namespace tallymere {

/// The separators that are written: "." and "'" with TextNeutral, else the context's first ones.
char16_t WrittenDecimalSeparator(uint32_t flags);
char16_t WrittenGroupSeparator(uint32_t flags);

/// Appends "-" if negative, else "+" with TextAlwaysSign.
void WriteSign(TextWriter& writer, bool negative, uint32_t flags);

/// Appends an integer of `length` digits, length >= 1: the first `count` of `digits`, and "0" for
/// what is missing. With a groupSize above 0, `mark` stands between groups of so many digits,
/// counted from the right. All or nothing, and a length of any size is refused at once.
void WriteInteger(TextWriter& writer, const char16_t* digits, int64_t count, int64_t length,
                  int64_t groupSize, char16_t mark);

/// Appends the exponent mark, the sign ("+" unless TextNoExponentPlus) and the digits of
/// |exponent|.
void WriteExponent(TextWriter& writer, int64_t exponent, uint32_t flags);

/// Appends the number +-d.ddd... * 10^exponent with the `count` >= 1 decimal digits d, of which
/// only a zero has a "0" in front; |exponent| <= 2^62. `flags` choose notation, separators and
/// signs. Without TextFixed and TextScientific the notation is fixed for exponents inside the
/// context's window and trailing zeros of the fraction are stripped. All digits need room for a
/// moment: zeros that are stripped count as written before they go.
void FormatDigits(TextWriter& writer, const char16_t* digits, int64_t count, bool negative,
                  int64_t exponent, uint32_t flags);

}  // namespace tallymere
