// UTF-8 outside, UTF-16 inside.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tallymere {

/// What stands in place of bytes that are no UTF-8.
inline constexpr char16_t ReplacementCharacter = u'\uFFFD';

struct DecodedText {
    static constexpr size_t NoPosition = static_cast<size_t>(-1);

    std::u16string text;
    size_t firstInvalid = NoPosition;  ///< 0-based index in `text` of the first replacement
};

/// Decodes strictly: overlong forms, surrogates, values above U+10FFFF and forms that break off are
/// invalid. Each longest run of bytes that begins a valid form, or else a single byte, becomes one
/// ReplacementCharacter.
DecodedText DecodeUtf8(std::string_view bytes);

/// Puts a blank in place of every control character, so that the text can be quoted in one line and
/// does nothing to a terminal.
void BlankControlCharacters(std::u16string& text);

/// Encodes; a surrogate without its partner becomes U+FFFD.
std::string EncodeUtf8(std::u16string_view text);

}  // namespace tallymere
