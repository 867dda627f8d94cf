// The pattern of a polynomial, which shows what its coefficients are called.
#pragma once

#include <cstdint>

#include "core/text_writer.h"

namespace tallymere {

/// The highest degree that has a pattern, and the characters of its pattern, the longest one.
inline constexpr int64_t MaxPolyPatternDegree = 100;
inline constexpr int64_t PolyPatternCharacters = 39;

/// Appends the terms from the degree downward, with the letter as the name of the coefficients:
/// "a2*x^2 + a1*x + a0". From degree 5 on, only the two highest and the two lowest terms stand
/// there: "b7*x^7 + b6*x^6 + ... + b1*x + b0". Appends nothing for a degree outside 0 to
/// MaxPolyPatternDegree.
void AppendPolyPattern(TextWriter& text, int64_t degree, char16_t letter);

}  // namespace tallymere
