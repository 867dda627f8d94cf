#include "functions/tangent_table.h"

#include <algorithm>
#include <cstdlib>

#include "core/contract.h"
#include "core/real_add.h"
#include "core/scratch.h"

namespace tallymere {

namespace {

// A sum of rows has at most that many digits more than the largest of them.
constexpr int64_t SumDigits = DigitCount(TangentTableRows);

// The layout to add rows in. Rows are integers: as long as their sums need only the leading limbs,
// the limbs behind are 0 and stay so, and the fewer limbs hold the same sums. Else, and at last, it
// is the layout in force.
RealLayout LayoutForSums(const RealNumber* largest) {
    const RealLayout whole = CurrentRealLayout();
    if (RealIsSpecial(largest)) {
        return whole;
    }
    const int64_t digits = RealExponent(largest) + 1 + SumDigits;
    const int64_t behindFirst = std::max<int64_t>(digits - whole.topDigits, 0);
    const int64_t limbs = 1 + (behindFirst + DigitsPerLimb - 1) / DigitsPerLimb;
    if (limbs >= whole.limbs) {
        return whole;
    }
    return {whole.digits - DigitsPerLimb * (whole.limbs - limbs), limbs, whole.topDigits};
}

// From row 1 up: each row with the sum of those before it. Row 0 is the largest before.
void AddUpwards(TangentTable& table) {
    RealLayoutScope layout;
    InstallRealLayout(LayoutForSums(TangentRow(table, 0)));
    for (int64_t i = 1; i < table.length; i++) {
        RealNumber* row = TangentRow(table, i);
        RealAddRaw(row, row, TangentRow(table, i - 1), false);
    }
}

// From the last row down, which is the largest before, two rows further out; the result once more
// in row 0.
void AddDownwards(TangentTable& table) {
    const int64_t oldLength = table.length;
    if (oldLength + 2 > TangentTableRows) {
        RealSetNaN(TangentRow(table, 0), CalcErrorCapacity);
        return;
    }
    table.length += 2;
    const RealNumber* largest = TangentRow(table, oldLength - 1);
    RealCopy(TangentRow(table, oldLength + 1), largest);
    RealSetZero(TangentRow(table, oldLength), 0);
    RealLayoutScope layout;
    InstallRealLayout(LayoutForSums(largest));
    for (int64_t i = oldLength; i >= 1; i--) {
        RealAddRaw(TangentRow(table, i), TangentRow(table, i - 1), TangentRow(table, i + 1), false);
    }
    RealCopy(TangentRow(table, 0), TangentRow(table, 1));
}

}  // namespace

TangentMemory tangentMemory = {std::malloc, std::free};

void TangentStep(TangentTable& table) {
    TALLYMERE_REQUIRE(table.rows != nullptr && table.rowWords == RealWords());
    TALLYMERE_REQUIRE(RealIsWellFormed(TangentRow(table, 0)));
    table.steps++;
    if (table.steps % 2 == 0) {
        AddUpwards(table);
    } else {
        AddDownwards(table);
    }
}

TangentTableScope::TangentTableScope() : table_{nullptr, RealWords(), 1, 1} {
    const int64_t bytes = TangentTableRows * table_.rowWords * BytesPerWord;
    table_.rows = static_cast<uint64_t*>(tangentMemory.take(static_cast<size_t>(bytes)));
    if (HasMemory()) {
        RealSetOne(TangentRow(table_, 0));
    }
}

TangentTableScope::~TangentTableScope() {
    if (HasMemory()) {
        tangentMemory.giveBack(table_.rows);
    }
}

}  // namespace tallymere
