// The exact integer quotient and remainder.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// a = quotient * b + remainder by long division, limb by limb; either output may be null, and
/// either may be an operand. The quotient is truncated towards zero and, past p digits, to p
/// digits; the remainder is exact all the same. Both have the sign of a times that of b, so 7 by -2
/// gives -3 and -1; where |a| < |b| the remainder is a copy of a. Special operands other than a
/// zero a give NaN and CalcErrorUndefined. Polls the stop request once for each limb of the
/// quotient, 19 digits, or past the precision once for each product of limbs: NaN in both and
/// CalcErrorCancelled. The time grows with the logarithm of the quotient at most.
void RealDivMod(RealNumber* quotient, RealNumber* remainder, const RealNumber* a,
                const RealNumber* b);

}  // namespace tallymere
