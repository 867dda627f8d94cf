// The operators of formulas: one row for each says all that the program knows of it.
//
// A new operator needs its id in operation_ids.h, its row in operator_table.cpp, its routine for
// each number type that has it, in real_operators, complex_operators, uint_operators and
// rational_operators, and its entry in the help pages of all languages.
#pragma once

#include <cstdint>

#include "core/contract.h"
#include "formula/formula_evaluator.h"
#include "formula/routines_by_type.h"

namespace tallymere {

/// left = left (operator) right, for values of the number type in force. What fails leaves a
/// well-formed value and notes a CalcError. The evaluator is there for a note of a lost remainder.
using OperatorRoutine = void (*)(FormulaEvaluator& evaluator, uint64_t* left,
                                 const uint64_t* right);

/// Applies a sign to a value of the number type in force.
using SignRoutine = void (*)(uint64_t* value);

/// Which of two operators of one level is applied first.
enum class Associativity : uint8_t { LeftToRight, RightToLeft };

struct OperatorRow {
    OperatorId id;
    /// Symbols, or a word of letters and digits that begins with a letter. Where several symbols
    /// fit the text the longest is taken.
    const char16_t* spelling;
    /// Higher levels bind tighter. An operator waits for those of higher levels.
    int32_t level;
    /// The same in all operators of a level.
    Associativity associativity;
    /// The sign that the operator is before an operand, on its own level; null for one that is no
    /// sign.
    SignRoutine sign;
    /// A type without a routine has no such operator: CalcErrorUnknownType.
    RoutinesByType<OperatorRoutine> routines;
};

/// In the order of the ids. No spelling occurs twice.
extern const OperatorRow OperatorTable[OperatorCount];

/// The row of an id. Precondition: `id` is not OperatorId::Count.
inline const OperatorRow& OperatorOf(OperatorId id) {
    TALLYMERE_REQUIRE(id < OperatorId::Count);
    return OperatorTable[static_cast<int64_t>(id)];
}

/// True for an operator that is a word, such as mod.
bool IsWordOperator(const OperatorRow& row);

/// The word operator with exactly these `length` characters, or null.
const OperatorRow* FindWordOperator(const char16_t* text, uint64_t length);

/// The longest operator of symbols that the NUL-terminated text begins with, and its length; null
/// and 0 where there is none.
const OperatorRow* FindSymbolOperator(const char16_t* text, uint64_t* length);

}  // namespace tallymere
