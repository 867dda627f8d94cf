// A CSV file of a system of linear equations on disk.
#pragma once

#include <cstdint>

#include "algebra_pages/csv_text.h"
#include "toolkit/field_state.h"

namespace tallymere {

/// Reads a file, whose path has at most PathCapacity characters, and hands over what it has. What
/// fails is pending as a UiError: UiErrorFileNotFound, or UiErrorFileAccess for any other failure
/// of the system, with the path; UiErrorEquationCount with MaxEquationCount. A failure behind the
/// first line comes after the cells that were read before.
void ReadCsvFile(const char16_t* path, const CsvReceiver& receiver);

/// The text of a cell: of row 0 and on, and of a column of the grid. It is not there without
/// memory.
using CsvCellText = HeapText (*)(int32_t row, int32_t column);

/// Writes the names of the columns and the cells of a system with `count` equations, see
/// system_columns.h. What fails is pending as a UiError, and a file that was there before is as it
/// was: UiErrorFileAccess with the path; UiErrorInternal without memory.
void WriteCsvFile(const char16_t* path, int32_t count, CsvCellText cellText);

}  // namespace tallymere
