// Systems of equations as bytes, read and written.
#include "algebra_pages/csv_text.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "shell/ui_error.h"

namespace tallymere {
namespace {

using Cells = std::map<std::pair<int, int>, std::u16string>;

// What a file gives: the count, 0 for none, and the cells by row and column.
struct FileRead {
    int count = 0;
    Cells cells;
    CsvProgress progress = CsvProgress::FirstLine;

    bool operator==(const FileRead&) const = default;
};

void TakeCount(void* context, int32_t count) {
    auto& read = *static_cast<FileRead*>(context);
    EXPECT_EQ(read.count, 0);
    EXPECT_TRUE(read.cells.empty());
    read.count = count;
}

void TakeCell(void* context, int32_t row, int32_t column, const char16_t* text) {
    auto& read = *static_cast<FileRead*>(context);
    EXPECT_GE(row, 0);
    EXPECT_LT(row, read.count);
    EXPECT_GE(column, 0);
    EXPECT_LT(column, SystemColumnCount);
    read.cells[{row, column}] = text;
}

CsvReader ReaderInto(FileRead& read) {
    return {.receiver = {&read, TakeCount, TakeCell}};
}

// Reads a file in blocks of so many bytes.
FileRead ReadFile(const std::string& file, size_t block = 256) {
    FileRead read;
    CsvReader reader = ReaderInto(read);
    for (size_t begin = 0; begin < file.size(); begin += block) {
        const std::string bytes = file.substr(begin, block);
        read.progress = ReadCsvBytes(reader, reinterpret_cast<const uint8_t*>(bytes.data()),
                                     static_cast<int64_t>(bytes.size()));
    }
    return read;
}

std::string CellBytes(std::u16string_view text, bool endsLine) {
    std::vector<uint8_t> bytes(static_cast<size_t>(CsvCellBytes(std::ssize(text))), 0xEE);
    const int64_t count = WriteCsvCell(bytes.data(), text, endsLine);
    EXPECT_LE(count, std::ssize(bytes));
    return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(count)};
}

std::string Repeated(const std::string& text, int count) {
    std::string all;
    for (int i = 0; i < count; i++) {
        all += text;
    }
    return all;
}

const std::string Head = "a1;a2;b\r\n";

TEST(CsvText, GivesTheCellsOfASystem) {
    const FileRead read = ReadFile(Head + "1;1/2;sqrt(2)\r\n-3 ; 4;b\r\n");
    EXPECT_EQ(read.count, 2);
    EXPECT_EQ(read.progress, CsvProgress::Complete);
    EXPECT_EQ(read.cells, (Cells{{{0, 0}, u"1"},
                                 {{0, 1}, u"1/2"},
                                 {{0, RightSideColumn}, u"sqrt(2)"},
                                 {{1, 0}, u"-3 "},
                                 {{1, 1}, u" 4"},
                                 {{1, RightSideColumn}, u"b"}}));
}

TEST(CsvText, ReadsBothLineEndsAlike) {
    const FileRead windows = ReadFile("a1;a2;b\r\n1;2;3\r\n4;5;6\r\n");
    EXPECT_EQ(ReadFile("a1;a2;b\n1;2;3\n4;5;6\n"), windows);
    EXPECT_EQ(windows.cells.size(), 6u);
    // A carriage return is dropped wherever it stands.
    EXPECT_EQ(ReadFile("a1;\ra2;b\n1\r;\r2;3\n4;5;6\n"), windows);
}

TEST(CsvText, ReadsBlocksOfAnyLengthAlike) {
    const std::string file = Head + "1.5;" + std::string(1040, '7') + ";3\r\n4;;6\r\n7";
    const FileRead whole = ReadFile(file, file.size());
    EXPECT_EQ(whole.cells.size(), 6u);
    for (size_t block = 1; block <= 300; block++) {
        ASSERT_EQ(ReadFile(file, block), whole) << "blocks of " << block;
    }
}

TEST(CsvText, CountsTheSeparatorsOfTheFirstLineAlone) {
    EXPECT_EQ(ReadFile(";;\n").count, 2);
    EXPECT_EQ(ReadFile(";;\n").progress, CsvProgress::Cells);
    EXPECT_EQ(ReadFile("x;\";\";y\n").count, 3);
    EXPECT_EQ(ReadFile(std::string(25, ';') + "\n").count, 25);
}

TEST(CsvText, RefusesOtherCountsThan2To25) {
    for (const std::string& head : {std::string("a1;b\r\n"), std::string("\n"), std::string("x\n"),
                                    std::string(26, ';') + "\n"}) {
        const FileRead read = ReadFile(head + "1;2;3\r\n1;2;3\r\n");
        EXPECT_EQ(read.progress, CsvProgress::WrongCount) << head;
        EXPECT_EQ(read.count, 0) << head;
        EXPECT_TRUE(read.cells.empty()) << head;
    }
}

CsvProgress EndOf(const std::string& file) {
    FileRead read;
    CsvReader reader = ReaderInto(read);
    ReadCsvBytes(reader, reinterpret_cast<const uint8_t*>(file.data()),
                 static_cast<int64_t>(file.size()));
    const CsvProgress end = EndCsv(reader);
    EXPECT_EQ(end, reader.progress);
    return end;
}

TEST(CsvText, RefusesAFileThatEndsInItsFirstLine) {
    for (const char* file : {"", "a1;a2;b", "a1;a2;b\r"}) {
        EXPECT_EQ(ReadFile(file), FileRead{}) << file;
        EXPECT_EQ(EndOf(file), CsvProgress::WrongCount) << file;
    }
    EXPECT_EQ(EndOf(";\n"), CsvProgress::WrongCount);
    EXPECT_EQ(EndOf(";;\n"), CsvProgress::Cells);
    EXPECT_EQ(EndOf(";;\n;;\n;;\n"), CsvProgress::Complete);
}

TEST(CsvText, NamesTheHighestCountInItsError) {
    RaiseEquationCount();
    EXPECT_EQ(PendingUiError(), UiErrorEquationCount);
    EXPECT_EQ(std::u16string(uiError.arg1), u"25");
    ClearErrors();
}

TEST(CsvText, RefusesAFirstLineThatHasNoEnd) {
    const std::string longest(CsvFirstLineBytes - 2, 'x');
    EXPECT_EQ(ReadFile(longest + ";;\n").count, 2);
    EXPECT_EQ(ReadFile(longest + ";;x\n").progress, CsvProgress::WrongCount);
    // It is refused before its end comes.
    EXPECT_EQ(ReadFile(std::string(CsvFirstLineBytes, 0)).progress, CsvProgress::FirstLine);
    EXPECT_EQ(ReadFile(std::string(CsvFirstLineBytes + 1, 0)).progress, CsvProgress::WrongCount);
}

TEST(CsvText, DoesNotEndACellAtAByteZero) {
    const FileRead read = ReadFile(Head + std::string("1\0002;\0;3\n", 8));
    EXPECT_EQ(read.cells,
              (Cells{{{0, 0}, u"1\uFFFD2"}, {{0, 1}, u"\uFFFD"}, {{0, RightSideColumn}, u"3"}}));
}

TEST(CsvText, DropsALastCellWithoutALineEnd) {
    const FileRead read = ReadFile(Head + "1;2;3\r\n4;5;6");
    EXPECT_EQ(read.progress, CsvProgress::Cells);
    EXPECT_EQ(read.cells.size(), 5u);
    EXPECT_FALSE(read.cells.contains({1, RightSideColumn}));
}

TEST(CsvText, ReadsEmptyCellsAndShortLines) {
    const FileRead read = ReadFile(Head + ";;\r\n4\r\n");
    EXPECT_EQ(read.cells,
              (Cells{{{0, 0}, u""}, {{0, 1}, u""}, {{0, RightSideColumn}, u""}, {{1, 0}, u"4"}}));
}

TEST(CsvText, PutsExtraCellsWhereTheGridShowsNone) {
    const FileRead read = ReadFile(Head + "1;2;3;4;5\r\n" + Repeated("6;", 40) + "7\r\n");
    EXPECT_EQ((read.cells.at({0, RightSideColumn})), u"3");
    EXPECT_EQ((read.cells.at({0, 3})), u"4");
    EXPECT_EQ((read.cells.at({0, 4})), u"5");
    EXPECT_FALSE(read.cells.contains({0, 2}));
    // The right side stays, and what is behind the columns of the grid is passed over.
    const FileRead wide = ReadFile(Head + "1;2;3;" + Repeated("4;", 40) + "5\r\n");
    EXPECT_EQ((wide.cells.at({0, RightSideColumn})), u"3");
    EXPECT_EQ(wide.cells.size(), 25u);
}

TEST(CsvText, PassesOverExtraRows) {
    FileRead read;
    CsvReader reader = ReaderInto(read);
    const std::string file = Head + "1;2;3\n4;5;6\n7;8;9\n";
    EXPECT_EQ(ReadCsvBytes(reader, reinterpret_cast<const uint8_t*>(file.data()), std::ssize(file)),
              CsvProgress::Complete);
    EXPECT_EQ(read.cells.size(), 6u);
    EXPECT_EQ((read.cells.at({1, 0})), u"4");
}

TEST(CsvText, KeepsQuotes) {
    EXPECT_EQ((ReadFile(Head + "\"1\";\"2;3\"\n").cells),
              (Cells{{{0, 0}, u"\"1\""}, {{0, 1}, u"\"2"}, {{0, RightSideColumn}, u"3\""}}));
}

TEST(CsvText, WidensBytesAsTheyStand) {
    const FileRead read = ReadFile(Head + "\xE4;\xCF\x80;\xFF\n");
    EXPECT_EQ((read.cells.at({0, 0})), u"\u00E4");
    EXPECT_EQ((read.cells.at({0, 1})), u"\u00CF\u0080");
    EXPECT_EQ((read.cells.at({0, RightSideColumn})), u"\u00FF");
}

TEST(CsvText, CutsALongCell) {
    const size_t most = CoefficientCharacters;
    const FileRead read =
        ReadFile(Head + std::string(most, '1') + ";" + std::string(most - 1, '2') + "\r\r34;5\r\n" +
                 std::string(3 * most, '6') + ";7;8\n");
    EXPECT_EQ((read.cells.at({0, 0})), std::u16string(most, u'1'));
    EXPECT_EQ((read.cells.at({0, 1})), std::u16string(most - 1, u'2') + u"\u2026");
    EXPECT_EQ((read.cells.at({0, RightSideColumn})), u"5");
    EXPECT_EQ((read.cells.at({1, 0})), std::u16string(most - 1, u'6') + u"\u2026");
    EXPECT_EQ((read.cells.at({1, 1})), u"7");
}

TEST(CsvText, WritesCells) {
    EXPECT_EQ(CellBytes(u"1/2", false), "1/2;");
    EXPECT_EQ(CellBytes(u"1/2", true), "1/2\r\n");
    EXPECT_EQ(CellBytes(u"", false), ";");
    EXPECT_EQ(CellBytes(u"", true), "\r\n");
    EXPECT_EQ(CellBytes(u"\"a b\"", false), "\"a b\";");
}

TEST(CsvText, WritesAQuestionMarkForWhatIsNotAscii) {
    EXPECT_EQ(CellBytes(u"\u007F\u0080\u00E4\u03C0\u2026\U0001D11E", false),
              "\x7F?????"
              "?;");
}

// What is written is read again, but for a ";" within a cell: it parts the cell.
TEST(CsvText, ReadsWhatItWrites) {
    std::string file;
    for (int column = 0; column <= 2; column++) {
        file += CellBytes(NameOfSystemColumn(GridColumnOfSystem(column, 2)).text, column == 2);
    }
    EXPECT_EQ(file, Head);
    file += CellBytes(u"2*\u03C0", false) + CellBytes(u"", false) + CellBytes(u"\"3\"", true);
    file += CellBytes(u"root(3;8)", false) + CellBytes(u"5", false) + CellBytes(u"6", true);
    EXPECT_EQ(ReadFile(file).cells, (Cells{{{0, 0}, u"2*?"},
                                           {{0, 1}, u""},
                                           {{0, RightSideColumn}, u"\"3\""},
                                           {{1, 0}, u"root(3"},
                                           {{1, 1}, u"8)"},
                                           {{1, RightSideColumn}, u"5"},
                                           {{1, 3}, u"6"}}));
}

TEST(CsvText, NamesTheColumns) {
    EXPECT_EQ(NameOfSystemColumn(0).text, std::u16string(u"a1"));
    EXPECT_EQ(NameOfSystemColumn(8).text, std::u16string(u"a9"));
    EXPECT_EQ(NameOfSystemColumn(9).text, std::u16string(u"a10"));
    EXPECT_EQ(NameOfSystemColumn(24).text, std::u16string(u"a25"));
    EXPECT_EQ(NameOfSystemColumn(RightSideColumn).text, std::u16string(u"b"));
    EXPECT_EQ(GridColumnOfSystem(1, 2), 1);
    EXPECT_EQ(GridColumnOfSystem(2, 2), RightSideColumn);
    EXPECT_EQ(GridColumnOfSystem(25, 25), RightSideColumn);
}

}  // namespace
}  // namespace tallymere
