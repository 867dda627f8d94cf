// CSV files on disk: what is read from them, what is written, and what is left when that fails.
#include "algebra_pages/windows/csv_file.h"

#include <map>
#include <string>
#include <utility>

#include "shell/ui_error.h"
#include "shell_windows/failing_memory.h"
#include "shell_windows/file_calls.h"
#include "shell_windows/file_folder.h"

namespace tallymere::testing_support {
namespace {

const std::string OldBytes = "a1;a2;b\r\n1;2;3\r\n4;5;6\r\n";
const std::string NewBytes = "a1;a2;b\r\n0|0;0|1;0|25\r\n1|0;1|1;1|25\r\n";

// The text of a cell that is written tells where the cell is.
HeapText CellText(int32_t row, int32_t column) {
    const std::string place = std::to_string(row) + '|' + std::to_string(column);
    HeapText text(std::ssize(place));
    if (text.IsThere()) {
        std::copy(place.begin(), place.end(), text.buffer.get());
    }
    text.length = std::ssize(place);
    return text;
}

class CsvFileTest : public FileFolderTest {
protected:
    CsvFileTest() { ClearErrors(); }
    ~CsvFileTest() override { ClearErrors(); }

    void Read(const fs::path& path) {
        ReadCsvFile(
            PathOf(path),
            {this,
             [](void* test, int32_t count) { static_cast<CsvFileTest*>(test)->count = count; },
             [](void* test, int32_t row, int32_t column, const char16_t* text) {
                 static_cast<CsvFileTest*>(test)->cells[{row, column}] = text;
             }});
    }

    // The error is the only one that is pending, and is cleared.
    static void ExpectError(UiErrorCode code, const fs::path& argument) {
        EXPECT_EQ(PendingUiError(), code);
        EXPECT_EQ(ToWide(uiError.arg1), argument);
        ClearErrors();
    }

    int32_t count = 0;  // what was read
    std::map<std::pair<int32_t, int32_t>, std::u16string> cells;
};

TEST_F(CsvFileTest, ReadsASystem) {
    PutBytes(file, OldBytes);
    Read(file);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(cells.size(), 6u);
    EXPECT_EQ((cells[{0, 0}]), u"1");
    EXPECT_EQ((cells[{1, RightSideColumn}]), u"6");
}

TEST_F(CsvFileTest, ReadsAFileOfManyBlocks) {
    std::string bytes = OldBytes.substr(0, 9);
    bytes += std::string(300'000, 'x') + ";2;" + std::string(300'000, ' ') + "\n4;5;6\n";
    PutBytes(file, bytes);
    Read(file);
    EXPECT_EQ((cells[{0, 0}]).size(), 1030u);
    EXPECT_EQ((cells[{0, 1}]), u"2");
    EXPECT_EQ((cells[{1, 1}]), u"5");
    EXPECT_EQ(PendingUiError(), UiErrorNone);
}

TEST_F(CsvFileTest, SaysThatAFileIsMissing) {
    Read(file);
    ExpectError(UiErrorFileNotFound, file);
    Read(folder / "none" / "a.csv");
    ExpectError(UiErrorFileNotFound, folder / "none" / "a.csv");
    EXPECT_EQ(count, 0);
}

TEST_F(CsvFileTest, SaysThatAFileCannotBeRead) {
    Read(folder);
    ExpectError(UiErrorFileAccess, folder);
    PutBytes(file, OldBytes);
    {
        const HeldFile held(file, GENERIC_READ, 0);
        Read(file);
        ExpectError(UiErrorFileAccess, file);
    }
    {
        const HeldFile held(file, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE);
        Read(file);
        ExpectError(UiErrorFileAccess, file);
    }
    EXPECT_EQ(count, 0);
    const HeldFile held(file, GENERIC_READ, FILE_SHARE_READ);
    Read(file);
    EXPECT_EQ(count, 2) << "two can read at the same time";
}

TEST_F(CsvFileTest, RefusesAWrongCount) {
    for (const std::string bytes : {"a1;b\r\n1;2\r\n", "no table at all\n", "a1;a2;b", ""}) {
        PutBytes(file, bytes);
        Read(file);
        ExpectError(UiErrorEquationCount, "25");
        EXPECT_EQ(count, 0);
        EXPECT_TRUE(cells.empty());
    }
}

// The file is sparse: all of its bytes are 0, and none takes room on the disk.
TEST_F(CsvFileTest, RefusesTwoGigabytesOfNothingAtOnce) {
    PutBytes(file, "");
    fs::resize_file(file, uintmax_t{1} << 31);
    const FileCalls calls;
    Read(file);
    ExpectError(UiErrorEquationCount, "25");
    EXPECT_LE(calls.bytesRead, 2u * 65'536);
}

TEST_F(CsvFileTest, ReadsNoFurtherThanTheLastRow) {
    PutBytes(file, OldBytes);
    fs::resize_file(file, uintmax_t{1} << 31);
    const FileCalls calls;
    Read(file);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    EXPECT_EQ(cells.size(), 6u);
    EXPECT_LE(calls.bytesRead, 65'536u);
}

TEST_F(CsvFileTest, TellsAFailureAndKeepsTheCellsBefore) {
    PutBytes(file, OldBytes.substr(0, 18) + std::string(65'536, '1') + ";5;6\r\n");
    {
        // Open, read, read.
        const FileCalls calls(3);
        Read(file);
    }
    ExpectError(UiErrorFileAccess, file);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(cells.size(), 4u);
    EXPECT_EQ((cells[{1, 0}]), u"4");
}

TEST_F(CsvFileTest, WritesASystem) {
    WriteCsvFile(PathOf(file), 2, CellText);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    EXPECT_EQ(ContentOf(file), NewBytes);
    ExpectAlone(file);
    WriteCsvFile(PathOf(file), 25, CellText);
    const std::string content = ContentOf(file);
    EXPECT_EQ(content.substr(0, 6), "a1;a2;");
    EXPECT_NE(content.find(";a25;b\r\n0|0;"), std::string::npos);
    EXPECT_TRUE(content.ends_with(";24|24;24|25\r\n"));
}

TEST_F(CsvFileTest, TakesNamesOfAnyLetters) {
    const fs::path name = folder / u"\u03C0 \u4E2D \U0001D11E.csv";
    WriteCsvFile(PathOf(name), 2, CellText);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    EXPECT_EQ(ContentOf(name), NewBytes);
    Read(name);
    EXPECT_EQ(cells.size(), 6u);
}

TEST_F(CsvFileTest, SaysThatAFileCannotBeWritten) {
    PutBytes(file, OldBytes);
    {
        const HeldFile held(file, GENERIC_READ, FILE_SHARE_READ);
        WriteCsvFile(PathOf(file), 2, CellText);
        ExpectError(UiErrorFileAccess, file);
    }
    EXPECT_EQ(ContentOf(file), OldBytes);
    ExpectAlone(file);
    WriteCsvFile(PathOf(folder), 2, CellText);
    ExpectError(UiErrorFileAccess, folder);
    WriteCsvFile(PathOf(folder / "none" / "a.csv"), 2, CellText);
    ExpectError(UiErrorFileAccess, folder / "none" / "a.csv");
}

// Each of six cells has a text, and each of the nine that are written has its bytes.
TEST_F(CsvFileTest, WithoutAnyOfItsMemoryTheOldFileStays) {
    int blocks = 0;
    {
        const FailingMemory memory;
        WriteCsvFile(PathOf(file), 2, CellText);
        blocks = memory.count;
    }
    EXPECT_GE(blocks, 15);
    for (int number = 1; number <= blocks; number++) {
        SCOPED_TRACE(number);
        PutBytes(file, OldBytes);
        {
            const FailingMemory memory(number);
            WriteCsvFile(PathOf(file), 2, CellText);
        }
        EXPECT_EQ(PendingUiError(), UiErrorInternal);
        ClearErrors();
        EXPECT_EQ(ContentOf(file), OldBytes);
        ExpectAlone(file);
    }
}

// A file is opened, gets nine cells, is flushed, closed and moved.
constexpr int WriteCalls = 13;

TEST_F(CsvFileTest, AFailureAtAnyStepLeavesTheOldFile) {
    {
        const FileCalls calls;
        WriteCsvFile(PathOf(file), 2, CellText);
        EXPECT_EQ(calls.count, WriteCalls);
    }
    for (int number = 1; number <= WriteCalls; number++) {
        SCOPED_TRACE(number);
        PutBytes(file, OldBytes);
        {
            const FileCalls calls(number);
            WriteCsvFile(PathOf(file), 2, CellText);
        }
        ExpectError(UiErrorFileAccess, file);
        EXPECT_EQ(ContentOf(file), OldBytes);
        ExpectAlone(file);
    }
}

TEST_F(CsvFileTest, AnEndAtAnyStepLeavesTheOldFile) {
    for (int number = 1; number <= WriteCalls; number++) {
        SCOPED_TRACE(number);
        PutBytes(file, OldBytes);
        EXPECT_EXIT(
            {
                const FileCalls calls(number, FileCallEnd::EndsProcess);
                WriteCsvFile(PathOf(file), 2, CellText);
            },
            ::testing::ExitedWithCode(FileCalls::Exit), "");
        EXPECT_EQ(ContentOf(file), OldBytes);
        EXPECT_EQ(fs::exists(beside), number > 1);
    }
    WriteCsvFile(PathOf(file), 2, CellText);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    EXPECT_EQ(ContentOf(file), NewBytes);
    ExpectAlone(file);
}

}  // namespace
}  // namespace tallymere::testing_support
