// The functions of formulas in the number type real.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// dest = function(x), for a function of one argument. NaN and code 102 for one without an
/// operation.
void RealApplyFunction1(uint32_t functionId, RealNumber* dest, const RealNumber* x);

/// Rounds to the nearest integer: to the digits before the decimal point, half up in magnitude by
/// the limb that holds the last of them. Below 1, the first decimal decides: 0.5 and more give +-1,
/// anything less a zero, always with the sign of x. Special values are copied.
void RealRoundToInteger(RealNumber* dest, const RealNumber* x);

}  // namespace tallymere
