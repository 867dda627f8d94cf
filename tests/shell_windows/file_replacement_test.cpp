// A file that is written beside the old one and put in its place.
#include "shell/windows/file_replacement.h"

#include "shell_windows/file_calls.h"
#include "shell_windows/file_folder.h"

namespace tallymere::testing_support {
namespace {

const std::string OldBytes = "what was there";
const std::string NewBytes = "what is there now";

class FileReplacementTest : public FileFolderTest {
protected:
    FileReplacementTest() { PutBytes(file, OldBytes); }

    // In two pieces.
    static bool Replace(const fs::path& path) {
        FileReplacement replacement(PathOf(path));
        const auto half = static_cast<uint32_t>(NewBytes.size() / 2);
        replacement.Write(NewBytes.data(), half);
        replacement.Write(NewBytes.data() + half, static_cast<uint32_t>(NewBytes.size()) - half);
        return replacement.Finish();
    }
};

TEST_F(FileReplacementTest, PutsTheNewContentInPlaceOfTheOld) {
    {
        FileReplacement replacement(PathOf(file));
        EXPECT_TRUE(replacement.Write(NewBytes.data(), static_cast<uint32_t>(NewBytes.size())));
        EXPECT_EQ(ContentOf(file), OldBytes);
        EXPECT_TRUE(fs::exists(beside));
        EXPECT_TRUE(replacement.Finish());
    }
    EXPECT_EQ(ContentOf(file), NewBytes);
    ExpectAlone(file);
}

TEST_F(FileReplacementTest, MakesAFileThatIsNotThere) {
    fs::remove(file);
    EXPECT_TRUE(Replace(file));
    EXPECT_EQ(ContentOf(file), NewBytes);
    ExpectAlone(file);
}

TEST_F(FileReplacementTest, WithoutAFinishNothingIsLeft) {
    {
        FileReplacement replacement(PathOf(file));
        EXPECT_TRUE(replacement.Write(NewBytes.data(), 4));
    }
    EXPECT_EQ(ContentOf(file), OldBytes);
    ExpectAlone(file);
}

TEST_F(FileReplacementTest, TakesWhatAnEndedProgramLeft) {
    PutBytes(beside, "a file that nobody finished, longer than the new one");
    EXPECT_TRUE(Replace(file));
    EXPECT_EQ(ContentOf(file), NewBytes);
    ExpectAlone(file);
}

TEST_F(FileReplacementTest, KeepsAFileThatHasTheNameOfTheOneBeside) {
    PutBytes(beside, OldBytes);
    for (const wchar_t* name : {L"~tallymere.new", L"~Tallymere.NEW", L"~tallymere.new. "}) {
        EXPECT_FALSE(Replace(folder / name));
        EXPECT_EQ(ContentOf(beside), OldBytes);
    }
}

TEST_F(FileReplacementTest, NobodyReadsOrWritesTheFileBeside) {
    FileReplacement replacement(PathOf(file));
    EXPECT_EQ(CreateFileW(beside.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                          OPEN_EXISTING, 0, nullptr),
              INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_SHARING_VIOLATION});
    FileReplacement other(PathOf(folder / "other.csv"));
    EXPECT_FALSE(other.Finish());
    EXPECT_TRUE(fs::exists(beside)) << "it is not that of the other one";
    EXPECT_TRUE(replacement.Finish());
}

TEST_F(FileReplacementTest, FailsWithAFileThatAnotherProgramHolds) {
    for (const DWORD sharing : {DWORD{0}, DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE}}) {
        const HeldFile held(file, GENERIC_READ, sharing);
        EXPECT_FALSE(Replace(file));
    }
    EXPECT_EQ(ContentOf(file), OldBytes);
    ExpectAlone(file);
}

TEST_F(FileReplacementTest, FailsWithAFileThatIsOnlyRead) {
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_FALSE(Replace(file));
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(ContentOf(file), OldBytes);
    ExpectAlone(file);
}

TEST_F(FileReplacementTest, FailsWithAFolderAndInNone) {
    fs::create_directory(folder / "inner");
    EXPECT_FALSE(Replace(folder / "inner"));
    EXPECT_TRUE(fs::is_directory(folder / "inner"));
    EXPECT_FALSE(Replace(folder / "none" / "new.csv"));
    EXPECT_FALSE(fs::exists(beside));
    EXPECT_FALSE(fs::exists(folder / "none"));
}

TEST_F(FileReplacementTest, TakesTheLongestPathThereIs) {
    // Folders whose names and backslashes leave one character for the file.
    std::wstring path = folder.wstring();
    constexpr size_t Last = 40;
    while (path.size() + 2 + Last <= PathCapacity - 2) {
        path += L'\\' + std::wstring(Last, L'd');
        fs::create_directory(path);
    }
    path += L'\\' + std::wstring(PathCapacity - 3 - path.size(), L'e');
    fs::create_directory(path);
    path += L"\\f";
    ASSERT_EQ(path.size(), PathCapacity);
    EXPECT_TRUE(Replace(path));
    EXPECT_EQ(ContentOf(path), NewBytes);
    ExpectAlone(path);
}

TEST_F(FileReplacementTest, AnyCallThatFailsLeavesTheOldFile) {
    constexpr int Calls = 6;  // create, write, write, flush, close, move
    {
        const FileCalls calls;
        EXPECT_TRUE(Replace(file));
        EXPECT_EQ(calls.count, Calls);
    }
    for (int number = 1; number <= Calls; number++) {
        SCOPED_TRACE(number);
        PutBytes(file, OldBytes);
        bool replaced = true;
        {
            const FileCalls calls(number);
            replaced = Replace(file);
        }
        EXPECT_FALSE(replaced);
        EXPECT_EQ(ContentOf(file), OldBytes);
        ExpectAlone(file);
    }
}

TEST_F(FileReplacementTest, AWriteThatIsNotWholeIsAFailure) {
    for (const int number : {2, 3}) {
        bool replaced = true;
        {
            const FileCalls calls(number, FileCallEnd::WritesHalf);
            replaced = Replace(file);
        }
        EXPECT_FALSE(replaced);
        EXPECT_EQ(ContentOf(file), OldBytes);
        ExpectAlone(file);
    }
}

TEST_F(FileReplacementTest, ACallThatFailsLateLeavesOneWholeFile) {
    for (int number = 2; number <= 6; number++) {
        SCOPED_TRACE(number);
        PutBytes(file, OldBytes);
        {
            const FileCalls calls(number, FileCallEnd::FailsAsDone);
            Replace(file);
        }
        EXPECT_EQ(ContentOf(file), number == 6 ? NewBytes : OldBytes);
        ExpectAlone(file);
    }
}

TEST_F(FileReplacementTest, AnEndOfTheProcessLeavesTheOldFile) {
    for (int number = 1; number <= 6; number++) {
        SCOPED_TRACE(number);
        PutBytes(file, OldBytes);
        EXPECT_EXIT(
            {
                const FileCalls calls(number, FileCallEnd::EndsProcess);
                Replace(file);
            },
            ::testing::ExitedWithCode(FileCalls::Exit), "");
        EXPECT_EQ(ContentOf(file), OldBytes);
        EXPECT_EQ(fs::exists(beside), number > 1);
        EXPECT_TRUE(Replace(file)) << "what is left is not in the way";
        EXPECT_EQ(ContentOf(file), NewBytes);
        ExpectAlone(file);
    }
}

}  // namespace
}  // namespace tallymere::testing_support
