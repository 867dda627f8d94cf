// The functions of formulas: one row for each says all that the program knows of it.
//
// A new function needs its id in operation_ids.h, its row in function_table.cpp, its routine, which
// for real and cplx mostly lies in functions/, and its entry in the help pages of all languages.
#pragma once

#include <cstdint>

#include "core/contract.h"
#include "formula/angle_unit.h"
#include "formula/formula_evaluator.h"
#include "formula/routines_by_type.h"

namespace tallymere {

struct FunctionRow;

/// The most arguments that a function has.
inline constexpr int64_t MaxFunctionArguments = 3;

/// One call of a function.
struct FunctionCall {
    FormulaEvaluator& evaluator;   ///< for a note of a lost remainder, and for errors
    const FormulaToken& function;  ///< the stack entry of the function: where its errors are shown
    const FunctionRow& row;        ///< of that function
    uint64_t* dest;                ///< receives a value of the number type in force
    const uint64_t* arguments[MaxFunctionArguments];  ///< as many as the row has, then null
};

/// Works out one call. What fails leaves a well-formed value and notes a CalcError, or an error of
/// the evaluator. In real and cplx dest may be the only argument; otherwise it is no argument.
using FunctionRoutine = void (*)(const FunctionCall& call);

struct FunctionRow {
    FunctionId id;
    const char16_t* name;
    /// The names of the arguments as the help shows them, with "; " between two.
    const char16_t* parameters;
    AngleUnit unit;
    /// The error at the function in a number type that has no routine. FormulaErrorNone: the call
    /// notes CalcErrorUnknownType, as any operation that a type does not have.
    FormulaError refusal;
    RoutinesByType<FunctionRoutine> routines;
};

/// In the order of the ids. No name occurs twice, also not among operators and constants.
extern const FunctionRow FunctionTable[FunctionCount];

/// The row of an id. Precondition: `id` is not FunctionId::Count.
inline const FunctionRow& FunctionOf(FunctionId id) {
    TALLYMERE_REQUIRE(id < FunctionId::Count);
    return FunctionTable[static_cast<int64_t>(id)];
}

/// How many arguments the function has, 1 to MaxFunctionArguments.
constexpr int64_t ArgumentCount(const FunctionRow& row) {
    int64_t count = 1;
    for (const char16_t* c = row.parameters; *c != 0; c++) {
        count += *c == u';' ? 1 : 0;
    }
    return count;
}

/// The row with exactly these `length` characters as its name, or null.
const FunctionRow* FindFunction(const char16_t* text, uint64_t length);

}  // namespace tallymere
