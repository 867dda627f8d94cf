// An input of a harness, read from front to end as choices, numbers and texts.
//
// Inputs can be written and read by hand: a choice is a letter, "a" for the first one, and a text
// is UTF-8. Behind the end come first choices, zeros and empty texts, so that each input means
// something.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace tallymere::fuzz {

class FuzzInput {
public:
    explicit FuzzInput(std::span<const uint8_t> bytes) : rest_(bytes) {}

    bool IsAtEnd() const { return rest_.empty(); }

    /// The next byte; 0 behind the end.
    uint8_t Byte();

    /// 0 to count - 1 from one byte, for 1 to 256: "a" is 0, "b" is 1 and so on, in a circle.
    size_t Choice(size_t count);

    /// One of an array, as Choice.
    template <typename T, size_t Count>
    const T& OneOf(const T (&values)[Count]) {
        return values[Choice(Count)];
    }

    bool Flag() { return Choice(2) != 0; }

    /// low to high, both included, from as few bytes as hold the difference. One byte is as Choice.
    int64_t Number(int64_t low, int64_t high);

    /// Eight bytes, the last one highest.
    uint64_t Word();

    /// The text up to a line feed, which is taken away, or to the end; at most so many characters,
    /// the others are passed over.
    std::u16string Line(size_t mostCharacters = SIZE_MAX);

    /// The text up to the end.
    std::u16string Text();

    /// All bytes up to the end.
    std::span<const uint8_t> Bytes();

private:
    std::span<const uint8_t> rest_;
};

/// Bytes as text: UTF-8 of up to three bytes a character, half a surrogate pair included; any other
/// byte stands for the character of its number. So each run of characters can be written.
std::u16string TextOfBytes(std::span<const uint8_t> bytes);

/// A text of a fuzzer up to its first 0, as the program has it.
std::u16string BeforeZero(std::u16string text);

}  // namespace tallymere::fuzz
