// RationalNumber from text and to text: an integer, or numerator "/" denominator.
#pragma once

#include "core/text_flags.h"
#include "exact/rational_number.h"

namespace tallymere {

/// dest = the fraction that the text denotes, in lowest terms; `length` may be TextUntilZero. A
/// sign may stand before the whole, and "-0" keeps it. The parts are read by the rules and with the
/// codes of BigUintFromText, so spaces around a part are passed over; of several failures the
/// leftmost counts. A failure gives +0/1: code 301 for a text that is none, for a second sign
/// behind the first and for a "+" behind the "/", 203 for a denominator of 0. A code that was noted
/// before is kept.
void RationalFromText(RationalNumber* dest, const char16_t* text, int64_t length, uint32_t flags);

/// Writes q and returns the length, by the rules of NumberToText for buffer, capacity and
/// terminator; `flags` hold for both parts as in BigUintToText, but a sign stands before the whole.
/// A zero shows its own only with TextAlwaysSign. A damaged record, with a sign word above 1 or a
/// denominator of 0, is written as "[?]" behind its sign, with code 204.
int64_t RationalToText(char16_t* buffer, int64_t capacity, const RationalNumber* q, uint32_t flags);

}  // namespace tallymere
