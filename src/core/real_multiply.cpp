#include "core/real_multiply.h"

#include "core/limb_tools.h"
#include "core/real_rounding.h"
#include "core/scratch.h"

namespace tallymere {

namespace {

// A column sum of limb products, 192 bits wide. Up to 2^60 products and two carries fit.
struct ColumnSum {
    uint64_t overflow = 0;
    Wide sum = {0, 0};
};

// Splits a column sum by LimbBase: returns the limb and leaves the carry, which may exceed 64 bits,
// as the sum of the next column.
Limb TakeLimb(ColumnSum& column) {
    const LimbQuotient upper = DivideByLimbBase({column.overflow, column.sum.high});
    const LimbQuotient lower = DivideByLimbBase({upper.remainder, column.sum.low});
    column = {0, {upper.quotient, lower.quotient}};
    return lower.remainder;
}

// Adds a[i] * b[-i] for 0 <= i < count.
void AddProducts(ColumnSum& column, const Limb* a, const Limb* b, int64_t count) {
    uint64_t overflow = column.overflow;
    Wide sum = column.sum;
    for (int64_t i = 0; i < count; i++) {
        wide::Accumulate(overflow, sum, wide::Multiply(a[i], b[-i]));
    }
    column = {overflow, sum};
}

}  // namespace

int LimbsMultiply(int64_t n, Limb* product, Limb* guard, const Limb* a, const Limb* b) {
    const int64_t t = numberContext.topLimbDigits;
    CoreScratchScope scratch;
    Limb* w = scratch.Take(n + 2);
    if (t < DigitsPerLimb) {
        Limb* aligned = scratch.Take(n);
        LimbsShiftLeftDigits(aligned, a, n, DigitsPerLimb - t, 0);
        a = aligned;
    }
    // Column c + 1 sums a[j] * b[i] over i + j = c. From the last column up to the first each sum
    // is complete, carry included, before it is split once; the limbs are those of the exact sum of
    // all products in the columns 0 to n + 1.
    ColumnSum column;
    w[n + 1] = 0;
    const int64_t lastColumn = n == 1 ? 1 : n + 1;
    for (int64_t c = lastColumn - 1; c >= 0; c--) {
        const int64_t first = c < n ? 0 : c - n + 1;
        const int64_t last = c < n ? c : n - 1;
        AddProducts(column, a + first, b + (c - first), last - first + 1);
        w[c + 1] = TakeLimb(column);
    }
    w[0] = column.sum.low;
    if (w[0] >= PowerOfTen(t - 1)) {
        LimbsCopy(product, w, n);
        *guard = w[n];
        return 0;
    }
    *guard = LimbsShiftLeftDigits(product, w, n, 1, w[n]);
    return 1;
}

Limb RealMulRaw(RealNumber* dest, const RealNumber* a, const RealNumber* b) {
    const uint64_t sign = RealSign(a) ^ RealSign(b);
    if (!RealIsSpecial(a) && !RealIsSpecial(b)) {
        const int64_t exponent = RealExponent(a) + RealExponent(b);
        Limb guard = 0;
        const int moved = LimbsMultiply(numberContext.realLimbs, RealLimbs(dest), &guard,
                                        RealLimbs(a), RealLimbs(b));
        RealSetExponentAndSign(dest, exponent + 1 - moved, sign);
        return guard;
    }
    if (RealIsNaN(a) || RealIsNaN(b)) {
        RealSetNaN(dest);
    } else if (RealIsZero(a) || RealIsZero(b)) {
        if (RealIsInfinite(a) || RealIsInfinite(b)) {
            RealSetNaN(dest, CalcErrorUndefined);
        } else {
            RealSetZero(dest, sign);
        }
    } else {
        RealSetInfinity(dest, sign);
    }
    return 0;
}

void RealMul(RealNumber* dest, const RealNumber* a, const RealNumber* b) {
    RealRound(dest, RealMulRaw(dest, a, b));
}

Limb RealMulUint(RealNumber* dest, const RealNumber* x, uint64_t k) {
    const uint64_t sign = RealSign(x);
    if (RealIsNaN(x)) {
        RealSetNaN(dest);
        return 0;
    }
    if (RealIsInfinite(x)) {
        if (k == 0) {
            RealSetNaN(dest, CalcErrorUndefined);
        } else {
            RealSetInfinity(dest, sign);
        }
        return 0;
    }
    if (RealIsZero(x) || k == 0) {
        RealSetZero(dest, sign);
        return 0;
    }
    const int64_t n = numberContext.realLimbs;
    const int64_t exponent = RealExponent(x);
    const Limb* limbs = RealLimbs(x);
    CoreScratchScope scratch;
    Limb* moved = scratch.Take(n);
    Limb carry = 0;
    Limb guard = 0;
    for (int64_t i = n - 1; i >= 0; i--) {
        const LimbQuotient step = LimbStep(limbs[i], k, carry, 0);
        (i == n - 1 ? guard : moved[i + 1]) = step.remainder;
        carry = step.quotient;
    }
    moved[0] = carry;
    int64_t count = 0;
    guard = LimbsNormalise(RealLimbs(dest), moved, n, &count, guard);
    RealSetExponentAndSign(dest, exponent + DigitsPerLimb - count, sign);
    return guard;
}

}  // namespace tallymere
