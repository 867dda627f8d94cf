#include "core/number_bases.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>

namespace tallymere {
namespace {

TEST(NumberBases, AreFourWithTheirPrefixesGroupsAndStyles) {
    ASSERT_GE(std::size(NumberBases), 4u);
    const NumberBase expected[] = {
        {2, u'y', 4, 2}, {8, u't', 4, 4}, {10, 0, 3, 0}, {16, u'x', 4, 0}};
    for (const NumberBase& base : expected) {
        const NumberBase* row = FindNumberBase(base.base);
        ASSERT_NE(row, nullptr) << base.base;
        EXPECT_EQ(row->prefixLetter, base.prefixLetter) << base.base;
        EXPECT_EQ(row->groupSize, base.groupSize) << base.base;
        EXPECT_EQ(row->styleBit, base.styleBit) << base.base;
    }
}

TEST(NumberBases, TheDecimalAndTheHighestAreInTheTable) {
    EXPECT_EQ(DecimalBase, 10);
    EXPECT_EQ(HighestBase, 16);
    EXPECT_EQ(std::rbegin(NumberBases)->base, HighestBase);
}

TEST(NumberBases, NothingElseIsABase) {
    for (const int64_t base : {-2, 0, 1, 3, 9, 11, 17, 256 + 16}) {
        EXPECT_EQ(FindNumberBase(base), nullptr) << base;
    }
}

TEST(NumberBases, APrefixMayHaveALetterOfEitherCase) {
    EXPECT_EQ(NumberBaseOfPrefix(u"0x").base, 16);
    EXPECT_EQ(NumberBaseOfPrefix(u"0X").base, 16);
    EXPECT_EQ(NumberBaseOfPrefix(u"0y").base, 2);
    EXPECT_EQ(NumberBaseOfPrefix(u"0Y").base, 2);
    EXPECT_EQ(NumberBaseOfPrefix(u"0t").base, 8);
    EXPECT_EQ(NumberBaseOfPrefix(u"0T").base, 8);
}

TEST(NumberBases, ATextWithoutPrefixIsDecimal) {
    for (const char16_t* text : {u"", u"0", u"1x", u"00x", u"0 x", u"09", u"0e5", u"0;", u"x0"}) {
        EXPECT_EQ(NumberBaseOfPrefix(text).base, 10) << std::u16string(text).size();
    }
    // The low bits of the first and of the last are those of a letter of a prefix.
    EXPECT_EQ(NumberBaseOfPrefix(u"0\u0018").base, 10);
    EXPECT_EQ(NumberBaseOfPrefix(u"0\u0078\0").base, 16);
    EXPECT_EQ(NumberBaseOfPrefix(u"0\u0178").base, 10);
}

TEST(NumberBases, TellLengthOfPrefixAndWhetherLettersAreDigits) {
    EXPECT_EQ(PrefixLength(*FindNumberBase(2)), 2);
    EXPECT_EQ(PrefixLength(*FindNumberBase(10)), 0);
    EXPECT_EQ(PrefixLength(*FindNumberBase(16)), 2);
    EXPECT_FALSE(HasLetterDigits(*FindNumberBase(8)));
    EXPECT_FALSE(HasLetterDigits(*FindNumberBase(10)));
    EXPECT_TRUE(HasLetterDigits(*FindNumberBase(16)));
}

TEST(NumberBases, BitsStandForADigitOnlyInAPowerOfTwo) {
    const int expected[] = {1, 0, 2, 0, 0, 0, 3, 0, 0, 0, 0, 0, 0, 0, 4};
    for (int64_t base = 2; base <= 16; base++) {
        EXPECT_EQ(BitsPerDigit(base), expected[base - 2]) << base;
    }
}

}  // namespace
}  // namespace tallymere
