// What Tab, Return, space and the arrow keys do in a control of a dialog.
#pragma once

#include <cstdint>

namespace tallymere {

/// Keys. The values are the system's codes; any other code is a key that means nothing here.
enum ControlKey : uint32_t {
    KeyTab = 0x09,
    KeyReturn = 0x0D,
    KeySpace = 0x20,
    KeyLeft = 0x25,
    KeyUp = 0x26,
    KeyRight = 0x27,
    KeyDown = 0x28,
};

/// A key that goes down or comes up.
struct KeyStroke {
    uint32_t key = 0;  ///< a ControlKey or another code
    bool isDown = false;
    bool isRepeated = false;  ///< it was down already: somebody holds it
    bool shift = false;
    bool control = false;
};

/// The control that has the focus.
struct KeyReceiver {
    bool isPushButton = false;
    bool isRadioButton = false;
    bool wantsReturn = false;       ///< see WantsReturn
    bool wantsAllKeys = false;      ///< it handles all keys itself, Tab too
    bool hasDefaultButton = false;  ///< its dialog has one
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

/// True when a typed character reaches the control's own procedure. The tab character (9) never
/// does. Return (13) does only where the control wants it. So neither causes a beep or enters a
/// text.
bool ForwardsCharacter(uint32_t character, bool wantsReturn);

}  // namespace tallymere
