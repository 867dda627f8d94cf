// The program with two pages that exist only here, for tests of what all pages have in common: how
// a page calculates, is stopped and closed, and follows the main window. All else is the program's
// own, its start and its main loop too.
//
// Roots adds the square roots of all whole numbers down from the one in its edit. Its worker polls
// the request to stop between its steps, and the page is left 200 ms after the end of a run.
//
// Factorials writes the factorials of one million, two millions and so on, as many as its edit
// says. The arithmetic polls the request to stop, and the page is left at once. A negative number
// stands for a run that hears no stop and uses the memory of its input all the time.

#include <cstdint>
#include <iterator>

#include "core/real_add.h"
#include "core/real_integer.h"
#include "core/real_rounding.h"
#include "core/real_text.h"
#include "core/scratch.h"
#include "functions/factorial.h"
#include "functions/roots.h"
#include "shell/text_format.h"
#include "shell/windows/about_window.h"
#include "shell/windows/options_window.h"
#include "shell/windows/page_run.h"
#include "shell/windows/program_run.h"
#include "shell/windows/program_windows.h"
#include "toolkit/dialog_window.h"
#include "toolkit/long_text_field.h"
#include "toolkit/standard_controls.h"
#include "toolkit/wide_text.h"
#include "values/number_text.h"

namespace tallymere {

namespace {

constexpr int64_t LineCapacity = 255;

// Different ones, so that a page that does not install its own shows it.
constexpr int64_t RootsDigits = 100;
constexpr int64_t FactorialsDigits = 60;

constexpr int64_t RootsPerLine = 20'000;
constexpr int64_t FactorialStep = 1'000'000;

// What both pages have.
struct TestPage {
    HWND window;
    HWND startButton;
    HWND otherButton;
    HWND input;
    HWND output;
    PageRun run;
};

TestPage roots;
TestPage factorials;

// The input and the result of the roots' worker; they lie on the ScratchStack of the UI thread.
RealNumber* rootsFrom;
RealNumber* rootsSum;

// The same for the factorials that hear no stop.
RealNumber* factorialsInput;

void CreateTestPage(TestPage& page, const char16_t* title, WindowHandler handler, DWORD style,
                    const char16_t* otherCaption, const PageTask& task, PageLeaveRule leave) {
    page.window = CreateDialogWindow(hiddenOwnerWindow, {600, 300}, title, handler,
                                     WS_SYSMENU | style | DialogClientSize, 0);
    page.startButton = CreateButton(page.window, {10, 10, 100, 25}, uiText.TextBtnStart);
    page.otherButton = CreateButton(page.window, {120, 10, 100, 25}, otherCaption);
    page.input = CreateEdit(page.window, {230, 10, 360, 25}, u"", ES_AUTOHSCROLL, WS_EX_CLIENTEDGE);
    page.output = CreateLongTextField(page.window, {10, 45, 580, 245}, u"");
    page.run = {.page = page.window,
                .startTask = &task,
                .controls = {.startButton = page.startButton,
                             .startCaption = &UiText::TextBtnStart,
                             .disabled = &page.otherButton,
                             .disabledCount = 1,
                             .output = page.output},
                .states = {.rules = {StopFromTheStart, leave}}};
}

RealNumber* TakeReal(ScratchArea& area) {
    return RealAt(ScratchTake(area, RealWords()));
}

// The whole number in the page's edit, or an error. Runs on the UI thread and on the CalcThread.
int64_t ReadWholeNumber(const TestPage& page) {
    char16_t text[LineCapacity + 1];
    GetWindowTextW(page.input, ToWide(text), LineCapacity + 1);
    ScratchStackScope scope;
    RealNumber* number = TakeReal(CurrentScratchStack());
    RealRound(number, RealFromText(number, text, TextUntilZero, 0));
    int64_t value = 0;
    if (!RealToInt(&value, number, IntegerExact)) {
        SetUiError(UiErrorInvalidInput, text);
    }
    return value;
}

// A line "label = number" for the output.
struct OutputLine {
    char16_t text[LineCapacity + 1];

    OutputLine(const char16_t* label, const RealNumber* number) {
        char16_t digits[LineCapacity + 1];
        NumberToText(digits, LineCapacity, &number->header, 0);
        FormatBounded(text, LineCapacity, u"%s = %s\r\n", {label, digits});
    }
};

void AppendLine(const TestPage& page, const char16_t* line) {
    AppendPageText(page.output, line);
}

// The worker may have noted a code of the arithmetic that is no UiError yet.
bool HasFailed() {
    return RunShouldEnd() || numberContext.calcError != CalcErrorNone;
}

NumberSetup RootsSetup() {
    return {.type = NumberTypeReal, .digits = RootsDigits};
}

void TakeRoots() {
    rootsFrom = TakeReal(CurrentScratchStack());
    rootsSum = TakeReal(CurrentScratchStack());
    AppendLine(roots, u"started\r\n");
}

void ReadRoots() {
    const int64_t from = ReadWholeNumber(roots);
    if (!HasFailed()) {
        TakeRoots();
        RealFromInt(rootsFrom, from);
    }
}

void AddRoots() {
    ScratchStackScope scope;
    RealNumber* number = TakeReal(CurrentScratchStack());
    RealNumber* root = TakeReal(CurrentScratchStack());
    RealNumber* one = TakeReal(CurrentScratchStack());
    RealSetOne(one);
    RealCopy(number, rootsFrom);
    RealSetZero(rootsSum, 0);
    for (int64_t count = 1; !HasFailed() && !RealIsZero(number); count++) {
        RealSqrtRounded(root, number);
        RealAdd(rootsSum, rootsSum, root);
        RealSub(number, number, one);
        if (count % RootsPerLine == 0) {
            SendPageText(OutputLine(u"so far", rootsSum).text);
        }
    }
}

// An error of the arithmetic and two of the page.
void FailThreeTimes() {
    RealSetNaN(rootsSum, CalcErrorUndefined);
    SetUiError(UiErrorDivisionByZero);
    SetUiError(UiErrorPrimeNumberOverflow);
}

void ShowRoots(bool) {
    if (!HasFailed()) {
        AppendLine(roots, OutputLine(u"sum", rootsSum).text);
    }
}

constexpr PageTask RootsTask = {RootsSetup, ReadRoots, AddRoots, ShowRoots, UiErrorCalculation};
constexpr PageTask FailingTask = {RootsSetup, TakeRoots, FailThreeTimes, ShowRoots,
                                  UiErrorCalculation};

LRESULT RootsProc(HWND, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault) {
    if (!HandlePageRun(roots.run, message, wParam, lParam, callDefault) && message == WM_COMMAND &&
        HIWORD(wParam) == BN_CLICKED && reinterpret_cast<HWND>(lParam) == roots.otherButton) {
        StartPageRun(roots.run, FailingTask);
    }
    return 0;
}

NumberSetup FactorialsSetup() {
    return {.type = NumberTypeReal, .digits = FactorialsDigits};
}

void ReadFactorials() {
    factorialsInput = TakeReal(CurrentScratchStack());
    ReadWholeNumber(factorials);
    if (!HasFailed()) {
        AppendLine(factorials, u"started\r\n");
    }
}

void HearNothing() {
    for (;;) {
        RealSetOne(factorialsInput);
        RealAdd(factorialsInput, factorialsInput, factorialsInput);
    }
}

// Reads the edit anew before every factorial, which is how a run can be told to end by itself.
void WriteFactorials() {
    ScratchStackScope scope;
    RealNumber* value = TakeReal(CurrentScratchStack());
    if (ReadWholeNumber(factorials) < 0) {
        SendPageText(u"deaf\r\n");
        HearNothing();
    }
    for (int64_t count = 1; count <= ReadWholeNumber(factorials); count++) {
        RealProductFactorial(value, count * FactorialStep);
        if (numberContext.calcError != CalcErrorNone) {
            return;
        }
        SendPageText(OutputLine(u"next", value).text);
    }
}

void ShowEndOfFactorials(bool) {
    if (!HasFailed()) {
        AppendLine(factorials, u"done\r\n");
    }
}

constexpr PageTask FactorialsTask = {FactorialsSetup, ReadFactorials, WriteFactorials,
                                     ShowEndOfFactorials, UiErrorCalculation};

LRESULT FactorialsProc(HWND, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault) {
    if (!HandlePageRun(factorials.run, message, wParam, lParam, callDefault) &&
        message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED &&
        reinterpret_cast<HWND>(lParam) == factorials.otherButton) {
        SetWindowTextW(factorials.output, L"");
    }
    return 0;
}

void CreateRootsPage() {
    CreateTestPage(roots, u"Roots", RootsProc, WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX,
                   u"Fail", RootsTask, LeavesLater);
    pageWindows[PageAlgebraicEquations] = roots.window;
}

void CreateFactorialsPage() {
    CreateTestPage(factorials, u"Factorials", FactorialsProc, WS_MINIMIZEBOX, u"Clear",
                   FactorialsTask, LeavesAtOnce);
    pageWindows[PageLinearSystems] = factorials.window;
}

constexpr ProgramWindow Windows[] = {
    {&pageWindows[PageAlgebraicEquations], CreateRootsPage},
    {&optionsWindow, CreateOptionsWindow},
    {&aboutWindow, CreateAboutWindow},
    {&pageWindows[PageLinearSystems], CreateFactorialsPage},
};

}  // namespace

}  // namespace tallymere

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
    return tallymere::RunProgram(instance, tallymere::Windows);
}
