// Plain twins of the inner forms of exponential and logarithm, one operation for each step of the
// method.
//
// The functions under test may take any road that leads to the same limbs.
#pragma once

#include "core/real_number.h"
#include "functions/exponential.h"

namespace tallymere::reference {

/// For finite x, not zero, whose power lies well within the range.
void TwinExp(RealNumber* dest, const RealNumber* x, ExpMode mode);

/// For finite x above zero.
void TwinLn(RealNumber* dest, const RealNumber* x);

}  // namespace tallymere::reference
