// A system of linear equations as the bytes of a CSV file, in both directions.
//
// Each byte is one character, and 0 is read as U+FFFD. A ";" parts cells and a line feed ends a
// line; quotes mean nothing. The first line has the names of the columns, each further one the
// cells of an equation:
//
//     a1;a2;b
//     1;1/2;3
//     sqrt(2);-1;0
#pragma once

#include <cstdint>
#include <string_view>

#include "algebra_pages/system_columns.h"
#include "core/limits.h"

namespace tallymere {

// Reading. The bytes come in blocks of any length, and memory does not grow with them.

/// The bytes that the first line may have without its line feed. A file with a longer one, such as
/// one without any line feed, is not read to its end.
inline constexpr int64_t CsvFirstLineBytes = 65'536;

/// Who gets what is read.
struct CsvReceiver {
    void* context;
    /// The first line is accepted and has this count of equations, MinEquationCount to
    /// MaxEquationCount. What was there before can go now.
    void (*takeCount)(void* context, int32_t count);
    /// A cell: row 0 to count - 1, and the column of the grid, 0 to RightSideColumn. Cells of
    /// columns that the system does not have come too. The text ends with a 0 and is there during
    /// the call alone.
    void (*takeCell)(void* context, int32_t row, int32_t column, const char16_t* text);
};

enum class CsvProgress {
    FirstLine,   ///< its end has not come
    Cells,       ///< cells are missing
    Complete,    ///< all rows are there; further bytes mean nothing
    WrongCount,  ///< the first line is refused; further bytes mean nothing
};

/// Begins as {.receiver = ...}.
struct CsvReader {
    CsvReceiver receiver;
    CsvProgress progress = CsvProgress::FirstLine;
    int64_t firstLineBytes = 0;
    int64_t separators = 0;     ///< of the first line
    int32_t equationCount = 0;  ///< what they mean, behind the first line
    int32_t row = 0;            ///< of the cell that is read
    int32_t column = 0;         ///< likewise, as the line has it; not above SystemColumnCount
    int64_t length = 0;         ///< characters of the cell, 0 to CoefficientCharacters
    char16_t cell[CoefficientCharacters + 1] = {};
};

/// Reads the next bytes of a file and says how far it is. The file may end at any time: a last cell
/// without a line feed behind it is dropped. Carriage returns are dropped as well. A cell that is
/// longer than CoefficientCharacters is cut to them and ends in an ellipsis.
CsvProgress ReadCsvBytes(CsvReader& reader, const uint8_t* bytes, int64_t count);

/// To be called once behind the last bytes of a file: one that ends in its first line has no count
/// of equations, which is CsvProgress::WrongCount.
CsvProgress EndCsv(CsvReader& reader);

/// Leaves UiErrorEquationCount with MaxEquationCount pending, as a file with WrongCount deserves.
void RaiseEquationCount();

// Writing

/// The bytes that a cell of so many characters needs at most.
constexpr int64_t CsvCellBytes(int64_t characters) {
    return characters + 2;
}

/// bytes = a cell of a file and the ";" behind it, or the line end behind the last one of a line.
/// Characters of code 128 and above become "?". Returns the count of bytes, at most CsvCellBytes.
int64_t WriteCsvCell(uint8_t* bytes, std::u16string_view text, bool endsLine);

}  // namespace tallymere
