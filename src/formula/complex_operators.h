// The operators of formulas in the number type cplx, and the imaginary unit.
#pragma once

#include "core/complex_number.h"

namespace tallymere {

/// a = a (operator) b for OperatorAdd to OperatorMod, rounded. Products and quotients with a real
/// machine integer go part by part. mod is for two real values, and so is ^ but for integers of the
/// signed 64-bit range as exponents of any a: otherwise NaN and code 205, for ^ with a real b code
/// 203. NaN and code 102 for an operator without an operation.
void ComplexApplyOperator(uint32_t operatorId, ComplexNumber* a, const ComplexNumber* b);

/// z = i.
void ComplexSetImaginaryUnit(ComplexNumber* z);

/// z = z * i when z is real: the real part becomes the imaginary part, and the real part +0. False,
/// and nothing done, otherwise.
bool ComplexTurnImaginary(ComplexNumber* z);

}  // namespace tallymere
