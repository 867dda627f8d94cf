// RealNumber from text and to text, in base 10.
//
// `flags` are bits of TextFlags.
#pragma once

#include "core/number_scanner.h"
#include "core/real_number.h"
#include "core/text_flags.h"
#include "core/text_writer.h"

namespace tallymere {

/// Fills the limbs of the current layout from `length` characters of digits and separators, leading
/// zeros left out, and writes the exponent of the first digit stored. Returns the guard limb: the
/// first digit that did not fit, and nothing of what follows it. Digits that are all zero give
/// limbs that are all zero, and the exponent means nothing.
Limb DigitsToLimbs(Limb* limbs, int64_t* exponent, const char16_t* text, int64_t length,
                   bool plainSeparators);

/// dest = the number that the text denotes; raw. `length` may be TextUntilZero; spaces at both ends
/// are passed over. The guard limb holds the first digit that did not fit and nothing below it, so
/// rounding goes by that digit alone. Where the text is no number the result is NaN with
/// CalcErrorSyntax. A base other than 0 and 10 gives NaN with CalcErrorBadParameter. An exponent
/// above the range gives an infinity, with CalcErrorOverflow if reportOverflow; one below it a
/// zero, with CalcErrorUnderflow if reportUnderflow.
Limb RealFromText(RealNumber* dest, const char16_t* text, int64_t length, uint32_t flags);

/// Appends x to the writer; an overflow shows in the writer's position. A record outside the normal
/// form is written "[?]" with CalcErrorMalformed; a base other than 0 and 10 as "[P]" with
/// CalcErrorBadParameter.
void RealToText(TextWriter& writer, const RealNumber* x, uint32_t flags);

/// Characters that suffice for any number outside fixed notation, without the terminating 0.
int64_t RealTextCapacity(uint32_t flags);

}  // namespace tallymere
