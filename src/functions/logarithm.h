// Logarithms: natural, binary, decimal and to any base. functions/error_bounds.h has the error
// bounds.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// dest = ln x; the inner form. Zero gives -infinity and CalcErrorOverflow if reportOverflow;
/// +infinity gives itself; anything negative NaN and CalcErrorUndefined.
///
/// x = 10^e T with T around 1 is brought nearer to 1 by powers of 1.2 and of 1.01
/// (functions/reduction_tables.h), and ln T = 2 artanh((T - 1) / (T + 1)).
Limb RealLn(RealNumber* dest, const RealNumber* x);

/// dest = ln(1 + y) = 2 artanh(y / (2 + y)) for |y| < 0.5; the inner form. `Small` means that y is
/// small, not that it is a machine integer. Zero gives itself; an infinity and any larger y give
/// NaN and CalcErrorUndefined.
Limb RealLnSmall(RealNumber* dest, const RealNumber* y);

/// dest = logarithm of x to the base `base`; the inner form. A base that is negative, zero, 1 or
/// infinite gives NaN and CalcErrorUndefined. With any other, x = 0 gives -infinity, also for a
/// base below 1, and CalcErrorOverflow if reportOverflow; x = +infinity gives itself; negative x
/// NaN and CalcErrorUndefined.
Limb RealLog(RealNumber* dest, const RealNumber* base, const RealNumber* x);

/// The logarithms of x to the bases e, 2 and 10, with the codes of RealLn; with 3 guard digits,
/// rounded. Within LnErrorBound, Log2ErrorBound and Log10ErrorBound.
void RealLnRounded(RealNumber* dest, const RealNumber* x);
void RealLog2Rounded(RealNumber* dest, const RealNumber* x);
void RealLog10Rounded(RealNumber* dest, const RealNumber* x);

/// RealLog with 4 guard digits, rounded; within UsualErrorBound.
void RealLogRounded(RealNumber* dest, const RealNumber* base, const RealNumber* x);

}  // namespace tallymere
