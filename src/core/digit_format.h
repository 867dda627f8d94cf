// From a run of decimal digits to the text of a number: signs, notations, grouping, exponents.
#pragma once

#include <cstdint>

#include "core/text_flags.h"
#include "core/text_writer.h"

namespace tallymere {

/// The separators that are written: with TextPlainSeparators "." and "'", otherwise the first ones
/// of the context.
char16_t WrittenDecimalSeparator(uint32_t flags);
char16_t WrittenGroupSeparator(uint32_t flags);

/// Appends "-" if negative, else "+" with TextAlwaysSign.
void WriteSign(TextWriter& writer, bool negative, uint32_t flags);

/// Appends an integer of `length` digits, length >= 1: first the `count` >= 0 characters of
/// `digits`, `length` of them at most, then zeros. With a groupSize above 0, `mark` parts groups of
/// that many digits, counted from the right. Where not all of it fits, nothing is written and the
/// writer has overflowed; this takes no time, however large `length` is.
void WriteInteger(TextWriter& writer, const char16_t* digits, int64_t count, int64_t length,
                  int64_t groupSize, char16_t mark);

/// Appends the exponent mark, the sign ("+" unless TextNoExponentPlus) and the digits of
/// |exponent|.
void WriteExponent(TextWriter& writer, int64_t exponent, uint32_t flags);

/// Appends the number +-d.ddd... * 10^exponent that has `count` >= 1 decimal digits d. The first
/// digit is "0" only in a zero; |exponent| <= 2^62. `flags` choose notation, separators and signs.
/// Without TextFixed and TextScientific the notation is fixed for exponents inside the context's
/// window, and the zeros at the end of the fraction are removed.
///
/// The fraction is written with all its digits before zeros are removed. So the writer overflows
/// where only those zeros do not fit.
void FormatDigits(TextWriter& writer, const char16_t* digits, int64_t count, bool negative,
                  int64_t exponent, uint32_t flags);

}  // namespace tallymere
