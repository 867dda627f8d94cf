// The one place that converts between the text of the program, char16_t, and that of Windows,
// wchar_t. Both are UTF-16, so no text is copied. Only the type of its pointer changes.
#pragma once

#include <type_traits>

namespace tallymere {

static_assert(sizeof(wchar_t) == sizeof(char16_t) && std::is_unsigned_v<wchar_t>);

/// The text for a call of Windows; null stays null.
inline const wchar_t* ToWide(const char16_t* text) {
    return reinterpret_cast<const wchar_t*>(text);
}

/// The buffer that Windows writes into.
inline wchar_t* ToWide(char16_t* buffer) {
    return reinterpret_cast<wchar_t*>(buffer);
}

/// A text of Windows for the program.
inline const char16_t* FromWide(const wchar_t* text) {
    return reinterpret_cast<const char16_t*>(text);
}

}  // namespace tallymere
