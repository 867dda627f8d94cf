// TextWriter: a bounded run of 16-bit characters with an overflow mark.
#pragma once

#include <cstdint>
#include <string_view>

namespace tallymere {

/// The last character of a text that did not fit and was cut.
inline constexpr char16_t Ellipsis = u'\u2026';

/// position <= capacity while all fits; position == capacity + 1 marks an overflow, after which
/// nothing more is written. The capacity does not count the 0 that ends a text: where one is asked
/// for, the buffer has room for capacity + 1 characters.
struct TextWriter {
    int64_t position;
    int64_t capacity;  ///< in characters
    char16_t* buffer;
};

/// True when `position` and `capacity` are as they must be.
inline bool TextWriterIsConsistent(const TextWriter& writer) {
    return writer.capacity >= 0 && writer.position >= 0 && writer.position <= writer.capacity + 1;
}

/// True when something did not fit.
inline bool WriterOverflowed(const TextWriter& writer) {
    return writer.position > writer.capacity;
}

/// Appends one character.
void WriteChar(TextWriter& writer, char16_t c);

/// Appends `count` characters, or those of a view, all or nothing.
void WriteChars(TextWriter& writer, const char16_t* text, int64_t count);
inline void WriteChars(TextWriter& writer, std::u16string_view text) {
    WriteChars(writer, text.data(), static_cast<int64_t>(text.size()));
}

/// Appends `count` times the same character, all or nothing.
void WriteRepeated(TextWriter& writer, char16_t c, int64_t count);

/// The place of `count` more characters, which the caller fills in at once; null if they do not
/// fit, and the writer has overflowed.
char16_t* WriteReserve(TextWriter& writer, int64_t count);

/// Ends the text of a number. One that overflowed becomes "[$]", or empty in a capacity below 3,
/// and CalcErrorTextTooLong is noted. A 0 follows unless `flags` has TextNoTerminator. Returns the
/// length.
int64_t FinishNumberText(TextWriter& writer, uint32_t flags);

}  // namespace tallymere
