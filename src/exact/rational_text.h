// RationalNumber from text and to text: an integer, or numerator "/" denominator.
#pragma once

#include "core/text_flags.h"
#include "exact/rational_number.h"

namespace tallymere {

/// dest = the fraction that the text denotes, in lowest terms. `length` is in characters and may be
/// TextUntilZero. One sign may stand in front of the whole; "-0" keeps it. Both parts are read by
/// BigUintFromText, with its rules and codes, so spaces around a part are skipped.
///
/// A failure gives +0/1, and the leftmost failure counts. CalcErrorSyntax: the text denotes no
/// fraction, has a second sign behind the first, or has a "+" behind the "/". CalcErrorUndefined:
/// the denominator is 0. A code that was noted before is kept.
void RationalFromText(RationalNumber* dest, const char16_t* text, int64_t length, uint32_t flags);

/// Writes q and returns the length in characters. Buffer, capacity and terminator are as for
/// NumberToText (values/number_text.h). `flags` hold for both parts as in BigUintToText, but the
/// sign stands in front of the whole. A zero shows its sign only with TextAlwaysSign.
///
/// A record that is not well-formed is written as "[?]" behind its sign, with CalcErrorMalformed.
int64_t RationalToText(char16_t* buffer, int64_t capacity, const RationalNumber* q, uint32_t flags);

}  // namespace tallymere
