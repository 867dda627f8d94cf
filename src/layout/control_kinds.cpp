#include "layout/control_kinds.h"

namespace tallymere {

namespace {

char16_t FoldCase(char16_t c) {
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c - u'A' + u'a') : c;
}

}  // namespace

bool IsSameClassName(const char16_t* a, const char16_t* b) {
    while (*a != 0 && FoldCase(*a) == FoldCase(*b)) {
        a++;
        b++;
    }
    return *a == *b;
}

bool IsPushButton(const char16_t* className, uint32_t style) {
    const uint32_t type = style & ButtonTypeMask;
    return IsSameClassName(className, ButtonClass) &&
           (type == ButtonTypePush || type == ButtonTypeDefaultPush);
}

bool IsRadioButton(const char16_t* className, uint32_t style) {
    const uint32_t type = style & ButtonTypeMask;
    return IsSameClassName(className, ButtonClass) &&
           (type == ButtonTypeRadio || type == ButtonTypeAutoRadio);
}

bool CanTakeFocus(uint32_t style, bool isVisible) {
    constexpr uint32_t wanted = StyleChild | StyleTabStop;
    return (style & (wanted | StyleDisabled)) == wanted && isVisible;
}

bool WantsReturn(const ReturnKeyFacts& control) {
    if (IsSameClassName(control.className, ComboBoxClass)) {
        return control.isListDropped;
    }
    if (!IsSameClassName(control.className, EditClass) &&
        !IsSameClassName(control.className, RichEditClass)) {
        return false;
    }
    if (IsSameClassName(control.parentClassName, ComboBoxClass)) {
        return control.isListDropped;
    }
    return (control.style & EditWantsReturn) != 0;
}

uint32_t StaticStyle(uint32_t style) {
    switch (style & StaticTypeMask) {
        case StaticTypeLeft:
        case StaticTypeCentre:
        case StaticTypeRight:
        case StaticTypeLeftNoWrap:
            return style;
        default:
            return style & ~uint32_t{StaticTypeMask};
    }
}

}  // namespace tallymere
