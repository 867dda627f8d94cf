// The settings file as bytes: a byte order mark, then UTF-16, least significant byte first.
#pragma once

#include <cstdint>

namespace tallymere {

/// The largest file that is read. The largest one that the program writes has some 18 MB.
inline constexpr int64_t MaxSettingsBytes = int64_t{32} << 20;

/// True for bytes that begin with a byte order mark, as the file does.
bool HasByteOrderMark(const uint8_t* bytes, int64_t byteCount);

/// The characters that the text of a file of `byteCount` bytes may have, its terminating 0
/// included.
constexpr int64_t SettingsTextRoom(int64_t byteCount) {
    return byteCount >= 2 ? byteCount / 2 : 1;
}

/// The bytes of the file for a text of `characters` characters, without a terminating 0.
constexpr int64_t SettingsByteCount(int64_t characters) {
    return 2 + 2 * characters;
}

/// text = the text of a file, ended with a 0. It has room for SettingsTextRoom(byteCount)
/// characters. A file without byte order mark counts as missing and gives the empty text. Half a
/// character at the end of the file is dropped.
void DecodeSettings(char16_t* text, const uint8_t* bytes, int64_t byteCount);

/// bytes = the file for a text of `characters` characters. It has SettingsByteCount(characters)
/// bytes.
void EncodeSettings(uint8_t* bytes, const char16_t* text, int64_t characters);

}  // namespace tallymere
