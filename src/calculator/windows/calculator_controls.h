// The windows of the calculator page, for the files that share its work.
//
//   calculator_page       makes the page; the two fields, the splitter, resizing
//   calculator_container  the container below them: sliders, lists and keys
//   key_drawing           the captions of the keys
//   calculator_run        what a key does, the run on the CalcThread, Stop
//   calculator_display    shows the state of the calculator on the controls
#pragma once

#include "calculator/calculator_form.h"
#include "toolkit/win32.h"

namespace tallymere {

/// Made once, by CreateCalculatorPage; from then on only read.
struct CalculatorWindows {
    HWND page;
    HWND controls[CalculatorControlCount];  ///< in the page, by CalculatorControl
    HWND container;
    HWND containerControls[ContainerControlCount];  ///< in the container, by ContainerControl
};
extern CalculatorWindows calculatorWindows;

inline HWND ControlOf(CalculatorControl control) {
    return calculatorWindows.controls[control];
}

inline HWND ControlOf(ContainerControl control) {
    return calculatorWindows.containerControls[control];
}

/// The key at an index of the keypad.
inline HWND KeyWindow(int32_t index) {
    return calculatorWindows.containerControls[ContainerFirstKey + index];
}

}  // namespace tallymere
