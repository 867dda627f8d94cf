// The CalcThread: how a page calculates without freezing the program.
//
// At most one runs at a time, because a page that starts it disables all other windows until it has
// ended. There is no lock: the page installs NumberContext and prepares its input before the start,
// or has the worker fetch it by messages to the page as its first step, leaves both alone during
// the run, and takes the results when the thread has posted its end.
//
// A page with a start button goes through the steps of PageRun:
//
//     BeginPageRun(run);                                  the start button was pressed
//     ... install NumberContext, read the input ...
//     if (!StartPageRun(run, Worker, UiErrorCalculation)) return;
//
//     case PageWorkerMessage:                             in the procedure of the page
//         if (wParam == PageWorkerText) AppendPageText(output, lParam);
//         if (wParam == PageWorkerEnded) {
//             ... show the results if PendingUiError() is UiErrorNone ...
//             EndPageRun(run, UiErrorCalculation);
//             LeavePageRun(run) or LeavePageRunLater(run);
//         }
//     case WM_TIMER:
//         HandlePageRunTimer(run, wParam);
//
// A page with states of its own uses what these are made of: StartCalcThread and
// EnableOtherWindows.
#pragma once

#include <cstdint>

#include "shell/ui_error.h"
#include "shell/ui_text.h"
#include "toolkit/win32.h"

namespace tallymere {

/// What a CalcThread tells its page; wParam is a PageWorkerNews.
inline constexpr UINT PageWorkerMessage = WM_APP + 100;

enum PageWorkerNews : WPARAM {
    PageWorkerEnded = 100,  ///< posted at the end of the run
    PageWorkerText = 101,   ///< sent; lParam is a text that lives as long as the call
};

/// Runs on the CalcThread, on its ScratchStack. Polls PendingUiError, or the arithmetic polls
/// cancelFlag, so that the user can stop it.
using PageWorker = void (*)();

/// Starts the CalcThread of a page, which runs the worker and then posts PageWorkerEnded to the
/// page. If no thread can be made, the process ends.
void StartCalcThread(HWND page, PageWorker worker);

/// From the worker: sends a text on its way to the page that the CalcThread was started for, and
/// comes back when the page has taken it.
void SendPageText(const char16_t* text);

/// The page's part of it: puts the text of PageWorkerText at the end of an edit control.
void AppendPageText(HWND edit, LPARAM text);

/// Enables or disables all windows of the thread that have no parent, except the page itself.
void EnableOtherWindows(HWND page, bool enable);

/// A page's runs. What it names stays as it is once the page is made.
struct PageRun {
    HWND page;
    HWND stopButton;  ///< a start button whose caption is that of Stop during a run, or null
    UiTextEntry startCaption;  ///< its caption otherwise
    const HWND* otherButtons;  ///< controls that are disabled during a run
    int32_t otherButtonCount;
    bool isBusy;             ///< from StartPageRun until the run is left
    uint64_t* scratchStart;  ///< where the ScratchStack of the UI thread stood before the run
};

/// A run begins: clears all errors and notes where the ScratchStack stands.
void BeginPageRun(PageRun& run);

/// Starts the worker and returns true, if there is no error in the input. Otherwise reports it, a
/// code of the arithmetic under `fallback`, gives the ScratchStack back and returns false.
bool StartPageRun(PageRun& run, PageWorker worker, UiErrorCode fallback);

/// At PageWorkerEnded, after the results: reports an error of the run likewise and gives the
/// ScratchStack back. The page is busy still.
void EndPageRun(PageRun& run, UiErrorCode fallback);

/// The page is not busy any more: captions and windows become what they were, and a stop that came
/// after EndPageRun is forgotten.
void LeavePageRun(PageRun& run);

/// Likewise after 200 ms, at HandlePageRunTimer, so that a click on Stop that comes late cannot
/// start a new run.
void LeavePageRunLater(const PageRun& run);
void HandlePageRunTimer(PageRun& run, WPARAM timerId);

/// Lets the worker of a busy page stop by raising UiErrorStopped. Otherwise does nothing.
void StopPageRun(const PageRun& run);

}  // namespace tallymere
