// What the keys of the calculator do, and its runs on the CalcThread. All of it is for the UI
// thread.
#pragma once

#include <cstdint>

#include "toolkit/win32.h"

namespace tallymere {

/// A key was clicked, the one at `index` of the keypad. During a run this is ignored, or stops it.
/// The focus goes to the sink.
void ClickCalculatorKey(int32_t index);

/// Return on the page does what a click of the key "=" does; the focus stays where it is.
void PressEvaluate();

/// At PageWorkerEnded: shows the result, leaves the busy state and reports an error.
void EndCalculatorRun();

/// At WM_TIMER of the page.
void EndCalculatorTimer(WPARAM timer);

}  // namespace tallymere
