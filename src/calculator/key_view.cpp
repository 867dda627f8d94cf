#include "calculator/key_view.h"

#include "calculator/calculator_state.h"
#include "core/number_bases.h"
#include "shell/text_sink.h"

namespace tallymere {

namespace {

bool IsActionAvailable(KeyAction action) {
    if (action == ActionAns) {
        return calculator.ansAvailable;
    }
    if (action == ActionSwitchNotation) {
        return calculator.resultValid && calculator.calcOutputBase == DecimalBase;
    }
    if (action == ActionSwitchMixed) {
        return calculator.resultValid;
    }
    return action != ActionNone;
}

}  // namespace

KeyClick ClickOfKey(PagePhase phase, int32_t index) {
    if (phase == PageIdle) {
        return ClickPresses;
    }
    return phase == StopShown && index == StopKey ? ClickStops : ClickIgnored;
}

KeyView ViewOfKey(PagePhase phase, int32_t index, const KeypadStyle& style) {
    KeyView view = {KeypadEntry(index, style), false};
    if (phase == StopShown) {
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
