// The comparison of names in a formula: those of functions, operators, constants and variables.
#pragma once

#include <cstdint>

namespace tallymere {

/// True when the NUL-terminated `name` is exactly these `length` characters. Case matters.
bool NameEquals(const char16_t* name, const char16_t* text, uint64_t length);

/// True for a letter that a name may start with: A to Z, a to z, `_`, U+0391 to U+03A9 and U+03B1
/// to U+03C9.
bool IsNameLetter(char16_t c);

}  // namespace tallymere
