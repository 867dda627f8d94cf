// What a control is, told by the name of its window class and its style, and what it is made with.
#pragma once

#include <cstdint>

namespace tallymere {

/// Characters of a class name that are looked at, the ending 0 counted.
inline constexpr int32_t ClassNameCapacity = 64;

inline constexpr const char16_t* ButtonClass = u"button";
inline constexpr const char16_t* ComboBoxClass = u"combobox";
inline constexpr const char16_t* EditClass = u"edit";
inline constexpr const char16_t* ListBoxClass = u"listbox";
inline constexpr const char16_t* RichEditClass = u"richedit";

/// Bits of window styles, with the values that the system gives them.
enum ControlStyle : uint32_t {
    StyleChild = 0x40000000,
    StyleDisabled = 0x08000000,
    StyleTabStop = 0x00010000,  ///< of a child; the maximise box of other windows

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

/// True when two class names, ended by 0, differ at most in the case of the letters A to Z.
bool IsSameClassName(const char16_t* a, const char16_t* b);

/// True for a button of the plain type, with the default look or without. A button that its window
/// draws is none: Return does not click it, and it never bears the default look.
bool IsPushButton(const char16_t* className, uint32_t style);

/// True for a radio button, whether or not it checks itself.
bool IsRadioButton(const char16_t* className, uint32_t style);

/// True for a child that is a tab stop, not disabled, and visible with everything that it lies in.
bool CanTakeFocus(uint32_t style, bool isVisible);

/// What decides about the Return key.
struct ReturnKeyFacts {
    const char16_t* className;
    uint32_t style;
    const char16_t* parentClassName;
    bool isListDropped;  ///< of the combobox that the control is or is the child of; else false
};

/// Whether a control has a use of its own for the Return key: an open list closes, also from its
/// field, and an edit control outside of a combobox that asks for it starts a line.
bool WantsReturn(const ReturnKeyFacts& control);

/// The style bits that a push button may be asked for: those of the type are cleared.
constexpr uint32_t PushButtonStyle(uint32_t style) {
    return style & ~uint32_t{ButtonTypeMask};
}

/// The style bits that a static may be asked for: only types that show text stay, any other becomes
/// left-aligned text.
uint32_t StaticStyle(uint32_t style);

}  // namespace tallymere
