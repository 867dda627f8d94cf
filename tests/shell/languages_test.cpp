#include "shell/languages.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "shell/program_paths.h"
#include "shell/settings_values.h"
#include "shell/ui_error.h"

namespace tallymere {
namespace {

std::u16string Wide(const char* ascii) {
    return {ascii, ascii + std::char_traits<char>::length(ascii)};
}

std::u16string SettingsName(Language language) {
    Settings record;
    record.language = language;
    char16_t text[32];
    TextSink sink = {0, 31, text};
    GetLanguageValue(record, sink);
    EndSinkText(sink);
    return text;
}

TEST(LanguageTable, BeginsWithEnglishAndGerman) {
    ASSERT_GE(LanguageCount, 2);
    EXPECT_EQ(Languages[0].language, LanguageEnglish);
    EXPECT_STREQ(Languages[0].code, "en");
    EXPECT_EQ(Languages[0].primaryId, 9u);
    EXPECT_EQ(Languages[1].language, LanguageGerman);
    EXPECT_STREQ(Languages[1].code, "de");
    EXPECT_EQ(Languages[1].primaryId, 7u);
}

TEST(LanguageTable, NoTwoLanguagesShareAnything) {
    std::set<std::string> codes;
    std::set<std::u16string> names;
    std::set<uint32_t> ids;
    std::set<std::u16string> buttons;
    InstallLanguage(LanguageEnglish);
    for (const LanguageRow& row : Languages) {
        codes.insert(row.code);
        names.insert(row.settingsName);
        ids.insert(row.primaryId);
        buttons.insert(uiText.*row.buttonText);
    }
    const auto count = static_cast<size_t>(LanguageCount);
    EXPECT_EQ(codes.size(), count);
    EXPECT_EQ(names.size(), count);
    EXPECT_EQ(ids.size(), count);
    EXPECT_EQ(buttons.size(), count);
}

TEST(LanguageTable, TheSuffixOfHelpPagesIsTheCode) {
    for (const LanguageRow& row : Languages) {
        EXPECT_EQ(row.helpSuffix, u"_" + Wide(row.code));
        char16_t address[PathCapacity + 1];
        FormatHelpAddress(address, u"D:", row.language);
        EXPECT_EQ(std::u16string(address),
                  u"file:///D:\\Tallymere\\overview" + std::u16string(row.helpSuffix) + u".html");
    }
}

TEST(LanguageTable, ANameOfTheSettingsFileComesBackAsItsLanguage) {
    for (const LanguageRow& row : Languages) {
        Settings record;
        SetLanguageValue(record, row.settingsName);
        EXPECT_EQ(record.language, row.language);
        EXPECT_EQ(SettingsName(row.language), row.settingsName);
    }
    EXPECT_EQ(SettingsName(LanguageAutomatic), u"(automatic)");
}

TEST(LanguageTable, AutomaticFindsEachLanguageBySystemsIdentifier) {
    for (const LanguageRow& row : Languages) {
        EXPECT_EQ(ChooseLanguage(LanguageAutomatic, 0x0400 | row.primaryId), row.language);
    }
}

// A language whose column repeats another one's would pass the compiler.
TEST(LanguageTable, EachLanguageHasTextsOfItsOwn) {
    for (const LanguageRow& row : Languages) {
        InstallLanguage(row.language);
        EXPECT_EQ(effectiveLanguage, row.language);
        const UiText own = uiText;
        for (const LanguageRow& other : Languages) {
            if (&other != &row) {
                InstallLanguage(other.language);
                EXPECT_NE(std::u16string(own.TextMenuExit), uiText.TextMenuExit) << row.code;
                EXPECT_NE(std::u16string(own.TextOptLanguage), uiText.TextOptLanguage) << row.code;
            }
        }
    }
    InstallLanguage(LanguageEnglish);
}

TEST(LanguageTable, ALanguageThatIsNoneHasNoTexts) {
    InstallLanguage(LanguageAutomatic);
    EXPECT_EQ(std::u16string(uiText.TextMenuExit), UiTextMissing);
    InstallLanguage(LanguageEnglish);
}

}  // namespace
}  // namespace tallymere
