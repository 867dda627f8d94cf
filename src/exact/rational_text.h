// RationalNumber from text and to text: an integer, or numerator "/" denominator.
#pragma once

#include "core/text_flags.h"
#include "exact/rational_number.h"

namespace tallymere {

/// dest = the fraction that the text denotes, in lowest terms; `length` may be TextUntilZero. Each
/// part is read by the rules and with the codes of BigUintFromText; a sign may stand before the
/// whole. A failure gives +0/1: code 301 for a text that is none, 203 for a denominator of 0. A
/// code that was noted before is kept.
void RationalFromText(RationalNumber* dest, const char16_t* text, int64_t length, uint32_t flags);

/// Writes q and returns the length, by the rules of NumberToText for buffer, capacity and
/// terminator; `flags` hold for both parts as in BigUintToText. A damaged record, with a sign word
/// above 1 or a denominator of 0, is written as "[?]".
int64_t RationalToText(char16_t* buffer, int64_t capacity, const RationalNumber* q, uint32_t flags);

}  // namespace tallymere
