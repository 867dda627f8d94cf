// TextWriter: a bounded run of 16-bit characters with an overflow mark.
#pragma once

#include <cstdint>

namespace tallymere {

/// position <= capacity while all fits; position == capacity + 1 marks an overflow, after which
/// nothing more is written.
struct TextWriter {
    int64_t position;
    int64_t capacity;  ///< in characters
    char16_t* buffer;
};

/// True when something did not fit.
inline bool WriterOverflowed(const TextWriter& writer) {
    return writer.position > writer.capacity;
}

/// Appends one character.
void WriteChar(TextWriter& writer, char16_t c);

/// Appends `count` characters, all or nothing.
void WriteChars(TextWriter& writer, const char16_t* text, int64_t count);

/// Appends `count` times the same character, all or nothing.
void WriteRepeated(TextWriter& writer, char16_t c, int64_t count);

}  // namespace tallymere
