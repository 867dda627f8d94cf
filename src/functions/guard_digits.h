// How many guard digits the functions work with, and the one way in which they round.
//
// The inner form of a function works at the layout in force and is raw. Its public form widens the
// layout by the guard digits of the function, runs the inner form and rounds once.
#pragma once

#include "core/real_layout.h"
#include "core/real_rounding.h"
#include "core/scratch.h"

namespace tallymere {

/// For exponentials, sine, cosine, tangent, sinh and cosh, where the digits of x before the decimal
/// point are lost to the reduction: 4, and from an exponent of 2 on exponent + 3, at most
/// MaxGuardDigits.
int64_t ArgumentGuardDigits(const RealNumber* x);

/// For x^y, where the digits of y before the decimal point are lost: 5, and from an exponent of 0
/// on exponent + 5, at most MaxGuardDigits.
int64_t PowerGuardDigits(const RealNumber* y);

/// For x!, whose factors add up their errors: 7, and from an exponent of 0 on exponent + 7, at most
/// MaxGuardDigits.
int64_t FactorialGuardDigits(const RealNumber* x);

/// For x^n and 2^n, whose products add up their errors: 3 for |n| < 100, else one more than |n| has
/// digits, at most 19.
int64_t IntegerPowerGuardDigits(int64_t n);

/// dest = f(x) computed with g guard digits, rounded.
inline void RoundedUnary(RealNumber* dest, const RealNumber* x, int64_t g, RealUnaryFunction f) {
    RealRound(dest, WithGuardDigitsUnary(dest, x, g, f));
}

/// dest = f(a, b) computed with g guard digits, rounded.
inline void RoundedBinary(RealNumber* dest, const RealNumber* a, const RealNumber* b, int64_t g,
                          RealBinaryFunction f) {
    RealRound(dest, WithGuardDigitsBinary(dest, a, b, g, f));
}

/// dest = the number that compute(wide) writes to `wide` under the layout widened by g digits,
/// rounded. `compute` may read dest, which is written after it.
template <typename Compute>
void RoundedResult(RealNumber* dest, int64_t g, Compute compute) {
    const int64_t oldLimbs = numberContext.realLimbs;
    const RealLayout widened = WidenedLayout(g);
    CoreScratchScope scratch;
    RealNumber* wide = RealAt(scratch.Take(widened.limbs + 1));
    {
        RealLayoutScope layout;
        InstallRealLayout(widened);
        compute(wide);
    }
    RealRound(dest, RealNarrow(dest, wide, g, oldLimbs, widened.limbs - oldLimbs));
}

}  // namespace tallymere
