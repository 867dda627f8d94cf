#include "console/operation_list.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "console/utf8.h"
#include "formula/constant_table.h"
#include "formula/function_table.h"
#include "formula/operator_table.h"

namespace tallymere {

namespace {

constexpr size_t LineWidth = 79;
constexpr size_t TypesColumn = 16;

// "real, cplx": the number types that have a routine.
template <typename Routine>
std::string TypesOf(const RoutinesByType<Routine>& routines) {
    std::string types;
    const auto add = [&types](std::string_view name, Routine routine) {
        if (routine != nullptr) {
            types += types.empty() ? "" : ", ";
            types += name;
        }
    };
    add("real", routines.real);
    add("cplx", routines.cplx);
    add("uint", routines.uint);
    add("rat", routines.rat);
    return types;
}

// "  names        types"
std::string Row(const std::u16string& names, const std::string& rest) {
    const size_t used = 2 + names.size();
    const size_t blanks = used < TypesColumn ? TypesColumn - used : 2;
    return "  " + EncodeUtf8(names) + std::string(blanks, ' ') + rest + "\n";
}

bool AreListedTogether(const OperatorRow& a, const OperatorRow& b) {
    return a.level == b.level && (a.sign == nullptr) == (b.sign == nullptr) &&
           TypesOf(a.routines) == TypesOf(b.routines);
}

std::string OperatorRows() {
    std::vector<OperatorRow> rows(std::begin(OperatorTable), std::end(OperatorTable));
    std::ranges::stable_sort(
        rows, [](const OperatorRow& a, const OperatorRow& b) { return a.level > b.level; });
    std::string text;
    while (!rows.empty()) {
        const OperatorRow first = rows.front();
        std::u16string names;
        for (const OperatorRow& row : rows) {
            if (AreListedTogether(row, first)) {
                names += names.empty() ? u"" : u" ";
                names += row.spelling;
            }
        }
        std::erase_if(rows,
                      [&first](const OperatorRow& row) { return AreListedTogether(row, first); });
        std::string rest = TypesOf(first.routines);
        if (first.associativity == Associativity::RightToLeft) {
            rest += "; from right to left";
        }
        if (first.sign != nullptr) {
            rest += "; also as signs";
        }
        text += Row(names, rest);
    }
    return text;
}

std::string ConstantRows() {
    std::string text;
    for (const ConstantRow& row : ConstantTable) {
        text += Row(std::u16string(row.name) + u" " + row.alternateName, TypesOf(row.routines));
    }
    return text;
}

// The signatures of the functions of exactly these number types, with two blanks between them.
std::string SignaturesOf(const std::string& types) {
    std::string text;
    std::string line;
    for (const FunctionRow& row : FunctionTable) {
        if (TypesOf(row.routines) != types) {
            continue;
        }
        const std::string signature = EncodeUtf8(row.name) + "(" + EncodeUtf8(row.parameters) + ")";
        if (line.size() + 2 + signature.size() > LineWidth) {
            text += line + "\n";
            line.clear();
        }
        line += "  " + signature;
    }
    return text + line + "\n";
}

std::string FunctionRows() {
    std::string text;
    std::vector<std::string> listed;
    for (const FunctionRow& row : FunctionTable) {
        const std::string types = TypesOf(row.routines);
        if (std::ranges::find(listed, types) == listed.end()) {
            listed.push_back(types);
            text += "\nFunctions of " + types + ":\n" + SignaturesOf(types);
        }
    }
    return text;
}

}  // namespace

std::string OperationList() {
    return "\nOperators, from those that bind tightest, and their number types:\n" +
           OperatorRows() + "\nConstants:\n" + ConstantRows() + FunctionRows();
}

}  // namespace tallymere
