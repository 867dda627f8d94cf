// The functions of formulas that the number type cplx has of its own.
//
// The others are those of real; function_table.cpp has the rules by which they take complex values.
// All results are rounded.
#pragma once

#include "core/complex_number.h"
#include "formula/angle_unit.h"

namespace tallymere {

/// dest = the real part of z. dest may be z.
void ComplexTakeRealPart(ComplexNumber* dest, const ComplexNumber* z);

/// dest = the imaginary part of z, as a real value. dest may be z.
void ComplexTakeImaginaryPart(ComplexNumber* dest, const ComplexNumber* z);

/// dest = the angle of z in the unit: above -half a turn, up to half a turn. dest may be z.
/// Precondition: the unit is not AngleUnit::None.
void ComplexAngle(ComplexNumber* dest, const ComplexNumber* z, AngleUnit unit);

// dest = one branch of a root of z. dest is none of the arguments. NaN and CalcErrorUndefined for a
// branch that is no integer from 0 to degree - 1, and for a degree that is no integer from 1 to
// 2^61 - 1.
void ComplexSqrtOfBranch(ComplexNumber* dest, const ComplexNumber* z, const ComplexNumber* branch);
void ComplexCbrtOfBranch(ComplexNumber* dest, const ComplexNumber* z, const ComplexNumber* branch);
void ComplexRootOfBranch(ComplexNumber* dest, const ComplexNumber* degree, const ComplexNumber* z,
                         const ComplexNumber* branch);

}  // namespace tallymere
