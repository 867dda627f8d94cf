#include "algebra_pages/windows/coefficient_grid.h"

#include <algorithm>

#include "core/limits.h"
#include "toolkit/grid_control.h"

namespace tallymere {

namespace {

int32_t AddColumn(HWND grid, const char16_t* name) {
    GridColumnSpec column = {GridColumnText, name, nullptr};
    return static_cast<int32_t>(
        SendMessageW(grid, GridAddColumn, 0, reinterpret_cast<LPARAM>(&column)));
}

}  // namespace

void BeginCoefficientGrid(HWND grid, int32_t labelWidth) {
    SendMessageW(grid, GridSetShowRowNumbers, FALSE, 0);
    SendMessageW(grid, GridSetShowColumnLetters, FALSE, 0);
    SendMessageW(grid, GridSetAllowResize, TRUE, 0);
    SendMessageW(grid, GridSetHeaderColumnWidth, 0, labelWidth);
}

void AddCoefficientColumn(HWND grid, const char16_t* name, int32_t width) {
    const int32_t column = AddColumn(grid, name);
    SendMessageW(grid, GridSetColumnWidth, static_cast<WPARAM>(column), width);
}

void AddFillerColumn(HWND grid) {
    const int32_t column = AddColumn(grid, nullptr);
    ShowCoefficientColumns(grid, column, column + 1, false);
}

void ShowCoefficientColumns(HWND grid, int32_t first, int32_t end, bool show) {
    for (int32_t column = first; column < end; column++) {
        SendMessageW(grid, GridHideColumn, static_cast<WPARAM>(column), show ? FALSE : TRUE);
    }
}

void ScrollToFirstColumn(HWND grid) {
    SendMessageW(grid, WM_HSCROLL, SB_LEFT, 0);
}

void SetCoefficientRows(HWND grid, int32_t count, void (*writeName)(char16_t* name, int32_t row)) {
    auto rows = static_cast<int32_t>(SendMessageW(grid, GridRowCount, 0, 0));
    for (; rows < count; rows++) {
        char16_t name[RowNameCapacity + 1];
        writeName(name, rows);
        SendMessageW(grid, GridAddRow, 0, reinterpret_cast<LPARAM>(name));
    }
    for (; rows > count; rows--) {
        SendMessageW(grid, GridDeleteRow, static_cast<WPARAM>(rows - 1), 0);
    }
}

void WriteCoefficient(HWND grid, int32_t column, int32_t row, const char16_t* text) {
    // Only read.
    GridCellSpec cell = {column, row, const_cast<char16_t*>(text)};
    SendMessageW(grid, GridSetCellText, 0, reinterpret_cast<LPARAM>(&cell));
}

HeapText CopyCoefficientText(HWND grid, int32_t column, int32_t row) {
    const int64_t length = SendMessageW(grid, GridGetCellLength, static_cast<WPARAM>(column), row);
    HeapText text(length);
    if (text.IsThere()) {
        GridCellSpec cell = {column, row, text.buffer.get()};
        SendMessageW(grid, GridGetCellText, 0, reinterpret_cast<LPARAM>(&cell));
        text.length = length;
    }
    return text;
}

void ReadCoefficientText(HWND grid, int32_t column, int32_t row, char16_t* buffer) {
    const int64_t length = SendMessageW(grid, GridGetCellLength, static_cast<WPARAM>(column), row);
    const int64_t kept = std::min(length, CoefficientCharacters + 1);
    std::fill_n(buffer, kept, u' ');
    buffer[kept] = 0;
    if (kept == length) {
        GridCellSpec cell = {column, row, buffer};
        SendMessageW(grid, GridGetCellText, 0, reinterpret_cast<LPARAM>(&cell));
    }
}

}  // namespace tallymere
