// The table of variables beside a plain one, under any run of changes, and its way through the
// settings file.
//
// Input: separators; then changes, each a letter with a position and a line of text.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "calculator/variable_settings.h"
#include "calculator/variable_table.h"
#include "core/text_writer.h"
#include "fuzz/harness_list.h"
#include "fuzz/separator_scope.h"
#include "shell/settings_testing.h"

namespace tallymere::fuzz {

using namespace testing_support;

namespace {

using Text = std::u16string;

constexpr int MostChanges = 200;
constexpr Separators SeparatorChoices[] = {{u'.', u'\''}, {u',', u'.'}, {u',', u'\u202F'}};

struct PlainVariable {
    Text name;
    Text value;

    bool operator==(const PlainVariable&) const = default;
};

using PlainTable = std::vector<PlainVariable>;

PlainTable ActualTable() {
    PlainTable table;
    for (int64_t i = 0; i < variableTable.count; i++) {
        table.push_back({variableTable.variables[i].name, variableTable.variables[i].value});
    }
    return table;
}

void EmptyTable() {
    variableTable.count = 0;
    variableTable.variablesChanged = false;
}

Text NewName(const PlainTable& table) {
    for (char16_t tens = u'0'; tens <= u'9'; tens++) {
        for (char16_t ones = u'0'; ones <= u'9'; ones++) {
            const Text name = {u'v', u'a', u'r', tens, ones};
            if (std::ranges::find(table, name, &PlainVariable::name) == table.end()) {
                return name;
            }
        }
    }
    return u"var";
}

Text CutName(Text name) {
    if (name.size() > VariableNameCharacters) {
        name.resize(VariableNameCharacters);
        name.back() = Ellipsis;
    }
    return name;
}

Text StoredValue(const Text& typed, const Separators& separators) {
    Text value;
    for (const char16_t c : typed) {
        if (c != separators.group) {
            value += c == separators.decimal ? u'.' : c;
        }
    }
    return value;
}

bool IsPlainlyValid(const Text& name) {
    const auto isLetter = [](char16_t c) {
        return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_' ||
               (c >= u'\u0391' && c <= u'\u03A9') || (c >= u'\u03B1' && c <= u'\u03C9');
    };
    const auto isDigit = [](char16_t c) { return c >= u'0' && c <= u'9'; };
    const bool isReserved =
        name == u"e" || name == u"i" || name == u"pi" || name == u"\u03C0" || name == u"ans";
    return !isReserved && (name.empty() || !isDigit(name[0])) &&
           std::ranges::all_of(name, [&](char16_t c) { return isLetter(c) || isDigit(c); });
}

// Whether the settings file can hold a name: what parts it from its value, ends a line or is left
// out at the ends of a name is lost there.
bool IsCarried(const PlainVariable& variable) {
    return !variable.name.empty() && variable.name.find_first_of(u";\r\n") == Text::npos &&
           variable.name.front() != u' ' && variable.name.back() != u' ';
}

PlainVariable InFile(PlainVariable variable) {
    for (char16_t& c : variable.value) {
        c = c == u'\r' || c == u'\n' ? u' ' : c;
    }
    return variable;
}

// Stores the table, empties it and loads it again.
void GoThroughFile(PlainTable& table) {
    Settings record;
    variableTable.variablesChanged = true;
    StoreVariables(record);
    EXPECT_TRUE(record.settingsDirty);
    EXPECT_FALSE(variableTable.variablesChanged);
    const ReadText read(WrittenText(record));
    EmptyTable();
    LoadVariables(read.record);
    EXPECT_FALSE(variableTable.variablesChanged);
    const PlainTable loaded = ActualTable();
    EXPECT_EQ(loaded.size(), table.size());
    for (size_t i = 0; i < std::min(loaded.size(), table.size()); i++) {
        if (IsCarried(table[i])) {
            EXPECT_TRUE(loaded[i] == InFile(table[i])) << i;
        }
    }
    table = loaded;
}

class Changes {
public:
    Changes(FuzzInput& input, const Separators& separators)
        : input_(input), separators_(separators) {}

    void MakeOne() {
        switch (input_.Choice(5)) {
            case 0:
                Add();
                break;
            case 1:
                Delete();
                break;
            case 2:
                Rename();
                break;
            case 3:
                SetValue();
                break;
            default:
                GoThroughFile(table_);
        }
        EXPECT_TRUE(ActualTable() == table_);
    }

private:
    int64_t Count() const { return static_cast<int64_t>(table_.size()); }

    void Add() {
        const int64_t position = input_.Number(-1, Count() + 1);
        const bool isPossible = position >= 0 && position <= Count() && Count() < MaxVariables;
        EXPECT_EQ(AddVariable(position), isPossible);
        if (isPossible) {
            table_.insert(table_.begin() + position, {NewName(table_), u""});
        }
    }

    void Delete() {
        if (!table_.empty()) {
            const int64_t index = input_.Number(0, Count() - 1);
            DeleteVariable(index);
            table_.erase(table_.begin() + index);
        }
    }

    void Rename() {
        if (!table_.empty()) {
            const int64_t index = input_.Number(0, Count() - 1);
            const Text name = BeforeZero(input_.Line());
            SetVariableName(index, name.c_str());
            table_[static_cast<size_t>(index)].name = CutName(name);
            EXPECT_EQ(IsValidVariableName(name.c_str()), IsPlainlyValid(name));
        }
    }

    void SetValue() {
        if (!table_.empty()) {
            const int64_t index = input_.Number(0, Count() - 1);
            const Text value = BeforeZero(input_.Line());
            SetVariableValue(index, value.c_str());
            table_[static_cast<size_t>(index)].value = StoredValue(value, separators_);
            EXPECT_TRUE(variableTable.variablesChanged);
        }
    }

    FuzzInput& input_;
    const Separators separators_;
    PlainTable table_;
};

}  // namespace

void FuzzVariables(FuzzInput& input) {
    const Separators separators = input.OneOf(SeparatorChoices);
    const SeparatorScope scope(separators);
    EmptyTable();
    Changes changes(input, separators);
    for (int left = MostChanges; left > 0 && !input.IsAtEnd(); left--) {
        changes.MakeOne();
    }
    EmptyTable();
}

}  // namespace tallymere::fuzz
