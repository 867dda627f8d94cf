// The grid of a system of linear equations: a row for each equation a1*x1 + a2*x2 + ... = b, and
// columns for a1 to a25 and b, of which those that the system has are shown.
#pragma once

#include <cstdint>

#include "algebra/linear_system.h"
#include "core/contract.h"

namespace tallymere {

inline constexpr int32_t MinEquationCount = MinUnknowns;
inline constexpr int32_t MaxEquationCount = MaxUnknowns;

/// The column of the right sides, whatever the count of equations is.
inline constexpr int32_t RightSideColumn = MaxEquationCount;
inline constexpr int32_t SystemColumnCount = MaxEquationCount + 1;

/// The column of the grid for column 0 to `count` of a system: the last one is the right side.
constexpr int32_t GridColumnOfSystem(int32_t column, int32_t count) {
    return column == count ? RightSideColumn : column;
}

/// The name of a column of the grid, 0 to RightSideColumn, such as "a1" or "b".
struct SystemColumnName {
    char16_t text[4];
};
constexpr SystemColumnName NameOfSystemColumn(int32_t column) {
    TALLYMERE_REQUIRE(column >= 0 && column < SystemColumnCount);
    if (column == RightSideColumn) {
        return {u"b"};
    }
    const int32_t number = column + 1;
    const auto ones = static_cast<char16_t>(u'0' + number % 10);
    if (number < 10) {
        return {{u'a', ones}};
    }
    return {{u'a', static_cast<char16_t>(u'0' + number / 10), ones}};
}

}  // namespace tallymere
