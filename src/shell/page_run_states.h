// The states of a page that calculates, from the press of its start button to the moment when it
// listens again. Here is what every page has in common and how pages differ; the windows are in
// shell/windows/page_run.
//
//   PageIdle --begin--> PageStarts --start--> PageBusy --100 ms--> StopShown
//      ^                    |                    |                     |
//      |<---- give up ------+                    +------- end ---------+
//      |                                                  v
//      |<--------------- leave at once -------------- PageEnds
//      |                                                  | leave later
//      +<------------------- 200 ms ----------------- StopLingers
//
// A page whose Stop is there from the start goes from PageStarts to StopShown at once. Where no
// arrow leads, nothing happens: no run begins within another one, and a Stop that comes late
// reaches neither the next error nor the next run.
#pragma once

#include <cstdint>

namespace tallymere {

enum PagePhase : int32_t {
    PageIdle,
    PageStarts,   ///< reads and checks its input; nothing runs yet
    PageBusy,     ///< calculates; Stop is not shown yet
    StopShown,    ///< calculates; Stop is shown
    PageEnds,     ///< shows its results and reports its errors
    StopLingers,  ///< a second click on Stop that comes late does nothing
};

/// When a page shows Stop.
enum PageStopRule : int32_t {
    StopFromTheStart,  ///< its start button becomes Stop, or its Stop button is enabled, at once
    StopAfterAWhile,   ///< a run that ends within 100 ms changes nothing on the page
    StopNever,         ///< the page calculates on the UI thread: nothing else can happen meanwhile
};

/// How a run is left: the page and all other windows can be used again.
enum PageLeaveRule : int32_t {
    /// When its errors were reported. If its start button gets the focus by that, it starts nothing
    /// for another 200 ms, or until another control of the page is used.
    LeavesAtOnce,
    LeavesLater,  ///< 200 ms after that; a start button that is Stop until then starts nothing
    /// Before its errors are reported. If Stop was shown, the page hears no click on its keys for
    /// another 200 ms.
    LeavesBeforeReport,
};

struct PageRules {
    PageStopRule stop = StopFromTheStart;
    PageLeaveRule leave = LeavesAtOnce;
};

/// The timers of a page that calculates, by their ids.
enum PageTimer : int32_t {
    NoTimer = 0,
    StopTimer = 100,       ///< shows Stop
    LateClickTimer = 101,  ///< ends StopLingers of LeavesBeforeReport and LeavesAtOnce
    TextTimer = 102,       ///< shows the text of a run, again and again; changes no state
    LeaveTimer = 1000,     ///< ends StopLingers of LeavesLater
};

/// How long a run lasts before Stop is shown, how long a click on Stop may come late, and how long
/// the text of a run is gathered before it is shown.
inline constexpr int32_t StopDelayMilliseconds = 100;
inline constexpr int32_t LateStopMilliseconds = 200;
inline constexpr int32_t TextDelayMilliseconds = 50;

/// The same while the thread of the run waits for its text to be shown. In between the window
/// handles what else there is.
inline constexpr int32_t FullTextDelayMilliseconds = 10;

/// How long the next text is gathered.
constexpr int32_t TextTimerMilliseconds(bool threadWaited) {
    return threadWaited ? FullTextDelayMilliseconds : TextDelayMilliseconds;
}

/// How long a timer runs; 0 for NoTimer.
constexpr int32_t TimerMilliseconds(PageTimer timer) {
    switch (timer) {
        case NoTimer:
            return 0;
        case StopTimer:
            return StopDelayMilliseconds;
        case LateClickTimer:
        case LeaveTimer:
            return LateStopMilliseconds;
        case TextTimer:
            return TextDelayMilliseconds;
    }
    return 0;
}

struct PageStates {
    PageRules rules;
    PagePhase phase = PageIdle;
    bool stopWasShown = false;  ///< in PageEnds: the run came from StopShown
};

/// PageIdle to PageStarts. Returns false and does nothing in any other state. No NumberSetupScope
/// may live: its end would take the numbers away from under the run.
bool BeginPage(PageStates& states);

/// PageStarts to PageIdle: the input has an error.
void GiveUpPage(PageStates& states);

/// PageStarts to PageBusy or StopShown. Returns the timer that the page starts, or NoTimer.
PageTimer StartPage(PageStates& states);

/// PageBusy or StopShown to PageEnds. Returns false and does nothing in any other state.
bool EndPage(PageStates& states);

/// PageEnds to PageIdle or StopLingers. Returns the timer that the page starts, or NoTimer.
/// `startGetsFocus` says that the focus goes from a Stop button to the start button: a click of a
/// key that was meant for Stop then comes to the start button.
PageTimer LeavePage(PageStates& states, bool startGetsFocus = false);

/// At the end of a timer, which does not start anew. Returns whether the state changed; a timer
/// whose message comes too late changes nothing.
bool EndPageTimer(PageStates& states, PageTimer timer);

/// True while the page calculates, and so can be asked to stop.
constexpr bool IsPageCalculating(const PageStates& states) {
    return states.phase == PageBusy || states.phase == StopShown;
}

/// True while the other windows and the page's controls of a run are disabled, and a start button
/// that becomes Stop is Stop.
constexpr bool IsPageClosedToOthers(const PageStates& states) {
    return states.rules.stop != StopNever &&
           (IsPageCalculating(states) || states.phase == PageEnds ||
            (states.phase == StopLingers && states.rules.leave == LeavesLater));
}

}  // namespace tallymere
