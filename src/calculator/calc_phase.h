// When the calculator is busy: from "=" to the end of the run, and how the key CA becomes Stop.
//
//   CalcIdle --"="--> CalcBusy --100 ms--> StopShown --end of the run--> StopLingers --200 ms-->
//   CalcIdle
//
// A run that ends within 100 ms goes from CalcBusy straight back to CalcIdle, and no key changes
// its look. After a longer one nothing listens for another 200 ms: a second click on Stop that
// comes late would be one on CA and clear the formula.
#pragma once

#include <cstdint>

#include "calculator/keypad.h"

namespace tallymere {

enum CalcPhase : int32_t {
    CalcIdle,
    CalcBusy,     ///< calculating; the keys look as before
    StopShown,    ///< calculating; the first key is Stop, the others are disabled
    StopLingers,  ///< not calculating, keys and controls as when idle, but clicks do nothing
};

/// The calculator's one phase, owned by the UI thread.
extern CalcPhase calcPhase;

/// The timers of the page, by their ids.
enum CalcTimer : int32_t {
    NoTimer = 0,
    StopTimer = 100,       ///< shows Stop
    LateClickTimer = 101,  ///< ends StopLingers
};

/// How long a timer runs, in milliseconds.
constexpr int32_t TimerMilliseconds(CalcTimer timer) {
    return timer == StopTimer ? 100 : timer == LateClickTimer ? 200 : 0;
}

/// A run begins (true) or has ended (false). Returns the timer that the page starts; at the end of
/// a run StopTimer is ended in any case. Between the two the controls for which
/// IsDisabledDuringRun holds and all other windows of the thread are disabled.
CalcTimer SetCalcBusy(bool busy);

/// At the end of a timer, which does not start anew. Returns whether keys change their look. One
/// whose message comes too late does nothing.
bool CalcTimerEnded(CalcTimer timer);

/// What a click of a key does; Return in the formula field is one of the key "=".
enum KeyClick : int32_t {
    ClickIgnored,
    ClickPresses,  ///< RestoreCalcContext, ClearErrors, CalcKeyPressed
    ClickStops,    ///< RequestCancel
};
KeyClick ClickOfKey(int32_t index);

/// How a key looks at the moment.
struct KeyView {
    KeyInfo info;
    bool enabled;
};

/// The key at `index` with what the state of the calculator makes of it: ans waits for a result,
/// the keys of the result's form for one that is valid, F↔S for base 10; keys without action are
/// disabled. While Stop is shown only that key is enabled; its font and colour stay those of CA.
///
/// The page gives all keys their looks after each press, each change of a setting and at the end
/// of a run, but not when a run begins.
KeyView ViewOfKey(int32_t index, const KeypadStyle& style);

}  // namespace tallymere
