#include "core/digit_text.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "core/contract.h"

namespace tallymere {

namespace {

struct DigitPair {
    char16_t characters[2];
};

// "00" to "99".
constexpr auto DigitPairs = [] {
    std::array<DigitPair, 100> table{};
    for (size_t v = 0; v < table.size(); v++) {
        table[v] = {{static_cast<char16_t>(u'0' + v / 10), static_cast<char16_t>(u'0' + v % 10)}};
    }
    return table;
}();

constexpr uint64_t FourDigits(const char16_t* digits) {
    constexpr uint64_t zeros = u'0' * 1111;
    return digits[0] * 1000u + digits[1] * 100u + digits[2] * 10u + digits[3] - zeros;
}

void WritePair(char16_t* dest, uint32_t v) {
    std::memcpy(dest, DigitPairs[v].characters, sizeof(DigitPair));
}

void WriteEightDigits(char16_t* dest, uint32_t v) {
    const uint32_t high = v / 10'000;
    const uint32_t low = v % 10'000;
    WritePair(dest, high / 100);
    WritePair(dest + 2, high % 100);
    WritePair(dest + 4, low / 100);
    WritePair(dest + 6, low % 100);
}

}  // namespace

int64_t DecimalRunLength(const char16_t* text, int64_t length) {
    int64_t count = 0;
    while (count < length && IsDecimalDigit(text[count])) {
        count++;
    }
    return count;
}

uint64_t DecimalRunValue(const char16_t* digits, int64_t count) {
    TALLYMERE_REQUIRE(count >= 0 && count <= DigitsPerLimb);
    uint64_t value = 0;
    for (; count >= 4; count -= 4) {
        value = value * 10'000 + FourDigits(digits);
        digits += 4;
    }
    for (; count > 0; count--) {
        value = value * 10 + static_cast<uint64_t>(*digits - u'0');
        digits++;
    }
    return value;
}

void WriteLimbDigits(char16_t* dest, Limb limb) {
    TALLYMERE_REQUIRE(limb < LimbBase);
    constexpr uint64_t tenTo16 = PowerOfTen(16);
    constexpr uint64_t tenTo8 = PowerOfTen(8);
    const uint32_t top = static_cast<uint32_t>(limb / tenTo16);
    const uint64_t rest = limb % tenTo16;
    dest[0] = static_cast<char16_t>(u'0' + top / 100);
    WritePair(dest + 1, top % 100);
    WriteEightDigits(dest + 3, static_cast<uint32_t>(rest / tenTo8));
    WriteEightDigits(dest + 11, static_cast<uint32_t>(rest % tenTo8));
}

void WriteDecimalRun(char16_t* dest, uint64_t v, int64_t count) {
    TALLYMERE_REQUIRE(count >= 0 && count <= DigitsPerLimb);
    char16_t digits[DigitsPerLimb];
    WriteLimbDigits(digits, v % LimbBase);
    std::copy_n(digits + DigitsPerLimb - count, count, dest);
}

}  // namespace tallymere
