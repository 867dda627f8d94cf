// The settings file on disk, in the user's own folder.
#include "shell/windows/settings_file.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <future>
#include <iterator>
#include <optional>
#include <string>
#include <thread>
#include <utility>

#include "calculator/variable_table.h"
#include "shell/settings_testing.h"
#include "shell/ui_error.h"
#include "shell_windows/failing_memory.h"
#include "shell_windows/file_calls.h"
#include "shell_windows/file_folder.h"
#include "shell_windows/message_boxes.h"
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
        settings = Settings{};
        settings.groupPrimes = true;
        settings.settingsDirty = true;
        LoadSettings();
        EXPECT_TRUE(SameSettings(settings, expected));
        EXPECT_EQ(PendingUiError(), UiErrorNone);
    }

    static fs::path Kept(const wchar_t* end = L".bad") { return file.wstring() + end; }

    // Settings that differ from the file and are to be written.
    static void ChangeSomething() { ChangeSetting(settings, &Settings::groupPrimes, true); }
};

// Lets the program wait for a file so often, and then give up. `during` happens while it waits.
class WaitsFor {
public:
    explicit WaitsFor(
        int32_t times, std::function<void(int32_t)> during = [](int32_t) {})
        : before_(waitForFile) {
        times_ = times;
        during_ = std::move(during);
        count = 0;
        waitForFile = [](int32_t tries) {
            count++;
            EXPECT_GE(tries, 1);
            during_(tries);
            return tries <= times_;
        };
    }
    ~WaitsFor() { waitForFile = before_; }
    WaitsFor(const WaitsFor&) = delete;
    WaitsFor& operator=(const WaitsFor&) = delete;

    static inline int32_t count;

private:
    const FileWaiter before_;
    static inline int32_t times_;
    static inline std::function<void(int32_t)> during_;
};

TEST_F(SettingsFile, LiesInAFolderThatTheFirstCallMakes) {
    EXPECT_EQ(file, UserFolder() / "Tallymere" / "UserSettings_3.8.ini");
    EXPECT_TRUE(wasMade);
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

TEST_F(SettingsFile, ThatIsAFolderGivesTheDefaultsAndStays) {
    fs::create_directory(file);
    const WaitsFor nobody(0);
    ExpectLoaded(Settings{});
    EXPECT_EQ(nobody.count, 0) << "it is no file that somebody holds";
    ChangeSomething();
    EXPECT_FALSE(SaveSettings());
    EXPECT_TRUE(fs::is_directory(file));
    EXPECT_TRUE(settings.settingsDirty);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    ExpectAlone(file);
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
    LoadSettings();
    {
        const HeldFile reader(file, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
        ChangeSomething();
        EXPECT_FALSE(SaveSettings());
    }
    EXPECT_EQ(Content(), before);
    EXPECT_TRUE(settings.settingsDirty);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    ExpectAlone(file);
    EXPECT_TRUE(SaveSettings()) << "it is still to be written";
    EXPECT_EQ(Content(), FileBytes(WrittenText(settings)));
}

TEST_F(SettingsFile, IsWrittenOnceNobodyHoldsItAnyMore) {
    Put(FileBytes(u"language = German"));
    LoadSettings();
    std::optional<HeldFile> reader(std::in_place, file, GENERIC_READ, FILE_SHARE_READ);
    const WaitsFor patience(100, [&reader](int32_t tries) {
        if (tries == 3) {
            reader.reset();
        }
    });
    ChangeSomething();
    EXPECT_TRUE(SaveSettings());
    EXPECT_EQ(patience.count, 3);
    EXPECT_EQ(Content(), FileBytes(WrittenText(settings)));
    ExpectAlone(file);
}

TEST_F(SettingsFile, IsNotWaitedForAgainAfterAFailure) {
    Put(FileBytes(u"language = German"));
    LoadSettings();
    ChangeSomething();
    const WaitsFor patience(5);
    {
        const HeldFile reader(file, GENERIC_READ, FILE_SHARE_READ);
        EXPECT_FALSE(SaveSettings());
        EXPECT_EQ(patience.count, 6) << "the last time it gives up";
        EXPECT_FALSE(SaveSettings());
        EXPECT_EQ(patience.count, 6);
    }
    EXPECT_TRUE(SaveSettings());
    const HeldFile reader(file, GENERIC_READ, FILE_SHARE_READ);
    settings.settingsDirty = true;
    EXPECT_FALSE(SaveSettings());
    EXPECT_EQ(patience.count, 12) << "a success begins anew";
}

TEST_F(SettingsFile, IsReadAndLeftAloneWhenItIsReadOnly) {
    const Bytes before = FileBytes(u"language = German");
    Settings expected;
    expected.language = LanguageGerman;
    Put(before);
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
    ExpectLoaded(expected);
    ChangeSomething();
    EXPECT_FALSE(SaveSettings());
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(Content(), before);
    EXPECT_TRUE(settings.settingsDirty);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    ExpectAlone(file);
}

TEST_F(SettingsFile, MakesItsFolderAgain) {
    fs::remove_all(folder);
    ChangeSomething();
    EXPECT_TRUE(SaveSettings());
    EXPECT_EQ(Content(), FileBytes(WrittenText(settings)));
}

TEST_F(SettingsFile, CannotBeWrittenWhereAFileIsInPlaceOfTheFolder) {
    fs::remove_all(folder);
    PutBytes(folder, "mine");
    ExpectLoaded(Settings{});
    ChangeSomething();
    EXPECT_FALSE(SaveSettings());
    EXPECT_TRUE(settings.settingsDirty);
    EXPECT_EQ(ContentOf(folder), "mine");
}

TEST_F(SettingsFile, OfTheLastProgramToEndHasAllThatItChanged) {
    LoadSettings();
    ChangeSomething();
    EXPECT_TRUE(SaveSettings());
    const Bytes ours = Content();
    const Bytes others = FileBytes(u"language = German\r\n");
    Put(others);
    EXPECT_TRUE(SaveSettingsAtEnd());
    EXPECT_EQ(Content(), ours);
    // One that changed nothing leaves it to the others.
    LoadSettings();
    Put(others);
    EXPECT_TRUE(SaveSettingsAtEnd());
    EXPECT_EQ(Content(), others);
}

TEST_F(SettingsFile, OnlyOneProgramAtATimeWrites) {
    // Another thread is another owner.
    std::promise<void> begun;
    std::atomic<bool> isWriting = true;
    std::thread other([&begun, &isWriting] {
        const HANDLE mutex = CreateMutexW(nullptr, FALSE, L"Local\\TallymereSettings");
        WaitForSingleObject(mutex, INFINITE);
        begun.set_value();
        Sleep(100);
        isWriting = false;
        ReleaseMutex(mutex);
        CloseHandle(mutex);
    });
    begun.get_future().wait();
    ChangeSomething();
    EXPECT_TRUE(SaveSettings());
    EXPECT_FALSE(isWriting);
    other.join();
}

// A file that cannot be read at the start.

class UnreadSettingsFile : public SettingsFile {
protected:
    // The next writing has kept what was there.
    static void ExpectKept(const Bytes& bytes) {
        ChangeSomething();
        EXPECT_TRUE(SaveSettings());
        EXPECT_EQ(Content(), FileBytes(WrittenText(settings)));
        EXPECT_EQ(Content(Kept()), bytes);
        ExpectFiles(2);
    }
    static void ExpectFiles(ptrdiff_t count) {
        EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), count);
    }
};

TEST_F(UnreadSettingsFile, ThatSomebodyHoldsIsTriedAgain) {
    Put(FileBytes(u"language = German"));
    Settings expected;
    expected.language = LanguageGerman;
    std::optional<HeldFile> writer(std::in_place, file, GENERIC_WRITE,
                                   FILE_SHARE_READ | FILE_SHARE_WRITE);
    const WaitsFor patience(100, [&writer](int32_t tries) {
        if (tries == 2) {
            writer.reset();
        }
    });
    ExpectLoaded(expected);
    EXPECT_EQ(patience.count, 2);
    ChangeSomething();
    EXPECT_TRUE(SaveSettings());
    ExpectAlone(file);
}

TEST_F(UnreadSettingsFile, ThatStaysHeldGivesTheDefaultsAndIsKept) {
    const Bytes before = FileBytes(Joined(FullFileLines));
    Put(before);
    const WaitsFor patience(40);
    {
        const HeldFile writer(file, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE);
        ExpectLoaded(Settings{});
        EXPECT_EQ(patience.count, 41);
    }
    ExpectKept(before);
    ChangeSetting(settings, &Settings::groupPrimes, false);
    EXPECT_TRUE(SaveSettings());
    ExpectFiles(2);
}

TEST_F(UnreadSettingsFile, IsNeverWrittenOverWhileItIsHeld) {
    const Bytes before = FileBytes(Joined(FullFileLines));
    Put(before);
    {
        const HeldFile writer(file, GENERIC_READ, 0);
        ExpectLoaded(Settings{});
        ChangeSomething();
        EXPECT_FALSE(SaveSettings());
        EXPECT_TRUE(settings.settingsDirty);
    }
    EXPECT_EQ(Content(), before);
    ExpectAlone(file);
    ExpectKept(before);
}

TEST_F(UnreadSettingsFile, WithoutByteOrderMarkIsKept) {
    Bytes bytes = FileBytes(Joined(FullFileLines));
    bytes.erase(bytes.begin(), bytes.begin() + 2);
    const WaitsFor nobody(0);
    ExpectLoaded(bytes, Settings{});
    EXPECT_EQ(nobody.count, 0) << "time does not mend it";
    ExpectKept(bytes);
}

TEST_F(UnreadSettingsFile, OfOneByteIsKeptAndOfNoneIsNot) {
    ExpectLoaded({0xFF}, Settings{});
    ExpectKept({0xFF});
    fs::remove(Kept());
    ExpectLoaded({}, Settings{});
    ChangeSomething();
    EXPECT_TRUE(SaveSettings());
    ExpectAlone(file);
}

// The files are sparse: their zeros take no room on the disk.
TEST_F(UnreadSettingsFile, OfMoreThan32MegabytesIsRefusedUnread) {
    for (const uintmax_t size : {(uintmax_t{32} << 20) + 1, uintmax_t{1} << 30}) {
        Put(FileBytes(u"language = German\r\n"));
        fs::resize_file(file, size);
        {
            const FileCalls calls;
            ExpectLoaded(Settings{});
            EXPECT_EQ(calls.bytesRead, 0u);
        }
        ChangeSomething();
        EXPECT_TRUE(SaveSettings());
        EXPECT_EQ(fs::file_size(Kept()), size);
        fs::remove(Kept());
    }
    Put(FileBytes(u"language = German\r\n"));
    fs::resize_file(file, uintmax_t{32} << 20);
    LoadSettings();
    EXPECT_EQ(settings.language, LanguageGerman);
}

TEST_F(UnreadSettingsFile, WhoseReadingFailsIsKept) {
    const Bytes before = FileBytes(Joined(FullFileLines));
    Put(before);
    {
        // Behind the opening.
        const FileCalls calls(2);
        ExpectLoaded(Settings{});
    }
    ExpectKept(before);
}

TEST_F(UnreadSettingsFile, TakesNoNameThatAFileHas) {
    Put(Kept(), {1});
    Put(Kept(L".bad2"), {2});
    ExpectLoaded({3}, Settings{});
    ChangeSomething();
    EXPECT_TRUE(SaveSettings());
    EXPECT_EQ(Content(Kept()), Bytes{1});
    EXPECT_EQ(Content(Kept(L".bad2")), Bytes{2});
    EXPECT_EQ(Content(Kept(L".bad3")), Bytes{3});
    for (const wchar_t* end : {L".bad4", L".bad5", L".bad6", L".bad7", L".bad8", L".bad9"}) {
        Put(Kept(end), {4});
    }
    ExpectLoaded({5}, Settings{});
    ChangeSomething();
    EXPECT_FALSE(SaveSettings()) << "there is no name left";
    EXPECT_EQ(Content(), Bytes{5});
    EXPECT_EQ(Content(Kept(L".bad9")), Bytes{4});
}

TEST_F(UnreadSettingsFile, ThatIsGoneMeanwhileIsNotMissed) {
    ExpectLoaded({3}, Settings{});
    fs::remove(file);
    ChangeSomething();
    EXPECT_TRUE(SaveSettings());
    ExpectAlone(file);
}

// A file that was left beside.

class SettingsFileBeside : public SettingsFile {
protected:
    SettingsFileBeside() {
        older.language = LanguageGerman;
        newer.language = LanguageEnglish;
        Put(FileBytes(WrittenText(older)));
    }

    Settings older;
    Settings newer;
};

TEST_F(SettingsFileBeside, IsPutInPlaceWhenItIsWhole) {
    Put(Beside(), FileBytes(WrittenText(newer)));
    ExpectLoaded(newer);
    EXPECT_EQ(Content(), FileBytes(WrittenText(newer)));
    ExpectAlone(file);
}

TEST_F(SettingsFileBeside, IsPutInPlaceWhereThereIsNone) {
    fs::remove(file);
    Put(Beside(), FileBytes(WrittenText(newer)));
    ExpectLoaded(newer);
    EXPECT_EQ(Content(), FileBytes(WrittenText(newer)));
    ExpectAlone(file);
}

TEST_F(SettingsFileBeside, IsNotTakenWhenAPartIsMissing) {
    const Bytes whole = FileBytes(WrittenText(newer));
    for (size_t size = 0; size < whole.size(); size += 7) {
        Put(Beside(), Bytes(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(size)));
        ExpectLoaded(older);
        EXPECT_EQ(Content(), FileBytes(WrittenText(older)));
    }
    ChangeSomething();
    EXPECT_TRUE(SaveSettings());
    EXPECT_EQ(Content(), FileBytes(WrittenText(settings)));
    ExpectAlone(file);
}

TEST_F(SettingsFileBeside, IsTakenEvenWhereItsPlaceIsHeld) {
    Put(Beside(), FileBytes(WrittenText(newer)));
    {
        const HeldFile holder(file, GENERIC_READ, 0);
        newer.settingsDirty = true;
        ExpectLoaded(newer);
    }
    EXPECT_EQ(Content(), FileBytes(WrittenText(older)));
    EXPECT_TRUE(SaveSettings());
    EXPECT_EQ(Content(), FileBytes(WrittenText(newer)));
    EXPECT_EQ(Content(Kept()), FileBytes(WrittenText(older))) << "nobody has read it";
    EXPECT_FALSE(fs::exists(Beside()));
}

TEST_F(SettingsFileBeside, ReplacesNoFileThatWasNotRead) {
    const Bytes refused = {3};
    Put(refused);
    Put(Beside(), FileBytes(WrittenText(newer)));
    ExpectLoaded(newer);
    EXPECT_EQ(Content(), FileBytes(WrittenText(newer)));
    EXPECT_EQ(Content(Kept()), refused);
    ChangeSomething();
    EXPECT_TRUE(SaveSettings());
    EXPECT_EQ(Content(), FileBytes(WrittenText(settings)));
    EXPECT_FALSE(fs::exists(Kept(L".bad2")));
}

TEST_F(SettingsFileBeside, ReplacesNoFileThatWasNotReadWhereNoNameIsLeft) {
    const Bytes refused = {3};
    Put(refused);
    Put(Beside(), FileBytes(WrittenText(newer)));
    Put(Kept(), {1});
    for (char number = '2'; number <= '9'; number++) {
        Put(file.string() + ".bad" + number, {1});
    }
    newer.settingsDirty = true;
    ExpectLoaded(newer);
    EXPECT_FALSE(SaveSettings());
    EXPECT_EQ(Content(), refused);
    EXPECT_EQ(Content(Beside()), FileBytes(WrittenText(newer)));
}

// As the user does who edits the file, or puts an old one back, after a crash.
TEST_F(SettingsFileBeside, GivesWayToAFileThatWasWrittenLater) {
    Put(Beside(), FileBytes(WrittenText(newer)));
    fs::last_write_time(Beside(), fs::last_write_time(file) - std::chrono::hours(1));
    ExpectLoaded(older);
    EXPECT_EQ(Content(), FileBytes(WrittenText(older)));
    EXPECT_EQ(Content(Kept()), FileBytes(WrittenText(newer))) << "the clock may be wrong";
    EXPECT_FALSE(fs::exists(Beside()));
}

TEST_F(SettingsFileBeside, IsPutInPlaceOnceNobodyHoldsThat) {
    Put(Beside(), FileBytes(WrittenText(newer)));
    std::optional<HeldFile> holder(std::in_place, file, GENERIC_READ, DWORD{0});
    const WaitsFor patience(100, [&holder](int32_t) { holder.reset(); });
    ExpectLoaded(newer);
    EXPECT_EQ(patience.count, 1);
    EXPECT_EQ(Content(), FileBytes(WrittenText(newer)));
    ExpectAlone(file);
}

// Whatever ends a writing.

class SettingsWriting : public SettingsFileBeside {
protected:
    // A file is opened, written, flushed, closed and moved.
    static constexpr int Calls = 5;
    static constexpr int CallThatMoves = 5;

    void Begin() {
        Put(FileBytes(WrittenText(older)));
        LoadSettings();
        ChangeSetting(settings, &Settings::language, LanguageEnglish);
    }
};

TEST_F(SettingsWriting, TakesSoManyCallsOfTheSystem) {
    Begin();
    const FileCalls calls;
    EXPECT_TRUE(SaveSettings());
    EXPECT_EQ(calls.count, Calls);
}

// Such as a folder that may only be read, at the first call, or a full disk, at the second.
TEST_F(SettingsWriting, AFailureAtAnyCallLeavesTheOldFile) {
    for (int number = 1; number <= Calls; number++) {
        SCOPED_TRACE(number);
        Begin();
        {
            const FileCalls calls(number);
            EXPECT_FALSE(SaveSettings());
        }
        EXPECT_EQ(Content(), FileBytes(WrittenText(older)));
        EXPECT_TRUE(settings.settingsDirty);
        ExpectAlone(file);
        EXPECT_TRUE(SaveSettings());
        EXPECT_EQ(Content(), FileBytes(WrittenText(newer)));
    }
}

// How many blocks a save asks for is counted first, so that each of them is tried.
TEST_F(SettingsWriting, WithoutAnyOfItsMemoryLeavesTheOldFile) {
    Begin();
    int blocks = 0;
    {
        const FailingMemory memory;
        EXPECT_TRUE(SaveSettings());
        blocks = memory.count;
    }
    EXPECT_GE(blocks, 2);
    for (int number = 1; number <= blocks; number++) {
        SCOPED_TRACE(number);
        Begin();
        bool saved = true;
        {
            const FailingMemory memory(number);
            saved = SaveSettings();
        }
        EXPECT_FALSE(saved);
        EXPECT_EQ(Content(), FileBytes(WrittenText(older)));
        EXPECT_TRUE(settings.settingsDirty);
        ExpectAlone(file);
        EXPECT_TRUE(SaveSettings());
        EXPECT_EQ(Content(), FileBytes(WrittenText(newer)));
    }
}

// The settings are those of the file, or the file is kept.
TEST_F(SettingsWriting, BehindAReadingWithoutAnyOfItsMemoryKeepsTheOldFile) {
    Put(FileBytes(WrittenText(older)));
    int blocks = 0;
    {
        const FailingMemory memory;
        LoadSettings();
        blocks = memory.count;
    }
    EXPECT_GE(blocks, 2);
    for (int number = 1; number <= blocks; number++) {
        SCOPED_TRACE(number);
        fs::remove(Kept());
        Put(FileBytes(WrittenText(older)));
        {
            const FailingMemory memory(number);
            LoadSettings();
        }
        EXPECT_EQ(Content(), FileBytes(WrittenText(older)));
        const bool isRead = settings.language == older.language;
        ChangeSomething();
        EXPECT_TRUE(SaveSettings());
        EXPECT_EQ(Content(), FileBytes(WrittenText(settings)));
        EXPECT_EQ(fs::exists(Kept()), !isRead);
        if (!isRead) {
            EXPECT_EQ(Content(Kept()), FileBytes(WrittenText(older)));
        }
    }
}

TEST_F(SettingsWriting, ADiskThatTakesHalfLeavesTheOldFile) {
    Begin();
    {
        const FileCalls calls(2, FileCallEnd::WritesHalf);
        EXPECT_FALSE(SaveSettings());
    }
    EXPECT_EQ(Content(), FileBytes(WrittenText(older)));
    EXPECT_TRUE(settings.settingsDirty);
    ExpectAlone(file);
}

TEST_F(SettingsWriting, AFailureThatPassesIsMadeGood) {
    for (int number = 1; number <= Calls; number++) {
        SCOPED_TRACE(number);
        Begin();
        const WaitsFor patience(100);
        const FileCalls calls(number);
        EXPECT_TRUE(SaveSettings());
        EXPECT_EQ(patience.count, 1);
        EXPECT_EQ(Content(), FileBytes(WrittenText(newer)));
        ExpectAlone(file);
    }
}

// Also with a file that has to be kept first, which takes a call more.
TEST_F(SettingsWriting, AnEndAtAnyCallLosesTheLastChangeAtMost) {
    for (const bool isUnread : {false, true}) {
        for (int number = 1; number <= Calls + (isUnread ? 1 : 0); number++) {
            SCOPED_TRACE(number + (isUnread ? 100 : 0));
            fs::remove_all(folder);
            fs::create_directory(folder);
            const Bytes before = isUnread ? Bytes{1, 2, 3} : FileBytes(WrittenText(older));
            Put(before);
            EXPECT_EXIT(
                {
                    // In a process that begins as this one did.
                    Put(before);
                    LoadSettings();
                    settings.language = LanguageEnglish;
                    settings.settingsDirty = true;
                    const FileCalls calls(number, FileCallEnd::EndsProcess);
                    SaveSettings();
                },
                ::testing::ExitedWithCode(FileCalls::Exit), "");
            const int first = number - (isUnread ? 1 : 0);
            if (isUnread) {
                EXPECT_EQ(Content(first > 0 ? fs::path(file.wstring() + L".bad") : file), before);
            } else {
                EXPECT_EQ(Content(), before);
            }
            // From the flush on, the file beside is whole.
            ExpectLoaded(first >= 3 ? newer : isUnread ? Settings{} : older);
        }
    }
}

// The process is ended at any time while it saves one change after the other: a hundred variables
// that all have the number of the change. TALLYMERE_SAVE_KILLS is how often.
class SettingsKill : public SettingsFile {
protected:
    SettingsKill() {
        const char* kills = std::getenv("TALLYMERE_SAVE_KILLS");
        count = kills == nullptr ? 6 : std::atoi(kills);
    }

    static fs::path Note() { return UserFolder() / "the change before"; }

    // Notes which changes were saved before the one that is begun.
    [[noreturn]] static void SaveForEver(size_t valueLength) {
        const HANDLE note = CreateFileW(Note().c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                        CREATE_ALWAYS, 0, nullptr);
        for (int32_t change = 1;; change++) {
            std::u16string value = u"1";
            for (const char c : std::to_string(change)) {
                value += static_cast<char16_t>(c);
            }
            value.append(valueLength, u'+');
            settings.variableCount = 100;
            for (SettingsVariable& variable : settings.variables) {
                variable = {u"x", value.c_str()};
            }
            settings.settingsDirty = true;
            if (!SaveSettings()) {
                std::exit(1);
            }
            DWORD written = 0;
            SetFilePointer(note, 0, nullptr, FILE_BEGIN);
            WriteFile(note, &change, sizeof change, &written, nullptr);
        }
    }

    // The change that the settings have, 0 for none.
    static int32_t ChangeOfSettings() {
        const Texts variables = VariablesOf(settings);
        if (variables.empty()) {
            return 0;
        }
        EXPECT_EQ(variables.size(), 100u);
        EXPECT_EQ(std::count(variables.begin(), variables.end(), variables[0]), 100);
        int32_t change = 0;
        for (const char16_t digit : variables[0].second.substr(1)) {
            if (digit == u'+') {
                break;
            }
            change = change * 10 + (digit - u'0');
        }
        return change;
    }
    static int32_t NotedChange() {
        const std::string note = ContentOf(Note());
        int32_t change = 0;
        if (note.size() == sizeof change) {
            std::memcpy(&change, note.data(), sizeof change);
        }
        return change;
    }

    int count;
};

TEST_F(SettingsKill, AtAnyTimeLosesTheLastChangeAtMost) {
    RandomSource random;
    int32_t changes = 0;
    for (int kill = 0; kill < count; kill++) {
        const auto milliseconds = static_cast<DWORD>(random.Word() % 60);
        const size_t valueLength = random.Word() % 2 == 0 ? 60 : 5'000;
        SCOPED_TRACE(milliseconds);
        fs::remove_all(folder);
        fs::create_directory(folder);
        EXPECT_EXIT(
            {
                std::thread end([milliseconds] {
                    Sleep(milliseconds);
                    TerminateProcess(GetCurrentProcess(), FileCalls::Exit);
                });
                SaveForEver(valueLength);
            },
            ::testing::ExitedWithCode(FileCalls::Exit), "");
        LoadSettings();
        EXPECT_GE(ChangeOfSettings(), NotedChange());
        EXPECT_FALSE(fs::exists(file.wstring() + L".bad"));
        changes += ChangeOfSettings();
    }
    EXPECT_GT(changes, 0);
    RecordProperty("changes", changes);
    fs::remove(Note());
}

// In a process that has such a folder from its start.
TEST_F(SettingsFile, LiesInAFolderWithLettersOfAnyLanguage) {
    constexpr const wchar_t* Variable = L"TALLYMERE_TEST_FOLDER";
    const std::wstring ours = NameOfProcess();
    const std::wstring foreign = ours + L" \u00E9\u03B1\u0436\u4E2D";
    const fs::path place =
        fs::temp_directory_path() / (foreign + L" user") / "Tallymere" / "UserSettings_3.8.ini";
    SetEnvironmentVariableW(Variable, foreign.c_str());
    fs::create_directory(place.parent_path().parent_path());
    EXPECT_EXIT(
        {
            ChangeSomething();
            const bool saved = SaveSettings();
            LoadSettings();
            ExitProcess(saved && settings.groupPrimes ? FileCalls::Exit : 1);
        },
        ::testing::ExitedWithCode(FileCalls::Exit), "");
    SetEnvironmentVariableW(Variable, ours.c_str());
    EXPECT_GT(Content(place).size(), 100u);
    fs::remove_all(place.parent_path().parent_path());
}

// What is said about a failure.

class SettingsReport : public SettingsFile {
protected:
    SettingsReport() { InstallLanguage(LanguageEnglish); }

    // A save that fails.
    static void Fail() {
        fs::remove_all(folder);
        PutBytes(folder, "mine");
        settings.settingsDirty = true;
        EXPECT_FALSE(SaveSettingsOrReport());
        EXPECT_TRUE(settings.settingsDirty);
        EXPECT_EQ(PendingUiError(), UiErrorNone);
    }
    static void Succeed() {
        fs::remove_all(folder);
        EXPECT_TRUE(SaveSettingsOrReport());
        EXPECT_FALSE(settings.settingsDirty);
    }

    const MessageBoxAnswer answer;
};

TEST_F(SettingsReport, IsMadeOnceUntilASuccess) {
    Succeed();
    EXPECT_EQ(answer.boxes, 0);
    Fail();
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(answer.caption, "Error");
    EXPECT_EQ(answer.text,
              "The settings could not be saved in the file \"" + file.string() + "\"!");
    Fail();
    EXPECT_EQ(answer.boxes, 1);
    Succeed();
    Fail();
    EXPECT_EQ(answer.boxes, 2);
    Succeed();
}

TEST_F(SettingsReport, ComesBehindAnErrorThatIsPending) {
    SetUiError(UiErrorDivisionByZero);
    Fail();
    EXPECT_EQ(answer.boxes, 2);
    EXPECT_NE(answer.text.find("could not be saved"), std::string::npos);
    Succeed();
}

TEST_F(SettingsReport, IsNotMadeAtTheEndOfTheSession) {
    fs::remove_all(folder);
    PutBytes(folder, "mine");
    ChangeSomething();
    EXPECT_FALSE(SaveSettings());
    EXPECT_EQ(answer.boxes, 0);
    Fail();
    EXPECT_EQ(answer.boxes, 1) << "it was not said before";
    Succeed();
}

}  // namespace
}  // namespace tallymere::testing_support
