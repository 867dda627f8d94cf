#include "shell/settings_bytes.h"

namespace tallymere {

namespace {

constexpr char16_t ByteOrderMark = 0xFEFF;

char16_t CharacterAt(const uint8_t* bytes) {
    return static_cast<char16_t>(bytes[0] | bytes[1] << 8);
}

void PutCharacter(uint8_t* bytes, char16_t c) {
    bytes[0] = static_cast<uint8_t>(c);
    bytes[1] = static_cast<uint8_t>(c >> 8);
}

}  // namespace

bool HasByteOrderMark(const uint8_t* bytes, int64_t byteCount) {
    return byteCount >= 2 && CharacterAt(bytes) == ByteOrderMark;
}

void DecodeSettings(char16_t* text, const uint8_t* bytes, int64_t byteCount) {
    if (HasByteOrderMark(bytes, byteCount)) {
        for (int64_t i = 2; i + 1 < byteCount; i += 2) {
            *text++ = CharacterAt(bytes + i);
        }
    }
    *text = 0;
}

void EncodeSettings(uint8_t* bytes, const char16_t* text, int64_t characters) {
    PutCharacter(bytes, ByteOrderMark);
    for (int64_t i = 0; i < characters; i++) {
        PutCharacter(bytes + 2 * (i + 1), text[i]);
    }
}

}  // namespace tallymere
