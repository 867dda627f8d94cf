// What becomes of the errors of a run, and how a run is stopped and closed.
#include <atomic>
#include <string>

#include "shell/windows/main_window.h"
#include "shell/windows/program_windows.h"
#include "shell_windows/failing_memory.h"
#include "shell_windows/main_windows.h"
#include "shell_windows/page_run_testing.h"
#include "shell_windows/settings_folder.h"

namespace tallymere {
namespace {

using namespace testing_support;

// Looks at the other window, the page and the numbers each time that a message box comes up.
class BoxWatch {
public:
    BoxWatch() : hook_(SetWindowsHookExW(WH_CBT, Look, nullptr, GetCurrentThreadId())) {}
    ~BoxWatch() { UnhookWindowsHookEx(hook_); }
    BoxWatch(const BoxWatch&) = delete;
    BoxWatch& operator=(const BoxWatch&) = delete;

    static inline bool otherEnabled;
    static inline PagePhase phase;
    static inline NumberSetup numbers;
    static inline uint64_t* top;

    static inline void (*behind)() = nullptr;  ///< what else happens behind the box

private:
    static LRESULT CALLBACK Look(int code, WPARAM wParam, LPARAM lParam) {
        if (code == HCBT_ACTIVATE && reinterpret_cast<HWND>(wParam) != run.page) {
            otherEnabled = IsEnabled(other);
            phase = run.states.phase;
            numbers = CurrentNumberSetup();
            top = *CurrentScratchStack().top;
            if (behind != nullptr) {
                behind();
            }
        }
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }

    HHOOK hook_;
};

TEST_F(PageRunTest, ReportsAnErrorOfTheRunBeforeOrAfterThePageIsLeft) {
    for (const PageLeaveRule leave : {LeavesAtOnce, LeavesLater, LeavesBeforeReport}) {
        const MessageBoxAnswer answer;
        const BoxWatch watch;
        run.states.rules.leave = leave;
        task.work = Overflow;
        ClickStart();
        LoopUntilIdle();
        EXPECT_EQ(answer.boxes, 1);
        EXPECT_EQ(answer.text, "Overflow in prime number calculation!");
        EXPECT_EQ(watch.otherEnabled, leave == LeavesBeforeReport) << leave;
        ExpectNumbers(watch.numbers, numbersBefore);
        EXPECT_EQ(watch.top, topBefore);
        EXPECT_TRUE(seen.succeeded) << "a code of the arithmetic is taken after the results";
    }
}

TEST_F(PageRunTest, ReportsAnErrorOfTheInputUnderTheCodeOfThePageAndStartsNothing) {
    const MessageBoxAnswer answer;
    const BoxWatch watch;
    task.fallback = UiErrorPrimeFactorOverflow;
    task.prepare = [] {
        ScratchTake(CurrentScratchStack(), 100);
        Overflow();
    };
    ClickStart();
    EXPECT_EQ(answer.text, "Overflow in prime factor calculation!");
    EXPECT_EQ(watch.phase, PageIdle) << "the page can be used behind the box";
    ExpectNumbers(watch.numbers, numbersBefore);
    EXPECT_EQ(watch.top, topBefore);
    task.prepare = [] { SetUiError(UiErrorInputTooLong); };
    ClickStart();
    EXPECT_EQ(answer.text, "The text entered is too long!");
    EXPECT_EQ(answer.boxes, 2);
    EXPECT_EQ(seen.steps, (std::vector<std::string>{"numbers", "numbers"}));
    EXPECT_TRUE(seen.shownBusy.empty());
}

TEST_F(PageRunTest, NumbersThatAreRefusedStartNothing) {
    const MessageBoxAnswer answer;
    task.numberSetup = [] { return NumberSetup{.digits = 10'006}; };
    ClickStart();
    EXPECT_EQ(answer.boxes, 1);
    task.numberSetup = [] {
        SetUiError(UiErrorInternal);
        return Numbers;
    };
    ClickStart();
    EXPECT_EQ(answer.boxes, 2);
    EXPECT_EQ(answer.text, "Internal error!");
    EXPECT_TRUE(seen.steps.empty());
}

TEST_F(PageRunTest, EndsWithAnErrorWhereNoThreadCanBeMade) {
    const MessageBoxAnswer answer;
    const ThreadMaker system = makeThread;
    makeThread = [](unsigned(__stdcall*)(void*)) { return false; };
    for (const PageLeaveRule leave : {LeavesAtOnce, LeavesLater, LeavesBeforeReport}) {
        run.states.rules.leave = leave;
        ClickStart();
        LoopUntilIdle();
        EXPECT_EQ(answer.text, "Internal error!");
        EXPECT_FALSE(seen.succeeded);
    }
    makeThread = system;
    EXPECT_EQ(answer.boxes, 3);
    run.states.rules.leave = LeavesAtOnce;
    seen = {};
    ClickStart();
    LoopUntilIdle();
    EXPECT_TRUE(seen.succeeded) << "the next run has a thread again";
    EXPECT_EQ(answer.boxes, 3);
}

TEST_F(PageRunTest, EndsWithAnErrorWhereItsThreadHasNoMemory) {
    const MessageBoxAnswer answer;
    {
        const FailingMemory memory(1, ScratchStackBytes);
        ClickStart();
        LoopUntilIdle();
        EXPECT_EQ(memory.count, 1);
    }
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(answer.text, "Internal error!");
    EXPECT_FALSE(seen.succeeded);
    seen = {};
    ClickStart();
    LoopUntilIdle();
    EXPECT_TRUE(seen.succeeded) << "the next run has memory again";
    EXPECT_EQ(answer.boxes, 1);
}

// The program is not told of other resolutions while it runs; it keeps that of its start.
TEST_F(PageRunTest, GoesOnThroughAChangeOfTheDisplay) {
    task.work = RunUntilStopped;
    ClickStart();
    RECT before = {};
    GetWindowRect(page, &before);
    RECT suggested = {10, 10, 700, 500};
    for (const HWND window : {page, other}) {
        SendMessageW(window, WM_DISPLAYCHANGE, 32, MAKELPARAM(640, 480));
        SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(192, 192),
                     reinterpret_cast<LPARAM>(&suggested));
        SendMessageW(window, WM_SETTINGCHANGE, SPI_SETWORKAREA, 0);
    }
    RECT after = {};
    GetWindowRect(page, &after);
    EXPECT_TRUE(EqualRect(&before, &after));
    EXPECT_TRUE(IsPageCalculating(run.states));
    EXPECT_FALSE(IsEnabled(other));
    EXPECT_FALSE(StopRequested());
    ClickStart();
    LoopUntilIdle();
}

TEST_F(PageRunTest, EndsWithoutAWordWhenItIsStopped) {
    StopPageRun(run);
    EXPECT_FALSE(StopRequested()) << "nothing runs yet";
    const MessageBoxAnswer answer;
    task.work = RunUntilStopped;
    ClickStart();
    ClickStart();
    EXPECT_TRUE(StopRequested());
    LoopUntilIdle();
    EXPECT_EQ(answer.boxes, 0);
    EXPECT_FALSE(seen.succeeded);
}

TEST_F(PageRunTest, TellsNoErrorThatComesAfterAStop) {
    const MessageBoxAnswer answer;
    task.work = [] {
        RunUntilStopped();
        SetUiError(UiErrorTooManyPrimeFactors, u"7");
        SetCalcError(CalcErrorOverflow);
    };
    ClickStart();
    ClickStart();
    EXPECT_EQ(PendingUiError(), UiErrorStopped);
    LoopUntilIdle();
    // One that came before the stop is shown.
    task.work = [] {
        SetUiError(UiErrorTooManyPrimeFactors, u"7");
        while (!StopRequested()) {
            Sleep(0);
        }
    };
    EXPECT_EQ(answer.boxes, 0);
    ClickStart();
    while (PendingUiError() == UiErrorNone) {
        Sleep(0);
    }
    ClickStart();
    LoopUntilIdle();
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(answer.text, "The number \"7\" has to many prime factors or divisors!");
}

TEST_F(PageRunTest, TextThatTheOutputCannotTakeAfterAStopIsNoError) {
    SendMessageW(output, EM_SETLIMITTEXT, 100, 0);
    const MessageBoxAnswer answer;
    task.work = [] {
        RunUntilStopped();
        SendLongOutput();
    };
    ClickStart();
    ClickStart();
    LoopUntilIdle();
    EXPECT_EQ(answer.boxes, 0);
}

TEST_F(PageRunTest, ClosingStopsARunAndHidesThePage) {
    static bool closed;
    closed = false;
    run.close = [] { closed = IsWindowVisible(run.page) != FALSE; };
    mainWindow = dialog;
    ShowWindow(page, SW_SHOW);
    SetActiveWindow(page);
    const MessageBoxAnswer answer;
    task.work = RunUntilStopped;
    ClickStart();
    Close();
    EXPECT_TRUE(closed) << "called before the page is hidden";
    EXPECT_FALSE(IsWindowVisible(page));
    EXPECT_EQ(PendingUiError(), UiErrorStopped);
    EXPECT_TRUE(StopRequested());
    EXPECT_FALSE(IsEnabled(mainWindow));
    EXPECT_EQ(GetActiveWindow(), mainWindow) << "also while it is shut out";
    mainWindow = nullptr;
    LoopUntilIdle();
    EXPECT_EQ(answer.boxes, 0);
    EXPECT_FALSE(seen.succeeded);
    Close();
    EXPECT_FALSE(StopRequested()) << "nothing runs any more";
}

int32_t callsAfterRun;

void CountCall() {
    EXPECT_FALSE(IsPageCalculating(run.states));
    EXPECT_EQ(*CurrentScratchStack().top, topBefore);
    callsAfterRun++;
}

TEST_F(PageRunTest, WhatWaitsForTheEndOfARunStopsItAndIsCalledOnce) {
    callsAfterRun = 0;
    StopRunThen(CountCall);
    EXPECT_EQ(callsAfterRun, 1) << "nothing runs";
    EXPECT_FALSE(StopRequested());
    for (const PageLeaveRule leave : {LeavesAtOnce, LeavesLater, LeavesBeforeReport}) {
        callsAfterRun = 0;
        run.states.rules.leave = leave;
        task.work = RunUntilStopped;
        ClickStart();
        StopRunThen(CountCall);
        StopRunThen(CountCall);
        EXPECT_TRUE(StopRequested());
        EXPECT_EQ(callsAfterRun, 0);
        LoopUntilIdle();
        EXPECT_EQ(callsAfterRun, 1);
        EXPECT_FALSE(seen.succeeded);
        task.work = WriteTwoLines;
        ClickStart();
        LoopUntilIdle();
        EXPECT_EQ(callsAfterRun, 1) << "nothing waits any more";
    }
}

TEST_F(PageRunTest, WhatWaitsIsCalledBehindARunThatBeganBehindTheMessageOfItsOwn) {
    const MessageBoxAnswer answer;
    const BoxWatch watch;
    callsAfterRun = 0;
    run.states.rules = {StopAfterAWhile, LeavesBeforeReport};
    task.work = [] {
        Overflow();
        TakeCalcError(UiErrorCalculation);
        while (!StopRequested()) {
            Sleep(0);
        }
    };
    BoxWatch::behind = [] {
        BoxWatch::behind = nullptr;
        task.work = RunUntilStopped;
        StartPageRun(run, task);
    };
    ClickStart();
    while (PendingUiError() == UiErrorNone) {
        Sleep(0);
    }
    StopRunThen(CountCall);
    LoopUntilIdle();
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(callsAfterRun, 1);
    EXPECT_FALSE(seen.succeeded) << "the second run was asked to stop";
}

TEST_F(PageRunTest, TheProgramIsClosedWhenTheRunHasEnded) {
    CreateMainWindow();
    for (HWND* closed : {&mainWindow, &hiddenOwnerWindow}) {
        task.work = RunUntilStopped;
        ClickStart();
        PostMessageW(*closed, WM_CLOSE, 0, 0);
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0) {
            DispatchMessageW(&message);
        }
        EXPECT_EQ(run.states.phase, PageIdle) << "the thread of the run would lose its memory";
        EXPECT_FALSE(seen.succeeded);
        EXPECT_TRUE(IsWindow(mainWindow));
    }
    DestroyMainWindows();
}

std::atomic<bool> isDeaf = false;

void HearNothing() {
    while (isDeaf) {
        Sleep(1);
    }
}

TEST_F(PageRunTest, TheProgramDoesNotWaitForARunThatHearsNothing) {
    CreateMainWindow();
    for (HWND* closed : {&mainWindow, &hiddenOwnerWindow}) {
        isDeaf = true;
        task.work = HearNothing;
        ClickStart();
        PostMessageW(*closed, WM_CLOSE, 0, 0);
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0) {
            DispatchMessageW(&message);
        }
        EXPECT_TRUE(StopRequested());
        EXPECT_TRUE(IsRunUnderWay());
        isDeaf = false;
        LoopUntilIdle();
        // What waited for its end has asked once more.
        EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    }
    DestroyMainWindows();
}

TEST_F(PageRunTest, AStopThatComesAfterTheEndReachesNothing) {
    run.states.rules.leave = LeavesLater;
    ClickStart();
    LoopWhile(StopShown);
    StopPageRun(run);
    Close();
    EXPECT_FALSE(StopRequested());
    LoopUntilIdle();
    const MessageBoxAnswer answer;
    task.work = Overflow;
    ClickStart();
    LoopUntilIdle();
    EXPECT_EQ(answer.boxes, 1) << "the next error is told";
}

TEST_F(PageRunTest, AStopThatNobodyHeardEndsTheRunAllTheSame) {
    static HANDLE mayEnd;
    mayEnd = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    task.work = [] { WaitForSingleObject(mayEnd, INFINITE); };
    ClickStart();
    ClickStart();
    SetEvent(mayEnd);
    LoopUntilIdle();
    CloseHandle(mayEnd);
    EXPECT_FALSE(seen.succeeded);
}

TEST_F(PageRunTest, TakesAStopOfTheArithmeticForOneOfTheUser) {
    const MessageBoxAnswer answer;
    task.work = RaiseArithmeticStop;
    ClickStart();
    LoopUntilIdle();
    EXPECT_EQ(answer.boxes, 0);
    EXPECT_EQ(numberContext.calcError, CalcErrorNone);
}

TEST_F(PageRunTest, BeginsWithAllErrorsCleared) {
    SetUiError(UiErrorFormula, u"old");
    SetCalcError(CalcErrorOverflow);
    RequestStop();
    const MessageBoxAnswer answer;
    ClickStart();
    LoopUntilIdle();
    EXPECT_EQ(answer.boxes, 0);
    EXPECT_TRUE(seen.succeeded);
}

TEST_F(PageRunTest, SettingsThatCannotBeSavedAreNotReportedDuringARun) {
    const SettingsFolder settingsFolder;
    fs::remove_all(settingsFolder.folder);
    PutBytes(settingsFolder.folder, "mine");
    settings.settingsDirty = true;
    const MessageBoxAnswer answer;
    task.work = RunUntilStopped;
    ClickStart();
    EXPECT_FALSE(SaveSettingsOrReport());
    EXPECT_EQ(answer.boxes, 0);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    StopPageRun(run);
    LoopUntilIdle();
    EXPECT_EQ(answer.boxes, 0);
    EXPECT_FALSE(SaveSettingsOrReport());
    EXPECT_EQ(answer.boxes, 1);
    fs::remove_all(settingsFolder.folder);
    EXPECT_TRUE(SaveSettingsOrReport());
}

}  // namespace
}  // namespace tallymere
