// A signed number in decimal digits, as controls and messages show it.
#pragma once

#include <cstdint>

namespace tallymere {

struct DecimalText {
    char16_t text[13];  ///< a "-", ten digits, one spare place, and a terminating 0
    int32_t length;     ///< in characters
};

/// The digits of a value, with a "-" before a negative one.
constexpr DecimalText DecimalTextOf(int32_t value) {
    char16_t digits[10] = {};
    int32_t count = 0;
    uint32_t rest = value < 0 ? 0 - static_cast<uint32_t>(value) : static_cast<uint32_t>(value);
    do {
        digits[count++] = static_cast<char16_t>(u'0' + rest % 10);
        rest /= 10;
    } while (rest != 0);
    DecimalText decimal = {};
    if (value < 0) {
        decimal.text[decimal.length++] = u'-';
    }
    while (count != 0) {
        decimal.text[decimal.length++] = digits[--count];
    }
    return decimal;
}

}  // namespace tallymere
