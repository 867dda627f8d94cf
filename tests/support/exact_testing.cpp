#include "support/exact_testing.h"

#include <algorithm>
#include <cstdlib>
#include <ostream>

#include "core/text_flags.h"
#include "support/decimal_text.h"

namespace tallymere::testing_support {

namespace {

constexpr uint64_t GuardWord = 0x6AFE6AFE6AFE6AFEu;
constexpr uint64_t JunkWord = 0xDEADBEEFDEADBEEFu;

// A value as digits of base 2^32, least significant first, the highest of which is not 0.
using Digits32 = std::vector<uint32_t>;

void DropLeadingZeros(Digits32& value) {
    while (!value.empty() && value.back() == 0) {
        value.pop_back();
    }
}

// value = value * factor + addend.
void MultiplyAdd(Digits32& value, uint32_t factor, uint32_t addend) {
    uint64_t carry = addend;
    for (uint32_t& digit : value) {
        carry += uint64_t{digit} * factor;
        digit = static_cast<uint32_t>(carry);
        carry >>= 32;
    }
    value.push_back(static_cast<uint32_t>(carry));
    DropLeadingZeros(value);
}

// Divides by d and returns the remainder.
uint32_t DivideSmall(Digits32& value, uint32_t d) {
    uint64_t remainder = 0;
    for (size_t i = value.size(); i-- > 0;) {
        const uint64_t part = remainder << 32 | value[i];
        value[i] = static_cast<uint32_t>(part / d);
        remainder = part % d;
    }
    DropLeadingZeros(value);
    return static_cast<uint32_t>(remainder);
}

// Adds or subtracts a small number; the result is not negative.
void AddSigned(Digits32& value, int64_t addend) {
    value.push_back(0);
    int64_t carry = addend;
    for (uint32_t& digit : value) {
        const int64_t sum = static_cast<int64_t>(digit) + carry;
        digit = static_cast<uint32_t>(sum & 0xFFFFFFFF);
        carry = sum >> 32;
    }
    DropLeadingZeros(value);
}

Digits32 DigitsInBase(std::string_view text, uint32_t base) {
    Digits32 value;
    for (const char c : text) {
        const std::string one(1, c);
        MultiplyAdd(value, base, static_cast<uint32_t>(std::strtoul(one.c_str(), nullptr, 16)));
    }
    return value;
}

Digits32 DigitsOf(std::string_view text) {
    const std::string whole(text);
    if (text.starts_with("0x")) {
        return DigitsInBase(text.substr(2), 16);
    }
    if (text.starts_with("2^")) {
        char* end = nullptr;
        const uint64_t exponent = std::strtoull(whole.c_str() + 2, &end, 10);
        Digits32 value(exponent / 32 + 1, 0);
        value.back() = uint32_t{1} << (exponent % 32);
        AddSigned(value, std::strtoll(end, nullptr, 10));
        return value;
    }
    return DigitsInBase(text, 10);
}

uint64_t RandomPart(RandomSource& random) {
    switch (random.Below(6)) {
        case 0:
            return 0;
        case 1:
            return ~uint64_t{0};
        case 2:
            return uint64_t{1} << random.Below(64);
        case 3:
            return (uint64_t{1} << random.Below(64)) - random.Below(2);
        default:
            return random.Word();
    }
}

// Runs of ones and zeros of random lengths.
void FillRuns(RandomSource& random, uint64_t* dest, int64_t limbs) {
    const uint64_t bits = 64 * static_cast<uint64_t>(limbs);
    uint64_t ones = random.Below(2);
    for (uint64_t at = 0; at < bits;) {
        const uint64_t end = std::min(bits, at + 1 + random.Below(random.Below(2) == 0 ? 9 : 300));
        for (; at < end; at++) {
            dest[at / 64] |= ones << (at % 64);
        }
        ones ^= 1;
    }
}

}  // namespace

UintBuffer::UintBuffer(size_t limbs) : words_(limbs + 1, JunkWord) {
    words_.back() = GuardWord;
}

UintBuffer::UintBuffer() : UintBuffer(static_cast<size_t>(numberContext.uintLimbs)) {}

UintBuffer::UintBuffer(std::string_view plainText) : UintBuffer() {
    UintFromPlainText(Get(), plainText);
}

UintBuffer UintBuffer::OfLimbs(int64_t limbs) {
    return UintBuffer(static_cast<size_t>(limbs));
}

UintBuffer::~UintBuffer() {
    EXPECT_EQ(words_.back(), GuardWord) << "an operation wrote past the end of a value";
}

std::string UintBuffer::Text() const {
    return UintText(Get(), LimbCount());
}

void PrintTo(const UintBuffer& a, std::ostream* out) {
    *out << a.Text() << " in " << a.LimbCount() << " limbs";
}

void UintFromPlainText(uint64_t* dest, std::string_view text) {
    const Digits32 value = DigitsOf(text);
    std::fill(dest, dest + numberContext.uintLimbs, 0);
    const size_t fitting = 2 * static_cast<size_t>(numberContext.uintLimbs);
    if (value.size() > fitting) {
        ADD_FAILURE() << "\"" << text << "\" does not fit " << numberContext.uintLimbs << " limbs";
    }
    for (size_t i = 0; i < std::min(value.size(), fitting); i++) {
        dest[i / 2] |= uint64_t{value[i]} << (32 * (i % 2));
    }
}

std::string UintText(const uint64_t* a, int64_t limbs) {
    Digits32 value;
    for (int64_t i = 0; i < limbs; i++) {
        value.push_back(static_cast<uint32_t>(a[i]));
        value.push_back(static_cast<uint32_t>(a[i] >> 32));
    }
    DropLeadingZeros(value);
    std::string text;
    while (!value.empty()) {
        uint32_t part = DivideSmall(value, 1'000'000'000);
        for (int place = 0; place < 9; place++) {
            text.push_back(static_cast<char>('0' + part % 10));
            part /= 10;
        }
    }
    text.erase(text.find_last_not_of('0') + 1);
    std::reverse(text.begin(), text.end());
    return text.empty() ? "0" : text;
}

std::string UintText(const uint64_t* a) {
    return UintText(a, numberContext.uintLimbs);
}

std::string UintTextOf(std::string_view plainText) {
    return UintBuffer(plainText).Text();
}

std::string TwoTo(int64_t exponent, std::string_view addend) {
    return "2^" + std::to_string(exponent) + std::string(addend);
}

Outcome TakeOutcome(const UintBuffer& a) {
    EXPECT_TRUE(BigUintWidthIsWellFormed());
    return {a.Text(), TakeCode()};
}

Outcome UintValue(std::string_view plainText) {
    return Silent(UintTextOf(plainText));
}

namespace {

std::string TakeNoCode(int64_t limbs) {
    EXPECT_EQ(TakeCode(), CalcErrorNone) << "a code of an earlier operation was not taken";
    return "at " + std::to_string(limbs) + " limbs";
}

}  // namespace

Outcome WrittenOutcome(uint32_t flags, int64_t capacity,
                       const std::function<int64_t(char16_t* buffer, int64_t capacity)>& write) {
    constexpr char16_t Guard = u'#';
    const bool terminated = (flags & TextNoTerminator) == 0;
    std::vector<char16_t> buffer(static_cast<size_t>(capacity) + 2, Guard);
    const auto length = static_cast<size_t>(write(buffer.data(), capacity));
    EXPECT_LE(length, static_cast<size_t>(capacity));
    if (terminated) {
        EXPECT_EQ(buffer[length], u'\0');
    }
    EXPECT_EQ(buffer[static_cast<size_t>(capacity) + (terminated ? 1 : 0)], Guard);
    return {NarrowText({buffer.data(), length}), TakeCode()};
}

WidthScope::WidthScope(int64_t limbs)
    : width_(limbs), trace_(__FILE__, __LINE__, TakeNoCode(limbs)) {}

void FillUint(RandomSource& random, uint64_t* dest) {
    FillUint(random, dest, numberContext.uintLimbs);
}

void FillUint(RandomSource& random, uint64_t* dest, int64_t limbs) {
    std::fill(dest, dest + numberContext.uintLimbs, 0);
    if (limbs == 0) {
        return;
    }
    const auto fillRandom = [&](int64_t count) {
        for (int64_t i = 0; i < count; i++) {
            dest[i] = random.Word();
        }
    };
    switch (random.Below(12)) {
        case 0:
            dest[0] = random.Below(4);
            break;
        case 1:
            std::fill(dest, dest + limbs, ~uint64_t{0});
            break;
        case 2: {  // 2^k, or one above it.
            const uint64_t k = random.Below(64 * static_cast<uint64_t>(limbs));
            dest[k / 64] = uint64_t{1} << (k % 64);
            dest[0] |= random.Below(2);
            break;
        }
        case 3: {  // 2^k - 1.
            const uint64_t k = random.Below(64 * static_cast<uint64_t>(limbs));
            std::fill(dest, dest + k / 64, ~uint64_t{0});
            dest[k / 64] = (uint64_t{1} << (k % 64)) - 1;
            break;
        }
        case 4:
        case 5:
            for (int64_t i = 0; i < limbs; i++) {
                dest[i] = RandomPart(random);
            }
            break;
        case 6:
            FillRuns(random, dest, limbs);
            break;
        case 7:
        case 8: {  // Few limbs, the top one of any length.
            const int64_t count = random.Between(1, limbs);
            fillRandom(count);
            dest[count - 1] >>= random.Below(64);
            break;
        }
        default:
            fillRandom(limbs);
    }
}

}  // namespace tallymere::testing_support
