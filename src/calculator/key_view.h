// How the keys of the calculator look and what a click of a key does, in each state of the page.
//
// The key CA becomes Stop when a run lasts. After such a run no key is heard for a moment: a second
// click on Stop that comes late would be one on CA and clear the formula.
#pragma once

#include <cstdint>

#include "calculator/keypad.h"
#include "shell/page_run_states.h"

namespace tallymere {

/// What a click of a key does; Return in the formula field is one of the key "=".
enum KeyClick : int32_t {
    ClickIgnored,
    ClickPresses,  ///< CalcKeyPressed
    ClickStops,    ///< stops the run
};
KeyClick ClickOfKey(PagePhase phase, int32_t index);

/// How a key looks.
struct KeyView {
    KeyInfo info;
    bool enabled;
};

/// The key at `index` with what the state of the calculator makes of it: ans waits for a result,
/// the keys of the result's form for one that is valid, F↔S for base 10; keys without action are
/// disabled. While Stop is shown only that key is enabled; its font and colour stay those of CA.
///
/// The page gives all keys their looks after each press, each change of a setting, when Stop is
/// shown and when the page is left, but not while KeysStay holds.
KeyView ViewOfKey(PagePhase phase, int32_t index, const KeypadStyle& style);

/// True while the keys keep the looks that they have: a run that ends soon changes none, and one
/// that ends gives them their looks once, when the page is left.
constexpr bool KeysStay(PagePhase phase) {
    return phase == PageBusy || phase == PageEnds;
}

}  // namespace tallymere
