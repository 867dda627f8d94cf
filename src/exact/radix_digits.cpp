#include "exact/radix_digits.h"

#include "core/digit_text.h"
#include "exact/big_uint_division.h"

namespace tallymere {

namespace {

// The largest power of a radix that a word holds.
struct WordPower {
    int64_t digits;
    uint64_t value;
};

constexpr WordPower LargestWordPower(uint64_t radix) {
    WordPower power = {1, radix};
    while (power.value <= ~uint64_t{0} / radix) {
        power.value *= radix;
        power.digits++;
    }
    return power;
}

}  // namespace

bool AppendDigitsOfRadix(GrowingInteger& x, const char16_t* text, int64_t length, int64_t radix) {
    TALLYMERE_REQUIRE(GrowingIntegerIsWellFormed(x) && length >= 0 && IsRadix(radix));
    const uint64_t largest = LargestWordPower(static_cast<uint64_t>(radix)).value;
    uint64_t value = 0;
    uint64_t power = 1;
    for (int64_t i = 0; i < length; i++) {
        const int digit = DigitValue(text[i]);
        if (digit < 0 || digit >= radix) {
            continue;
        }
        value = value * static_cast<uint64_t>(radix) + static_cast<uint64_t>(digit);
        power *= static_cast<uint64_t>(radix);
        if (power == largest) {
            if (!MultiplyAdd(x, power, value)) {
                return false;
            }
            value = 0;
            power = 1;
        }
    }
    return MultiplyAdd(x, power, value);
}

int64_t TakeDigitsOfRadix(char16_t* end, uint64_t* a, int64_t radix, const char16_t* alphabet) {
    TALLYMERE_REQUIRE(IsRadix(radix));
    const WordPower power = LargestWordPower(static_cast<uint64_t>(radix));
    char16_t* place = end;
    bool isLast = false;
    while (!isLast) {
        uint64_t rest = 0;
        BigUintDivideSmall(a, &rest, a, power.value, 0);
        isLast = BigUintIsZero(a);
        // Only the uppermost digits have no zeros in front.
        int64_t count = 0;
        do {
            *--place = alphabet[rest % static_cast<uint64_t>(radix)];
            rest /= static_cast<uint64_t>(radix);
            count++;
        } while (isLast ? rest != 0 : count < power.digits);
    }
    return end - place;
}

}  // namespace tallymere
