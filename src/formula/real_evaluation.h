// The functions of formulas in the number type real that need more than a routine of functions/.
//
// Those of angles are in angles.h. function_table.cpp says which function has which routine.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// dest = the greatest common divisor of a and b, rounded. dest is neither a nor b. NaN and
/// CalcErrorUndefined unless both are positive integers.
void RealGcdRounded(RealNumber* dest, const RealNumber* a, const RealNumber* b);

/// dest = the least common multiple of a and b, rounded. Otherwise as RealGcdRounded.
void RealLcmRounded(RealNumber* dest, const RealNumber* a, const RealNumber* b);

}  // namespace tallymere
