// The control that shows a count of digits beside or below its label. Lengths are logical units.
#pragma once

#include <cstdint>

#include "layout/decimal_text.h"
#include "layout/logical_units.h"

namespace tallymere {

/// The one style bit of the control: the label stands above the count instead of right of it.
inline constexpr uint32_t DigitCountLabelAbove = 1;

/// The text of a count, with a blank between its last digit and the frame.
constexpr DecimalText DigitCountText(int32_t count) {
    DecimalText shown = DecimalTextOf(count);
    shown.text[shown.length++] = u' ';
    return shown;
}

struct DigitCountLayout {
    LayoutSize control;
    LayoutRect label;
    LayoutRect count;
};

constexpr DigitCountLayout LayOutDigitCount(uint32_t style) {
    if ((style & DigitCountLabelAbove) != 0) {
        return {.control = {98, 35}, .label = {0, 0, 40, 20}, .count = {0, 17, 40, 17}};
    }
    return {.control = {98, 24}, .label = {45, 1, 40, 20}, .count = {0, 0, 40, 17}};
}

}  // namespace tallymere
