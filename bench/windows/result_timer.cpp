// Measures how long the calculator takes from the press of Return to the result on the screen, and
// the evaluation of the same formula without any window.
//
//   result_timer ROUNDS
//
// It is the program with all its windows, but presses its own keys. Prints a line for each round: a
// pair of milliseconds for each formula, with the windows and without, in turn.

#include <cstdio>
#include <cstdlib>

#include "calculator/calc_evaluation.h"
#include "calculator/calculator_settings.h"
#include "calculator/windows/calculator_controls.h"
#include "calculator/windows/calculator_page.h"
#include "calculator/windows/calculator_run.h"
#include "calculator/windows/variables_window.h"
#include "shell/ui_error.h"
#include "shell/windows/program_run.h"
#include "shell/windows/program_windows.h"
#include "toolkit/wide_text.h"

#include "messages.h"
#include "milliseconds.h"

namespace tallymere {

namespace {

struct Work {
    const char16_t* formula;
    NumberType type;
    int32_t precision;
};

constexpr Work Works[] = {
    {u"1+1", NumberTypeReal, 10},
    {u"1/7", NumberTypeReal, 1000},
    {u"1/7", NumberTypeReal, 10'000},
    {u"7^23660", NumberTypeUint, 10},  // 19,995 digits
};

int rounds = 0;

// All that is to be drawn has been.
void ShowOnScreen() {
    RedrawWindow(calculatorWindows.page, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    GdiFlush();
}

void PressReturn() {
    INPUT input[2] = {};
    input[0].type = input[1].type = INPUT_KEYBOARD;
    input[0].ki.wVk = input[1].ki.wVk = VK_RETURN;
    input[1].ki.dwFlags = KEYEVENTF_KEYUP;
    SendInput(2, input, sizeof *input);
}

double TimeWithWindows(const Work& work) {
    const HWND field = ControlOf(CalculatorFormula);
    SetForegroundWindow(calculatorWindows.page);
    SetFocus(field);
    SetWindowTextW(field, ToWide(work.formula));
    HandleAllMessages();
    ShowOnScreen();
    MarkResultStale();
    const double start = Milliseconds();
    PressReturn();
    while (!calculator.resultValid || calculatorRun.states.phase == PageBusy) {
        HandleMessage();
    }
    ShowOnScreen();
    return Milliseconds() - start;
}

double TimeWithout(const Work& work) {
    const NumberSetupScope scope(CalcNumberSetup());
    ClearErrors();
    const double start = Milliseconds();
    CalculateResult(work.formula);
    return Milliseconds() - start;
}

void Measure() {
    ShowProgramWindow(calculatorWindows.page);
    HandleAllMessages();
    for (int i = 0; i < rounds; i++) {
        for (const Work& work : Works) {
            {
                const NumberSetupScope scope;
                ApplyPrecision(work.precision);
                ApplyNumberType(work.type, 10);
            }
            const double with = TimeWithWindows(work);
            std::printf("%.3f %.3f ", with, TimeWithout(work));
        }
        std::printf("\n");
    }
    std::fflush(stdout);
    // The settings are not to be written.
    ExitProcess(0);
}

constexpr ProgramWindow Windows[] = {
    {&pageWindows[PageCalculator], CreateCalculatorPage},
    {&variablesWindow, CreateVariablesWindow},
};

// When the program handles messages.
void StartMeasuring() {
    SetTimer(nullptr, 0, 0, [](HWND, UINT, UINT_PTR timer, DWORD) {
        KillTimer(nullptr, timer);
        for (const ProgramWindow& row : Windows) {
            EnsureWindow(row.window);
        }
        Measure();
    });
}

}  // namespace

}  // namespace tallymere

int main(int count, char** arguments) {
    tallymere::rounds = count > 1 ? std::atoi(arguments[1]) : 1;
    tallymere::StartMeasuring();
    return tallymere::RunProgram(GetModuleHandleW(nullptr), tallymere::Windows);
}
