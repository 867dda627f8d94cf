#include "calculator/variable_rows.h"

#include <algorithm>
#include <string_view>

#include "calculator/calculator_state.h"
#include "calculator/variable_table.h"

namespace tallymere {

namespace {

// A stored text with the decimal separator in force, copied only if that makes a difference.
const char16_t* TextInForce(ScratchScope& scope, const char16_t* stored) {
    const std::u16string_view text = stored;
    const char16_t separator = numberContext.decimalSeparators[0];
    if (separator == u'.' || text.find(u'.') == text.npos) {
        return stored;
    }
    const auto length = static_cast<int64_t>(text.size());
    auto* copy = reinterpret_cast<char16_t*>(scope.Take(length / CharactersPerWord + 1));
    *std::replace_copy(text.begin(), text.end(), copy, u'.', separator) = 0;
    return copy;
}

}  // namespace

VariableRows BuildVariableRows(ScratchScope& scope) {
    const int64_t count = variableTable.count + 1;
    auto* rows = reinterpret_cast<VariableRow*>(
        scope.Take(count * (int64_t{sizeof(VariableRow)} / BytesPerWord)));
    rows[0] = {u"ans", calculator.calcResultText, nullptr};
    for (int64_t i = 1; i < count; i++) {
        const Variable& variable = variableTable.variables[i - 1];
        rows[i] = {variable.name, TextInForce(scope, variable.value), nullptr};
    }
    return {rows, count};
}

}  // namespace tallymere
