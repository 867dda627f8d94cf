#include "shell/program_paths.h"

#include <gtest/gtest.h>

#include <string>

#include "core/text_writer.h"
#include "shell/ui_error.h"

namespace tallymere {
namespace {

using Path = char16_t[PathCapacity + 1];

class ProgramPathsTest : public ::testing::Test {
protected:
    void SetUp() override { ClearErrors(); }
    void TearDown() override { ClearErrors(); }
};

TEST_F(ProgramPathsTest, SettingsLieInAFolderOfTheProgram) {
    Path folder;
    Path file;
    FormatSettingsFolder(folder, u"C:\\Users\\Ada\\AppData\\Roaming");
    EXPECT_EQ(std::u16string(folder), u"C:\\Users\\Ada\\AppData\\Roaming\\Tallymere");
    FormatSettingsFile(file, folder);
    EXPECT_EQ(std::u16string(file),
              u"C:\\Users\\Ada\\AppData\\Roaming\\Tallymere\\UserSettings_3.8.ini");
    EXPECT_EQ(PendingUiError(), UiErrorNone);
}

TEST_F(ProgramPathsTest, WithoutAFolderSettingsLieInTheRootOfTheDrive) {
    Path file;
    FormatSettingsFile(file, u"");
    EXPECT_EQ(std::u16string(file), u"\\UserSettings_3.8.ini");
}

TEST_F(ProgramPathsTest, ASettingsFolderThatIsTooLongEndsInAnEllipsis) {
    Path folder;
    FormatSettingsFolder(folder, std::u16string(PathCapacity, u'x').c_str());
    EXPECT_EQ(std::u16string(folder), std::u16string(PathCapacity - 1, u'x') + Ellipsis);
    EXPECT_EQ(PendingUiError(), UiErrorTextOverflow);
}

TEST_F(ProgramPathsTest, AFileThatCouldNotBeReadIsKeptUnderANumber) {
    char16_t path[UnreadPathCapacity + 1];
    FormatUnreadFile(path, u"C:\\a\\b.ini", 1);
    EXPECT_EQ(std::u16string(path), u"C:\\a\\b.ini.bad");
    FormatUnreadFile(path, u"C:\\a\\b.ini", 2);
    EXPECT_EQ(std::u16string(path), u"C:\\a\\b.ini.bad2");
    const std::u16string longest(PathCapacity, u'x');
    FormatUnreadFile(path, longest.c_str(), MaxUnreadFiles);
    EXPECT_EQ(std::u16string(path), longest + u".bad9");
    EXPECT_EQ(PendingUiError(), UiErrorNone);
}

TEST_F(ProgramPathsTest, HelpStandsBesideTheProgram) {
    Path folder;
    FormatHelpFolder(folder, u"C:\\Program Files\\Tallymere\\tallymere.exe");
    EXPECT_EQ(std::u16string(folder), u"C:\\Program Files\\Tallymere\\HtmlBrowserHelpFiles");
    FormatHelpFolder(folder, u"tallymere.exe");
    EXPECT_EQ(std::u16string(folder), u"\\HtmlBrowserHelpFiles");
    EXPECT_EQ(PendingUiError(), UiErrorNone);
}

TEST_F(ProgramPathsTest, AHelpFolderOfFullLengthFitsAndOneMoreDoesNot) {
    const std::u16string name = u"\\HtmlBrowserHelpFiles";
    const std::u16string longest(PathCapacity - name.size(), u'x');
    Path folder;
    FormatHelpFolder(folder, (longest + u"\\t.exe").c_str());
    EXPECT_EQ(std::u16string(folder), longest + name);
    EXPECT_EQ(PendingUiError(), UiErrorNone);

    FormatHelpFolder(folder, (longest + u"y\\t.exe").c_str());
    EXPECT_EQ(std::u16string(folder),
              (longest + u"y" + name).substr(0, PathCapacity - 1) + Ellipsis);
    EXPECT_EQ(PendingUiError(), UiErrorTextOverflow);
}

TEST_F(ProgramPathsTest, AProgramFolderLongerThanAnyPathOverflowsOnce) {
    Path folder;
    FormatHelpFolder(folder, (std::u16string(PathCapacity + 20, u'x') + u"\\t.exe").c_str());
    EXPECT_EQ(std::u16string(folder), std::u16string(PathCapacity - 1, u'x') + Ellipsis);
    EXPECT_EQ(PendingUiError(), UiErrorTextOverflow);
}

TEST_F(ProgramPathsTest, HelpHasOneFirstPageForEachLanguage) {
    Path address;
    FormatHelpAddress(address, u"C:\\My Programs\\HtmlBrowserHelpFiles", LanguageEnglish);
    EXPECT_EQ(std::u16string(address),
              u"file:///C:\\My Programs\\HtmlBrowserHelpFiles\\Tallymere\\overview_en.html");
    EXPECT_EQ(std::u16string(address + FileSchemeCharacters),
              u"C:\\My Programs\\HtmlBrowserHelpFiles\\Tallymere\\overview_en.html");
    FormatHelpAddress(address, u"D:", LanguageGerman);
    EXPECT_EQ(std::u16string(address), u"file:///D:\\Tallymere\\overview_de.html");
    FormatHelpAddress(address, u"D:", LanguageAutomatic);
    EXPECT_EQ(std::u16string(address), u"file:///D:\\Tallymere\\overview_??.html");
    EXPECT_EQ(PendingUiError(), UiErrorNone);
}

TEST_F(ProgramPathsTest, AHelpAddressThatIsTooLongEndsInAnEllipsis) {
    Path address;
    FormatHelpAddress(address, std::u16string(PathCapacity, u'x').c_str(), LanguageEnglish);
    EXPECT_EQ(std::u16string(address),
              u"file:///" + std::u16string(PathCapacity - 9, u'x') + Ellipsis);
    EXPECT_EQ(PendingUiError(), UiErrorTextOverflow);
}

}  // namespace
}  // namespace tallymere
