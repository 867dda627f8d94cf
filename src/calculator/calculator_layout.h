// How the fields of the calculator page share the space.
#pragma once

#include "calculator/calculator_form.h"

namespace tallymere {

struct FieldHeights {
    int32_t formula;
    int32_t result;

    bool operator==(const FieldHeights&) const = default;
};

/// The places of all parts of the page, in logical units.
struct CalculatorLayout {
    LayoutRect formula;
    LayoutRect splitter;
    LayoutRect result;
    LayoutRect container;
};

/// Lays out the page in a client area. `current` are the heights that the fields have now. All
/// lengths are logical units. The fields keep the ratio of their heights; when one of them has no
/// height, both get the same height. The container keeps its size and stands at the bottom. In an
/// area that is too low, heights are negative; the system treats them as 0.
CalculatorLayout LayOutCalculator(LayoutSize client, FieldHeights current);

/// Changes the heights of the fields when the splitter between them was dragged down by
/// `difference`. All are pixels at `dpi`. When a field would be lower than 20 logical units,
/// returns false and leaves the heights unchanged.
bool MoveCalculatorSplitter(FieldHeights& heights, int32_t difference, int32_t dpi);

}  // namespace tallymere
