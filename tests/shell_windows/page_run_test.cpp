// A page that calculates, from the press of its button to the moment when it listens again.
#include "shell/windows/page_run.h"

#include <atomic>
#include <cstdint>
#include <utility>

#include "shell_windows/page_run_testing.h"

#include <process.h>

namespace tallymere {
namespace {

using namespace testing_support;

TEST_F(PageRunTest, GoesThroughItsStepsWithTheNumbersOfThePage) {
    ClickStart();
    LoopUntilIdle();
    EXPECT_EQ(seen.steps, (std::vector<std::string>{"numbers", "prepare", "work", "finish"}));
    ExpectNumbers(seen.numbersInWork, Numbers);
    EXPECT_NE(seen.workerThread, GetCurrentThreadId());
    EXPECT_TRUE(seen.workerHadItsOwnStack);
    EXPECT_TRUE(seen.succeeded);
    EXPECT_EQ(seen.shownBusy, (std::vector<bool>{true, false}));
    EXPECT_EQ(TextOf(output), "old\r\nfirst\r\nsecond\r\n");
}

TEST_F(PageRunTest, PutsTheNumbersBackWhateverTheRunInstalled) {
    task.work = ChangeNumbers;
    task.finish = [](bool) {};
    ClickStart();
    LoopUntilIdle();
}

TEST_F(PageRunTest, KeepsAllOtherWindowsAndButtonsOutOfReach) {
    task.work = RunUntilStopped;
    ClickStart();
    EXPECT_EQ(run.states.phase, StopShown);
    EXPECT_EQ(TextOf(start), "Stop");
    EXPECT_FALSE(IsEnabled(clear));
    EXPECT_FALSE(IsEnabled(other));
    EXPECT_FALSE(IsEnabled(dialog));
    EXPECT_TRUE(IsEnabled(page));
    ClickStart();
    LoopUntilIdle();
    EXPECT_FALSE(seen.otherEnabledDuringRun);
    EXPECT_TRUE(seen.pageEnabledDuringRun);
}

TEST_F(PageRunTest, LeavesAWindowDisabledThatWasDisabledBefore) {
    EnableWindow(other, FALSE);
    ClickStart();
    LoopUntilIdle();
    EXPECT_FALSE(IsEnabled(other)) << "it may wait for its message box";
    EXPECT_TRUE(IsEnabled(dialog));
    EnableWindow(other, TRUE);
    ClickStart();
    EXPECT_FALSE(IsEnabled(other));
    LoopUntilIdle();
    EXPECT_TRUE(IsEnabled(other));
}

TEST_F(PageRunTest, HearsClicksOfItsButtonsAlone) {
    SendMessageW(page, WM_COMMAND, MAKEWPARAM(0, BN_SETFOCUS), reinterpret_cast<LPARAM>(start));
    SendMessageW(page, WM_COMMAND, MAKEWPARAM(0, BN_CLICKED), reinterpret_cast<LPARAM>(clear));
    // A command of a menu or key belongs to no control, and a page may have no start button.
    run.controls.startButton = nullptr;
    SendMessageW(page, WM_COMMAND, MAKEWPARAM(101, BN_CLICKED), 0);
    EXPECT_EQ(run.states.phase, PageIdle);
    EXPECT_TRUE(seen.steps.empty());
}

TEST_F(PageRunTest, StaysBusyForAMomentWhereThePageLeavesLater) {
    run.states.rules.leave = LeavesLater;
    ClickStart();
    LoopWhile(StopShown);
    EXPECT_EQ(run.states.phase, StopLingers);
    EXPECT_EQ(TextOf(start), "Stop");
    EXPECT_FALSE(IsEnabled(other));
    SendMessageW(page, WM_TIMER, 1, 0);  // a timer of somebody else
    ClickStart();                        // one on Stop that comes late
    EXPECT_EQ(run.states.phase, StopLingers);
    LoopUntilIdle();
    EXPECT_EQ(seen.steps.size(), 4u);
    EXPECT_FALSE(KillTimer(page, LeaveTimer)) << "it would end the next run before its time";
}

TEST_F(PageRunTest, ShowsStopAfterAWhileWhereThePageWantsIt) {
    run.states.rules = {StopAfterAWhile, LeavesBeforeReport};
    task.work = RunUntilStopped;
    ClickStart();
    EXPECT_EQ(run.states.phase, PageBusy);
    LoopWhile(PageBusy);
    EXPECT_EQ(run.states.phase, StopShown);
    EXPECT_EQ(seen.shownBusy, (std::vector<bool>{true, true}));
    StopPageRun(run);
    LoopWhile(StopShown);
    EXPECT_EQ(run.states.phase, StopLingers);
    EXPECT_TRUE(IsEnabled(other));
    EXPECT_EQ(seen.shownBusy, (std::vector<bool>{true, true, false}));
    LoopUntilIdle();
    EXPECT_EQ(seen.shownBusy, (std::vector<bool>{true, true, false}));
    EXPECT_FALSE(KillTimer(page, StopTimer));
    EXPECT_FALSE(KillTimer(page, LateClickTimer));
}

TEST_F(PageRunTest, ARunThatEndsSoonLeavesNoTimer) {
    run.states.rules = {StopAfterAWhile, LeavesBeforeReport};
    ClickStart();
    LoopUntilIdle();
    EXPECT_FALSE(KillTimer(page, StopTimer));
}

TEST_F(PageRunTest, RunsAsOftenAsThePageWants) {
    for (int runs = 1; runs <= 3; runs++) {
        ClickStart();
        LoopUntilIdle();
    }
    EXPECT_EQ(TextOf(output), "old\r\nfirst\r\nsecond\r\nfirst\r\nsecond\r\nfirst\r\nsecond\r\n");
}

TEST_F(PageRunTest, NoRunBeginsWithinAnotherOne) {
    task.work = RunUntilStopped;
    ClickStart();
    StartPageRun(run, task);
    EXPECT_EQ(seen.steps, (std::vector<std::string>{"numbers", "prepare"}));
    StopPageRun(run);
    LoopUntilIdle();
    // Nor from its own steps.
    task = {SetUpNumbers, [] { StartPageRun(run, task); }, WriteTwoLines,
            [](bool) { StartPageRun(run, task); }, UiErrorCalculation};
    seen.steps.clear();
    ClickStart();
    LoopUntilIdle();
    EXPECT_EQ(seen.steps, (std::vector<std::string>{"numbers", "work"}));
}

TEST_F(PageRunTest, LeavesTimersOfThePageToThePage) {
    bool callDefault = true;
    for (const WPARAM timer : {1, 99, 103, 1001}) {
        EXPECT_FALSE(HandlePageRun(run, WM_TIMER, timer, 0, callDefault)) << timer;
    }
    EXPECT_TRUE(HandlePageRun(run, WM_TIMER, LeaveTimer, 0, callDefault));
}

TEST_F(PageRunTest, NewsOfNoRunEndNone) {
    SendMessageW(page, PageWorkerMessage, PageWorkerEnded, 0);
    EXPECT_TRUE(seen.steps.empty());
    EXPECT_TRUE(seen.shownBusy.empty());
}

TEST_F(PageRunTest, AStopButtonOfItsOwnIsEnabledDuringTheRunAlone) {
    run.controls.stopButton = stop;
    run.controls.startCaption = nullptr;
    SendMessageW(page, WM_SHOWWINDOW, TRUE, 0);
    EXPECT_TRUE(IsEnabled(start));
    EXPECT_FALSE(IsEnabled(stop)) << "the page is shown for the first time";
    task.work = RunUntilStopped;
    ClickStart();
    EXPECT_EQ(TextOf(start), "Start");
    EXPECT_FALSE(IsEnabled(start));
    EXPECT_TRUE(IsEnabled(stop));
    SendMessageW(stop, BM_CLICK, 0, 0);
    LoopUntilIdle();
    EXPECT_FALSE(IsEnabled(stop));
    EXPECT_FALSE(seen.succeeded);
    EXPECT_EQ(seen.steps.size(), 3u);
}

TEST_F(PageRunTest, APageWithoutStopCalculatesOnTheUiThread) {
    run.states.rules.stop = StopNever;
    task.work = [] {
        seen.steps.push_back("work");
        seen.workerThread = GetCurrentThreadId();
        seen.numbersInWork = CurrentNumberSetup();
    };
    ClickStart();
    EXPECT_EQ(run.states.phase, PageIdle);
    EXPECT_EQ(seen.steps, (std::vector<std::string>{"numbers", "prepare", "work", "finish"}));
    EXPECT_EQ(seen.workerThread, GetCurrentThreadId());
    ExpectNumbers(seen.numbersInWork, Numbers);
    EXPECT_TRUE(seen.otherEnabledDuringRun);
    EXPECT_EQ(seen.shownBusy, (std::vector<bool>{true, false}));
}

// How often the queue is still full, and what the system does when it is not.
std::atomic<int32_t> refusals = 0;
EndPoster systemPoster = nullptr;

bool PostWhenThereIsRoom(HWND page) {
    return refusals-- <= 0 && systemPoster(page);
}

TEST_F(PageRunTest, ARunWhoseEndFindsAFullQueueEndsAllTheSame) {
    const NoTimers refused;
    systemPoster = std::exchange(postEnd, PostWhenThereIsRoom);
    for (int32_t runs = 0; runs < 2; runs++) {
        refusals = 3;
        ClickStart();
        LoopUntilIdle();
        EXPECT_EQ(refusals, -1);
        EXPECT_TRUE(seen.succeeded);
    }
    postEnd = systemPoster;
    EXPECT_EQ(TextOf(output), "old\r\nfirst\r\nsecond\r\nfirst\r\nsecond\r\n");
}

// The thread of the last run, until it has ended.
HANDLE threadOfRun = nullptr;

bool MakeWatchedThread(unsigned(__stdcall* entry)(void*)) {
    threadOfRun = reinterpret_cast<HANDLE>(_beginthreadex(nullptr, 0, entry, nullptr, 0, nullptr));
    return threadOfRun != nullptr;
}

TEST_F(PageRunTest, TheThreadOfAPageThatIsGoneEnds) {
    constexpr DWORD LongEnough = 20'000;
    const HWND gone = CreateDialogWindow(nullptr, {10, 10}, u"", nullptr, 0, 0);
    DestroyWindow(gone);
    const ThreadMaker systemMaker = std::exchange(makeThread, MakeWatchedThread);
    ASSERT_TRUE(StartCalcThread(gone, [] {}));
    makeThread = systemMaker;
    EXPECT_EQ(WaitForSingleObject(threadOfRun, LongEnough), WAIT_OBJECT_0);
    CloseHandle(threadOfRun);
}

TEST_F(PageRunTest, ATimerThatIsRefusedEndsAtOnce) {
    const NoTimers refused;
    run.states.rules = {StopAfterAWhile, LeavesLater};
    task.work = RunUntilStopped;
    ClickStart();
    EXPECT_EQ(run.states.phase, StopShown);
    EXPECT_EQ(seen.shownBusy, (std::vector<bool>{true, true}));
    ClickStart();
    LoopWhile(StopShown);
    EXPECT_EQ(run.states.phase, PageIdle);
    EXPECT_EQ(seen.shownBusy, (std::vector<bool>{true, true, false}));
}

TEST_F(PageRunTest, TheFocusGoesFromStartToStopAndBack) {
    run.controls.stopButton = stop;
    ShowWindow(page, SW_SHOW);
    task.work = RunUntilStopped;
    SetFocus(start);
    ClickStart();
    EXPECT_EQ(GetFocus(), stop);
    SendMessageW(stop, BM_CLICK, 0, 0);
    LoopUntilIdle();
    EXPECT_EQ(GetFocus(), start);
    // Another control keeps it.
    SetFocus(clear);
    run.controls.disabledCount = 0;
    StartPageRun(run, task);
    EXPECT_EQ(GetFocus(), clear);
    StopPageRun(run);
    LoopUntilIdle();
    EXPECT_EQ(GetFocus(), clear);
}

TEST_F(PageRunTest, AKeyThatComesLateForStopStartsNothing) {
    run.controls.stopButton = stop;
    ShowWindow(page, SW_SHOW);
    SetFocus(start);
    ClickStart();
    EXPECT_EQ(GetFocus(), stop);
    LoopWhile(StopShown);
    EXPECT_EQ(GetFocus(), start);
    EXPECT_TRUE(IsEnabled(start));
    EXPECT_TRUE(IsEnabled(other));
    testing_support::PressKey(start, VK_RETURN);
    testing_support::PressKey(start, VK_SPACE);
    EXPECT_EQ(run.states.phase, StopLingers);
    EXPECT_EQ(seen.steps.size(), 4u);
    LoopUntilIdle();
    EXPECT_FALSE(KillTimer(page, LateClickTimer));
    seen.steps.clear();
    testing_support::PressKey(start, VK_RETURN);
    LoopWhile(StopShown);
    EXPECT_EQ(seen.steps.size(), 4u);
    // Who goes to another control and back means it.
    SetFocus(output);
    EXPECT_EQ(run.states.phase, PageIdle);
    EXPECT_FALSE(KillTimer(page, LateClickTimer));
    SetFocus(start);
    testing_support::PressKey(start, VK_RETURN);
    LoopUntilIdle();
    EXPECT_EQ(seen.steps.size(), 8u);
    // So does who did not have the focus on Stop at the end.
    SetFocus(output);
    ClickStart();
    SetFocus(output);
    LoopWhile(StopShown);
    EXPECT_EQ(run.states.phase, PageIdle);
}

TEST_F(PageRunTest, APageThatIsClosedDuringItsRunHasItsFocusOnStartAgain) {
    run.controls.stopButton = stop;
    ShowWindow(page, SW_SHOW);
    task.work = RunUntilStopped;
    SetFocus(start);
    ClickStart();
    SetFocus(stop);
    Close();
    LoopUntilIdle();
    EXPECT_EQ(LastFocus(page), start) << "Stop is disabled and could not get it";
}

}  // namespace
}  // namespace tallymere
