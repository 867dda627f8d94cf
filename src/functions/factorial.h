// The factorial of a non-negative integer: a plain product, or from a cut-over that depends on the
// precision Stirling's series.
#pragma once

#include <cstdint>

#include "core/real_number.h"

namespace tallymere {

/// From `n` upwards Stirling's series is the faster way at `digits` digits.
struct FactorialCutoverPair {
    uint32_t digits;
    uint32_t n;
};

inline constexpr int64_t FactorialCutoverCount = 43;

/// Values of measurements, which follow no rule; `digits` and `n` ascend. The last pair lies far
/// above every precision and only closes the table.
extern const FactorialCutoverPair FactorialCutover[FactorialCutoverCount];

/// The least n whose factorial is worked out by Stirling's series at p digits, p >= 1: on the line
/// between the two pairs around p, rounded; from 10,000 digits on always that of 10,000, below 10
/// that of 10. At every p the series reaches the last digit long before its terms grow again.
int64_t FactorialCutoverAt(int64_t p);

/// dest = n! for n >= 0 as a product of n - 1 factors; raw, each factor truncates. Polls the stop
/// byte after every factor: NaN and CalcErrorCancelled.
Limb RealProductFactorial(RealNumber* dest, int64_t n);

/// dest = n! for n >= 1 by the logarithmic Stirling series, sqrt(2 pi n) (n / e)^n e^S with
/// S = sum of B_2k / (2k (2k - 1) n^(2k-1)) (Abramowitz and Stegun, "Handbook of Mathematical
/// Functions", 6.1.40), the Bernoulli numbers B_2k made from tangent numbers on the way; raw. The
/// series is asymptotic: it ends only if n is large for the precision. Where it does not, and also
/// where there is no memory for the TangentTable, the result is NaN and CalcErrorCapacity. Polls
/// the stop request after every term: NaN and CalcErrorCancelled. A factorial above the range is
/// +infinity, and CalcErrorOverflow if reportOverflow.
Limb RealStirlingFactorial(RealNumber* dest, int64_t n);

/// dest = x!; raw, by one method or the other as FactorialCutoverAt says. NaN gives NaN and no
/// code, +infinity itself; a positive integer from 2^63 on gives +infinity and CalcErrorOverflow if
/// reportOverflow, all other values NaN and CalcErrorUndefined. Both methods poll the stop request.
Limb RealFactorial(RealNumber* dest, const RealNumber* x);

/// The same with FactorialGuardDigits(x) guard digits, rounded; within UsualErrorBound
/// (functions/error_bounds.h).
void RealFactorialRounded(RealNumber* dest, const RealNumber* x);

}  // namespace tallymere
