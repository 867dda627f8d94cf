#include "calculator/variable_table.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "core/digit_text.h"
#include "core/number_context.h"
#include "core/number_scanner.h"
#include "formula/formula_names.h"
#include "shell/text_sink.h"
#include "shell/ui_error.h"

namespace tallymere {

namespace {

constexpr std::u16string_view NumberedPrefix = u"var";
constexpr int64_t NumberedNames = 100;

// Null without memory.
char16_t* NewText(int64_t characters) {
    return static_cast<char16_t*>(
        std::calloc(static_cast<size_t>(characters) + 1, sizeof(char16_t)));
}

// Makes the buffers of the next free slot if there are none. False without memory.
bool MakeSlot() {
    VariableTable& table = variableTable;
    if (table.count < table.madeCount) {
        return true;
    }
    const Variable made = {NewText(VariableNameCharacters), NewText(ProductVariableCharacters)};
    if (made.name == nullptr || made.value == nullptr) {
        std::free(made.name);
        std::free(made.value);
        return false;
    }
    table.variables[table.madeCount++] = made;
    return true;
}

// The number of a name that is "var" and two digits; -1 for any other name.
int64_t NameNumber(std::u16string_view name) {
    if (name.size() != NumberedPrefix.size() + 2 || !name.starts_with(NumberedPrefix) ||
        !IsDecimalDigit(name[3]) || !IsDecimalDigit(name[4])) {
        return -1;
    }
    return (name[3] - u'0') * 10 + (name[4] - u'0');
}

void WriteNewName(char16_t* name) {
    bool used[NumberedNames] = {};
    for (int64_t i = 0; i < variableTable.count; i++) {
        const int64_t number = NameNumber(variableTable.variables[i].name);
        if (number >= 0) {
            used[number] = true;
        }
    }
    const int64_t number = std::find(used, used + NumberedNames, false) - used;
    char16_t* end = std::copy(NumberedPrefix.begin(), NumberedPrefix.end(), name);
    if (number < NumberedNames) {
        *end++ = static_cast<char16_t>(u'0' + number / 10);
        *end++ = static_cast<char16_t>(u'0' + number % 10);
    }
    *end = 0;
}

// Converts a text with the separators in force to storage form, in place.
void ConvertToStorageForm(char16_t* text) {
    char16_t* end = text;
    for (; *text != 0; text++) {
        if (!IsGroupSeparator(*text, false)) {
            *end++ = IsDecimalSeparator(*text, false) ? u'.' : *text;
        }
    }
    *end = 0;
}

}  // namespace

VariableTable variableTable;

bool IsValidVariableName(const char16_t* name) {
    const std::u16string_view text = name;
    for (const char16_t* reserved : {u"e", u"i", u"\u03C0", u"pi", u"ans"}) {
        if (text == reserved) {
            return false;
        }
    }
    return (text.empty() || !IsDecimalDigit(text.front())) &&
           std::all_of(text.begin(), text.end(),
                       [](char16_t c) { return IsNameLetter(c) || IsDecimalDigit(c); });
}

bool AddVariable(int64_t position) {
    VariableTable& table = variableTable;
    if (position < 0 || position > table.count || table.count == MaxVariables) {
        return false;
    }
    if (!MakeSlot()) {
        SetUiError(UiErrorInternal);
        return false;
    }
    const Variable added = table.variables[table.count];
    WriteNewName(added.name);
    added.value[0] = 0;
    std::copy_backward(table.variables + position, table.variables + table.count,
                       table.variables + table.count + 1);
    table.variables[position] = added;
    table.count++;
    table.variablesChanged = true;
    return true;
}

void DeleteVariable(int64_t index) {
    VariableTable& table = variableTable;
    std::rotate(table.variables + index, table.variables + index + 1,
                table.variables + table.count);
    table.count--;
    table.variables[table.count].name[0] = u'?';
    table.variablesChanged = true;
}

void SetVariableName(int64_t index, const char16_t* name) {
    CopyBounded(variableTable.variables[index].name, VariableNameCharacters, name);
    variableTable.variablesChanged = true;
}

void SetVariableValue(int64_t index, const char16_t* text) {
    char16_t* value = variableTable.variables[index].value;
    CopyBounded(value, VariableValueCharacters, text);
    ConvertToStorageForm(value);
    variableTable.variablesChanged = true;
}

void WriteInForce(char16_t* buffer, const char16_t* stored) {
    const std::u16string_view text = stored;
    const char16_t separator = numberContext.decimalSeparators[0];
    *std::replace_copy(text.begin(), text.end(), buffer, u'.', separator) = 0;
}

}  // namespace tallymere
