#include "fuzz/fuzz_input.h"

#include <algorithm>

namespace tallymere::fuzz {

namespace {

bool IsContinuation(uint8_t byte) {
    return (byte & 0xC0) == 0x80;
}

}  // namespace

std::u16string TextOfBytes(std::span<const uint8_t> bytes) {
    std::u16string text;
    while (!bytes.empty()) {
        unsigned character = bytes[0];
        size_t length = 1;
        if ((bytes[0] & 0xE0) == 0xC0 && bytes.size() >= 2 && IsContinuation(bytes[1])) {
            character = (bytes[0] & 0x1Fu) << 6 | (bytes[1] & 0x3Fu);
            length = 2;
        } else if ((bytes[0] & 0xF0) == 0xE0 && bytes.size() >= 3 && IsContinuation(bytes[1]) &&
                   IsContinuation(bytes[2])) {
            character = (bytes[0] & 0x0Fu) << 12 | (bytes[1] & 0x3Fu) << 6 | (bytes[2] & 0x3Fu);
            length = 3;
        }
        text += static_cast<char16_t>(character);
        bytes = bytes.subspan(length);
    }
    return text;
}

std::u16string BeforeZero(std::u16string text) {
    text.resize(std::min(text.size(), text.find(u'\0')));
    return text;
}

uint8_t FuzzInput::Byte() {
    if (rest_.empty()) {
        return 0;
    }
    const uint8_t byte = rest_[0];
    rest_ = rest_.subspan(1);
    return byte;
}

size_t FuzzInput::Choice(size_t count) {
    return IsAtEnd() ? 0 : static_cast<uint8_t>(Byte() - 'a') % count;
}

int64_t FuzzInput::Number(int64_t low, int64_t high) {
    const uint64_t range = static_cast<uint64_t>(high) - static_cast<uint64_t>(low);
    uint64_t value = range < 256 ? Choice(static_cast<size_t>(range) + 1) : 0;
    if (range >= 256) {
        for (uint64_t left = range; left > 0; left >>= 8) {
            value = value << 8 | Byte();
        }
        if (range != UINT64_MAX) {
            value %= range + 1;
        }
    }
    return static_cast<int64_t>(static_cast<uint64_t>(low) + value);
}

uint64_t FuzzInput::Word() {
    uint64_t word = 0;
    for (int shift = 0; shift < 64; shift += 8) {
        word |= uint64_t{Byte()} << shift;
    }
    return word;
}

std::u16string FuzzInput::Line(size_t mostCharacters) {
    const auto end = std::ranges::find(rest_, uint8_t{'\n'});
    const auto length = static_cast<size_t>(end - rest_.begin());
    std::u16string text = TextOfBytes(rest_.first(length));
    rest_ = rest_.subspan(std::min(rest_.size(), length + 1));
    text.resize(std::min(text.size(), mostCharacters));
    return text;
}

std::u16string FuzzInput::Text() {
    return TextOfBytes(Bytes());
}

std::span<const uint8_t> FuzzInput::Bytes() {
    const std::span<const uint8_t> bytes = rest_;
    rest_ = {};
    return bytes;
}

}  // namespace tallymere::fuzz
