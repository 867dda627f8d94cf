// TextSink: the text that the program's formatter writes. Its length is limited, and it counts the
// characters that do not fit.
#pragma once

#include <cstdint>

namespace tallymere {

/// Characters beyond the capacity are counted and not stored. So count > capacity means an
/// overflow. A sink of capacity 0 only counts; its text may be null.
struct TextSink {
    int64_t count;     ///< characters written, whether stored or not
    int64_t capacity;  ///< characters that may be stored, 0 or more, without a terminating 0
    char16_t* text;
};

/// True when something did not fit.
inline bool SinkOverflowed(const TextSink& sink) {
    return sink.count > sink.capacity;
}

/// Appends one character.
void SinkChar(TextSink& sink, char16_t c);

/// Appends a text that ends with a 0 character. Null means a missing text and appends "?".
void SinkText(TextSink& sink, const char16_t* text);

/// Ends the text with a 0 character. sink.text has room for the capacity and this 0. When something
/// did not fit, the last character becomes an ellipsis.
void EndSinkText(const TextSink& sink);

/// Copies a text, which SinkText explains, into a buffer of capacity + 1 characters, capacity >= 0,
/// and ends it with a 0. A text longer than the capacity ends with an ellipsis.
void CopyBounded(char16_t* buffer, int64_t capacity, const char16_t* text);

}  // namespace tallymere
