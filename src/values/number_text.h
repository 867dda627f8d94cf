// Text and rounding for a value of the type that NumberContext::numberType says.
//
// A value is SizeOfNumber() bytes, in 64-bit words that the caller owns.
#pragma once

#include <cstdint>

namespace tallymere {

/// Writes the number and returns the length of the text in characters.
///
/// The buffer has `capacity` characters, and one more for a terminating 0 unless `flags` has
/// TextNoTerminator. A text that does not fit is replaced by "[$]", or by the empty text when the
/// capacity is below 3, with CalcErrorTextTooLong. With a null buffer nothing is written. The
/// result is then a capacity that suffices in any notation but the fixed one.
///
/// Bases other than 10 are for uint; the text has no prefix. A value that is of no number type
/// gives the empty text and CalcErrorUnknownType.
int64_t NumberToText(char16_t* buffer, int64_t capacity, const uint64_t* number, uint32_t flags);

/// dest = the value, rounded to d significant digits; in cplx part by part. Special values are
/// copied. A d below 1 gives NaN and CalcErrorUndefined. A type without significant digits notes
/// CalcErrorUnknownType and leaves dest unchanged.
void NumberRoundDigits(uint64_t* dest, const uint64_t* number, int64_t d);

}  // namespace tallymere
