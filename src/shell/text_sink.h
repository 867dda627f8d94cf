// TextSink: the target of the program's formatter, a bounded text that knows its full length.
#pragma once

#include <cstdint>

namespace tallymere {

/// What a text ends in that did not fit.
inline constexpr char16_t Ellipsis = u'\u2026';

/// Characters beyond the capacity are counted and not stored, so count > capacity shows an overflow
/// and by how much. A sink of capacity 0 measures only; its text may be null then.
struct TextSink {
    int64_t count;     ///< characters written, whether stored or not
    int64_t capacity;  ///< characters that may be stored, 0 or more, a terminating 0 not counted
    char16_t* text;
};

/// True when something did not fit.
inline bool SinkOverflowed(const TextSink& sink) {
    return sink.count > sink.capacity;
}

/// Appends one character.
void SinkChar(TextSink& sink, char16_t c);

/// Appends a text that ends at a 0 character; null stands for a missing text and gives "?".
void SinkText(TextSink& sink, const char16_t* text);

/// Ends the text with a 0 character, for which sink.text has one place more than the capacity. When
/// something did not fit, the last character becomes an ellipsis.
void EndSinkText(const TextSink& sink);

/// Copies a text, as SinkText takes it, into a buffer of capacity + 1 characters, capacity >= 0,
/// and ends it with a 0. One that is longer than the capacity ends in an ellipsis.
void CopyBounded(char16_t* buffer, int64_t capacity, const char16_t* text);

}  // namespace tallymere
