// ComplexNumber from text and to text, in base 10: the real part, then the imaginary part with its
// sign, then the imaginary unit, as in "2-1.5i". A part that is zero is left out.
//
// `flags` are bits of TextFlags; they hold for each part.
#pragma once

#include "core/complex_number.h"
#include "core/number_scanner.h"
#include "core/text_flags.h"

namespace tallymere {

/// dest = the value that the text denotes, each part rounded. `length` may be TextUntilZero; spaces
/// at both ends are passed over.
///
/// A text that ends in an imaginary unit with no letter before it has an imaginary part; any other
/// is a real part alone, so that "pi" and "inf" are never taken for imaginary. The last "+" or "-"
/// that is no sign of an exponent parts the two, and is the sign of the imaginary part. The
/// magnitude behind it is 1 if nothing is written, and may stand in one pair of parentheses, as
/// infinity and NaN by their names must. Each part is read by the rules and with the codes of
/// RealFromText; a text of nothing but spaces is NaN with code 301.
void ComplexFromText(ComplexNumber* dest, const char16_t* text, int64_t length, uint32_t flags);

/// Writes z and returns the length, by the rules of NumberToText for buffer, capacity and
/// terminator. A zero part is not written, nor is an imaginary magnitude of "1"; one with an
/// exponent, and one that is no finite number, stands in parentheses: "1+i", "-(2e+20)i".
int64_t ComplexToText(char16_t* buffer, int64_t capacity, const ComplexNumber* z, uint32_t flags);

}  // namespace tallymere
