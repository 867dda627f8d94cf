#include "functions/tangent_table.h"

#include <cstdlib>

#include "core/real_add.h"
#include "core/scratch.h"

namespace tallymere {

namespace {

// From row 1 up: each row with the sum of those before it.
void AddUpwards(TangentTable& table) {
    for (int64_t i = 1; i < table.length; i++) {
        RealNumber* row = TangentRow(table, i);
        RealAddRaw(row, row, TangentRow(table, i - 1), false);
    }
}

// From the last row down, two rows further out than before, and the result once more in row 0.
void AddDownwards(TangentTable& table) {
    const int64_t oldLength = table.length;
    if (oldLength + 2 > TangentTableRows) {
        RealSetNaN(TangentRow(table, 0), CalcErrorCapacity);
        return;
    }
    table.length += 2;
    RealCopy(TangentRow(table, oldLength + 1), TangentRow(table, oldLength - 1));
    for (int64_t i = oldLength; i >= 1; i--) {
        RealAddRaw(TangentRow(table, i), TangentRow(table, i - 1), TangentRow(table, i + 1), false);
    }
    RealCopy(TangentRow(table, 0), TangentRow(table, 1));
}

}  // namespace

TangentMemory tangentMemory = {std::malloc, std::free};

void TangentStep(TangentTable& table) {
    table.steps++;
    if (table.steps % 2 == 0) {
        AddUpwards(table);
    } else {
        AddDownwards(table);
    }
}

TangentTableScope::TangentTableScope() : table_{nullptr, 1, 1} {
    const int64_t bytes = TangentTableRows * RealWords() * BytesPerWord;
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
