// The hyperbolic functions and their inverses.
//
// Inner forms are raw and work at the layout in force. On their own they have no error bound: the
// guard digits of the public forms are made for what they lose. The bounds of the public forms
// stand in functions/error_bounds.h. NaN gives NaN. dest may be x.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// (E - 1 / E) / 2 with E = e^x; raw. For |x| below 0.5, where the difference would lose digits,
/// the Taylor series. Zero and infinity give themselves; too large an |x| an infinity and
/// CalcErrorOverflow if reportOverflow.
Limb RealSinh(RealNumber* dest, const RealNumber* x);

/// (E + 1 / E) / 2 with E = e^x; raw. Too large an |x| gives +infinity and CalcErrorOverflow if
/// reportOverflow, an infinity +infinity alone.
Limb RealCosh(RealNumber* dest, const RealNumber* x);

/// (E - 1) / (E + 1) with E = e^(2 x), below 0.1 the quotient of the series of both parts; raw. An
/// |x| of floor(295 p / 256) + 1 or more, where the difference from 1 lies below the last digit,
/// gives +-1 at once.
Limb RealTanh(RealNumber* dest, const RealNumber* x);

/// ln(|x| + sqrt(x^2 + 1)) with the sign of x, below 0.1 by the Taylor series, for large |x| as
/// ln 2 + ln |x|; raw. Zero and infinity give themselves.
Limb RealAsinh(RealNumber* dest, const RealNumber* x);

/// ln(x + sqrt(x^2 - 1)), for large x as ln 2 + ln x; raw. x < 1 gives NaN and CalcErrorUndefined,
/// and so does every x from about 1.0833 up to below 1.1: there the logarithm near 1 is asked for
/// more than its range.
Limb RealAcosh(RealNumber* dest, const RealNumber* x);

/// ln((1 + x) / (1 - x)) / 2, below 0.01 by the Taylor series; raw. +-1 gives an infinity and
/// CalcErrorOverflow if reportOverflow, |x| > 1 NaN and CalcErrorUndefined.
Limb RealAtanh(RealNumber* dest, const RealNumber* x);

/// The same with ArgumentGuardDigits(x) guard digits, rounded; within SinhErrorBound and
/// CoshErrorBound.
void RealSinhRounded(RealNumber* dest, const RealNumber* x);
void RealCoshRounded(RealNumber* dest, const RealNumber* x);

/// The same with 3 guard digits, rounded; within TanhErrorBound, AsinhErrorBound, AcoshErrorBound
/// (near 1 see AcoshNearOneFactor) and AtanhErrorBound.
void RealTanhRounded(RealNumber* dest, const RealNumber* x);
void RealAsinhRounded(RealNumber* dest, const RealNumber* x);
void RealAcoshRounded(RealNumber* dest, const RealNumber* x);
void RealAtanhRounded(RealNumber* dest, const RealNumber* x);

}  // namespace tallymere
