// What the driver does with values, for all number types.
//
// Each operation sees to the refusals that have an error of their own and is then one switch on
// NumberContext::numberType; a type's own file does the work. An operation that a type does not
// have notes code 102 and leaves a well-formed value, which the driver turns into error 10203.
#pragma once

#include "formula/formula_evaluator.h"

namespace tallymere {

/// dest = the number written by `length` digits (without the prefix of the base). `flags` are those
/// of the evaluator. Code 301 for a base other than 10 in any type but uint.
void ValueFromNumberText(uint64_t* dest, const char16_t* digits, int64_t length, uint32_t base,
                         uint64_t flags);

/// left = left (operator) right, for OperatorAdd to OperatorMod. The evaluator is there for types
/// whose operations note a lost remainder in it.
void ApplyBinaryOperator(FormulaEvaluator& evaluator, uint32_t operatorId, uint64_t* left,
                         const uint64_t* right);

// Functions of one, two and three arguments. `function` is the stack entry of the function, where
// errors are shown; dest is no argument. Error 10207 for a function of cplx in another type, 10209
// for powmod outside uint.
void ApplyFunction1(FormulaEvaluator& evaluator, const FormulaToken& function, uint64_t* dest,
                    const uint64_t* argument);
void ApplyFunction2(FormulaEvaluator& evaluator, const FormulaToken& function, uint64_t* dest,
                    const uint64_t* first, const uint64_t* second);
void ApplyFunction3(FormulaEvaluator& evaluator, const FormulaToken& function, uint64_t* dest,
                    const uint64_t* first, const uint64_t* second, const uint64_t* third);

}  // namespace tallymere
