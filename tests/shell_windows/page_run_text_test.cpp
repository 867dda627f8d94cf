// The text of a run on its way from its thread to the output of the page.
#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "shell/page_text.h"
#include "shell_windows/page_run_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

void SendUntilStopped() {
    while (!RunShouldEnd()) {
        SendPageText(u"0123456789012345678901234567890123456789\r\n");
    }
    SendPageText(u"last");
}

TEST_F(PageRunTest, TextOfAnyLengthArrivesWholeAndInOrder) {
    const std::u16string text = LongOutput();
    ASSERT_GT(text.size(), 2 * PageTextFirstRoom + 0u);
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

// The output shows each character that its limit allows, and the user is told of the first beyond.
TEST_F(PageRunTest, TheLastCharacterThatTheOutputTakesIsNoError) {
    static std::u16string text;
    text = LongOutput().substr(0, 4'000);
    for (const int32_t missing : {0, 1}) {
        SetWindowTextW(output, L"");
        SendMessageW(output, EM_SETLIMITTEXT, text.size() - static_cast<size_t>(missing), 0);
        const MessageBoxAnswer answer;
        task.work = [] { SendPageText(text.c_str()); };
        ClickStart();
        LoopUntilIdle();
        EXPECT_EQ(answer.boxes, missing);
        EXPECT_EQ(answer.text, missing == 0 ? "" : "String buffer overflow!");
        EXPECT_EQ(seen.succeeded, missing == 0);
        EXPECT_TRUE(WholeText(output) == (missing == 0 ? text : u""));
    }
}

TEST_F(PageRunTest, AStopDoesNotHideThatTheTextBeforeItIsMissing) {
    SendMessageW(output, EM_SETLIMITTEXT, 10, 0);
    for (const bool fits : {true, false}) {
        static const char16_t* text;
        static std::atomic<bool> isSent;
        text = fits ? u"1234567890" : u"12345678901";
        isSent = false;
        SetWindowTextW(output, L"");
        const MessageBoxAnswer answer;
        task.work = [] {
            SendPageText(text);
            isSent = true;
            RunUntilStopped();
        };
        ClickStart();
        while (!isSent) {
            Sleep(0);
        }
        ASSERT_EQ(TextOf(output), "");
        StopPageRun(run);
        LoopUntilIdle();
        EXPECT_EQ(answer.boxes, fits ? 0 : 1);
        EXPECT_EQ(answer.text, fits ? "" : "String buffer overflow!");
        EXPECT_FALSE(seen.succeeded);
        EXPECT_EQ(TextOf(output), fits ? "1234567890" : "");
    }
}

// The lengths of the texts that the system's control got, and how long it takes for each.
std::vector<size_t> gotLengths;
DWORD slowness = 0;
WNDPROC systemProcedure = nullptr;

LRESULT CALLBACK TakeSlowly(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == EM_REPLACESEL) {
        gotLengths.push_back(wcslen(reinterpret_cast<const wchar_t*>(lParam)));
        Sleep(slowness);
    }
    return CallWindowProcW(systemProcedure, window, message, wParam, lParam);
}

TEST_F(PageRunTest, ASlowOutputGetsShorterTexts) {
    static std::u16string text;
    text.clear();
    while (text.size() < 5 * PageTextFirstRoom / 2) {
        text += u"0123456789\r\n";
    }
    gotLengths.clear();
    slowness = 3 * static_cast<DWORD>(PageTextMilliseconds);
    const auto slow = reinterpret_cast<LONG_PTR>(&TakeSlowly);
    systemProcedure = reinterpret_cast<WNDPROC>(SetClassLongPtrW(output, GCLP_WNDPROC, slow));
    SetWindowTextW(output, L"");
    task.work = [] { SendPageText(text.c_str()); };
    ClickStart();
    LoopUntilIdle();
    SetClassLongPtrW(output, GCLP_WNDPROC, reinterpret_cast<LONG_PTR>(systemProcedure));
    EXPECT_TRUE(WholeText(output) == text);
    ASSERT_GT(gotLengths.size(), 2u);
    // What was gathered while the first text was shown has the room of before. A text begins with
    // what the control has of a line.
    constexpr size_t Line = 12;
    EXPECT_LE(gotLengths[1], PageTextFirstRoom + Line);
    for (size_t i = 2; i < gotLengths.size(); i++) {
        EXPECT_LE(gotLengths[i], PageTextFirstRoom / 3 + Line);
    }
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

TEST_F(PageRunTest, WritesBehindTheTextWhereverTheCaretIs) {
    SendMessageW(output, EM_SETSEL, 0, 3);
    AppendPageText(output, u"new");
    EXPECT_EQ(TextOf(output), "old\r\nnew");
    EXPECT_FALSE(SendMessageW(output, EM_CANUNDO, 0, 0));
}

}  // namespace
}  // namespace tallymere
