// Measures how long a prime page takes from Start until its run has ended and all its text is in
// the output.
//
//   output_timer ROUNDS PAGE COUNT
//
// PAGE is primes or factors: the primes from 1 to COUNT, or the factors of these numbers. It is the
// program with both pages, but clicks its own buttons. Prints a line for each round: milliseconds
// from Start to the end, of processor time that the thread of the windows took for it, and of
// processor time that it took for the longest message.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "prime_pages/windows/prime_factors_page.h"
#include "prime_pages/windows/prime_numbers_page.h"
#include "shell/windows/program_run.h"
#include "shell/windows/program_windows.h"
#include "toolkit/wide_text.h"

#include "milliseconds.h"

namespace tallymere {

namespace {

int rounds = 0;
bool wantsFactors = false;
std::u16string count;

double longestMessage = 0;

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

void HandleMessage() {
    MSG message = {};
    GetMessageW(&message, nullptr, 0, 0);
    const double start = ProcessorMilliseconds();
    TranslateMessage(&message);
    DispatchMessageW(&message);
    longestMessage = std::max(longestMessage, ProcessorMilliseconds() - start);
}

void HandleAllMessages() {
    MSG message = {};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE)) {
        HandleMessage();
    }
}

void MeasureRun(const PrimePage& page) {
    longestMessage = 0;
    const double start = Milliseconds();
    const double processorStart = ProcessorMilliseconds();
    SendMessageW(page.controls[page.kind->start], BM_CLICK, 0, 0);
    while (page.run.states.phase != PageIdle) {
        HandleMessage();
    }
    HandleAllMessages();
    std::printf("%.0f %.0f %.0f\n", Milliseconds() - start,
                ProcessorMilliseconds() - processorStart, longestMessage);
    std::fflush(stdout);
}

void Measure() {
    const PrimePage& page = wantsFactors ? primeFactorsPage : primeNumbersPage;
    ShowProgramWindow(page.window);
    HandleAllMessages();
    SetWindowTextW(page.controls[page.kind->number], L"1");
    SetWindowTextW(page.controls[page.kind->interval], ToWide(count.c_str()));
    for (int i = 0; i < rounds; i++) {
        MeasureRun(page);
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
            MadeWindow(*row.window);
        }
        Measure();
    });
}

}  // namespace

}  // namespace tallymere

int main(int count, char** arguments) {
    if (count != 4) {
        return 2;
    }
    const std::string page = arguments[2];
    const std::string numbers = arguments[3];
    tallymere::rounds = std::atoi(arguments[1]);
    tallymere::wantsFactors = page == "factors";
    tallymere::count.assign(numbers.begin(), numbers.end());
    tallymere::StartMeasuring();
    return tallymere::RunProgram(GetModuleHandleW(nullptr), tallymere::Windows);
}
