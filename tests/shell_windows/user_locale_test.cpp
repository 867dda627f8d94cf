// What the program takes from the user's locale. The locale is changed for a test and put back.
#include "shell/windows/user_locale.h"

#include <gtest/gtest.h>

#include <string>

#include "core/number_context.h"
#include "shell/settings.h"
#include "toolkit/win32.h"

namespace tallymere {
namespace {

std::wstring LocaleInfo(LCTYPE kind) {
    wchar_t text[80] = L"";
    GetLocaleInfoW(LOCALE_USER_DEFAULT, kind, text, 80);
    return text;
}

class UserLocale : public ::testing::Test {
protected:
    UserLocale() { settings = Settings{}; }
    ~UserLocale() override {
        SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, decimalBefore_.c_str());
        SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STHOUSAND, thousandsBefore_.c_str());
        numberContext = contextBefore_;
        settings = Settings{};
    }

    static bool SetUserSeparators(const wchar_t* decimal, const wchar_t* thousands) {
        return SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, decimal) &&
               SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STHOUSAND, thousands);
    }
    static std::u16string Decimal() { return {numberContext.decimalSeparators, 3}; }
    static std::u16string Thousands() { return {numberContext.groupSeparators, 3}; }

private:
    NumberContext contextBefore_ = numberContext;
    std::wstring decimalBefore_ = LocaleInfo(LOCALE_SDECIMAL);
    std::wstring thousandsBefore_ = LocaleInfo(LOCALE_STHOUSAND);
};

TEST_F(UserLocale, GivesTheAutomaticSeparators) {
    ASSERT_TRUE(SetUserSeparators(L"ab", L"\u2019"));
    ApplyUserSeparators();
    EXPECT_EQ(Decimal(), u"abb");
    EXPECT_EQ(Thousands(), u"\u2019\u2019\u2019");
    ASSERT_TRUE(SetUserSeparators(L",", L"xyz"));
    ApplyUserSeparators();
    EXPECT_EQ(Decimal(), u",,,");
    EXPECT_EQ(Thousands(), u"xyz");
}

TEST_F(UserLocale, IsNotAskedForSeparatorsThatTheSettingsName) {
    ASSERT_TRUE(SetUserSeparators(L"a", L"b"));
    settings.decimalSeparator = DecimalComma;
    settings.thousandsSeparator = ThousandsNarrowSpace;
    ApplyUserSeparators();
    EXPECT_EQ(Decimal(), u",,,");
    EXPECT_EQ(Thousands(), u"\u202F\u202F\u202F");
}

TEST_F(UserLocale, WithoutASeparatorGivesTheUsualOne) {
    // There is always one for decimals.
    ASSERT_TRUE(SetUserSeparators(L",", L""));
    ApplyUserSeparators();
    EXPECT_EQ(Decimal(), u",,,");
    EXPECT_EQ(Thousands(), u"'''");
}

TEST_F(UserLocale, WithSeparatorsTooLongGivesTheUsualOnes) {
    if (!SetUserSeparators(L"abcd", L"abcd")) {
        return;  // not every version of Windows takes them
    }
    ApplyUserSeparators();
    EXPECT_EQ(Decimal(), u"...");
    EXPECT_EQ(Thousands(), u"'''");
}

TEST_F(UserLocale, TellsTheLanguageOfTheUser) {
    wchar_t code[9];
    ASSERT_NE(GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_ILANGUAGE, code, 9), 0);
    EXPECT_EQ(UserLanguageId(), std::stoul(code, nullptr, 16));
}

}  // namespace
}  // namespace tallymere
