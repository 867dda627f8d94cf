// Measures how long the Algebraic Equations page takes from Solve until the roots are in its result
// box, and until Solve can be clicked again.
//
//   equation_timer ROUNDS DIGITS COEFFICIENT...
//
// The coefficients stand from the highest down; all roots are asked for. It is the program with the
// page, but clicks its own button. Prints a line for each round: milliseconds from Solve to the
// roots and to the end.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "algebra_pages/windows/equation_page.h"
#include "shell/windows/program_run.h"
#include "shell/windows/program_windows.h"
#include "toolkit/grid_control.h"
#include "toolkit/numeric_up_down.h"

#include "messages.h"
#include "milliseconds.h"

namespace tallymere {

namespace {

int rounds = 0;
int32_t digits = 0;
std::vector<std::u16string> coefficients;

HWND Control(EquationControl control) {
    return equationPage.controls[control];
}

void Choose(EquationControl field, int32_t number) {
    SetNumericPosition(Control(field), number);
    // The page hears of a number when the text is done.
    SendMessageW(NumericEdit(Control(field)), WM_KILLFOCUS, 0, 0);
}

void WriteEquation() {
    Choose(EquationDegreeField, static_cast<int32_t>(coefficients.size()) - 1);
    Choose(EquationPrecision, digits);
    SendMessageW(Control(EquationModeList), CB_SETCURSEL, ComplexModeItem, 0);
    for (size_t i = 0; i < coefficients.size(); i++) {
        const GridCellSpec cell = {0, static_cast<int32_t>(i), coefficients[i].data()};
        SendMessageW(Control(EquationGrid), GridSetCellText, 0, reinterpret_cast<LPARAM>(&cell));
    }
}

void MeasureRun() {
    const double start = Milliseconds();
    SendMessageW(Control(EquationSolve), BM_CLICK, 0, 0);
    while (IsPageCalculating(equationPage.run.states)) {
        HandleMessage();
    }
    UpdateWindow(Control(EquationOutput));
    GdiFlush();
    const double shown = Milliseconds() - start;
    while (equationPage.run.states.phase != PageIdle) {
        HandleMessage();
    }
    HandleAllMessages();
    std::printf("%.1f %.1f\n", shown, Milliseconds() - start);
    std::fflush(stdout);
}

void Measure() {
    ShowProgramWindow(equationPage.window);
    HandleAllMessages();
    WriteEquation();
    HandleAllMessages();
    if (SendMessageW(Control(EquationGrid), GridRowCount, 0, 0) !=
        static_cast<LRESULT>(coefficients.size())) {
        ExitProcess(1);
    }
    for (int i = 0; i < rounds; i++) {
        MeasureRun();
        if (GetWindowTextLengthW(Control(EquationOutput)) < digits) {
            ExitProcess(1);
        }
    }
    // The settings are not to be written.
    ExitProcess(0);
}

constexpr ProgramWindow Windows[] = {
    {&pageWindows[PageAlgebraicEquations], CreateEquationPage},
};

// When the program handles messages.
void StartMeasuring() {
    SetTimer(nullptr, 0, 0, [](HWND, UINT, UINT_PTR timer, DWORD) {
        KillTimer(nullptr, timer);
        EnsureWindow(&pageWindows[PageAlgebraicEquations]);
        Measure();
    });
}

}  // namespace

}  // namespace tallymere

int main(int count, char** arguments) {
    if (count < 5) {
        return 2;
    }
    tallymere::rounds = std::atoi(arguments[1]);
    tallymere::digits = std::atoi(arguments[2]);
    for (int i = 3; i < count; i++) {
        const std::string coefficient = arguments[i];
        tallymere::coefficients.emplace_back(coefficient.begin(), coefficient.end());
    }
    tallymere::StartMeasuring();
    return tallymere::RunProgram(GetModuleHandleW(nullptr), tallymere::Windows);
}
