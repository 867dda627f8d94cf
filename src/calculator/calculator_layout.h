// How the fields of the calculator page share its room.
#pragma once

#include "calculator/calculator_form.h"

namespace tallymere {

struct FieldHeights {
    int32_t formula;
    int32_t result;

    bool operator==(const FieldHeights&) const = default;
};

/// Where everything in the page stands, in logical units.
struct CalculatorLayout {
    LayoutRect formula;
    LayoutRect splitter;
    LayoutRect result;
    LayoutRect container;
};

/// Lays out a client area in which the fields have the heights `current`, all in logical units. The
/// fields keep the ratio that the splitter gave them; when one of them has no height, they get the
/// same. The container keeps its size and stands at the bottom. In an area too low for that heights
/// are below 0, which the system takes as none.
CalculatorLayout LayOutCalculator(LayoutSize client, FieldHeights current);

/// The fields after the splitter between them was dragged down by `difference`, in pixels at `dpi`
/// like the heights. Returns false and leaves the heights when a field would be lower than 20
/// logical units.
bool MoveCalculatorSplitter(FieldHeights& heights, int32_t difference, int32_t dpi);

}  // namespace tallymere
