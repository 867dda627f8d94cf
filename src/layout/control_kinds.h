// Kinds of controls. The window class and the style of a control say which kind it is.
#pragma once

#include <cstdint>

namespace tallymere {

/// How many characters of a class name are read, the terminating 0 included.
inline constexpr int32_t ClassNameCapacity = 64;

inline constexpr const char16_t* ButtonClass = u"button";
inline constexpr const char16_t* ComboBoxClass = u"combobox";
inline constexpr const char16_t* EditClass = u"edit";
inline constexpr const char16_t* ListBoxClass = u"listbox";
inline constexpr const char16_t* RichEditClass = u"richedit";

/// Bits of window styles. The values are those of the system.
enum ControlStyle : uint32_t {
    StyleChild = 0x40000000,
    StyleDisabled = 0x08000000,
    StyleTabStop = 0x00010000,  ///< for a child; for other windows it is the maximise box

    ButtonTypeMask = 0xF,
    ButtonTypePush = 0,
    ButtonTypeDefaultPush = 1,
    ButtonTypeRadio = 4,
    ButtonTypeAutoRadio = 9,

    StaticTypeMask = 0x1F,
    StaticTypeLeft = 0,
    StaticTypeCentre = 1,
    StaticTypeRight = 2,
    StaticTypeLeftNoWrap = 12,

    EditWantsReturn = 0x1000,
};

/// True when two class names, ended by 0, are equal but for the case of the letters A to Z.
bool IsSameClassName(const char16_t* a, const char16_t* b);

/// True for a plain button, with or without the default look. An owner-drawn button is no push
/// button here: Return does not click it, and it never has the default look.
bool IsPushButton(const char16_t* className, uint32_t style);

/// True for both types of radio button: those that check themselves and those that do not.
bool IsRadioButton(const char16_t* className, uint32_t style);

/// True for a child that is a tab stop, not disabled, and visible. `isVisible` says whether the
/// child and all its parents are shown.
bool CanTakeFocus(uint32_t style, bool isVisible);

/// What decides which window uses the Return key.
struct ReturnKeyFacts {
    const char16_t* className;
    uint32_t style;
    const char16_t* parentClassName;
    bool isListDropped;  ///< the control is, or is in, a combobox whose list is open
};

/// True when a control uses the Return key itself. A combobox with an open list closes it. An edit
/// control that has EditWantsReturn and is not part of a combobox starts a new line.
bool WantsReturn(const ReturnKeyFacts& control);

/// The style bits that a push button may have: those of the button type are cleared.
constexpr uint32_t PushButtonStyle(uint32_t style) {
    return style & ~uint32_t{ButtonTypeMask};
}

/// The style bits that a static may have. Only types that show text are kept; any other type
/// becomes left-aligned text.
uint32_t StaticStyle(uint32_t style);

}  // namespace tallymere
