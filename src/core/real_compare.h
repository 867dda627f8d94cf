// Comparisons. All give -1, 0 or 1; a NaN on either side gives 1.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// Compares a with b, or with ignoreSign |a| with |b|. Zeros are equal whatever their sign, and so
/// are infinities of one sign.
int RealCompare(const RealNumber* a, const RealNumber* b, bool ignoreSign = false);

/// Compares x with k. A k of more than t = topLimbDigits digits is cut to its first t digits, and
/// the number of those digits followed by zeros is what x is compared with.
int RealCompareInt(const RealNumber* x, int64_t k);

/// Compares x, or with ignoreSign |x|, with k.
int RealCompareUint(const RealNumber* x, uint64_t k, bool ignoreSign = false);

/// Compares x, or with ignoreSign |x|, with the number that has the digits of k as its mantissa and
/// e as its exponent: k = 11, e = 0 means 1.1. A k of more than 18 digits sets CalcErrorUndefined
/// and gives 1.
int RealCompareScaled(const RealNumber* x, uint64_t k, int64_t e, bool ignoreSign = false);

}  // namespace tallymere
