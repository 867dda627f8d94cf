// A page that calculates, from the press of its button to the moment when it listens again.
#include "shell/windows/page_run.h"

#include <string>
#include <thread>
#include <vector>

#include "core/contract.h"
#include "core/scratch.h"
#include "shell/page_text.h"
#include "shell/windows/main_window.h"
#include "shell/windows/program_windows.h"
#include "shell_windows/message_boxes.h"
#include "toolkit/long_text_field.h"
#include "toolkit/test_dialog.h"

namespace tallymere {
namespace {

using testing_support::MessageBoxAnswer;
using testing_support::TextOf;
using testing_support::WholeText;

constexpr NumberSetup Numbers = {NumberTypeRational, 50, UintWidthForLimbs(26), {-7, 70}};

// What the functions of the task saw.
struct Seen {
    std::vector<std::string> steps;
    NumberSetup numbersInWork;
    DWORD workerThread;
    bool workerHadItsOwnStack;
    bool succeeded;
    bool otherEnabledDuringRun;
    bool pageEnabledDuringRun;
    std::vector<bool> shownBusy;
};
Seen seen;
PageRun run;
PageTask task;
HWND other;
uint64_t* topBefore;

bool IsEnabled(HWND window) {
    return IsWindowEnabled(window) != FALSE;
}

void ExpectNumbers(const NumberSetup& actual, const NumberSetup& expected) {
    EXPECT_EQ(actual.type, expected.type);
    EXPECT_EQ(actual.digits, expected.digits);
    EXPECT_EQ(actual.width.digits, expected.width.digits);
    EXPECT_EQ(actual.width.limbs, expected.width.limbs);
    EXPECT_EQ(actual.window.low, expected.window.low);
    EXPECT_EQ(actual.window.high, expected.window.high);
}

NumberSetup SetUpNumbers() {
    seen.steps.push_back("numbers");
    return Numbers;
}

void Prepare() {
    seen.steps.push_back("prepare");
    ScratchTake(CurrentScratchStack(), 100);
}

void Finish(bool succeeded) {
    seen.steps.push_back("finish");
    seen.succeeded = succeeded;
    seen.otherEnabledDuringRun = IsEnabled(other);
    seen.pageEnabledDuringRun = IsEnabled(run.page);
    ExpectNumbers(CurrentNumberSetup(), Numbers);
}

void WriteTwoLines() {
    seen.steps.push_back("work");
    seen.numbersInWork = CurrentNumberSetup();
    seen.workerThread = GetCurrentThreadId();
    ScratchStackScope scope;
    seen.workerHadItsOwnStack =
        scope.Take(1'000) != nullptr && CurrentScratchStack().base != topBefore;
    char16_t line[] = u"first\r\n";
    SendPageText(line);
    line[0] = u'X';  // the text was taken while it was sent
    SendPageText(u"second\r\n");
}

void RunUntilStopped() {
    while (!RunShouldEnd()) {
        Sleep(0);
    }
}

void RaiseArithmeticStop() {
    SetCalcError(CalcErrorCancelled);
}

void Overflow() {
    SetCalcError(CalcErrorOverflow);
}

void ChangeNumbers() {
    InstallNumberSetup({});
}

LRESULT HandlePage(HWND, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault) {
    HandlePageRun(run, message, wParam, lParam, callDefault);
    return 0;
}

// More than there is room for, several times over, in pieces of all sizes.
std::u16string LongOutput() {
    std::u16string text;
    for (int number = 1; number <= 20'000; number++) {
        text.append(static_cast<size_t>(number % 7), u'7');
        text += number % 50 == 0 ? u"\r\n" : u", ";
    }
    return text;
}

void SendLongOutput() {
    const std::u16string text = LongOutput();
    size_t length = 1;
    for (size_t sent = 0; sent < text.size(); sent += length) {
        length = length * 3 % 1'009 + 1;
        SendPageText(text.substr(sent, length).c_str());
    }
}

void SendUntilStopped() {
    while (!RunShouldEnd()) {
        SendPageText(u"0123456789012345678901234567890123456789\r\n");
    }
    SendPageText(u"last");
}

class PageRunTest : public testing_support::ToolkitTest {
protected:
    PageRunTest() {
        InstallLanguage(LanguageEnglish);
        CreateScratchStack();
        page = CreateDialogWindow(nullptr, {300, 200}, u"Page", HandlePage, 0, 0);
        other = CreateDialogWindow(nullptr, {100, 100}, u"Other", nullptr, 0, 0);
        start = CreateButton(page, {0, 0, 75, 25}, uiText.TextBtnStart);
        clear = CreateButton(page, {0, 30, 75, 25}, u"Clear");
        stop = CreateButton(page, {80, 0, 75, 25}, uiText.TextBtnStop);
        output = CreateLongTextField(page, {0, 60, 200, 100}, u"old\r\n");
        seen = {};
        task = {SetUpNumbers, Prepare, WriteTwoLines, Finish, UiErrorPrimeNumberOverflow};
        run = {.page = page,
               .startTask = &task,
               .controls = {.startButton = start,
                            .startCaption = &UiText::TextBtnStart,
                            .disabled = &clear,
                            .disabledCount = 1,
                            .output = output},
               .showBusy = [](bool busy) { seen.shownBusy.push_back(busy); }};
        ClearErrors();
        numbersBefore = CurrentNumberSetup();
        topBefore = *CurrentScratchStack().top;
    }
    ~PageRunTest() override {
        EXPECT_EQ(run.states.phase, PageIdle);
        ExpectNumbers(CurrentNumberSetup(), numbersBefore);
        EXPECT_EQ(*CurrentScratchStack().top, topBefore);
        EXPECT_EQ(PendingUiError(), UiErrorNone);
        EXPECT_FALSE(StopRequested());
        EXPECT_TRUE(IsEnabled(other));
        EXPECT_TRUE(IsEnabled(dialog));
        EXPECT_TRUE(IsEnabled(start));
        EXPECT_TRUE(IsEnabled(clear));
        EXPECT_EQ(TextOf(start), "Start");
        DestroyWindow(page);
        DestroyWindow(other);
        DestroyScratchStack();
        ClearErrors();
    }

    void ClickStart() { SendMessageW(start, BM_CLICK, 0, 0); }
    void Close() { SendMessageW(page, WM_CLOSE, 0, 0); }

    // The message loop, until the run is in another state.
    static void LoopWhile(PagePhase phase) {
        MSG message;
        while (run.states.phase == phase && GetMessageW(&message, nullptr, 0, 0) > 0) {
            DispatchMessageW(&message);
        }
    }
    // The message loop, until the output has a text.
    void LoopWhileEmpty() const {
        MSG message;
        while (GetWindowTextLengthW(output) == 0 && GetMessageW(&message, nullptr, 0, 0) > 0) {
            DispatchMessageW(&message);
        }
    }
    static void LoopUntilIdle() {
        MSG message;
        while (run.states.phase != PageIdle && GetMessageW(&message, nullptr, 0, 0) > 0) {
            DispatchMessageW(&message);
        }
    }

    HWND page;
    HWND start;
    HWND clear;
    HWND stop;
    HWND output;
    NumberSetup numbersBefore;
};

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

TEST_F(PageRunTest, TextOfAnyLengthArrivesWholeAndInOrder) {
    const std::u16string text = LongOutput();
    ASSERT_GT(text.size(), 2 * PageTextLeastRoom + 0u);
    SetWindowTextW(output, L"");
    task.work = SendLongOutput;
    ClickStart();
    LoopUntilIdle();
    EXPECT_TRUE(seen.succeeded);
    EXPECT_TRUE(WholeText(output) == text);
}

TEST_F(PageRunTest, OneTextLongerThanAllTheRoomArrivesWhole) {
    static std::u16string text;
    text = LongOutput();
    SetWindowTextW(output, L"");
    task.work = [] { SendPageText(text.c_str()); };
    ClickStart();
    LoopUntilIdle();
    EXPECT_TRUE(WholeText(output) == text);
}

TEST_F(PageRunTest, ShowsWhatWasSentWhileTheRunGoesOn) {
    SetWindowTextW(output, L"");
    task.work = [] {
        SendPageText(u"found");
        RunUntilStopped();
    };
    ClickStart();
    LoopWhileEmpty();
    EXPECT_EQ(run.states.phase, StopShown);
    EXPECT_EQ(TextOf(output), "found");
    StopPageRun(run);
    LoopUntilIdle();
}

TEST_F(PageRunTest, TheTextIsThereBeforeTheResultsAreShown) {
    static std::string before;
    task.finish = [](bool) {
        before = TextOf(run.controls.output);
        AppendPageText(run.controls.output, u"end");
    };
    ClickStart();
    LoopUntilIdle();
    EXPECT_EQ(before, "old\r\nfirst\r\nsecond\r\n");
    EXPECT_EQ(TextOf(output), before + "end");
}

TEST_F(PageRunTest, AStopOrACloseInTheMidstOfTheTextLosesNoneOfIt) {
    task.work = SendUntilStopped;
    for (const bool closes : {false, true}) {
        SetWindowTextW(output, L"");
        ClickStart();
        LoopWhileEmpty();
        EXPECT_EQ(run.states.phase, StopShown) << "a thread that waits for room does not end";
        if (closes) {
            Close();
        } else {
            ClickStart();
        }
        LoopUntilIdle();
        const std::u16string text = WholeText(output);
        ASSERT_GE(text.size(), 4u);
        EXPECT_TRUE(text.ends_with(u"last"));
        EXPECT_EQ((text.size() - 4) % 42, 0u);
    }
}

TEST_F(PageRunTest, EndsWithAnErrorWhenTheOutputCannotTakeTheText) {
    SendMessageW(output, EM_SETLIMITTEXT, 100'000, 0);
    const MessageBoxAnswer answer;
    SetWindowTextW(output, L"");
    task.work = SendUntilStopped;
    ClickStart();
    LoopUntilIdle();
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(answer.text, "String buffer overflow!");
    EXPECT_FALSE(seen.succeeded);
    const std::u16string text = WholeText(output);
    EXPECT_GT(text.size(), 0u);
    EXPECT_LE(text.size(), 100'000u);
    EXPECT_TRUE(text.starts_with(u"0123456789012345678901234567890123456789\r\n"));
    EXPECT_FALSE(text.ends_with(u"last")) << "there is a hole in the text";
}

TEST_F(PageRunTest, ForgetsTheTextWhereThereIsNoOutput) {
    run.controls.output = nullptr;
    task.work = SendLongOutput;
    ClickStart();
    LoopUntilIdle();
    EXPECT_TRUE(seen.succeeded);
    run.controls.output = output;
    task.work = [] { SendPageText(u"next"); };
    ClickStart();
    LoopUntilIdle();
    EXPECT_EQ(TextOf(output), "old\r\nnext");
}

TEST_F(PageRunTest, APageWithoutStopShowsItsTextToo) {
    run.states.rules.stop = StopNever;
    SetWindowTextW(output, L"");
    task.work = SendLongOutput;
    ClickStart();
    EXPECT_TRUE(WholeText(output) == LongOutput());
}

TEST_F(PageRunTest, ARunWhoseEndCannotBePostedEndsAllTheSame) {
    const EndPoster system = postEnd;
    postEnd = [](HWND) { return false; };
    ClickStart();
    LoopUntilIdle();
    postEnd = system;
    EXPECT_TRUE(seen.succeeded);
    EXPECT_EQ(TextOf(output), "old\r\nfirst\r\nsecond\r\n");
    task.work = RunUntilStopped;
    ClickStart();
    SendMessageW(page, WM_TIMER, TextTimer, 0);
    EXPECT_EQ(run.states.phase, StopShown) << "the end of the run before is not that of this one";
    StopPageRun(run);
    LoopUntilIdle();
}

// While it lives, the system refuses every timer of a page.
class NoTimers {
public:
    NoTimers() : system_(startTimer) {
        startTimer = [](HWND, PageTimer, int32_t) { return false; };
    }
    ~NoTimers() { startTimer = system_; }
    NoTimers(const NoTimers&) = delete;
    NoTimers& operator=(const NoTimers&) = delete;

private:
    TimerStarter system_;
};

TEST_F(PageRunTest, AThreadThatWaitsForRoomWithoutATimerAsksForIt) {
    static std::u16string text;
    text = LongOutput().substr(0, PageTextCapacity + PageTextCapacity / 2);
    SetWindowTextW(output, L"");
    task.work = [] { SendPageText(text.c_str()); };
    const NoTimers refused;
    ClickStart();
    LoopUntilIdle();
    EXPECT_TRUE(seen.succeeded);
    EXPECT_TRUE(WholeText(output) == text);
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

TEST_F(PageRunTest, TextForAPageThatIsGoneIsForgotten) {
    const HWND gone = CreateDialogWindow(nullptr, {100, 100}, u"Gone", nullptr, 0, 0);
    BeginPageText(gone);
    std::thread sending([] { SendLongOutput(); });
    DestroyWindow(gone);
    sending.join();
    BeginPageText(page);
    task.work = [] { SendPageText(u"next"); };
    ClickStart();
    LoopUntilIdle();
    EXPECT_EQ(TextOf(output), "old\r\nnext");
}

TEST_F(PageRunTest, ATextTimerThatComesLateDoesNothing) {
    ClickStart();
    LoopUntilIdle();
    EXPECT_FALSE(KillTimer(page, TextTimer)) << "it would go on for ever";
    seen = {};
    SendMessageW(page, WM_TIMER, TextTimer, 0);
    EXPECT_TRUE(seen.steps.empty());
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

TEST_F(PageRunTest, WritesBehindTheTextWhereverTheCaretIs) {
    SendMessageW(output, EM_SETSEL, 0, 3);
    AppendPageText(output, u"new");
    EXPECT_EQ(TextOf(output), "old\r\nnew");
    EXPECT_FALSE(SendMessageW(output, EM_CANUNDO, 0, 0));
}

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
    ShowWindow(page, SW_SHOW);
    const MessageBoxAnswer answer;
    task.work = RunUntilStopped;
    ClickStart();
    Close();
    EXPECT_TRUE(closed) << "called before the page is hidden";
    EXPECT_FALSE(IsWindowVisible(page));
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
    DestroyWindow(mainWindow);
    DestroyWindow(hiddenOwnerWindow);
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

}  // namespace
}  // namespace tallymere
