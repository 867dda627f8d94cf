// The exponential to the bases 10, e and 2.
#pragma once

#include "core/real_number.h"

namespace tallymere {

enum ExpMode : uint32_t {
    ExpOfTen = 0,  ///< 10^x
    ExpOfE = 1,    ///< e^x
    ExpOfTwo = 2,  ///< 2^x
};

/// dest = the power that `mode` names; the inner form. Zero gives 1, an infinity +infinity or +0. A
/// result above the range gives +infinity and CalcErrorOverflow if reportOverflow, one below it +0
/// and CalcErrorUnderflow if reportUnderflow.
///
/// Every power is computed as one of 10: the integer part of x log10(base) is the exponent of the
/// result. The rest is reduced by the powers of 1.2 and 1.01 (functions/reduction_tables.h) and by
/// 10 to less than 10^-4 for the Taylor series.
Limb RealExpBase(RealNumber* dest, const RealNumber* x, ExpMode mode);

/// e^x, 2^x and 10^x as RealExpBase, with ArgumentGuardDigits(x) guard digits, rounded; within
/// ExpErrorBound (functions/error_bounds.h).
void RealExpRounded(RealNumber* dest, const RealNumber* x);
void RealExp2Rounded(RealNumber* dest, const RealNumber* x);
void RealExp10Rounded(RealNumber* dest, const RealNumber* x);

}  // namespace tallymere
