#include "shell/about_texts.h"

#include <gtest/gtest.h>

#include <string>

#include "shell/languages.h"
#include "shell/program_facts.h"
#include "shell/ui_error.h"

namespace tallymere {
namespace {

std::u16string AboutText(AboutControl control) {
    char16_t text[512];
    FormatAboutText(text, 511, control);
    return text;
}

std::u16string AboutCaption() {
    char16_t text[512];
    FormatAboutCaption(text, 511);
    return text;
}

std::u16string BuildTimeStart(size_t characters) {
    return {ProgramBuildTime, characters};
}

class AboutTextsTest : public ::testing::Test {
protected:
    void TearDown() override {
        InstallLanguage(LanguageEnglish);
        ClearErrors();
    }
};

TEST_F(AboutTextsTest, NamesTheProgramItsBuildAndItsMakerInEnglish) {
    InstallLanguage(LanguageEnglish);
    EXPECT_EQ(AboutCaption(), u"About Tallymere");
    EXPECT_EQ(AboutText(AboutTitle), u"Tallymere " + std::u16string(ProgramVersion));
    EXPECT_EQ(AboutText(AboutNotice).substr(0, 22), u"Tallymere is freeware!");
    EXPECT_EQ(AboutText(AboutDate), u"Creation date: " + BuildTimeStart(10));
    EXPECT_EQ(AboutText(AboutHolder), u"© " + BuildTimeStart(4) + u" The Tallymere Project");
    EXPECT_EQ(AboutText(AboutEMail), u"E-mail: tallymere@example.org");
    EXPECT_EQ(AboutText(AboutHomepage), u"Homepage\r\ntallymere.example");
    EXPECT_EQ(AboutText(AboutDonate), u"Donate");
    EXPECT_EQ(AboutText(AboutClose), u"OK");
}

TEST_F(AboutTextsTest, NamesThemInGerman) {
    InstallLanguage(LanguageGerman);
    EXPECT_EQ(AboutCaption(), u"Über Tallymere");
    EXPECT_EQ(AboutText(AboutTitle), u"Tallymere " + std::u16string(ProgramVersion));
    EXPECT_EQ(AboutText(AboutNotice).substr(0, 23), u"Tallymere ist Freeware!");
    EXPECT_EQ(AboutText(AboutDate), u"Erstellungsdatum: " + BuildTimeStart(10));
    EXPECT_EQ(AboutText(AboutHolder), u"© " + BuildTimeStart(4) + u" The Tallymere Project");
    EXPECT_EQ(AboutText(AboutEMail), u"E-Mail: tallymere@example.org");
    EXPECT_EQ(AboutText(AboutHomepage), u"Homepage\r\ntallymere.example");
    EXPECT_EQ(AboutText(AboutDonate), u"Spenden");
    EXPECT_EQ(AboutText(AboutClose), u"OK");
}

TEST_F(AboutTextsTest, NoTextIsLongerThanTheWindowAllows) {
    for (const LanguageRow& row : Languages) {
        InstallLanguage(row.language);
        for (int32_t i = 0; i < AboutControlCount; i++) {
            AboutText(static_cast<AboutControl>(i));
        }
    }
    EXPECT_EQ(PendingUiError(), UiErrorNone);
}

}  // namespace
}  // namespace tallymere
