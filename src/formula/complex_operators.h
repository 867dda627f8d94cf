// The operators of formulas in the number type cplx that need more than a routine of core/, and the
// imaginary unit. operator_table.cpp says which operator has which routine.
#pragma once

#include "core/complex_number.h"

namespace tallymere {

// a = a (operator) b, rounded. Products and quotients with a real machine integer go part by part.

void ComplexMultiplyBy(ComplexNumber* a, const ComplexNumber* b);

/// A part that is divided by 0 is an infinity and CalcErrorOverflow, or NaN and CalcErrorUndefined.
void ComplexDivideBy(ComplexNumber* a, const ComplexNumber* b);

/// The remainder, as RealReduceModulo. NaN and CalcErrorComplexNotAllowed unless both are real.
void ComplexReduceModulo(ComplexNumber* a, const ComplexNumber* b);

/// The power, as RealApplyPower where both are real. Otherwise b is an integer of the signed 64-bit
/// range: NaN and CalcErrorComplexNotAllowed when it is not real, CalcErrorUndefined when it is
/// real but no such integer.
void ComplexRaiseTo(ComplexNumber* a, const ComplexNumber* b);

/// z = i.
void ComplexSetImaginaryUnit(ComplexNumber* z);

/// z = z * i when z is real: the real part becomes the imaginary part, and the real part +0. False,
/// and nothing done, otherwise.
bool ComplexTurnImaginary(ComplexNumber* z);

}  // namespace tallymere
