// The letters above the columns of a grid: A to Z, AA to ZZ, and so on to ZZZZ.
#pragma once

#include <cstdint>

namespace tallymere {

struct ColumnLetters {
    char16_t text[5];  ///< up to four letters and a terminating 0
    int32_t length;    ///< in characters
};

/// The letters of a column from 1 to MaxGridColumns (layout/grid_table.h). They count in base 26
/// without a zero: A is 1, Z is 26 and AA is 27.
ColumnLetters ColumnLettersOf(int32_t column);

}  // namespace tallymere
