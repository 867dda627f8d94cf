// Measures how long a prime page takes from Start until its run has ended and all its text is in
// the output, and how long from a click on Stop until it is heard.
//
//   output_timer ROUNDS PAGE FIRST COUNT
//   output_timer ROUNDS PAGE FIRST COUNT LINES SIZE
//
// PAGE is primes, probable or factors: the primes among COUNT numbers from FIRST on by the exact or
// by the probabilistic method, or the factors of these numbers. It is the program with both pages,
// but clicks its own buttons.
//
// Prints a line for each round: milliseconds from Start to the end, of processor time that the
// thread of the windows took for it, and of processor time that it took for the longest message.
//
// With LINES another thread clicks Stop with the mouse, at some moment when the output has so many
// lines. SIZE is that of the page: normal or maximised. Prints a line for each round: milliseconds
// from the release of the button until the run was asked to stop, and until the page was idle, and
// of processor time that the longest message took until then.

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>

#include "core/stop_request.h"
#include "prime_pages/prime_numbers_form.h"
#include "prime_pages/windows/prime_factors_page.h"
#include "prime_pages/windows/prime_numbers_page.h"
#include "shell/windows/program_run.h"
#include "shell/windows/program_windows.h"
#include "toolkit/wide_text.h"

#include "messages.h"
#include "milliseconds.h"

namespace tallymere {

namespace {

int rounds = 0;
bool wantsFactors = false;
bool wantsProbable = false;
std::u16string first;
std::u16string count;

// Of a measurement with a click; 0 lines else.
int stopLines = 0;
bool isMaximised = false;

double longestMessage = 0;

// Of the run under way.
std::atomic<int> shownLines = 0;
std::atomic<double> releaseTime = 0;
double heardTime = 0;

uint64_t Ticks(FILETIME time) {
    return static_cast<uint64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

// Of this thread.
double ProcessorMilliseconds() {
    FILETIME begin = {};
    FILETIME end = {};
    FILETIME kernel = {};
    FILETIME user = {};
    GetThreadTimes(GetCurrentThread(), &begin, &end, &kernel, &user);
    constexpr double TicksPerMillisecond = 10'000;
    return static_cast<double>(Ticks(kernel) + Ticks(user)) / TicksPerMillisecond;
}

const PrimePage& MeasuredPage() {
    return wantsFactors ? primeFactorsPage : primeNumbersPage;
}

HWND Control(int32_t index) {
    return MeasuredPage().controls[index];
}

void MeasureMessage() {
    MSG message = {};
    GetMessageW(&message, nullptr, 0, 0);
    const double start = ProcessorMilliseconds();
    TranslateMessage(&message);
    DispatchMessageW(&message);
    longestMessage = std::max(longestMessage, ProcessorMilliseconds() - start);
    if (heardTime == 0 && StopRequested()) {
        heardTime = Milliseconds();
    }
    shownLines =
        static_cast<int>(SendMessageW(Control(MeasuredPage().kind->output), EM_GETLINECOUNT, 0, 0));
}

// From another thread: presses and releases the left button of the mouse on a control, once the
// output has its lines and so many milliseconds have passed.
void ClickAtLines(HWND control, DWORD milliseconds) {
    while (shownLines < stopLines) {
        Sleep(1);
    }
    Sleep(milliseconds);
    RECT place = {};
    GetWindowRect(control, &place);
    SetCursorPos((place.left + place.right) / 2, (place.top + place.bottom) / 2);
    INPUT inputs[2] = {};
    inputs[0].type = INPUT_MOUSE;
    inputs[0].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    inputs[1].type = INPUT_MOUSE;
    inputs[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
    releaseTime = Milliseconds();
    SendInput(2, inputs, sizeof inputs[0]);
}

void LoopUntilIdle() {
    while (MeasuredPage().run.states.phase != PageIdle) {
        MeasureMessage();
    }
    HandleAllMessages(MeasureMessage);
}

void MeasureRun() {
    longestMessage = 0;
    const double start = Milliseconds();
    const double processorStart = ProcessorMilliseconds();
    SendMessageW(Control(MeasuredPage().kind->start), BM_CLICK, 0, 0);
    LoopUntilIdle();
    std::printf("%.0f %.0f %.0f\n", Milliseconds() - start,
                ProcessorMilliseconds() - processorStart, longestMessage);
}

void MeasureStop(int round) {
    longestMessage = 0;
    heardTime = 0;
    shownLines = 0;
    // Any moments do, if they differ.
    const DWORD delay = 300 + static_cast<DWORD>(round) * 137 % 400;
    std::thread clicking(ClickAtLines, Control(MeasuredPage().kind->stop), delay);
    SendMessageW(Control(MeasuredPage().kind->start), BM_CLICK, 0, 0);
    LoopUntilIdle();
    clicking.join();
    std::printf("%.0f %.0f %.0f\n", heardTime - releaseTime, Milliseconds() - releaseTime,
                longestMessage);
}

void Measure() {
    const PrimePage& page = MeasuredPage();
    ShowProgramWindow(page.window);
    if (isMaximised) {
        ShowWindow(page.window, SW_SHOWMAXIMIZED);
    }
    HandleAllMessages(MeasureMessage);
    if (wantsProbable) {
        SendMessageW(Control(PrimeNumbersProbabilistic), BM_CLICK, 0, 0);
    }
    SetWindowTextW(Control(page.kind->number), ToWide(first.c_str()));
    SetWindowTextW(Control(page.kind->interval), ToWide(count.c_str()));
    for (int i = 0; i < rounds; i++) {
        if (stopLines == 0) {
            MeasureRun();
        } else {
            MeasureStop(i);
        }
        std::fflush(stdout);
    }
    // The settings are not to be written.
    ExitProcess(0);
}

constexpr ProgramWindow Windows[] = {
    {&pageWindows[PagePrimeNumbers], CreatePrimeNumbersPage},
    {&pageWindows[PagePrimeFactors], CreatePrimeFactorsPage},
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

int main(int argumentCount, char** arguments) {
    if (argumentCount != 5 && argumentCount != 7) {
        return 2;
    }
    const std::string page = arguments[2];
    const std::string number = arguments[3];
    const std::string interval = arguments[4];
    tallymere::rounds = std::atoi(arguments[1]);
    tallymere::wantsFactors = page == "factors";
    tallymere::wantsProbable = page == "probable";
    tallymere::first.assign(number.begin(), number.end());
    tallymere::count.assign(interval.begin(), interval.end());
    if (argumentCount == 7) {
        tallymere::stopLines = std::atoi(arguments[5]);
        tallymere::isMaximised = arguments[6] == std::string("maximised");
    }
    tallymere::StartMeasuring();
    return tallymere::RunProgram(GetModuleHandleW(nullptr), tallymere::Windows);
}
