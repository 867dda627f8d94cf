// A page that calculates on the CalcThread, from the press of its button to its end.
#include "shell/windows/calc_thread.h"

#include "core/number_context.h"
#include "core/scratch.h"
#include "shell_windows/message_boxes.h"
#include "toolkit/test_dialog.h"

namespace tallymere {
namespace {

using testing_support::TextOf;

DWORD workerThread;
bool workerHadItsOwnStack;
PageRun run;
HWND output;
HWND other;
bool otherEnabledDuringRun;
bool pageEnabledDuringRun;
int endsSeen;
WPARAM lastTimer;

void WriteTwoLines() {
    workerThread = GetCurrentThreadId();
    ScratchStackScope scope;
    workerHadItsOwnStack = scope.Take(1'000) != nullptr;
    char16_t line[] = u"first\r\n";
    SendPageText(line);
    line[0] = u'X';  // the text was taken while it was sent
    SendPageText(u"second\r\n");
}

void RunUntilStopped() {
    while (PendingUiError() == UiErrorNone) {
        Sleep(0);
    }
}

void RaiseArithmeticStop() {
    SetCalcError(CalcErrorCancelled);
}

void Overflow() {
    SetCalcError(CalcErrorOverflow);
}

LRESULT HandlePage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, bool&) {
    if (message == PageWorkerMessage && wParam == PageWorkerText) {
        otherEnabledDuringRun = IsWindowEnabled(other) != FALSE;
        pageEnabledDuringRun = IsWindowEnabled(window) != FALSE;
        AppendPageText(output, lParam);
    }
    if (message == PageWorkerMessage && wParam == PageWorkerEnded) {
        EXPECT_EQ(lParam, 0);
        EndPageRun(run, UiErrorCalculation);
        endsSeen++;
    }
    if (message == WM_TIMER) {
        lastTimer = wParam;
        HandlePageRunTimer(run, wParam);
    }
    return 0;
}

class CalcThread : public testing_support::ToolkitTest {
protected:
    CalcThread() {
        InstallLanguage(LanguageEnglish);
        CreateScratchStack();
        page = CreateDialogWindow(nullptr, {300, 200}, u"Page", HandlePage, 0, 0);
        other = CreateDialogWindow(nullptr, {100, 100}, u"Other", nullptr, 0, 0);
        start = CreateButton(page, {0, 0, 75, 25}, uiText.TextBtnStart);
        clear = CreateButton(page, {0, 30, 75, 25}, u"Clear");
        output = CreateEdit(page, {0, 60, 200, 100}, u"old\r\n", ES_MULTILINE | ES_AUTOVSCROLL, 0);
        run = {page, start, &UiText::TextBtnStart, &clear, 1, false, nullptr};
        endsSeen = 0;
    }
    ~CalcThread() override {
        DestroyWindow(page);
        DestroyWindow(other);
        DestroyScratchStack();
        ClearErrors();
    }

    // The message loop, up to the end of the run.
    void LoopUntilEnd() {
        MSG message;
        while (endsSeen == 0 && GetMessageW(&message, nullptr, 0, 0) > 0) {
            DispatchMessageW(&message);
        }
    }

    void LoopWhileBusy() {
        MSG message;
        while (run.isBusy && GetMessageW(&message, nullptr, 0, 0) > 0) {
            DispatchMessageW(&message);
        }
    }

    HWND page;
    HWND start;
    HWND clear;
};

TEST_F(CalcThread, WritesItsTextsBehindWhatIsThereAndGivesTheStackBack) {
    uint64_t* const top = *CurrentScratchStack().top;
    BeginPageRun(run);
    ScratchTake(CurrentScratchStack(), 100);
    ASSERT_TRUE(StartPageRun(run, WriteTwoLines, UiErrorCalculation));
    LoopUntilEnd();
    EXPECT_EQ(TextOf(output), "old\r\nfirst\r\nsecond\r\n");
    EXPECT_NE(workerThread, GetCurrentThreadId());
    EXPECT_TRUE(workerHadItsOwnStack);
    EXPECT_EQ(*CurrentScratchStack().top, top);
}

TEST_F(CalcThread, KeepsAllOtherWindowsAndButtonsOutOfReachUntilThePageIsLeft) {
    BeginPageRun(run);
    ASSERT_TRUE(StartPageRun(run, WriteTwoLines, UiErrorCalculation));
    EXPECT_TRUE(run.isBusy);
    EXPECT_EQ(TextOf(start), "Stop");
    EXPECT_FALSE(IsWindowEnabled(clear));
    LoopUntilEnd();
    EXPECT_FALSE(otherEnabledDuringRun);
    EXPECT_TRUE(pageEnabledDuringRun);
    EXPECT_TRUE(run.isBusy);
    EXPECT_FALSE(IsWindowEnabled(other));

    LeavePageRun(run);
    EXPECT_FALSE(run.isBusy);
    EXPECT_EQ(TextOf(start), "Start");
    EXPECT_TRUE(IsWindowEnabled(clear));
    EXPECT_TRUE(IsWindowEnabled(other));
    EXPECT_TRUE(IsWindowEnabled(dialog));
}

TEST_F(CalcThread, StaysBusyForAMomentWhereThePageWantsIt) {
    BeginPageRun(run);
    ASSERT_TRUE(StartPageRun(run, WriteTwoLines, UiErrorCalculation));
    LoopUntilEnd();
    LeavePageRunLater(run);
    lastTimer = 0;
    HandlePageRunTimer(run, 1);  // a timer of somebody else
    EXPECT_TRUE(run.isBusy);
    EXPECT_EQ(TextOf(start), "Stop");
    LoopWhileBusy();
    EXPECT_FALSE(run.isBusy);
    EXPECT_EQ(TextOf(start), "Start");
    EXPECT_TRUE(IsWindowEnabled(other));
    EXPECT_EQ(lastTimer, 1000u);
    EXPECT_FALSE(KillTimer(page, 1000)) << "the timer would end the next run before its time";
}

TEST_F(CalcThread, RunsAsOftenAsThePageWants) {
    for (int runs = 1; runs <= 3; runs++) {
        BeginPageRun(run);
        ASSERT_TRUE(StartPageRun(run, WriteTwoLines, UiErrorCalculation));
        endsSeen = 0;
        LoopUntilEnd();
        LeavePageRun(run);
        EXPECT_TRUE(IsWindowEnabled(other));
    }
    EXPECT_EQ(TextOf(output), "old\r\nfirst\r\nsecond\r\nfirst\r\nsecond\r\nfirst\r\nsecond\r\n");
}

TEST_F(CalcThread, NeedsNoButtonThatBecomesStop) {
    run.stopButton = nullptr;
    BeginPageRun(run);
    ASSERT_TRUE(StartPageRun(run, WriteTwoLines, UiErrorCalculation));
    EXPECT_EQ(TextOf(start), "Start");
    EXPECT_FALSE(IsWindowEnabled(clear));
    LoopUntilEnd();
    LeavePageRun(run);
    EXPECT_TRUE(IsWindowEnabled(clear));
}

TEST_F(CalcThread, WritesBehindTheTextWhereverTheCaretIs) {
    SendMessageW(output, EM_SETSEL, 0, 3);
    AppendPageText(output, reinterpret_cast<LPARAM>(u"new"));
    EXPECT_EQ(TextOf(output), "old\r\nnew");
    EXPECT_FALSE(SendMessageW(output, EM_CANUNDO, 0, 0));
}

TEST_F(CalcThread, ReportsAnErrorOfTheRunAtItsEndWhileTheOthersAreStillOutOfReach) {
    const testing_support::MessageBoxAnswer answer;
    BeginPageRun(run);
    ASSERT_TRUE(StartPageRun(run, Overflow, UiErrorPrimeNumberOverflow));
    LoopUntilEnd();
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(answer.text, "Error in mathematical calculation!");
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    EXPECT_TRUE(run.isBusy);
    EXPECT_FALSE(IsWindowEnabled(other));
    LeavePageRun(run);
}

TEST_F(CalcThread, ReportsAnErrorOfTheInputUnderTheCodeOfThePageAndStartsNothing) {
    const testing_support::MessageBoxAnswer answer;
    BeginPageRun(run);
    Overflow();
    EXPECT_FALSE(StartPageRun(run, WriteTwoLines, UiErrorPrimeFactorOverflow));
    EXPECT_EQ(answer.text, "Overflow in prime factor calculation!");
    BeginPageRun(run);
    SetUiError(UiErrorInputTooLong);
    EXPECT_FALSE(StartPageRun(run, WriteTwoLines, UiErrorPrimeFactorOverflow));
    EXPECT_EQ(answer.text, "The text entered is too long!");
    EXPECT_EQ(answer.boxes, 2);
    EXPECT_FALSE(run.isBusy);
    EXPECT_EQ(TextOf(output), "old\r\n");
}

TEST_F(CalcThread, ForgetsAStopThatComesAfterTheEnd) {
    BeginPageRun(run);
    ASSERT_TRUE(StartPageRun(run, WriteTwoLines, UiErrorCalculation));
    LoopUntilEnd();
    LeavePageRunLater(run);
    StopPageRun(run);
    RequestCancel();
    LoopWhileBusy();
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    EXPECT_EQ(cancelFlag, 0);
}

TEST_F(CalcThread, EndsWhenItIsStoppedWithoutAWord) {
    StopPageRun(run);
    EXPECT_EQ(PendingUiError(), UiErrorNone) << "nothing runs yet";
    BeginPageRun(run);
    ASSERT_TRUE(StartPageRun(run, RunUntilStopped, UiErrorCalculation));
    StopPageRun(run);
    LoopUntilEnd();
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    LeavePageRun(run);
}

TEST_F(CalcThread, TakesAStopOfTheArithmeticForOneOfTheUser) {
    BeginPageRun(run);
    ASSERT_TRUE(StartPageRun(run, RaiseArithmeticStop, UiErrorCalculation));
    LoopUntilEnd();
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    EXPECT_EQ(numberContext.calcError, CalcErrorNone);
    LeavePageRun(run);
}

TEST_F(CalcThread, DoesNotStartWithAnErrorInTheInput) {
    uint64_t* const top = *CurrentScratchStack().top;
    BeginPageRun(run);
    ScratchTake(CurrentScratchStack(), 100);
    SetCalcError(CalcErrorCancelled);
    EXPECT_FALSE(StartPageRun(run, WriteTwoLines, UiErrorCalculation));
    EXPECT_FALSE(run.isBusy);
    EXPECT_EQ(TextOf(start), "Start");
    EXPECT_TRUE(IsWindowEnabled(other));
    EXPECT_EQ(*CurrentScratchStack().top, top);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
}

TEST_F(CalcThread, BeginsARunWithAllErrorsCleared) {
    SetUiError(UiErrorFormula, u"old");
    SetCalcError(CalcErrorOverflow);
    RequestCancel();
    BeginPageRun(run);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    EXPECT_EQ(numberContext.calcError, CalcErrorNone);
    EXPECT_EQ(cancelFlag, 0);
}

}  // namespace
}  // namespace tallymere
