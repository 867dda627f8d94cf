// The control with which a page's output base is chosen: which bases it offers and where its label
// and its list stand. Lengths are logical units.
#pragma once

#include <cstdint>
#include <iterator>

#include "core/number_bases.h"
#include "layout/logical_units.h"

namespace tallymere {

/// Style bits of the control.
enum NumberBaseStyle : uint32_t {
    NumberBaseTwoLineLabel = 1,
    NumberBaseOffers2 = FindNumberBase(2)->styleBit,
    NumberBaseOffers8 = FindNumberBase(8)->styleBit,
    NumberBaseLabelAbove = 8,  ///< the label stands above the list instead of right of it
};

/// The style bits of all bases that a list may leave out.
inline constexpr uint32_t NumberBaseOffersAll = [] {
    uint32_t bits = 0;
    for (const NumberBase& row : NumberBases) {
        bits |= row.styleBit;
    }
    return bits;
}();

/// Whether each style bit has one meaning.
constexpr bool AreNumberBaseStylesDifferent() {
    uint32_t taken = NumberBaseTwoLineLabel | NumberBaseLabelAbove;
    for (const NumberBase& row : NumberBases) {
        if ((taken & row.styleBit) != 0) {
            return false;
        }
        taken |= row.styleBit;
    }
    return true;
}
static_assert(AreNumberBaseStylesDifferent(),
              "a styleBit of NumberBases is taken, by another row or by NumberBaseStyle");

inline constexpr LayoutSize NumberBaseSize = {98, 42};

/// The rows of the list, from its top.
struct NumberBaseRows {
    int32_t bases[std::size(NumberBases)] = {};
    int32_t count = 0;
};

/// The bases that every list offers and those that the style asks for, in the order of the table.
NumberBaseRows RowsOfNumberBases(uint32_t style);

/// Finds the row to select for a base: -1, which clears the selection, for a negative base. False,
/// and `row` as it was, when the base is not offered: then the selection stays.
bool FindNumberBaseRow(const NumberBaseRows& rows, int32_t base, int32_t& row);

/// The base of a row. 0 when there is no such row; the page is then not called.
int32_t NumberBaseOfRow(const NumberBaseRows& rows, int32_t row);

struct NumberBaseLayout {
    LayoutRect label;  ///< its height is that of the text: what the label's frame takes is added
    LayoutRect list;   ///< its height is that of the open list
};

NumberBaseLayout LayOutNumberBase(uint32_t style);

}  // namespace tallymere
