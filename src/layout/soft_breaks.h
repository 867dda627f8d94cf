// Long lines of a multi-line edit control, cut up for the control.
//
// A control may take the square or the cube of the length of a line to wrap it: tens of seconds for
// 10,000 digits. So it never gets to see one: wherever the line is to wrap, a soft break is put
// into the text beforehand. Soft breaks are no part of the text for anybody but the control.
#pragma once

#include <cstdint>
#include <string_view>

namespace tallymere {

/// What edit controls themselves put where a line wraps. A line of the text ends with "\r\n".
inline constexpr std::u16string_view SoftBreak = u"\r\r\n";

/// Up to this many characters the control wraps a line on its own, quickly enough.
inline constexpr int64_t LongLineCharacters = 300;

/// Characters of a text with soft breaks for each one without, at most.
inline constexpr int64_t BrokenPerPlain = 1 + static_cast<int64_t>(SoftBreak.size());

/// How many of the next characters of a text fit a line; `ruler` is what the function measures
/// with.
using FittingCharacters = int64_t (*)(void* ruler, std::u16string_view next);

/// Copies a text, which has no soft breaks, and puts them into its long lines, so that each piece
/// is as long as `fitting` allows, but has one character at least and no half of a surrogate pair.
/// `broken` has room for BrokenPerPlain times the text and a terminating 0. Returns the length.
int64_t InsertSoftBreaks(char16_t* broken, std::u16string_view text, FittingCharacters fitting,
                         void* ruler);

/// Takes the soft breaks out of a text, in place, and ends it with a 0. Returns the length.
int64_t RemoveSoftBreaks(char16_t* text, int64_t length);

/// How many characters stand before `position` of a text if its soft breaks are not counted.
int64_t PlainPosition(std::u16string_view broken, int64_t position);

/// The position in a text with soft breaks that has `plain` other characters before it, behind a
/// soft break if one is there; at most the end.
int64_t BrokenPosition(std::u16string_view broken, int64_t plain);

}  // namespace tallymere
