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
/// A text has an imaginary part if it ends in an imaginary unit with no letter before it. Any other
/// text is a real part alone, so that "pi" and "inf" are never imaginary. The last "+" or "-" that
/// is not the sign of an exponent stands between the parts, and is the sign of the imaginary part.
/// Behind it comes the imaginary magnitude. It is 1 if nothing is written, and it may stand in one
/// pair of parentheses; the names of infinity and NaN must. Each part is read by the rules and with
/// the codes of RealFromText. A text of nothing but spaces is NaN with CalcErrorSyntax.
void ComplexFromText(ComplexNumber* dest, const char16_t* text, int64_t length, uint32_t flags);

/// Writes z and returns the length, by the rules of NumberToText for buffer, capacity and
/// terminator. A part that is zero is not written, but for the zero itself, which is the real part.
/// An imaginary magnitude of "1" is not written either. One with an exponent, and one that is no
/// finite number, stands in parentheses: "1+i", "-(2e+20)i".
int64_t ComplexToText(char16_t* buffer, int64_t capacity, const ComplexNumber* z, uint32_t flags);

}  // namespace tallymere
