#include "layout/numeric_sync.h"

#include <algorithm>

namespace tallymere {

namespace {

// A number that does not fit 32 bits becomes the nearest that does.
bool ReadNumber(const char16_t* text, int32_t& number) {
    const bool isNegative = *text == u'-';
    if (*text == u'-' || *text == u'+') {
        text++;
    }
    if (*text == 0) {
        return false;
    }
    int64_t value = 0;
    for (; *text != 0; text++) {
        if (*text < u'0' || *text > u'9') {
            return false;
        }
        const int32_t digit = *text - u'0';
        value = isNegative ? std::max<int64_t>(value * 10 - digit, INT32_MIN)
                           : std::min<int64_t>(value * 10 + digit, INT32_MAX);
    }
    number = static_cast<int32_t>(value);
    return true;
}

}  // namespace

int32_t PositionOfText(const char16_t* text, int32_t position, int32_t low, int32_t high) {
    int32_t number = position;
    ReadNumber(text, number);
    return std::clamp(number, low, high);
}

}  // namespace tallymere
