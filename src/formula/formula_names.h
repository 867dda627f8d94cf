// The comparison of names in a formula: those of functions, operators, constants and variables.
#pragma once

#include <cstdint>

namespace tallymere {

/// True when the NUL-terminated `name` is exactly these `length` characters. Case matters.
inline bool NameEquals(const char16_t* name, const char16_t* text, uint64_t length) {
    for (uint64_t i = 0; i < length; i++) {
        if (name[i] == 0 || name[i] != text[i]) {
            return false;
        }
    }
    return name[length] == 0;
}

/// True for a letter that a name may start with: A to Z, a to z, `_`, U+0391 to U+03A9 and U+03B1
/// to U+03C9.
constexpr bool IsNameLetter(char16_t c) {
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || c == u'_' ||
           (c >= 0x03B1 && c <= 0x03C9) || (c >= 0x0391 && c <= 0x03A9);
}

}  // namespace tallymere
