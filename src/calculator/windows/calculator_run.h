// What the keys of the calculator do, and its runs on the CalcThread. All of it is for the UI
// thread.
#pragma once

#include <cstdint>

#include "shell/windows/page_run.h"

namespace tallymere {

/// A key was clicked, the one at `index` of the keypad. During a run this is ignored, or stops it.
/// The focus goes to the sink.
void ClickCalculatorKey(int32_t index);

/// Return on the page does what a click of the key "=" does; the focus stays where it is.
void PressEvaluate();

/// The runs of the page.
extern PageRun calculatorRun;

/// Before the first run of a new page, when all its controls have been made.
void PrepareCalculatorRun();

}  // namespace tallymere
