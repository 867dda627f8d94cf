// What the pages do with their grids of coefficients. A column and a row count from 0, the first
// one behind the headers.
#pragma once

#include <cstdint>

#include "toolkit/field_state.h"
#include "toolkit/win32.h"

namespace tallymere {

/// Makes a new grid show the names of its columns and rows, and lets the mouse resize its columns.
/// `labelWidth` of the column of names is in logical units.
void BeginCoefficientGrid(HWND grid, int32_t labelWidth);

/// Adds a column of empty cells behind all others; `width` is in logical units.
void AddCoefficientColumn(HWND grid, const char16_t* name, int32_t width);

/// Adds an empty column that is never seen.
void AddFillerColumn(HWND grid);

/// Shows the columns from the first one to before `end`, or hides them.
void ShowCoefficientColumns(HWND grid, int32_t first, int32_t end, bool show);

/// Scrolls to the first column that is shown.
void ScrollToFirstColumn(HWND grid);

/// Adds rows behind all others, or removes the last ones, until there are `count`. `writeName` puts
/// the name of a row into a buffer of RowNameCapacity + 1 characters.
inline constexpr int64_t RowNameCapacity = 15;
void SetCoefficientRows(HWND grid, int32_t count, void (*writeName)(char16_t* name, int32_t row));

/// Writes a text into a cell; null is an empty one.
void WriteCoefficient(HWND grid, int32_t column, int32_t row, const char16_t* text);

/// The whole text of a cell. It is not there without memory.
HeapText CopyCoefficientText(HWND grid, int32_t column, int32_t row);

/// Copies the text of a cell that can be edited, and a 0, into a buffer of CoefficientCharacters +
/// 2 characters. One of more than CoefficientCharacters is not read, whatever it says, so as many
/// spaces and one take its place.
void ReadCoefficientText(HWND grid, int32_t column, int32_t row, char16_t* buffer);

}  // namespace tallymere
