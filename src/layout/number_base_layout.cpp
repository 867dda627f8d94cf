#include "layout/number_base_layout.h"

namespace tallymere {

NumberBaseRows RowsOfNumberBases(uint32_t style) {
    NumberBaseRows rows;
    for (const NumberBase& row : NumberBases) {
        if (row.styleBit == 0 || (style & row.styleBit) != 0) {
            rows.bases[rows.count++] = row.base;
        }
    }
    return rows;
}

bool FindNumberBaseRow(const NumberBaseRows& rows, int32_t base, int32_t& row) {
    if (base < 0) {
        row = -1;
        return true;
    }
    for (int32_t i = 0; i < rows.count; i++) {
        if (rows.bases[i] == base) {
            row = i;
            return true;
        }
    }
    return false;
}

int32_t NumberBaseOfRow(const NumberBaseRows& rows, int32_t row) {
    return row >= 0 && row < rows.count ? rows.bases[row] : 0;
}

NumberBaseLayout LayOutNumberBase(uint32_t style) {
    const bool isAbove = (style & NumberBaseLabelAbove) != 0;
    const bool hasTwoLines = (style & NumberBaseTwoLineLabel) != 0;
    int32_t labelY = isAbove ? 0 : 10;
    if (hasTwoLines) {
        labelY = 2;
    }
    return {.label = {isAbove ? 0 : 44, labelY, 40, hasTwoLines ? 30 : 15},
            .list = {0, isAbove ? 18 : 6, 40, 100}};
}

}  // namespace tallymere
