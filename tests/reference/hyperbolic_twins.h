// Plain twins of the hyperbolic functions and their inverses, one operation for each step of the
// method.
//
// The functions under test may take any road that leads to the same limbs. x is finite and not
// zero and lies where the function has a value.
#pragma once

#include "core/real_number.h"

namespace tallymere::reference {

void TwinSinh(RealNumber* dest, const RealNumber* x);
void TwinCosh(RealNumber* dest, const RealNumber* x);
void TwinTanh(RealNumber* dest, const RealNumber* x);
void TwinAsinh(RealNumber* dest, const RealNumber* x);
void TwinAcosh(RealNumber* dest, const RealNumber* x);
void TwinAtanh(RealNumber* dest, const RealNumber* x);

}  // namespace tallymere::reference
