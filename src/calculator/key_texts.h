// The texts that the keys put into the formula.
#pragma once

#include <cstdint>

#include "calculator/key_action.h"
#include "shell/settings.h"

namespace tallymere {

/// What captions and texts of the keys depend on.
struct KeypadStyle {
    NumberType numberType;   ///< the setting, which is there before the type is in force
    AngleType angleType;     ///< the formula has no mode: the unit is part of the function's name
    bool lowerCaseHex;       ///< of the letters a to f
    uint32_t osVersionCode;  ///< of the system: major version << 8 | minor version
};

/// Whether the key has another caption and text with another angle unit.
bool HasAngleUnit(KeyAction action);

KeypadStyle StyleOfKeypad(const Settings& record, uint32_t osVersionCode);

/// Characters of the longest text of a key, the terminating 0 not counted.
inline constexpr int64_t KeyTextCharacters = 7;

struct KeyText {
    char16_t text[KeyTextCharacters + 1] = {};
};

/// The name or the characters that an action puts into the formula, a function without the "(".
/// Empty for actions that put none there. Decimal separator, exponent character and imaginary unit
/// are the first ones in force.
KeyText NameForAction(KeyAction action, const KeypadStyle& style);

/// Likewise, with the "(" of a function: what a press of the key inserts.
KeyText TextForAction(KeyAction action, const KeypadStyle& style);

}  // namespace tallymere
