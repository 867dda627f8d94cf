#include "calculator/variable_rows.h"

#include <string_view>

#include "calculator/calculator_state.h"
#include "calculator/variable_table.h"
#include "shell/scratch_text.h"

namespace tallymere {

namespace {

// A stored text with the decimal separator in force. It is copied only if it must be changed.
const char16_t* TextInForce(ScratchScope& scope, const char16_t* stored) {
    const std::u16string_view text = stored;
    if (numberContext.decimalSeparators[0] == u'.' || text.find(u'.') == text.npos) {
        return stored;
    }
    char16_t* copy = TakeText(scope, static_cast<int64_t>(text.size()));
    WriteInForce(copy, stored);
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
