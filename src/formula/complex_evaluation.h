// The functions of formulas in the number type cplx.
//
// Most are those of real: they take real values alone, and their result is real. Any other value
// gives NaN and code 205.
#pragma once

#include "core/complex_number.h"
#include "formula/formula_evaluator.h"

namespace tallymere {

// dest = function of one, two or three arguments, rounded; dest may be a single argument, but none
// of several. Errors and codes of the functions of real are those of RealApplyFunction1 and
// RealApplyFunction2. Roots with a branch that is no integer from 0 to degree - 1, or with a degree
// that is no integer from 1 to 2^61 - 1, are NaN and code 203.

/// Beyond the functions of real: the modulus, the angle in three units, the parts, and whole and
/// rest part by part.
void ComplexApplyFunction1(FormulaEvaluator& evaluator, const FormulaToken& function,
                           ComplexNumber* dest, const ComplexNumber* z);

/// Beyond the functions of real: sqrtc(z; branch) and cbrtc(z; branch).
void ComplexApplyFunction2(uint32_t functionId, ComplexNumber* dest, const ComplexNumber* a,
                           const ComplexNumber* b);

/// rootc(degree; z; branch).
void ComplexApplyFunction3(uint32_t functionId, ComplexNumber* dest, const ComplexNumber* a,
                           const ComplexNumber* b, const ComplexNumber* c);

}  // namespace tallymere
