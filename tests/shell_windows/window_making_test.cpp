// The windows that are made behind the menu: when, in which order, and what is asked for earlier.
#include "shell/windows/window_making.h"

#include <string>
#include <vector>

#include "shell/settings.h"
#include "shell/windows/error_report.h"
#include "shell/windows/main_window.h"
#include "shell/windows/program_windows.h"
#include "shell_windows/main_windows.h"
#include "shell_windows/page_run_testing.h"

namespace tallymere {
namespace {

using testing_support::IsEnabled;
using testing_support::MessageBoxAnswer;
using testing_support::NoButton;
using testing_support::PageRunTest;
using testing_support::run;
using testing_support::RunUntilStopped;
using testing_support::task;

constexpr UINT NotedMessage = WM_APP;

constexpr WPARAM OptionsItem = 101;
constexpr WPARAM ExitItem = 102;
constexpr WPARAM NumbersItem = 205;
constexpr WPARAM FactorsItem = 206;
constexpr WPARAM AboutItem = 302;

std::vector<std::string> steps;
bool menuWasShown;
bool menuWasPainted;
bool failsToMake;
bool aboutClosesBox;

void NoteStep(const char* step) {
    steps.push_back(step);
}

void MakeNoted(HWND& window, const char* step) {
    NoteStep(step);
    menuWasShown = IsWindowVisible(mainWindow) != FALSE;
    menuWasPainted = GetUpdateRect(mainWindow, nullptr, FALSE) == FALSE;
    window = CreateDialogWindow(hiddenOwnerWindow, {100, 100}, u"", nullptr, 0, 0);
}

void MakeNumbers() {
    if (failsToMake) {
        NoteStep("no numbers");
    } else {
        MakeNoted(pageWindows[PagePrimeNumbers], "numbers");
    }
}

void MakeFactors() {
    MakeNoted(pageWindows[PagePrimeFactors], "factors");
    ReportUiError();
    NoteStep("factors are made");
}

void MakeOptions() {
    MakeNoted(optionsWindow, "options");
}

LRESULT CloseWhenAllAreMade(HWND window, UINT message, WPARAM, LPARAM, bool& callDefault) {
    if (message == WM_SHOWWINDOW) {
        NoteStep("about is shown");
        SetTimer(window, 1, USER_TIMER_MINIMUM, nullptr);
    } else if (message == WM_TIMER && optionsWindow != nullptr) {
        PostMessageW(window, WM_CLOSE, 0, 0);
        KillTimer(window, 1);
    } else if (message == WM_CLOSE) {
        callDefault = false;
        ShowWindow(window, SW_HIDE);
    }
    return 0;
}

void MakeAbout() {
    MakeNoted(aboutWindow, "about");
    DestroyWindow(aboutWindow);
    aboutWindow = CreateDialogWindow(mainWindow, {100, 100}, u"About", CloseWhenAllAreMade, 0, 0);
    if (aboutClosesBox) {
        PostMessageW(MessageBoxAnswer::box, WM_COMMAND, IDOK, 0);
    }
}

constexpr ProgramWindow Windows[] = {
    {&pageWindows[PagePrimeNumbers], MakeNumbers},
    {&pageWindows[PagePrimeFactors], MakeFactors},
    {&aboutWindow, MakeAbout},
    {&optionsWindow, MakeOptions},
};

using Steps = std::vector<std::string>;
const Steps AllInOrder = {"numbers", "factors", "factors are made", "about", "options"};

/// The main window is there and hidden, and the making of the others has begun.
class WindowMaking : public PageRunTest {
protected:
    WindowMaking() {
        settings = Settings{};
        settings.showWelcomeHint = false;
        steps.clear();
        menuWasShown = menuWasPainted = failsToMake = aboutClosesBox = false;
        CreateMainWindow();
        BeginMakingWindows(Windows);
    }
    ~WindowMaking() override {
        for (const ProgramWindow& row : Windows) {
            DestroyWindow(*row.window);
            *row.window = nullptr;
        }
        testing_support::DestroyMainWindows();
        BeginMakingWindows({});
        settings = Settings{};
    }

    // Calls `then` in whatever loop handles messages by that time.
    void WhenAllAreMade(void (*then)()) {
        behindAll_ = then;
        SetTimer(dialog, 1, USER_TIMER_MINIMUM, [](HWND window, UINT, UINT_PTR timer, DWORD) {
            if (optionsWindow != nullptr) {
                KillTimer(window, timer);
                behindAll_();
            }
        });
    }

    static void ChooseMenuItem(WPARAM id) { SendMessageW(mainWindow, WM_COMMAND, id, 0); }

    static bool HandleMessage() {
        MSG message;
        const bool goesOn = GetMessageW(&message, nullptr, 0, 0) > 0;
        if (message.message == NotedMessage) {
            NoteStep("message");
        }
        DispatchMessageW(&message);
        return goesOn;
    }
    // Up to a step, and to the end of the program at the latest.
    static void LoopUntil(const char* step) {
        while ((steps.empty() || steps.back() != step) && HandleMessage()) {
        }
    }
    // Until the timer of the making is due again, without handling a message.
    static void WaitForTheTimer() { Sleep(3 * USER_TIMER_MINIMUM); }
    // For so long that the timer of the making comes several times.
    static void LoopForAWhile() {
        const UINT_PTR timer = SetTimer(nullptr, 0, 5 * USER_TIMER_MINIMUM, nullptr);
        MSG message;
        do {
            GetMessageW(&message, nullptr, 0, 0);
            DispatchMessageW(&message);
        } while (message.message != WM_TIMER || message.wParam != timer);
        KillTimer(nullptr, timer);
    }

private:
    static inline void (*behindAll_)();
};

TEST_F(WindowMaking, MakesAllInTheirOrderBehindTheMenu) {
    LoopUntil("options");
    EXPECT_EQ(steps, AllInOrder);
    for (const ProgramWindow& row : Windows) {
        EXPECT_FALSE(IsWindowVisible(*row.window));
        EXPECT_TRUE(IsEnabled(*row.window));
    }
    LoopForAWhile();
    EXPECT_EQ(steps, AllInOrder) << "each of them once";
}

TEST_F(WindowMaking, TheMenuIsShownAndPaintedFirst) {
    OpenMainWindow();
    EXPECT_EQ(steps, Steps{});
    EXPECT_FALSE(GetUpdateRect(mainWindow, nullptr, FALSE));
    LoopUntil("numbers");
    EXPECT_TRUE(menuWasShown);
    EXPECT_TRUE(menuWasPainted);
}

TEST_F(WindowMaking, WhatIsToBeDoneComesBeforeTheNextWindow) {
    LoopUntil("numbers");
    PostMessageW(dialog, NotedMessage, 0, 0);
    InvalidateRect(dialog, nullptr, TRUE);
    testing_support::heard.erasures = 0;
    WaitForTheTimer();
    LoopUntil("factors are made");
    EXPECT_EQ(steps, (Steps{"numbers", "message", "factors", "factors are made"}));
    EXPECT_EQ(testing_support::heard.erasures, 1) << "it was painted, too";
}

TEST_F(WindowMaking, AWindowThatIsAskedForEarlierIsMadeAtOnce) {
    // Before the first message is handled.
    PostMessageW(mainWindow, WM_COMMAND, FactorsItem, 0);
    OpenMainWindow();
    LoopUntil("factors are made");
    EXPECT_EQ(steps, (Steps{"factors", "factors are made"}));
    EXPECT_TRUE(IsWindowVisible(pageWindows[PagePrimeFactors]));
    EXPECT_EQ(GetForegroundWindow(), pageWindows[PagePrimeFactors]);
    ChooseMenuItem(OptionsItem);
    EXPECT_TRUE(IsWindowVisible(optionsWindow));
    LoopUntil("about");
    EXPECT_EQ(steps, (Steps{"factors", "factors are made", "options", "numbers", "about"}));
    EXPECT_EQ(GetForegroundWindow(), optionsWindow) << "the others came behind";
    LoopForAWhile();
    EXPECT_EQ(steps.size(), 5u) << "each of them once";
    const HWND factors = pageWindows[PagePrimeFactors];
    ChooseMenuItem(FactorsItem);
    EXPECT_EQ(pageWindows[PagePrimeFactors], factors);
    EXPECT_EQ(steps.size(), 5u);
}

TEST_F(WindowMaking, AboutIsMadeAtOnceAsWell) {
    ChooseMenuItem(AboutItem);
    EXPECT_EQ(steps, (Steps{"about", "about is shown", "numbers", "factors", "factors are made",
                            "options", "about is shown"}))
        << "shown the second time when it is hidden";
}

TEST_F(WindowMaking, TheMenuOffersWhatIsNotMadeYet) {
    for (const int32_t page : {PagePrimeNumbers, PagePrimeFactors}) {
        EXPECT_TRUE(HasProgramWindow(&pageWindows[page]));
    }
    EXPECT_FALSE(HasProgramWindow(&pageWindows[PageLinearSystems]));
    const HMENU pages = GetSubMenu(GetMenu(mainWindow), 1);
    SendMessageW(mainWindow, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(pages), 1);
    for (const UINT id : {UINT{NumbersItem}, UINT{FactorsItem}}) {
        EXPECT_EQ(GetMenuState(pages, id, MF_BYCOMMAND) & MF_GRAYED, 0u) << id;
    }
    for (const UINT id : {201u, 202u, 203u, 204u}) {
        EXPECT_NE(GetMenuState(pages, id, MF_BYCOMMAND) & MF_GRAYED, 0u) << id;
    }
    EXPECT_EQ(EnsureWindow(&pageWindows[PageLinearSystems]), nullptr);
    EXPECT_EQ(steps, Steps{});
}

TEST_F(WindowMaking, TheGreetingComesBehindTheMenuAndTheOthersMeanwhile) {
    settings.showWelcomeHint = true;
    OpenMainWindow();
    EXPECT_EQ(steps, (Steps{"about", "about is shown", "numbers", "factors", "factors are made",
                            "options", "about is shown"}))
        << "shown the second time when it is hidden";
    EXPECT_FALSE(settings.showWelcomeHint);
    for (const ProgramWindow& row : Windows) {
        EXPECT_TRUE(IsEnabled(*row.window));
    }
    EXPECT_TRUE(IsEnabled(mainWindow));
}

TEST_F(WindowMaking, NothingIsMadeWhileAPageCalculates) {
    task.work = RunUntilStopped;
    ClickStart();
    LoopForAWhile();
    ChooseMenuItem(FactorsItem);
    EXPECT_EQ(EnsureWindow(&optionsWindow), nullptr);
    EXPECT_EQ(steps, Steps{}) << "the numbers are those of the run";
    ClickStart();
    LoopUntil("options");
    EXPECT_EQ(steps, AllInOrder);
    LoopUntilIdle();
}

TEST_F(WindowMaking, AWindowThatIsMadeWhileAPageIsBusyIsBornDisabled) {
    // It is busy until somebody has read what it reports.
    const MessageBoxAnswer answer(NoButton);
    task.work = testing_support::Overflow;
    ClickStart();
    WhenAllAreMade([] {
        for (const ProgramWindow& row : Windows) {
            EXPECT_FALSE(IsEnabled(*row.window));
        }
        PostMessageW(MessageBoxAnswer::box, WM_COMMAND, IDOK, 0);
    });
    LoopUntilIdle();
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(steps, AllInOrder);
    for (const ProgramWindow& row : Windows) {
        EXPECT_TRUE(IsEnabled(*row.window));
    }
    DestroyWindow(aboutWindow);
    aboutWindow = nullptr;
    EXPECT_TRUE(IsEnabled(EnsureWindow(&aboutWindow))) << "nobody is busy any more";
}

TEST_F(WindowMaking, GoesOnBehindTheMessageBoxOfAWindow) {
    SetUiError(UiErrorTextOverflow);
    const MessageBoxAnswer answer(NoButton);
    aboutClosesBox = true;
    LoopUntil("options");
    EXPECT_EQ(answer.boxes, 1);
    LoopForAWhile();
    EXPECT_EQ(steps, (Steps{"numbers", "factors", "about", "factors are made", "options"}));
}

TEST_F(WindowMaking, ClosingTheProgramComesBeforeTheNextWindow) {
    OpenMainWindow();
    LoopUntil("numbers");
    ChooseMenuItem(ExitItem);
    WaitForTheTimer();
    while (HandleMessage()) {
    }
    EXPECT_EQ(steps, Steps{"numbers"});
}

TEST_F(WindowMaking, AWindowThatCannotBeMadeDoesNotHoldUpTheOthers) {
    failsToMake = true;
    LoopUntil("options");
    LoopForAWhile();
    EXPECT_EQ(steps, (Steps{"no numbers", "factors", "factors are made", "about", "options"}));
    ChooseMenuItem(NumbersItem);
    EXPECT_EQ(steps.back(), "no numbers");
    failsToMake = false;
    ChooseMenuItem(NumbersItem);
    EXPECT_TRUE(IsWindowVisible(pageWindows[PagePrimeNumbers])) << "whoever asks gets another try";
}

TEST_F(WindowMaking, WhatIsMadeWhileTheMenuIsMinimisedStaysHidden) {
    OpenMainWindow();
    ChooseMenuItem(NumbersItem);
    SendMessageW(mainWindow, WM_SIZE, SIZE_MINIMIZED, 0);
    EXPECT_FALSE(IsWindowVisible(pageWindows[PagePrimeNumbers]));
    LoopUntil("options");
    SendMessageW(mainWindow, WM_SIZE, SIZE_RESTORED, 0);
    EXPECT_TRUE(IsWindowVisible(pageWindows[PagePrimeNumbers]));
    EXPECT_FALSE(IsWindowVisible(pageWindows[PagePrimeFactors]));
    EXPECT_FALSE(IsWindowVisible(optionsWindow));
}

}  // namespace
}  // namespace tallymere
