#include "calculator/calc_phase.h"

#include "calculator/calculator_state.h"
#include "shell/text_sink.h"

namespace tallymere {

namespace {

bool IsActionAvailable(KeyAction action) {
    switch (action) {
        case ActionNone:
            return false;
        case ActionAns:
            return calculator.ansAvailable;
        case ActionSwitchNotation:
            return calculator.resultValid && calculator.calcOutputBase == 10;
        case ActionSwitchMixed:
            return calculator.resultValid;
        default:
            return true;
    }
}

}  // namespace

CalcPhase calcPhase = CalcIdle;

CalcTimer SetCalcBusy(bool busy) {
    if (busy) {
        calcPhase = CalcBusy;
        return StopTimer;
    }
    if (calcPhase == StopShown) {
        calcPhase = StopLingers;
        return LateClickTimer;
    }
    calcPhase = CalcIdle;
    return NoTimer;
}

bool CalcTimerEnded(CalcTimer timer) {
    if (timer == StopTimer && calcPhase == CalcBusy) {
        calcPhase = StopShown;
        return true;
    }
    if (timer == LateClickTimer && calcPhase == StopLingers) {
        calcPhase = CalcIdle;
    }
    return false;
}

KeyClick ClickOfKey(int32_t index) {
    if (calcPhase == CalcIdle) {
        return ClickPresses;
    }
    return calcPhase == StopShown && index == StopKey ? ClickStops : ClickIgnored;
}

KeyView ViewOfKey(int32_t index, const KeypadStyle& style) {
    KeyView view = {KeypadEntry(index, style), false};
    if (calcPhase == StopShown) {
        view.enabled = index == StopKey;
        if (view.enabled) {
            CopyBounded(view.info.caption, KeyCaptionCharacters, StopCaption);
        }
        return view;
    }
    view.enabled = IsActionAvailable(view.info.action);
    return view;
}

}  // namespace tallymere
