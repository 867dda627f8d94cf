// A page that calculates, for tests: its window, its buttons, and a task whose steps are seen.
#pragma once

#include <string>
#include <vector>

#include "core/scratch.h"
#include "shell/windows/page_run.h"
#include "shell_windows/message_boxes.h"
#include "toolkit/long_text_field.h"
#include "toolkit/test_dialog.h"

namespace tallymere::testing_support {

inline constexpr NumberSetup Numbers = {NumberTypeRational, 50, UintWidthForLimbs(26), {-7, 70}};

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
inline Seen seen;
inline PageRun run;
inline PageTask task;
inline HWND other;
inline uint64_t* topBefore;

inline bool IsEnabled(HWND window) {
    return IsWindowEnabled(window) != FALSE;
}

inline void ExpectNumbers(const NumberSetup& actual, const NumberSetup& expected) {
    EXPECT_EQ(actual.type, expected.type);
    EXPECT_EQ(actual.digits, expected.digits);
    EXPECT_EQ(actual.width.digits, expected.width.digits);
    EXPECT_EQ(actual.width.limbs, expected.width.limbs);
    EXPECT_EQ(actual.window.low, expected.window.low);
    EXPECT_EQ(actual.window.high, expected.window.high);
}

inline NumberSetup SetUpNumbers() {
    seen.steps.push_back("numbers");
    return Numbers;
}

inline void Prepare() {
    seen.steps.push_back("prepare");
    ScratchTake(CurrentScratchStack(), 100);
}

inline void Finish(bool succeeded) {
    seen.steps.push_back("finish");
    seen.succeeded = succeeded;
    seen.otherEnabledDuringRun = IsEnabled(other);
    seen.pageEnabledDuringRun = IsEnabled(run.page);
    ExpectNumbers(CurrentNumberSetup(), Numbers);
}

inline void WriteTwoLines() {
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

inline void RunUntilStopped() {
    while (!RunShouldEnd()) {
        Sleep(0);
    }
}

inline void RaiseArithmeticStop() {
    SetCalcError(CalcErrorCancelled);
}

inline void Overflow() {
    SetCalcError(CalcErrorOverflow);
}

inline void ChangeNumbers() {
    InstallNumberSetup({});
}

inline LRESULT HandlePage(HWND, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault) {
    HandlePageRun(run, message, wParam, lParam, callDefault);
    return 0;
}

// More than there is room for, several times over, in pieces of all sizes.
inline std::u16string LongOutput() {
    std::u16string text;
    for (int number = 1; number <= 20'000; number++) {
        text.append(static_cast<size_t>(number % 7), u'7');
        text += number % 50 == 0 ? u"\r\n" : u", ";
    }
    return text;
}

inline void SendLongOutput() {
    const std::u16string text = LongOutput();
    size_t length = 1;
    for (size_t sent = 0; sent < text.size(); sent += length) {
        length = length * 3 % 1'009 + 1;
        SendPageText(text.substr(sent, length).c_str());
    }
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

class PageRunTest : public ToolkitTest {
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

}  // namespace tallymere::testing_support
