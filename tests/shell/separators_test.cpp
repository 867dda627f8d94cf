#include "shell/separators.h"

#include <gtest/gtest.h>

#include <string>

#include "core/number_context.h"

namespace tallymere {
namespace {

class Separators : public ::testing::Test {
protected:
    void SetUp() override { saved_ = numberContext; }
    void TearDown() override { numberContext = saved_; }

    static std::u16string Decimal() { return {numberContext.decimalSeparators, 3}; }
    static std::u16string Thousands() { return {numberContext.groupSeparators, 3}; }

private:
    NumberContext saved_;
};

TEST_F(Separators, EachSettingFillsAllThreeCharacters) {
    ApplySeparators(0, 1);
    EXPECT_EQ(Decimal(), u"...");
    EXPECT_EQ(Thousands(), u",,,");
    ApplySeparators(1, 0);
    EXPECT_EQ(Decimal(), u",,,");
    EXPECT_EQ(Thousands(), u"...");
    ApplySeparators(1, 2);
    EXPECT_EQ(Thousands(), u"'''");
    ApplySeparators(1, 3);
    EXPECT_EQ(Thousands(), u"\u202F\u202F\u202F");
    EXPECT_EQ(numberContext.calcError, CalcErrorNone);
}

TEST_F(Separators, AutomaticAndUnknownSettingsLeaveTheSeparators) {
    ApplySeparators(1, 0);
    for (const int32_t setting : {-1, -2, 4, 99}) {
        ApplySeparators(setting, setting);
        EXPECT_EQ(Decimal(), u",,,");
        EXPECT_EQ(Thousands(), u"...");
    }
    ApplySeparators(2, -1);
    EXPECT_EQ(Decimal(), u",,,");
    EXPECT_EQ(numberContext.calcError, CalcErrorNone);
}

TEST_F(Separators, TheLocaleGivesUpToThreeCharactersAndTheLastIsRepeated) {
    struct Case {
        const char16_t* text;
        const char16_t* decimal;
        const char16_t* thousands;
    };
    for (const Case& test :
         {Case{u"", u"...", u"'''"}, Case{u",", u",,,", u",,,"}, Case{u"ab", u"abb", u"abb"},
          Case{u"abc", u"abc", u"abc"}, Case{u"abcd", u"abc", u"abc"},
          Case{u"\u00A0", u"\u00A0\u00A0\u00A0", u"\u00A0\u00A0\u00A0"}}) {
        ApplySeparators(0, 2);
        ApplyLocaleDecimal(test.text);
        EXPECT_EQ(Decimal(), test.decimal);
        EXPECT_EQ(Thousands(), u"'''");
        ApplySeparators(0, 1);
        ApplyLocaleThousands(test.text);
        EXPECT_EQ(Decimal(), u"...");
        EXPECT_EQ(Thousands(), test.thousands);
    }
}

TEST_F(Separators, TheLocaleIsNotChecked) {
    ApplyLocaleDecimal(u"5");
    ApplyLocaleThousands(u" ");
    EXPECT_EQ(Decimal(), u"555");
    EXPECT_EQ(Thousands(), u"   ");
    EXPECT_EQ(numberContext.calcError, CalcErrorNone);
}

TEST_F(Separators, AutomaticSettingsTakeTheLocale) {
    const LocaleSeparators locale = {u"x", u"yz"};
    ApplySeparators(DecimalAutomatic, ThousandsAutomatic, locale);
    EXPECT_EQ(Decimal(), u"xxx");
    EXPECT_EQ(Thousands(), u"yzz");
    ApplySeparators(DecimalComma, ThousandsPoint, locale);
    EXPECT_EQ(Decimal(), u",,,");
    EXPECT_EQ(Thousands(), u"...");
    ApplySeparators(DecimalAutomatic, ThousandsNarrowSpace, locale);
    EXPECT_EQ(Decimal(), u"xxx");
    EXPECT_EQ(Thousands(), u"\u202F\u202F\u202F");
    ApplySeparators(DecimalPoint, ThousandsAutomatic, locale);
    EXPECT_EQ(Decimal(), u"...");
    EXPECT_EQ(Thousands(), u"yzz");
    ApplySeparators(DecimalAutomatic, ThousandsAutomatic, {u",", u","});
    EXPECT_EQ(Decimal(), Thousands()) << "equal ones are the locale's own business";
    EXPECT_EQ(numberContext.calcError, CalcErrorNone);
}

TEST_F(Separators, CharactersOfNumbersAndFormulasAreForbidden) {
    for (char16_t c = 0; c < 128; c++) {
        const bool expected =
            c <= 32 || std::u16string(u"()+-0123456789").find(c) != std::u16string::npos;
        EXPECT_EQ(IsForbiddenSeparator(c), expected) << static_cast<int>(c);
    }
    EXPECT_FALSE(IsForbiddenSeparator(u'\u00A0'));
    EXPECT_FALSE(IsForbiddenSeparator(u'\u202F'));
}

TEST_F(Separators, AForbiddenCharacterSetsACodeAndStoresNothing) {
    ApplySeparators(0, 2);
    StoreSeparator(numberContext.decimalSeparators, u'5');
    EXPECT_EQ(numberContext.calcError, CalcErrorBadParameter);
    EXPECT_EQ(Decimal(), u"...");
    numberContext.calcError = CalcErrorNone;
    StoreSeparator(numberContext.groupSeparators, u'_');
    EXPECT_EQ(numberContext.calcError, CalcErrorNone);
    EXPECT_EQ(Thousands(), u"___");
}

}  // namespace
}  // namespace tallymere
