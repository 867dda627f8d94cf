// What the keys that a dialog cares for do in a control: Tab, Return and the arrows.
#pragma once

#include <cstdint>

namespace tallymere {

/// Keys, with the codes that the system gives them; a code not listed is any other key.
enum ControlKey : uint32_t {
    KeyTab = 0x09,
    KeyReturn = 0x0D,
    KeyLeft = 0x25,
    KeyUp = 0x26,
    KeyRight = 0x27,
    KeyDown = 0x28,
};

/// A key that goes down or comes up.
struct KeyStroke {
    uint32_t key = 0;  ///< a ControlKey or another code
    bool isDown = false;
    bool shift = false;
    bool control = false;
};

/// What matters of the control that has the focus.
struct KeyReceiver {
    bool isPushButton = false;
    bool isRadioButton = false;
    bool wantsReturn = false;       ///< see WantsReturn
    bool hasDefaultButton = false;  ///< whether its dialog has one
};

enum ControlKeyAction {
    KeyForward,       ///< the control's own procedure gets the key
    KeySwallow,       ///< nothing happens
    KeyTabForward,    ///< the focus goes to the next tab stop
    KeyTabBackward,   ///< the focus goes to the previous tab stop
    KeyClickItself,   ///< the push button is clicked
    KeyClickDefault,  ///< the dialog's default button is clicked
    KeyRadioForward,  ///< the next radio button of the group is clicked and gets the focus
    KeyRadioBackward,
};

/// What a key does in a control.
ControlKeyAction ActionOfKey(const KeyStroke& stroke, const KeyReceiver& receiver);

/// Whether a typed character reaches the control's own procedure: the tab character (9) never does
/// and Return (13) only where it is wanted, so that neither beeps nor ends up in a text.
bool ForwardsCharacter(uint32_t character, bool wantsReturn);

}  // namespace tallymere
