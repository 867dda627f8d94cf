// The reader of CSV files: in blocks of any length it hands over what a plain reader of the whole
// file finds, and it reads what is written.
//
// Input: length of the blocks; then the file.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "algebra_pages/csv_text.h"
#include "core/text_writer.h"
#include "fuzz/harness_list.h"

namespace tallymere::fuzz {

namespace {

using Bytes = std::span<const uint8_t>;

struct Cell {
    int32_t row;
    int32_t column;
    std::u16string text;

    bool operator==(const Cell&) const = default;
};

struct CsvFile {
    std::optional<int32_t> count;
    std::vector<Cell> cells;
    CsvProgress progress = CsvProgress::FirstLine;

    bool operator==(const CsvFile&) const = default;
};

CsvFile ReadInBlocks(Bytes bytes, size_t blockLength) {
    CsvFile file;
    CsvReader reader = {
        .receiver = {&file,
                     [](void* context, int32_t count) {
                         auto* const target = static_cast<CsvFile*>(context);
                         EXPECT_FALSE(target->count.has_value());
                         target->count = count;
                     },
                     [](void* context, int32_t row, int32_t column, const char16_t* text) {
                         static_cast<CsvFile*>(context)->cells.push_back({row, column, text});
                     }}};
    while (!bytes.empty()) {
        const size_t length = std::min(blockLength, bytes.size());
        // A block of its own, so that a read behind it shows.
        const std::vector<uint8_t> block(bytes.begin(), bytes.begin() + static_cast<long>(length));
        ReadCsvBytes(reader, block.data(), static_cast<int64_t>(length));
        bytes = bytes.subspan(length);
    }
    file.progress = EndCsv(reader);
    return file;
}

std::u16string PlainCell(const std::string& bytes) {
    std::u16string text;
    for (const char byte : bytes) {
        const auto c = static_cast<uint8_t>(byte);
        text += c == 0 ? u'\uFFFD' : char16_t{c};
    }
    if (text.size() > CoefficientCharacters) {
        text.resize(CoefficientCharacters);
        text.back() = Ellipsis;
    }
    return text;
}

// By searching, in the whole file.
CsvFile ReadPlainly(Bytes bytes) {
    CsvFile file;
    const std::string all(bytes.begin(), bytes.end());
    const size_t firstEnd = all.find('\n');
    const std::string first = all.substr(0, firstEnd);
    const auto separators = std::count(first.begin(), first.end(), ';');
    file.progress = CsvProgress::WrongCount;
    if (firstEnd == all.npos || first.size() > size_t{CsvFirstLineBytes} ||
        separators < MinEquationCount || separators > MaxEquationCount) {
        return file;
    }
    const auto count = static_cast<int32_t>(separators);
    file.count = count;
    file.progress = CsvProgress::Cells;
    std::string rest = all.substr(firstEnd + 1);
    std::erase(rest, '\r');
    int32_t row = 0;
    int32_t column = 0;
    for (size_t end; row < count && (end = rest.find_first_of(";\n")) != rest.npos;
         rest.erase(0, end + 1)) {
        // Columns that the grid does not have are passed over.
        if (column <= count || column < RightSideColumn) {
            file.cells.push_back(
                {row, column == count ? RightSideColumn : column, PlainCell(rest.substr(0, end))});
        }
        column++;
        if (rest[end] == '\n') {
            row++;
            column = 0;
        }
    }
    if (row == count) {
        file.progress = CsvProgress::Complete;
    }
    return file;
}

// The cells of the system, and none but them, as a file.
std::vector<uint8_t> WrittenFile(const std::vector<std::vector<std::u16string>>& rows) {
    std::vector<uint8_t> bytes;
    const auto append = [&bytes](const std::u16string& text, bool endsLine) {
        std::vector<uint8_t> cell(
            static_cast<size_t>(CsvCellBytes(static_cast<int64_t>(text.size()))));
        const int64_t length = WriteCsvCell(cell.data(), text, endsLine);
        bytes.insert(bytes.end(), cell.begin(), cell.begin() + length);
    };
    for (size_t i = 0; i < rows.size(); i++) {
        append(u"a", false);
    }
    append(u"b", true);
    for (const std::vector<std::u16string>& row : rows) {
        for (size_t i = 0; i < row.size(); i++) {
            append(row[i], i + 1 == row.size());
        }
    }
    return bytes;
}

// What a grid can hold comes back; other characters than those of one byte become "?".
void ExpectBackAfterWriting(const CsvFile& file) {
    const auto count = static_cast<size_t>(*file.count);
    std::vector<std::vector<std::u16string>> rows(count, std::vector<std::u16string>(count + 1));
    for (const Cell& cell : file.cells) {
        const auto row = static_cast<size_t>(cell.row);
        const auto column = static_cast<size_t>(cell.column);
        if (cell.column == RightSideColumn || column < count) {
            rows[row][std::min(column, count)] = cell.text;
        }
    }
    const CsvFile again = ReadInBlocks(WrittenFile(rows), SIZE_MAX);
    EXPECT_EQ(again.count, file.count);
    EXPECT_EQ(again.progress, CsvProgress::Complete);
    ASSERT_EQ(again.cells.size(), count * (count + 1));
    for (size_t i = 0; i < again.cells.size(); i++) {
        std::u16string expected = rows[i / (count + 1)][i % (count + 1)];
        for (char16_t& c : expected) {
            c = c < 128 ? c : u'?';
        }
        EXPECT_EQ(again.cells[i].text, expected);
    }
}

}  // namespace

void FuzzCsv(FuzzInput& input) {
    const auto blockLength = static_cast<size_t>(input.Number(1, 64));
    const Bytes bytes = input.Bytes();
    const CsvFile file = ReadInBlocks(bytes, blockLength);
    const CsvFile expected = ReadPlainly(bytes);
    EXPECT_EQ(file.count, expected.count);
    EXPECT_EQ(file.progress, expected.progress);
    EXPECT_TRUE(file.cells == expected.cells);
    if (file.progress == CsvProgress::Complete) {
        ExpectBackAfterWriting(file);
    }
}

}  // namespace tallymere::fuzz
