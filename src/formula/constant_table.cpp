#include "formula/constant_table.h"

#include "formula/formula_names.h"
#include "values/value_operations.h"

namespace tallymere {

constexpr ConstantRow ConstantTable[ConstantCount] = {
    {ConstantId::Pi, u"\u03C0", u"pi", {ValuePi, ValuePi, nullptr, nullptr}},
};

const ConstantRow* FindConstant(const char16_t* text, uint64_t length) {
    for (const ConstantRow& row : ConstantTable) {
        if (NameEquals(row.name, text, length) || NameEquals(row.alternateName, text, length)) {
            return &row;
        }
    }
    return nullptr;
}

namespace {

constexpr bool RowsStandInTheOrderOfTheIds() {
    for (int64_t i = 0; i < ConstantCount; i++) {
        if (ConstantTable[i].id != static_cast<ConstantId>(i) || ConstantTable[i].name == nullptr) {
            return false;
        }
    }
    return true;
}
static_assert(RowsStandInTheOrderOfTheIds());

}  // namespace

}  // namespace tallymere
