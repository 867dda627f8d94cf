// Moving numbers between layouts, and running operations at guard digits.
//
// An operation that needs more than p digits widens the context for its duration: g more digits
// become g / 19 more limbs and the rest in the first limb. Its operands are widened, it runs, and
// the result is narrowed again, the digits below the old precision coming out as the guard limb.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// The most guard digits of a single operation.
inline constexpr int64_t MaxGuardDigits = 38;

/// The current layout widened by g digits, 0 <= g <= MaxGuardDigits.
RealLayout WidenedLayout(int64_t g);

/// Writes src, a number of `oldLimbs` limbs, to dest with g more digits in oldLimbs + limbIncrease
/// limbs. The value is unchanged. dest may be src.
void RealWiden(RealNumber* dest, const RealNumber* src, int64_t g, int64_t oldLimbs,
               int64_t limbIncrease);

/// The inverse: src has oldLimbs + limbIncrease limbs, dest gets oldLimbs; raw. dest may be src.
Limb RealNarrow(RealNumber* dest, const RealNumber* src, int64_t g, int64_t oldLimbs,
                int64_t limbIncrease);

/// A raw function, which returns the guard limb; dest may be an operand.
using RealUnaryFunction = Limb (*)(RealNumber* dest, const RealNumber* x);
using RealBinaryFunction = Limb (*)(RealNumber* dest, const RealNumber* a, const RealNumber* b);

/// dest = f(x) computed with g guard digits; raw. The guard limb of f itself is dropped.
Limb WithGuardDigitsUnary(RealNumber* dest, const RealNumber* x, int64_t g, RealUnaryFunction f);

/// dest = f(a, b) computed with g guard digits; raw.
Limb WithGuardDigitsBinary(RealNumber* dest, const RealNumber* a, const RealNumber* b, int64_t g,
                           RealBinaryFunction f);

/// Writes src, a number of layout `source`, to dest in the current layout; raw. dest may be src
/// where its memory has room for both layouts.
Limb RealConvertLayout(RealNumber* dest, const RealNumber* src, RealLayout source);

/// Writes src, a number of sourceDigits digits, to dest with `digits` digits, rounded; dest must
/// have room for that layout and may be src. Digits outside 1 to MaxPrecisionDigits set
/// CalcErrorBadParameter, leave dest as it is and give false.
bool RealConvertPrecision(RealNumber* dest, int64_t digits, const RealNumber* src,
                          int64_t sourceDigits);

}  // namespace tallymere
