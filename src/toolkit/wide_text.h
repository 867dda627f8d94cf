// The one bridge between the program's text, char16_t, and that of Windows, wchar_t. Both are
// UTF-16, so that a text is never copied: only its pointer changes type.
#pragma once

#include <type_traits>

namespace tallymere {

static_assert(sizeof(wchar_t) == sizeof(char16_t) && std::is_unsigned_v<wchar_t>);

/// The same text for a call of Windows; null stays null.
inline const wchar_t* ToWide(const char16_t* text) {
    return reinterpret_cast<const wchar_t*>(text);
}

/// The same buffer, for Windows to write into.
inline wchar_t* ToWide(char16_t* buffer) {
    return reinterpret_cast<wchar_t*>(buffer);
}

/// The same text for the program.
inline const char16_t* FromWide(const wchar_t* text) {
    return reinterpret_cast<const char16_t*>(text);
}

}  // namespace tallymere
