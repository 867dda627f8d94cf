// The program with a page that exists only here, for tests of the grid and for pictures of it.
//
// The upper grid has 26 columns and 25 rows, the most that a page of the program has. The lower one
// has all else that a grid can show: a title, headers with texts of their own, hidden and read
// columns, protected cells, wrapped texts. What the grids tell is written into the edit below them,
// with the text of the cell.

#include <string>

#include "shell/windows/about_window.h"
#include "shell/windows/options_window.h"
#include "shell/windows/program_run.h"
#include "shell/windows/program_windows.h"
#include "toolkit/dialog_window.h"
#include "toolkit/environment.h"
#include "toolkit/grid_control.h"
#include "toolkit/standard_controls.h"
#include "toolkit/wide_text.h"

namespace tallymere {

namespace {

constexpr int32_t Columns = 26;
constexpr int32_t Rows = 25;

HWND page;
HWND largeGrid;
HWND smallGrid;
HWND output;

LRESULT Ask(HWND grid, UINT message, int64_t wParam, const void* lParam) {
    return SendMessageW(grid, message, static_cast<WPARAM>(wParam),
                        reinterpret_cast<LPARAM>(lParam));
}

LRESULT Ask(HWND grid, UINT message, int64_t wParam = 0, int64_t lParam = 0) {
    return SendMessageW(grid, message, static_cast<WPARAM>(wParam), lParam);
}

void AddColumn(HWND grid, const char16_t* header, int32_t type = GridColumnText) {
    const GridColumnSpec spec = {type, header, nullptr};
    Ask(grid, GridAddColumn, 0, &spec);
}

void Write(HWND grid, int32_t column, int32_t row, std::u16string text) {
    const GridCellSpec spec = {column, row, text.data()};
    Ask(grid, GridSetCellText, 0, &spec);
}

void FillLargeGrid() {
    for (int32_t column = 0; column < Columns; column++) {
        AddColumn(largeGrid, u"");
        Ask(largeGrid, GridSetColumnWidth, column, 80);
    }
    for (int32_t row = 0; row < Rows; row++) {
        Ask(largeGrid, GridAddRow);
    }
    Ask(largeGrid, GridSetAllowResize, 1);
    Write(largeGrid, 0, 0, u"sqrt(2)/3");
    Write(largeGrid, 1, 0, u"-12345.678");
    Write(largeGrid, 0, 1, u"a text that is longer than its cell");
    Write(largeGrid, 1, 1, u"right");
    const GridCellSpec right = {1, 1, nullptr};
    Ask(largeGrid, GridSetCellAlignment, GridAlignRight, &right);
}

void FillSmallGrid() {
    AddColumn(smallGrid, u"a1");
    AddColumn(smallGrid, u"hidden");
    AddColumn(smallGrid, u"only read", 0);
    AddColumn(smallGrid, u"b");
    const char16_t* const rows[] = {u"P0(x)", u"P1(x)", u"P2(x)"};
    for (const char16_t* row : rows) {
        Ask(smallGrid, GridAddRow, 0, row);
    }
    SetWindowTextW(smallGrid, L"Title of the grid");
    Ask(smallGrid, GridSetTitleHeight, ToScreenPixels(24));
    Ask(smallGrid, GridSetShowColumnLetters, 0);
    Ask(smallGrid, GridSetShowRowNumbers, 0);
    Ask(smallGrid, GridSetExtendLastColumn, 0);
    Ask(smallGrid, GridHideColumn, 1, 1);
    Ask(smallGrid, GridSetSingleLine, 0);
    Ask(smallGrid, GridSetRowHeight, ToScreenPixels(36));
    Ask(smallGrid, GridSetColumnWidth, 0, 120);
    Ask(smallGrid, GridSetColumnWidth, 3, 90);
    Ask(smallGrid, GridSetProtectedBackground, RGB(255, 255, 200));
    Write(smallGrid, 0, 0, u"a text that needs two lines");
    Write(smallGrid, 2, 0, u"read");
    Write(smallGrid, 3, 1, u"protected");
    const GridCellSpec cell = {3, 1, nullptr};
    Ask(smallGrid, GridSetCellProtected, 1, &cell);
}

std::u16string NumberText(int64_t number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

// A line such as "5 3 2 text": code, column, row and what the cell holds.
void WriteNotification(const GridNotification& notification) {
    const HWND grid = notification.header.hwndFrom;
    std::u16string text(4096, u'\0');
    const GridCellSpec spec = {notification.column, notification.row, text.data()};
    const LRESULT length = Ask(grid, GridGetCellText, 0, &spec);
    text.resize(static_cast<size_t>(length > 0 ? length : 0));
    const std::u16string line = NumberText(notification.header.code) + u" " +
                                NumberText(notification.column) + u" " +
                                NumberText(notification.row) + u" " + text + u"\r\n";
    const int end = GetWindowTextLengthW(output);
    SendMessageW(output, EM_SETSEL, static_cast<WPARAM>(end), end);
    SendMessageW(output, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(ToWide(line.c_str())));
}

LRESULT PageProc(HWND window, UINT message, WPARAM, LPARAM lParam, bool& callDefault) {
    if (message == WM_NOTIFY && output != nullptr) {
        const auto& notification = *reinterpret_cast<const GridNotification*>(lParam);
        const HWND sender = notification.header.hwndFrom;
        // Buttons tell of their painting too.
        if (sender == largeGrid || sender == smallGrid) {
            WriteNotification(notification);
        }
    } else if (message == WM_CLOSE) {
        ShowWindow(window, SW_HIDE);
        callDefault = false;
    }
    return 0;
}

void CreateGridPage() {
    page = CreateDialogWindow(nullptr, {620, 500}, u"Grids", PageProc,
                              WS_SYSMENU | WS_MINIMIZEBOX | DialogClientSize, 0);
    CreateButton(page, {10, 10, 100, 25}, u"Before");
    largeGrid = CreateGrid(page, {10, 45, 600, 200});
    smallGrid = CreateGrid(page, {10, 255, 400, 170});
    CreateButton(page, {10, 435, 100, 25}, u"Behind");
    FillLargeGrid();
    FillSmallGrid();
    output = CreateEdit(page, {420, 255, 190, 170}, u"", ES_MULTILINE | ES_AUTOVSCROLL | WS_VSCROLL,
                        WS_EX_CLIENTEDGE);
    pageWindows[PagePolynomialCalculation] = page;
}

constexpr ProgramWindow Windows[] = {
    {&pageWindows[PagePolynomialCalculation], CreateGridPage},
    {&optionsWindow, CreateOptionsWindow},
    {&aboutWindow, CreateAboutWindow},
};

}  // namespace

}  // namespace tallymere

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
    return tallymere::RunProgram(instance, tallymere::Windows);
}
