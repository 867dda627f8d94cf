#include "shell/windows/page_run.h"

#include <utility>

#include "core/contract.h"
#include "core/scratch.h"
#include "shell/windows/error_report.h"
#include "shell/windows/program_windows.h"
#include "toolkit/control_focus.h"
#include "toolkit/dialog_window.h"
#include "toolkit/wide_text.h"

namespace tallymere {

namespace {

// Marks a window that was disabled before the run, such as one that waits for its message box. The
// end of the run leaves it so.
constexpr const char16_t* StaysDisabledProperty = u"TallymereStaysDisabled";

bool StartSystemTimer(HWND page, PageTimer timer, int32_t milliseconds) {
    return SetTimer(page, static_cast<UINT_PTR>(timer), static_cast<UINT>(milliseconds), nullptr) !=
           0;
}

// The run that calculates, of whichever page, and what waits for its end. Null for none.
const PageRun* runUnderWay = nullptr;
void (*afterRun)() = nullptr;

// The page that has disabled all other windows, null for none.
HWND busyPage = nullptr;

// All windows but one, for EnumThreadWindows.
struct OtherWindows {
    HWND page;
    bool enable;
};

BOOL CALLBACK EnableOtherWindow(HWND window, LPARAM parameter) {
    const auto* others = reinterpret_cast<const OtherWindows*>(parameter);
    if (window == others->page) {
        return TRUE;
    }
    if (!others->enable && !IsWindowEnabled(window)) {
        SetPropW(window, ToWide(StaysDisabledProperty), window);
    } else if (!others->enable || RemovePropW(window, ToWide(StaysDisabledProperty)) == nullptr) {
        EnableWindow(window, others->enable);
    }
    return TRUE;
}

void EnableOtherWindows(HWND page, bool enable) {
    busyPage = enable ? nullptr : page;
    OtherWindows others = {page, enable};
    EnumThreadWindows(GetCurrentThreadId(), EnableOtherWindow, reinterpret_cast<LPARAM>(&others));
}

// A control that has the focus and gets disabled would swallow all keys.
void ExchangeButtons(HWND page, HWND enabled, HWND disabled) {
    EnableWindow(enabled, TRUE);
    if (GetFocus() == disabled) {
        FocusControl(enabled);
    } else if (LastFocus(page) == disabled) {
        SetLastFocus(page, enabled);
    }
    EnableWindow(disabled, FALSE);
}

void ShowButtons(const PageRun& run, bool busy) {
    const PageRunControls& controls = run.controls;
    if (controls.stopButton != nullptr) {
        ExchangeButtons(run.page, busy ? controls.stopButton : controls.startButton,
                        busy ? controls.startButton : controls.stopButton);
    } else if (controls.startButton != nullptr) {
        const UiTextEntry caption = busy ? &UiText::TextBtnStop : controls.startCaption;
        SetWindowTextW(controls.startButton, ToWide(uiText.*caption));
    }
}

void ShowBusy(const PageRun& run, bool busy) {
    if (run.states.rules.stop != StopNever) {
        ShowButtons(run, busy);
        for (int32_t i = 0; i < run.controls.disabledCount; i++) {
            EnableWindow(run.controls.disabled[i], !busy);
        }
        EnableOtherWindows(run.page, !busy);
    }
    if (run.showBusy != nullptr) {
        run.showBusy(busy);
    }
}

void EndTimer(PageRun& run, PageTimer timer) {
    const bool wasClosed = IsPageClosedToOthers(run.states);
    if (!EndPageTimer(run.states, timer)) {
        return;
    }
    if (wasClosed && !IsPageClosedToOthers(run.states)) {
        ShowBusy(run, false);
    } else if (timer == StopTimer && run.showBusy != nullptr) {
        run.showBusy(true);
    }
}

// A timer that the system refuses ends at once, so that no page waits for it in vain.
void BeginTimer(PageRun& run, PageTimer timer) {
    if (timer != NoTimer && !startTimer(run.page, timer, TimerMilliseconds(timer))) {
        EndTimer(run, timer);
    }
}

bool IsKitTimer(WPARAM timer) {
    return timer == StopTimer || timer == LateClickTimer || timer == TextTimer ||
           timer == LeaveTimer;
}

void GiveBack(const PageRun& run) {
    ScratchRelease(CurrentScratchStack(), run.scratchBefore);
    PutNumberSetupBack(run.setupBefore);
}

// Installs the numbers and reads the input. Returns false with an error pending.
bool PrepareRun(const PageTask& task) {
    InstallNumberSetup(task.numberSetup());
    TakeCalcError(task.fallback);
    if (PendingUiError() == UiErrorNone) {
        task.prepare();
        TakeCalcError(task.fallback);
    }
    return PendingUiError() == UiErrorNone;
}

void LeaveRun(PageRun& run) {
    const HWND stop = run.controls.stopButton;
    const PageTimer timer = LeavePage(run.states, stop != nullptr && GetFocus() == stop);
    if (!IsPageClosedToOthers(run.states)) {
        ShowBusy(run, false);
    }
    BeginTimer(run, timer);
}

// Behind the message box of a run the next one may have begun.
void CallWhatWaits() {
    if (afterRun != nullptr) {
        StopRunThen(std::exchange(afterRun, nullptr));
    }
}

void EndRun(PageRun& run) {
    if (!EndPage(run.states)) {
        return;
    }
    runUnderWay = nullptr;
    KillTimer(run.page, StopTimer);
    KillTimer(run.page, TextTimer);
    ShowPageText(run.controls.output);
    TakeStopRequest();
    run.task->finish(PendingUiError() == UiErrorNone);
    TakeCalcError(run.task->fallback);
    GiveBack(run);
    if (run.states.rules.leave == LeavesBeforeReport) {
        LeaveRun(run);
        ReportUiError();
    } else {
        ReportUiError();
        LeaveRun(run);
    }
    CallWhatWaits();
}

void ClickStart(PageRun& run) {
    if (IsPageCalculating(run.states) && run.controls.stopButton == nullptr) {
        StopPageRun(run);
    } else if (run.startTask != nullptr) {
        StartPageRun(run, *run.startTask);
    }
}

bool HandleClick(PageRun& run, HWND button) {
    if (button == nullptr) {
        return false;
    }
    if (button == run.controls.startButton) {
        ClickStart(run);
        return true;
    }
    if (button == run.controls.stopButton) {
        StopPageRun(run);
        return true;
    }
    return false;
}

void HandleTimer(PageRun& run, PageTimer timer) {
    if (timer != TextTimer) {
        KillTimer(run.page, static_cast<UINT_PTR>(timer));
        EndTimer(run, timer);
    } else if (IsPageCalculating(run.states)) {
        const bool isMoreToCome = ShowPageText(run.controls.output);
        startTimer(run.page, TextTimer, TextTimerMilliseconds(isMoreToCome));
    }
}

// Who has used another control of the page since the end of its run means the next click.
void EndLateClicks(PageRun& run, HWND control) {
    const bool isOther = control != run.controls.startButton && control != run.controls.stopButton;
    if (isOther && run.states.rules.leave == LeavesAtOnce) {
        HandleTimer(run, LateClickTimer);
    }
}

void HandleNews(PageRun& run, WPARAM news) {
    if (news == PageWorkerText && IsPageCalculating(run.states)) {
        ShowPageText(run.controls.output);
    } else if (news == PageWorkerEnded) {
        EndRun(run);
    }
}

void ClosePage(PageRun& run) {
    StopPageRun(run);
    if (run.close != nullptr) {
        run.close();
    }
    HidePageWindow(run.page);
}

}  // namespace

TimerStarter startTimer = StartSystemTimer;

bool HandlePageRun(PageRun& run, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault) {
    switch (message) {
        case PageWorkerMessage:
            HandleNews(run, wParam);
            return true;
        case WM_TIMER:
            if (!IsKitTimer(wParam)) {
                return false;
            }
            HandleTimer(run, static_cast<PageTimer>(wParam));
            return true;
        case WM_SHOWWINDOW:
            // From its first moment on the screen a page shows its buttons as they are while idle.
            if (wParam != 0 && run.states.phase == PageIdle) {
                ShowButtons(run, false);
            }
            return false;
        case WM_COMMAND:
            EndLateClicks(run, reinterpret_cast<HWND>(lParam));
            return HIWORD(wParam) == BN_CLICKED && HandleClick(run, reinterpret_cast<HWND>(lParam));
        case WM_CLOSE:
            callDefault = false;
            ClosePage(run);
            return true;
        default:
            return false;
    }
}

void StartPageRun(PageRun& run, const PageTask& task) {
    TALLYMERE_REQUIRE(run.page != nullptr);
    TALLYMERE_REQUIRE(task.numberSetup != nullptr && task.prepare != nullptr);
    TALLYMERE_REQUIRE(task.work != nullptr && task.finish != nullptr);
    TALLYMERE_REQUIRE(task.fallback != UiErrorNone);
    TALLYMERE_REQUIRE(run.controls.startButton == nullptr || run.controls.stopButton != nullptr ||
                      run.controls.startCaption != nullptr);
    if (!BeginPage(run.states)) {
        return;
    }
    ClearErrors();
    run.task = &task;
    run.scratchBefore = *CurrentScratchStack().top;
    run.setupBefore = CurrentNumberSetup();
    BeginPageText(run.page);
    if (!PrepareRun(task)) {
        GiveBack(run);
        GiveUpPage(run.states);
        ReportUiError();
        return;
    }
    runUnderWay = &run;
    BeginTimer(run, StartPage(run.states));
    ShowBusy(run, true);
    if (run.states.rules.stop == StopNever) {
        task.work();
        EndRun(run);
    } else if (StartCalcThread(run.page, task.work)) {
        BeginTimer(run, TextTimer);
    } else {
        SetUiError(UiErrorInternal);
        EndRun(run);
    }
}

void StopPageRun(const PageRun& run) {
    if (IsPageCalculating(run.states)) {
        // What the run has sent so far is of before the stop: the user is told if it does not fit.
        ShowPageText(run.controls.output);
        // The code comes first: what the run still finds until it hears the request is not told.
        SetUiError(UiErrorStopped);
        RequestStop();
    }
}

bool IsRunUnderWay() {
    return runUnderWay != nullptr;
}

void ShutOutOfBusyPage(HWND window) {
    if (busyPage != nullptr) {
        EnableWindow(window, FALSE);
    }
}

void StopRunThen(void (*then)()) {
    if (runUnderWay == nullptr) {
        then();
    } else {
        afterRun = then;
        StopPageRun(*runUnderWay);
    }
}

}  // namespace tallymere
