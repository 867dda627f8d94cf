#include "formula/formula_names.h"

namespace tallymere {

bool NameEquals(const char16_t* name, const char16_t* text, uint64_t length) {
    for (uint64_t i = 0; i < length; i++) {
        if (name[i] == 0 || name[i] != text[i]) {
            return false;
        }
    }
    return name[length] == 0;
}

bool IsNameLetter(char16_t c) {
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || c == u'_' ||
           (c >= 0x03B1 && c <= 0x03C9) || (c >= 0x0391 && c <= 0x03A9);
}

}  // namespace tallymere
