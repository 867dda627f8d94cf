// The settings file on disk, in the user's own folder.
#include "shell/windows/settings_file.h"

#include <algorithm>
#include <filesystem>
#include <string>

#include "calculator/variable_table.h"
#include "shell/settings_testing.h"
#include "shell/ui_error.h"
#include "shell_windows/file_folder.h"
#include "shell_windows/settings_folder.h"
#include "support/random_source.h"
#include "toolkit/win32.h"

namespace tallymere::testing_support {
namespace {

class SettingsFile : public SettingsFolderTest {
protected:
    // What the program has after a start with these bytes in the file.
    static void ExpectLoaded(const Bytes& bytes, const Settings& expected) {
        Put(bytes);
        ExpectLoaded(expected);
    }
    static void ExpectLoaded(const Settings& expected) {
        settings.groupPrimes = true;
        settings.settingsDirty = true;
        LoadSettings();
        EXPECT_TRUE(SameSettings(settings, expected));
        EXPECT_EQ(PendingUiError(), UiErrorNone);
    }

    // Settings that differ from the file and are to be written.
    static void ChangeSomething() { ChangeSetting(settings, &Settings::groupPrimes, true); }
};

TEST_F(SettingsFile, LiesInAFolderThatTheFirstCallMakes) {
    EXPECT_EQ(file, UserFolder() / "Tallymere" / "UserSettings_3.8.ini");
    EXPECT_TRUE(folderWasMade);
}

TEST_F(SettingsFile, PathStaysEvenWhenTheFolderIsGone) {
    const char16_t* path = SettingsPath();
    fs::remove_all(folder);
    EXPECT_EQ(SettingsPath(), path);
    EXPECT_EQ(ToWide(path), file);
    EXPECT_FALSE(fs::exists(folder));
}

TEST_F(SettingsFile, MissingGivesTheDefaults) {
    ExpectLoaded(Settings{});
    EXPECT_FALSE(fs::exists(file));
    fs::remove_all(folder);
    ExpectLoaded(Settings{});
    EXPECT_FALSE(fs::exists(folder));
}

TEST_F(SettingsFile, IsReadWhole) {
    const ReadText full(Joined(FullFileLines));
    ExpectLoaded(FileBytes(Joined(FullFileLines)), full.record);
    EXPECT_EQ(settings.variableCount, 3);
}

TEST_F(SettingsFile, TextOfVariablesOutlivesTheFile) {
    Put(FileBytes(Joined(FullFileLines)));
    LoadSettings();
    Put(FileBytes(u"[options]\r\n"));
    fs::remove(file);
    EXPECT_EQ(VariablesOf(settings), (Texts{{u"x", u"1.5"}, {u"y", u"2*x"}, {u"\u03B1", u""}}));
}

TEST_F(SettingsFile, WithoutByteOrderMarkOrTooShortGivesTheDefaults) {
    const Bytes full = FileBytes(Joined(FullFileLines));
    ExpectLoaded(Bytes(full.begin() + 2, full.end()), Settings{});
    ExpectLoaded({}, Settings{});
    ExpectLoaded({0xFF}, Settings{});
    ExpectLoaded({0xFF, 0xFE}, Settings{});
    ExpectLoaded({0xFF, 0xFE, u'['}, Settings{});
    ExpectLoaded({0xFE, 0xFF, 0, u'['}, Settings{});
}

TEST_F(SettingsFile, EndsWhereverItEnds) {
    const Bytes full = FileBytes(u"language = German\r\ndecimal_separator = comma");
    Settings expected;
    expected.language = LanguageGerman;
    expected.decimalSeparator = DecimalComma;
    ExpectLoaded(full, expected);
    expected.decimalSeparator = DecimalAutomatic;
    ExpectLoaded(Bytes(full.begin(), full.end() - 1), expected);
    ExpectLoaded(Bytes(full.begin(), full.end() - 2), expected);
}

TEST_F(SettingsFile, AMegabyteOfNoiseDoesNoHarm) {
    RandomSource random;
    Bytes noise(1 << 20);
    std::generate(noise.begin(), noise.end(),
                  [&random] { return static_cast<uint8_t>(random.Word()); });
    noise[0] = 0;
    ExpectLoaded(noise, Settings{});
    noise[0] = 0xFF;
    noise[1] = 0xFE;
    ExpectLoaded(noise, Settings{});
    EXPECT_EQ(Content(), noise);
}

TEST_F(SettingsFile, AMegabyteInOneVariableIsKept) {
    const std::u16string value(1 << 20, u'7');
    Put(FileBytes(u"variable00 = long;" + value));
    LoadSettings();
    EXPECT_EQ(VariablesOf(settings), (Texts{{u"long", value}}));
}

TEST_F(SettingsFile, OfAHundredAndOneVariablesKeepsAHundred) {
    std::u16string lines;
    Texts expected;
    for (char16_t i = 0; i < 101; i++) {
        const std::u16string name(1, static_cast<char16_t>(u'\u0391' + i));
        lines += u"variable00 = " + name + u";1+" + name + u"\r\n";
        expected.emplace_back(name, u"1+" + name);
    }
    expected.pop_back();
    Put(FileBytes(lines + u"[hints]\r\nshow_welcome_hint = 0\r\n"));
    LoadSettings();
    EXPECT_EQ(VariablesOf(settings), expected);
    EXPECT_FALSE(settings.showWelcomeHint);

    ChangeSomething();
    SaveSettings();
    LoadSettings();
    EXPECT_EQ(VariablesOf(settings), expected);
    EXPECT_TRUE(settings.groupPrimes);
}

TEST_F(SettingsFile, IsReadWhileOthersReadItToo) {
    Put(FileBytes(u"language = German"));
    Settings expected;
    expected.language = LanguageGerman;
    const HeldFile reader(file, GENERIC_READ, FILE_SHARE_READ);
    ExpectLoaded(expected);
}

TEST_F(SettingsFile, ThatSomebodyWritesGivesTheDefaults) {
    Put(FileBytes(u"language = German"));
    const HeldFile writer(file, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE);
    ExpectLoaded(Settings{});
}

TEST_F(SettingsFile, ThatIsAFolderGivesTheDefaultsAndStays) {
    fs::create_directory(file);
    ExpectLoaded(Settings{});
    ChangeSomething();
    SaveSettings();
    EXPECT_TRUE(fs::is_directory(file));
    EXPECT_TRUE(settings.settingsDirty);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
}

TEST_F(SettingsFile, IsWrittenOnlyAfterAChange) {
    SaveSettings();
    EXPECT_FALSE(fs::exists(file));
    ChangeSomething();
    SaveSettings();
    EXPECT_FALSE(settings.settingsDirty);
    EXPECT_EQ(Content(), FileBytes(WrittenText(settings)));

    fs::remove(file);
    SaveSettings();
    EXPECT_FALSE(fs::exists(file)) << "once is enough";
}

TEST_F(SettingsFile, IsReplacedWhateverItWas) {
    Put(Bytes(100'000, 0xAB));
    ChangeSomething();
    SaveSettings();
    EXPECT_EQ(Content(), FileBytes(WrittenText(settings)));
}

TEST_F(SettingsFile, IsWrittenAsItWasReadButForTheChange) {
    std::vector<std::u16string> lines = FullFileLines;
    lines[LanguageLine] = u"language = Klingon";
    Put(FileBytes(Joined(lines)));
    LoadSettings();
    ChangeSetting(settings, &Settings::angleType, AngleDegrees);
    SaveSettings();
    lines[LanguageLine] = u"language = (automatic)";
    lines[AngleLine] = u"angle_type = deg";
    EXPECT_EQ(Content(), FileBytes(Joined(lines)));
}

TEST_F(SettingsFile, HoldsTheVariablesOfTheCalculatorWhenTheyChanged) {
    ASSERT_EQ(variableTable.count, 0);
    AddVariable(0);
    SetVariableName(0, u"rate");
    SetVariableValue(0, u"1+2");
    EXPECT_TRUE(variableTable.variablesChanged);
    SaveSettings();
    EXPECT_FALSE(variableTable.variablesChanged);
    EXPECT_FALSE(settings.settingsDirty);
    Settings expected;
    expected.variableCount = 1;
    expected.variables[0] = {u"rate", u"1+2"};
    EXPECT_EQ(Content(), FileBytes(WrittenText(expected)));

    DeleteVariable(0);
    SaveSettings();
    EXPECT_EQ(Content(), FileBytes(WrittenText(Settings{})));
}

TEST_F(SettingsFile, IsLeftAloneWhileSomebodyHasItOpen) {
    const Bytes before = FileBytes(u"language = German");
    Put(before);
    {
        const HeldFile reader(file, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
        ChangeSomething();
        SaveSettings();
    }
    EXPECT_EQ(Content(), before);
    EXPECT_TRUE(settings.settingsDirty);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
}

TEST_F(SettingsFile, IsReadAndLeftAloneWhenItIsReadOnly) {
    const Bytes before = FileBytes(u"language = German");
    Settings expected;
    expected.language = LanguageGerman;
    Put(before);
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
    ExpectLoaded(expected);
    ChangeSomething();
    // A system may let its administrator write such a file all the same.
    const HANDLE forced =
        CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    const bool refused = forced == INVALID_HANDLE_VALUE;
    CloseHandle(forced);
    SaveSettings();
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(Content(), refused ? before : FileBytes(WrittenText(settings)));
    EXPECT_EQ(settings.settingsDirty, refused);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
}

TEST_F(SettingsFile, IsDroppedWithoutAFolder) {
    fs::remove_all(folder);
    ChangeSomething();
    SaveSettings();
    EXPECT_FALSE(fs::exists(folder));
    EXPECT_EQ(PendingUiError(), UiErrorNone);
}

}  // namespace
}  // namespace tallymere::testing_support
