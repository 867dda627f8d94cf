#include "shell/page_run_states.h"

#include "core/contract.h"
#include "core/number_setup.h"

namespace tallymere {

bool BeginPage(PageStates& states) {
    TALLYMERE_REQUIRE(NumberSetupScopeCount() == 0);
    if (states.phase != PageIdle) {
        return false;
    }
    states.phase = PageStarts;
    return true;
}

void GiveUpPage(PageStates& states) {
    TALLYMERE_REQUIRE(states.phase == PageStarts);
    states.phase = PageIdle;
}

PageTimer StartPage(PageStates& states) {
    TALLYMERE_REQUIRE(states.phase == PageStarts);
    switch (states.rules.stop) {
        case StopFromTheStart:
            states.phase = StopShown;
            return NoTimer;
        case StopAfterAWhile:
            states.phase = PageBusy;
            return StopTimer;
        case StopNever:
            states.phase = PageBusy;
            return NoTimer;
    }
    return NoTimer;
}

bool EndPage(PageStates& states) {
    if (!IsPageCalculating(states)) {
        return false;
    }
    states.stopWasShown = states.phase == StopShown;
    states.phase = PageEnds;
    return true;
}

PageTimer LeavePage(PageStates& states, bool startGetsFocus) {
    TALLYMERE_REQUIRE(states.phase == PageEnds);
    switch (states.rules.leave) {
        case LeavesAtOnce:
            if (startGetsFocus) {
                states.phase = StopLingers;
                return LateClickTimer;
            }
            break;
        case LeavesLater:
            states.phase = StopLingers;
            return LeaveTimer;
        case LeavesBeforeReport:
            if (states.stopWasShown) {
                states.phase = StopLingers;
                return LateClickTimer;
            }
            break;
    }
    states.phase = PageIdle;
    return NoTimer;
}

bool EndPageTimer(PageStates& states, PageTimer timer) {
    switch (timer) {
        case StopTimer:
            if (states.phase == PageBusy) {
                states.phase = StopShown;
                return true;
            }
            return false;
        case LateClickTimer:
        case LeaveTimer:
            if (states.phase == StopLingers) {
                states.phase = PageIdle;
                return true;
            }
            return false;
        case TextTimer:
        case NoTimer:
            return false;
    }
    return false;
}

}  // namespace tallymere
