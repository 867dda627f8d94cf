#include "layout/control_keys.h"

namespace tallymere {

namespace {

ControlKeyAction ActionOfTab(const KeyStroke& stroke) {
    if (stroke.control) {
        return KeyForward;
    }
    if (!stroke.isDown) {
        return KeySwallow;
    }
    return stroke.shift ? KeyTabBackward : KeyTabForward;
}

ControlKeyAction ActionOfReturn(const KeyStroke& stroke, const KeyReceiver& receiver) {
    if (stroke.control || receiver.wantsReturn) {
        return KeyForward;
    }
    // Who holds Return wants one click. The focus can be on another button by now.
    if (!stroke.isDown || stroke.isRepeated) {
        return KeySwallow;
    }
    if (receiver.isPushButton) {
        return KeyClickItself;
    }
    return receiver.hasDefaultButton ? KeyClickDefault : KeySwallow;
}

// A push button is pressed when space goes down, and clicked when it comes up. One that gets the
// focus meanwhile must not be pressed.
ControlKeyAction ActionOfSpace(const KeyStroke& stroke, const KeyReceiver& receiver) {
    return receiver.isPushButton && stroke.isRepeated ? KeySwallow : KeyForward;
}

ControlKeyAction ActionOfArrow(const KeyStroke& stroke, const KeyReceiver& receiver,
                               ControlKeyAction action) {
    if (!receiver.isRadioButton) {
        return KeyForward;
    }
    return stroke.isDown ? action : KeySwallow;
}

}  // namespace

ControlKeyAction ActionOfKey(const KeyStroke& stroke, const KeyReceiver& receiver) {
    if (receiver.wantsAllKeys) {
        return KeyForward;
    }
    switch (stroke.key) {
        case KeyTab:
            return ActionOfTab(stroke);
        case KeyReturn:
            return ActionOfReturn(stroke, receiver);
        case KeySpace:
            return ActionOfSpace(stroke, receiver);
        case KeyLeft:
        case KeyUp:
            return ActionOfArrow(stroke, receiver, KeyRadioBackward);
        case KeyRight:
        case KeyDown:
            return ActionOfArrow(stroke, receiver, KeyRadioForward);
        default:
            return KeyForward;
    }
}

bool ForwardsCharacter(uint32_t character, bool wantsReturn) {
    if (character == KeyTab) {
        return false;
    }
    return character != KeyReturn || wantsReturn;
}

}  // namespace tallymere
