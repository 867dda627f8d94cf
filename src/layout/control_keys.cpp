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
    if (!stroke.isDown) {
        return KeySwallow;
    }
    if (receiver.isPushButton) {
        return KeyClickItself;
    }
    return receiver.hasDefaultButton ? KeyClickDefault : KeySwallow;
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
    switch (stroke.key) {
        case KeyTab:
            return ActionOfTab(stroke);
        case KeyReturn:
            return ActionOfReturn(stroke, receiver);
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
