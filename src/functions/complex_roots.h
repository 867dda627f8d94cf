// All n branches of the n-th root of a complex number.
//
// Branch k is the k-th root counter-clockwise from the principal one, whose angle is that of z, in
// (-pi, pi], divided by n. The imaginary part -0 lies below the real axis no more than +0 does, so
// the branches of a negative real z start above the axis for both. Roots that lie on an axis have
// exactly zero as other part.
//
// Degree and branch are real numbers as formulas have them. One that is no integer, a degree
// outside 1 to 2^61 - 1 or a branch outside 0 to degree - 1 gives NaN and CalcErrorUndefined.
// Otherwise z with zeros in both parts gives the zero of the sign of its real part. Computed with 4
// guard digits, and each part rounded once. The degree and the branch may lie in dest.
//
// Square and cube roots are within UsualErrorBound (functions/error_bounds.h). For other degrees, 1
// among them, the root of the modulus is e^(ln |z| / n), and the bound is ComplexRootErrorBound.
// Where the exponent of |z| has more than three digits, one more of the last digits is lost for
// each further digit of that exponent.
#pragma once

#include "core/complex_number.h"

namespace tallymere {

/// dest = branch k of the n-th root of z.
void ComplexRootBranch(ComplexNumber* dest, const RealNumber* n, const ComplexNumber* z,
                       const RealNumber* k);

/// dest = branch k of the square root of z, k = 0 or 1.
void ComplexSqrtBranch(ComplexNumber* dest, const ComplexNumber* z, const RealNumber* k);

/// dest = branch k of the cube root of z, k = 0, 1 or 2.
void ComplexCbrtBranch(ComplexNumber* dest, const ComplexNumber* z, const RealNumber* k);

}  // namespace tallymere
