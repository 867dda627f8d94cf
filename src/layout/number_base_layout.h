// The control with which a page's output base is chosen: which bases it offers and where its label
// and its list stand. Lengths are logical units.
#pragma once

#include <cstdint>

#include "layout/logical_units.h"

namespace tallymere {

/// Style bits of the control.
enum NumberBaseStyle : uint32_t {
    NumberBaseTwoLineLabel = 1,
    NumberBaseOffers2 = 2,
    NumberBaseOffers8 = 4,
    NumberBaseLabelAbove = 8,  ///< the label stands above the list instead of right of it
};

inline constexpr LayoutSize NumberBaseSize = {98, 42};

/// The rows of the list, from its top.
struct NumberBaseRows {
    int32_t bases[4] = {};
    int32_t count = 0;
};

/// 10 and 16 are offered always, behind 2 and 8 where the style asks for them.
NumberBaseRows RowsOfNumberBases(uint32_t style);

/// Finds the row to select for a base: -1, which clears the selection, for a negative base. False,
/// and `row` as it was, when the base is not offered: then the selection stays.
bool FindNumberBaseRow(const NumberBaseRows& rows, int32_t base, int32_t& row);

/// The base of a row; 0 for none, of which the page is not told.
int32_t NumberBaseOfRow(const NumberBaseRows& rows, int32_t row);

struct NumberBaseLayout {
    LayoutRect label;  ///< its height is that of the text: what the label's frame takes is added
    LayoutRect list;   ///< its height is that of the open list
};

NumberBaseLayout LayOutNumberBase(uint32_t style);

}  // namespace tallymere
