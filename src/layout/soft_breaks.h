// Soft breaks: how a multi-line edit control gets lines that are very long.
//
// The time that the control of Wine needs to wrap a line grows with the square or the cube of its
// length: tens of seconds for 10,000 digits. So, on Wine alone, the program wraps long lines
// itself. It puts a soft break into the text wherever the line wraps. Only the control sees soft
// breaks; for everybody else they are no part of the text.
#pragma once

#include <cstdint>
#include <string_view>

namespace tallymere {

/// The characters that edit controls themselves use where a line wraps. A true end of a line is
/// "\r\n".
inline constexpr std::u16string_view SoftBreak = u"\r\r\n";

/// Lines of up to this many characters are left to the control, which wraps them fast enough.
inline constexpr int64_t LongLineCharacters = 300;

/// A text with soft breaks has at most this many times the characters of the plain text.
inline constexpr int64_t BrokenPerPlain = 1 + static_cast<int64_t>(SoftBreak.size());

/// Returns how many of the characters `next` fit one line. `ruler` is for the function's own use.
using FittingCharacters = int64_t (*)(void* ruler, std::u16string_view next);

/// Copies a plain text and puts soft breaks into its long lines. Each piece is as long as `fitting`
/// allows. It has at least one character and never splits a surrogate pair. `broken` has room for
/// BrokenPerPlain times the text and a terminating 0. With `goesOn` the text goes on behind a soft
/// break, so that its first line is long, however short the rest of it is. Returns the length in
/// characters.
int64_t InsertSoftBreaks(char16_t* broken, std::u16string_view text, bool goesOn,
                         FittingCharacters fitting, void* ruler);

/// The piece at the end of a text with soft breaks: what comes behind the last line end or soft
/// break. More text at the end changes no soft break before it.
struct LastPiece {
    int64_t start;  ///< the position of its first character
    bool goesOn;    ///< it comes behind a soft break
};
LastPiece FindLastPiece(std::u16string_view broken);

/// Removes the soft breaks from a text, in place, and ends it with a 0. Returns the new length.
int64_t RemoveSoftBreaks(char16_t* text, int64_t length);

/// How many characters are in front of `position` in a text, soft breaks not counted.
int64_t PlainPosition(std::u16string_view broken, int64_t position);

/// The position in a text with soft breaks that has `plain` other characters in front of it. If a
/// soft break is there, the position is behind it. At most the end of the text.
int64_t BrokenPosition(std::u16string_view broken, int64_t plain);

}  // namespace tallymere
