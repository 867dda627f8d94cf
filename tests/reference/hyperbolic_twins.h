// Plain twins of the hyperbolic functions and their inverses, one operation for each step of the
// method.
//
// The functions under test may take any road that leads to the same limbs. x is finite and not
// zero and lies where the function has a value. All return the guard limb, but 0 where the result
// is a twin of a series.
#pragma once

#include "core/real_number.h"

namespace tallymere::reference {

Limb TwinSinh(RealNumber* dest, const RealNumber* x);
Limb TwinCosh(RealNumber* dest, const RealNumber* x);
Limb TwinTanh(RealNumber* dest, const RealNumber* x);
Limb TwinAsinh(RealNumber* dest, const RealNumber* x);
Limb TwinAcosh(RealNumber* dest, const RealNumber* x);
Limb TwinAtanh(RealNumber* dest, const RealNumber* x);

}  // namespace tallymere::reference
