#include "layout/column_letters.h"

#include <algorithm>

#include "core/contract.h"
#include "layout/grid_table.h"

namespace tallymere {

ColumnLetters ColumnLettersOf(int32_t column) {
    TALLYMERE_REQUIRE(column >= 1 && column <= MaxGridColumns);
    constexpr int32_t Letters = 26;
    ColumnLetters letters = {};
    for (int32_t rest = column; rest > 0; rest = (rest - 1) / Letters) {
        letters.text[letters.length++] = static_cast<char16_t>(u'A' + (rest - 1) % Letters);
    }
    std::reverse(letters.text, letters.text + letters.length);
    return letters;
}

}  // namespace tallymere
