// The CalcThread: how a page calculates without freezing the program. shell/windows/page_text.h
// says how what is found on the way reaches the page.
//
// At most one runs at a time, because the page that starts it disables all other windows until it
// has ended. There is no lock: the page installs its number setup and prepares its input before the
// start, or has the worker fetch it by messages to the page as its first step, leaves both alone
// during the run, and takes the results when the thread has posted its end.
//
// Pages do not start it themselves: shell/windows/page_run does, with all that a run needs.
#pragma once

#include "toolkit/win32.h"

namespace tallymere {

/// What a CalcThread tells its page; wParam is a PageWorkerNews.
inline constexpr UINT PageWorkerMessage = WM_APP + 100;

enum PageWorkerNews : WPARAM {
    PageWorkerEnded = 100,  ///< posted at the end of the run
    PageWorkerText = 101,   ///< sent: no timer has made room for more text, see page_text.h
};

/// Runs on the CalcThread, on its ScratchStack. Between its steps it polls RunShouldEnd, and the
/// arithmetic polls StopRequested, so that the user can stop it.
using PageWorker = void (*)();

/// Starts the CalcThread of a page, which runs the worker and then posts PageWorkerEnded to the
/// page. Returns false if no thread can be made; nothing runs then. No other CalcThread may run.
/// While the queue of the page is full, the thread posts again and again until the page is there no
/// more: without that message a page would be busy for ever.
bool StartCalcThread(HWND page, PageWorker worker);

/// Makes a thread that runs `entry` and ends, and returns whether there is one. Tests put a
/// function in its place that makes none.
using ThreadMaker = bool (*)(unsigned(__stdcall* entry)(void*));
extern ThreadMaker makeThread;

/// Posts PageWorkerEnded to a page, and returns whether that worked. Tests put a function in its
/// place that is refused at first.
using EndPoster = bool (*)(HWND page);
extern EndPoster postEnd;

}  // namespace tallymere
