// Plain twins of the functions of an angle, one core operation for each step of the method.
//
// The functions under test may take any road that leads to the same limbs.
#pragma once

#include "core/real_number.h"

namespace tallymere::reference {

/// RealSinCos for a finite non-zero x below 10^19; an output may be null.
void TwinSinCos(RealNumber* sine, RealNumber* cosine, const RealNumber* x);

/// RealAtan for a finite non-zero x; returns the guard limb.
Limb TwinAtan(RealNumber* dest, const RealNumber* x);

}  // namespace tallymere::reference
