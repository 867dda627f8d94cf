#include "core/digit_text.h"

#include <gtest/gtest.h>

#include <string>

#include "support/decimal_text.h"

namespace tallymere {
namespace {

using namespace testing_support;

TEST(DigitValue, KnowsDigitsAndLettersOfBothCasesAndNothingElse) {
    for (uint32_t c = 0; c <= 0xFFFF; c++) {
        int expected = -1;
        if (c >= '0' && c <= '9') {
            expected = static_cast<int>(c - '0');
        } else if (c >= 'a' && c <= 'z') {
            expected = static_cast<int>(c - 'a' + 10);
        } else if (c >= 'A' && c <= 'Z') {
            expected = static_cast<int>(c - 'A' + 10);
        }
        ASSERT_EQ(DigitValue(static_cast<char16_t>(c)), expected) << c;
        ASSERT_EQ(IsDecimalDigit(static_cast<char16_t>(c)), expected >= 0 && expected < 10) << c;
        ASSERT_EQ(IsLetter(static_cast<char16_t>(c)), expected >= 10) << c;
    }
}

TEST(DecimalRunLength, EndsAtTheFirstOtherCharacterAndAtTheLength) {
    EXPECT_EQ(DecimalRunLength(u"12345", 5), 5);
    EXPECT_EQ(DecimalRunLength(u"12345", 3), 3);
    EXPECT_EQ(DecimalRunLength(u"12/45", 5), 2);
    EXPECT_EQ(DecimalRunLength(u"123:5", 5), 3);
    EXPECT_EQ(DecimalRunLength(u"x", 1), 0);
    EXPECT_EQ(DecimalRunLength(u"1\uFF11", 2), 1);  // a wide digit one is no digit here
    EXPECT_EQ(DecimalRunLength(nullptr, 0), 0);
}

TEST(DecimalRun, IsReadAndWrittenAtEveryLength) {
    RandomSource random;
    for (int64_t count = 0; count <= 19; count++) {
        for (int round = 0; round < 200; round++) {
            std::string digits = HostileDigits(random, 40, count);
            digits.resize(static_cast<size_t>(count), '3');
            const uint64_t value = count == 0 ? 0 : std::stoull(digits);
            ASSERT_EQ(DecimalRunValue(WideText(digits).c_str(), count), value) << digits;
            std::u16string written(static_cast<size_t>(count) + 1, u'#');
            WriteDecimalRun(written.data(), value, count);
            ASSERT_EQ(NarrowText(written), digits + "#");
        }
    }
}

TEST(WriteDecimalRun, WritesTheLastDigitsOfALongerValue) {
    std::u16string written(3, u'#');
    WriteDecimalRun(written.data(), 12'345, 3);
    EXPECT_EQ(NarrowText(written), "345");
    WriteDecimalRun(written.data(), UINT64_MAX, 3);
    EXPECT_EQ(NarrowText(written), "615");
    std::u16string all(20, u'#');
    WriteDecimalRun(all.data(), UINT64_MAX, 19);
    EXPECT_EQ(NarrowText(all), "8446744073709551615#");
}

TEST(WriteLimbDigits, WritesNineteenDigits) {
    RandomSource random;
    for (int round = 0; round < 20'000; round++) {
        Limb limb = random.Below(LimbBase);
        for (uint64_t cuts = random.Below(20); cuts > 0; cuts--) {
            limb /= 10;
        }
        limb = round == 0 ? 0 : round == 1 ? LimbBase - 1 : limb;
        std::string expected = std::to_string(limb);
        expected.insert(0, 19 - expected.size(), '0');
        std::u16string written(20, u'#');
        WriteLimbDigits(written.data(), limb);
        ASSERT_EQ(NarrowText(written), expected + "#");
    }
}

}  // namespace
}  // namespace tallymere
