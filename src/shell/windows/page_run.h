// The page kit: what every page needs to calculate. A page gives it a PageRun, which says what the
// page is and how it differs from others, and for each thing that it calculates a PageTask:
//
//     const PageTask task = {SetupOfPage, ReadInput, Solve, ShowSolutions, UiErrorCalculation};
//     PageRun run = {.page = window,
//                    .startTask = &task,
//                    .controls = {.startButton = ..., .startCaption = &UiText::TextBtnStart},
//                    .states = {.rules = {StopFromTheStart, LeavesAtOnce}}};
//
//     LRESULT PageProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault)
//     {
//         if (HandlePageRun(run, message, wParam, lParam, callDefault)) {
//             return 0;
//         }
//         ...
//     }
//
// A run goes through the states of shell/page_run_states:
//
//     begin     errors and an old stop are forgotten, the number setup is installed
//     prepare   on the UI thread: reads and checks the input; an error ends the run here
//     work      on the CalcThread, while all other windows are disabled; its text is shown
//     finish    on the UI thread: shows the results
//     end       a stop has become UiErrorStopped; errors are reported; the ScratchStack stands
//               where it stood, and the numbers are set up as they were, whatever happened
//     leave     the page and the other windows can be used again
//
// A page whose rule is StopNever goes through the same steps on the UI thread, in one call.
#pragma once

#include <cstdint>

#include "core/number_setup.h"
#include "shell/page_run_states.h"
#include "shell/ui_error.h"
#include "shell/ui_text.h"
#include "shell/windows/calc_thread.h"
#include "shell/windows/page_text.h"
#include "toolkit/win32.h"

namespace tallymere {

/// What a page calculates. It lives as long as the page, and no function is null.
struct PageTask {
    /// Number type, digits and so on, read from the page's controls. May raise a UiError, which
    /// ends the run.
    NumberSetup (*numberSetup)();
    /// Reads and checks the input. What it takes from the ScratchStack stays until the end of the
    /// run. May raise a UiError, which ends the run.
    void (*prepare)();
    /// Calculates. May raise a UiError.
    PageWorker work;
    /// Shows the results. `succeeded` is false when a UiError is pending: the run raised one or was
    /// stopped. It is true where the arithmetic alone noted a code, which is reported after this:
    /// look at NumberContext::calcError before a number is shown.
    void (*finish)(bool succeeded);
    /// What a code of the arithmetic is reported as, see TakeCalcError.
    UiErrorCode fallback;
};

/// The controls that a run changes. Any of them may be missing.
struct PageRunControls {
    /// Starts PageRun::startTask. During a run it is Stop, or disabled if there is a stopButton.
    HWND startButton = nullptr;
    /// The caption of the start button while it is not Stop; needed unless there is a stopButton.
    UiTextEntry startCaption = nullptr;
    /// A button of its own for Stop, which is enabled during a run alone. When one of the two gets
    /// disabled, the other one gets its focus.
    HWND stopButton = nullptr;
    /// Further controls that are disabled during a run and enabled when the page is left, whatever
    /// they were before. Among them must be all that set up numbers or report errors: the first
    /// would change the numbers of the run, the second take back its errors and a stop.
    const HWND* disabled = nullptr;
    int32_t disabledCount = 0;
    /// A field of CreateLongTextField. Takes the texts of SendPageText.
    HWND output = nullptr;
};

/// A page's runs. What the page fills in stays as it is once the page is made.
struct PageRun {
    HWND page = nullptr;
    const PageTask* startTask = nullptr;  ///< what a click of the start button starts
    PageRunControls controls;
    PageStates states;  ///< with the rules of the page
    /// Further looks of the page. Called with true when a run starts and when Stop is shown after a
    /// while, with false when the page is left. May be null.
    void (*showBusy)(bool busy) = nullptr;
    /// What else happens when the page is closed, before it is hidden. May be null.
    void (*close)() = nullptr;

    // The run under way.
    const PageTask* task = nullptr;
    uint64_t* scratchBefore = nullptr;
    NumberSetup setupBefore = {};
};

/// Handles what concerns the runs of a page and returns whether `message` was dealt with: the news
/// of the CalcThread, the kit's timers, clicks of the start and the Stop button, and WM_CLOSE,
/// which stops a run and hides the page.
bool HandlePageRun(PageRun& run, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault);

/// Begins a run and comes back when it works, or has ended if there is an error in the input, if no
/// thread can be made (UiErrorInternal) or if the page calculates on the UI thread. Does nothing
/// unless the page is idle. No NumberSetupScope may live, see BeginPage.
void StartPageRun(PageRun& run, const PageTask& task);

/// Shows the text that the run of a page that calculates has sent, asks it to stop, and raises
/// UiErrorStopped, so that no error which comes after that is shown. Otherwise does nothing.
void StopPageRun(const PageRun& run);

/// Calls `then` when no page calculates: at once, or else at the end of the run under way, behind
/// its report. That run, whichever page it is of, is asked to stop. What an earlier call left
/// waiting is forgotten.
void StopRunThen(void (*then)());

/// Whether a page calculates, so that number setup and errors are those of its run.
bool IsRunUnderWay();

/// For a new window, which comes while a page may be busy: disables it like all others. It is
/// enabled with them when that page is left.
void ShutOutOfBusyPage(HWND window);

/// Starts a timer of a page, and returns whether there is one. Tests put a function in its place
/// that starts none.
using TimerStarter = bool (*)(HWND page, PageTimer timer, int32_t milliseconds);
extern TimerStarter startTimer;

}  // namespace tallymere
