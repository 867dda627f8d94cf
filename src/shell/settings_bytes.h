// The settings file as bytes: UTF-16, least significant byte first, behind a byte order mark.
#pragma once

#include <cstdint>

namespace tallymere {

/// Characters of the longest text of a file of so many bytes, the 0 that ends it counted.
constexpr int64_t SettingsTextRoom(int64_t byteCount) {
    return byteCount >= 2 ? byteCount / 2 : 1;
}

/// Bytes of the file for a text of so many characters, the 0 that ends it not counted.
constexpr int64_t SettingsByteCount(int64_t characters) {
    return 2 + 2 * characters;
}

/// The text of a file, ended by a 0, for which `text` has SettingsTextRoom(byteCount) characters. A
/// file without byte order mark counts as absent and gives the empty text; half a character at its
/// end is left out.
void DecodeSettings(char16_t* text, const uint8_t* bytes, int64_t byteCount);

/// The file for a text of so many characters: SettingsByteCount(characters) bytes.
void EncodeSettings(uint8_t* bytes, const char16_t* text, int64_t characters);

}  // namespace tallymere
