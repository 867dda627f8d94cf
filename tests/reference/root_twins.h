// Plain twins of the inner forms of square and cube root, one operation for each step of the
// method.
//
// The functions under test may take any road that leads to the same limbs. x is finite and above
// zero.
#pragma once

#include "core/real_number.h"

namespace tallymere::reference {

void TwinSqrt(RealNumber* dest, const RealNumber* x);
void TwinCbrt(RealNumber* dest, const RealNumber* x);

}  // namespace tallymere::reference
