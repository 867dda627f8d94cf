// Sum and difference.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// dest = a + b, or a - b with `subtract`; raw. Digits of the smaller operand that lie below the
/// guard limb are dropped. Infinity minus infinity gives NaN and CalcErrorUndefined. Exact
/// cancellation gives the zero of a's sign; a zero operand gives the other one, so 0 + (-0) is -0.
Limb RealAddRaw(RealNumber* dest, const RealNumber* a, const RealNumber* b, bool subtract);

/// dest = a + b, rounded.
void RealAdd(RealNumber* dest, const RealNumber* a, const RealNumber* b);

/// dest = a - b, rounded.
void RealSub(RealNumber* dest, const RealNumber* a, const RealNumber* b);

}  // namespace tallymere
