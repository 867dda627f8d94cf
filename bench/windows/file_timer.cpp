// Measures how long the page of linear systems takes to save and to load its largest system.
//
//   file_timer ROUNDS
//
// Prints a line for each round: milliseconds to write the file, and to read one and to show it.

#include <cstdio>
#include <cstdlib>
#include <iterator>

#include "algebra_pages/system_columns.h"
#include "algebra_pages/windows/coefficient_grid.h"
#include "algebra_pages/windows/system_page.h"
#include "shell/text_format.h"
#include "shell/windows/init_application.h"
#include "shell/windows/program_windows.h"
#include "toolkit/numeric_up_down.h"
#include "toolkit/wide_text.h"

#include "milliseconds.h"

namespace tallymere {

namespace {

void FillGrid() {
    SetNumericPosition(systemPage.controls[SystemCount], MaxEquationCount);
    SyncNumericUpDown(systemPage.controls[SystemCount], true, true);
    for (int32_t row = 0; row < MaxEquationCount; row++) {
        for (int32_t column = 0; column < SystemColumnCount; column++) {
            char16_t text[32];
            FormatBounded(text, std::size(text) - 1, u"%d/%d", {row + 1, row + column + 1});
            WriteCoefficient(systemPage.controls[SystemGrid], column, row, text);
        }
    }
}

void Show() {
    RedrawWindow(systemPage.window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void MeasureRound() {
    const double start = Milliseconds();
    SaveSystemFile();
    const double saved = Milliseconds();
    SendMessageW(systemPage.controls[SystemClear], BM_CLICK, 0, 0);
    Show();
    const double cleared = Milliseconds();
    LoadSystemFile(systemPage.dialogs.savedName);
    Show();
    std::printf("%.2f %.2f\n", saved - start, Milliseconds() - cleared);
    std::fflush(stdout);
}

void Measure(int rounds) {
    InitApplication(GetModuleHandleW(nullptr));
    CreateSystemPage();
    ShowProgramWindow(systemPage.window);
    FillGrid();
    GetTempPathW(PathCapacity - 20, ToWide(systemPage.dialogs.savedName));
    lstrcatW(ToWide(systemPage.dialogs.savedName), L"file_timer.csv");
    for (int i = 0; i < rounds; i++) {
        MeasureRound();
    }
    DeleteFileW(ToWide(systemPage.dialogs.savedName));
    // The settings are not to be written.
    ExitProcess(0);
}

}  // namespace

}  // namespace tallymere

int main(int count, char** arguments) {
    if (count != 2) {
        return 2;
    }
    tallymere::Measure(std::atoi(arguments[1]));
}
