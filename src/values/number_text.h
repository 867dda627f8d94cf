// Text and rounding for a value of whatever type NumberContext::numberType says.
//
// A value is SizeOfNumber() bytes of words that the caller owns.
#pragma once

#include <cstdint>

namespace tallymere {

/// Writes the number and returns the length of the text. The buffer holds `capacity` characters
/// and, unless `flags` has TextNoTerminator, a 0 behind them. A text that does not fit becomes
/// "[$]", or empty in a capacity below 3, with code 300. With a null buffer nothing is written and
/// the result is the capacity that suffices outside fixed notation. Bases other than 10 are for
/// uint, where text of all of them has no prefix. No number type gives code 102 and an empty text.
int64_t NumberToText(char16_t* buffer, int64_t capacity, const uint64_t* number, uint32_t flags);

/// Rounds a value to d significant digits, part by part; special values are copied. A d below 1
/// gives NaN and code 203. A type without significant digits sets code 102 and leaves dest alone.
void NumberRoundDigits(uint64_t* dest, const uint64_t* number, int64_t d);

}  // namespace tallymere
