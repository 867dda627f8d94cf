// What the driver does with values, for all number types.
//
// The tables of functions and operators hold a routine for each number type; the operations here
// call the one of NumberContext::numberType. A type that does not have the operation notes
// CalcErrorUnknownType and leaves a well-formed value.
#pragma once

#include "formula/formula_evaluator.h"

namespace tallymere {

/// dest = the number written by `length` digits (without the prefix of the base). `flags` are those
/// of the evaluator. CalcErrorSyntax for a base other than 10 in any type but uint.
void ValueFromNumberText(uint64_t* dest, const char16_t* digits, int64_t length, uint32_t base,
                         uint64_t flags);

/// left = left (operator) right. A remainder that is lost is noted in the evaluator.
void ApplyBinaryOperator(FormulaEvaluator& evaluator, OperatorId id, uint64_t* left,
                         const uint64_t* right);

// Functions of one, two and three arguments; their row has as many. `function` is the stack entry
// of the function, where its errors are shown. dest is no argument, but may be the only one in real
// and cplx. A number type without the function has the refusal of the row:
// FormulaErrorNeedsComplex, FormulaErrorNotAvailable or CalcErrorUnknownType.
void ApplyFunction1(FormulaEvaluator& evaluator, const FormulaToken& function, uint64_t* dest,
                    const uint64_t* argument);
void ApplyFunction2(FormulaEvaluator& evaluator, const FormulaToken& function, uint64_t* dest,
                    const uint64_t* first, const uint64_t* second);
void ApplyFunction3(FormulaEvaluator& evaluator, const FormulaToken& function, uint64_t* dest,
                    const uint64_t* first, const uint64_t* second, const uint64_t* third);

}  // namespace tallymere
