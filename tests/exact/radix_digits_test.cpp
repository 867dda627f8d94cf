#include "exact/radix_digits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "exact/big_uint_text.h"
#include "support/random_source.h"

namespace tallymere {
namespace {

using testing_support::RandomSource;

constexpr const char16_t* Alphabet = u"0123456789abcdef";

class RadixDigits : public ::testing::Test {
protected:
    void SetUp() override { InstallUintWidth(UintWidthForLimbs(Limbs)); }
    void TearDown() override { numberContext.calcError = CalcErrorNone; }

    // The digits of a value, which stays as it is.
    static std::u16string Digits(std::vector<uint64_t> value, int64_t radix) {
        std::u16string room(static_cast<size_t>(MostDigitsOfRadix(Limbs, radix)), u'?');
        char16_t* end = room.data() + room.size();
        const int64_t count = TakeDigitsOfRadix(end, value.data(), radix, Alphabet);
        EXPECT_EQ(value, std::vector<uint64_t>(Limbs)) << "nothing is left";
        return room.substr(room.size() - static_cast<size_t>(count));
    }

    static std::vector<uint64_t> ValueOf(const std::u16string& digits, int64_t radix, bool* fits) {
        std::vector<uint64_t> value(Limbs);
        GrowingInteger x = {value.data(), Limbs, 0};
        *fits = AppendDigitsOfRadix(x, digits.data(), static_cast<int64_t>(digits.size()), radix);
        if (*fits) {
            std::fill(value.begin() + x.length, value.end(), uint64_t{0});
        }
        return value;
    }

    static constexpr int64_t Limbs = 7;
    UintWidthScope width_;
};

TEST_F(RadixDigits, AreThoseOfSmallNumbersInEveryRadix) {
    for (int64_t radix = 2; radix <= 16; radix++) {
        for (uint64_t number = 0; number < 600; number++) {
            std::u16string expected;
            for (uint64_t rest = number; rest != 0 || expected.empty();
                 rest /= static_cast<uint64_t>(radix)) {
                expected.insert(expected.begin(), Alphabet[rest % static_cast<uint64_t>(radix)]);
            }
            std::vector<uint64_t> value(Limbs);
            value[0] = number;
            ASSERT_EQ(Digits(value, radix), expected) << number << " in " << radix;
        }
    }
}

TEST_F(RadixDigits, AreThoseOfTheOtherMethodsInTheirBases) {
    RandomSource random;
    for (int round = 0; round < 200; round++) {
        std::vector<uint64_t> value(Limbs);
        for (int64_t i = random.Between(-1, Limbs - 1); i >= 0; i--) {
            value[static_cast<size_t>(i)] = random.Word() & random.Word();
        }
        for (const int64_t radix : {2, 8, 10, 16}) {
            std::u16string expected(512, u'?');
            const uint32_t flags = static_cast<uint32_t>(radix) | TextLowerHex;
            expected.resize(
                static_cast<size_t>(BigUintToText(expected.data(), 511, value.data(), flags)));
            ASSERT_EQ(Digits(value, radix), expected) << radix;
        }
    }
}

TEST_F(RadixDigits, AreReadAsTheyAreWrittenInEveryRadix) {
    RandomSource random;
    for (int64_t radix = 2; radix <= 16; radix++) {
        for (int round = 0; round < 50; round++) {
            std::vector<uint64_t> value(Limbs);
            std::generate(value.begin(), value.end(), [&random] { return random.Word(); });
            bool fits = false;
            EXPECT_EQ(ValueOf(Digits(value, radix), radix, &fits), value) << radix;
            EXPECT_TRUE(fits);
        }
    }
}

TEST_F(RadixDigits, TheLargestIntegerFitsAndOneMoreDigitDoesNot) {
    const std::vector<uint64_t> largest(Limbs, ~uint64_t{0});
    for (int64_t radix = 2; radix <= 16; radix++) {
        const std::u16string digits = Digits(largest, radix);
        EXPECT_LE(static_cast<int64_t>(digits.size()), MostDigitsOfRadix(Limbs, radix));
        bool fits = false;
        EXPECT_EQ(ValueOf(u"0000" + digits, radix, &fits), largest);
        EXPECT_TRUE(fits) << radix;
        ValueOf(digits + u"0", radix, &fits);
        EXPECT_FALSE(fits) << radix;
        ValueOf(u"1" + digits, radix, &fits);
        EXPECT_FALSE(fits) << radix;
        // Too long already before the last word of digits.
        ValueOf(digits + std::u16string(130, u'0'), radix, &fits);
        EXPECT_FALSE(fits) << radix;
    }
}

TEST_F(RadixDigits, WhatIsNoDigitOfTheRadixSeparatesGroups) {
    bool fits = false;
    EXPECT_EQ(ValueOf(u"1'Ab", 12, &fits)[0], 12u * 12 + 10 * 12 + 11);
    EXPECT_TRUE(fits);
    // The first letter that is no digit any more, in the middle and at both ends.
    EXPECT_EQ(ValueOf(u"C1CAbc", 12, &fits)[0], 12u * 12 + 10 * 12 + 11);
    EXPECT_TRUE(fits);
    EXPECT_EQ(ValueOf(u"2", 2, &fits)[0], 0u);
    EXPECT_TRUE(fits);
}

TEST_F(RadixDigits, AreAppendedToWhatIsThere) {
    for (int64_t radix = 2; radix <= HighestBase; radix++) {
        std::vector<uint64_t> value(Limbs);
        value[0] = 7;
        GrowingInteger x = {value.data(), Limbs, 1};
        EXPECT_TRUE(AppendDigitsOfRadix(x, u"101", 3, radix));
        const auto factor = static_cast<uint64_t>(radix);
        EXPECT_EQ(value[0], 7 * factor * factor * factor + factor * factor + 1) << radix;
        EXPECT_EQ(x.length, 1);
        EXPECT_TRUE(AppendDigitsOfRadix(x, u"", 0, radix));
        EXPECT_EQ(value[0], 7 * factor * factor * factor + factor * factor + 1) << radix;
    }
}

TEST_F(RadixDigits, AreAsManyAsWholeBitsMakeWhereTheRadixIsAPowerOfTwo) {
    EXPECT_EQ(MostDigitsOfRadix(0, 2), 0);
    for (const int64_t m : {1, 2, 3, 7}) {
        EXPECT_EQ(MostDigitsOfRadix(m, 2), 64 * m);
        EXPECT_EQ(MostDigitsOfRadix(m, 3), 64 * m);
        EXPECT_EQ(MostDigitsOfRadix(m, 4), 32 * m);
        EXPECT_EQ(MostDigitsOfRadix(m, 8), (64 * m + 2) / 3);
        EXPECT_EQ(MostDigitsOfRadix(m, 12), (64 * m + 2) / 3);
        EXPECT_EQ(MostDigitsOfRadix(m, 16), 16 * m);
    }
}

}  // namespace
}  // namespace tallymere
