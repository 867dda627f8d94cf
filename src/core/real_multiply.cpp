#include "core/real_multiply.h"

#include "core/contract.h"
#include "core/limb_columns.h"
#include "core/limb_tools.h"
#include "core/long_products.h"
#include "core/real_rounding.h"
#include "core/scratch.h"

namespace tallymere {

namespace {

// Column c + 1 of a product w sums a[j] * b[i] over i + j = c. From the last column up to the first
// each sum is complete, carry included, before it is split once; so the limbs are those of the
// exact sum of all products in the columns 0 to n + 1. w[n + 1] only feeds the carries and is not
// written.

// The columns for a length that the compiler can unroll.
template <int64_t N>
inline void MultiplyColumns(Limb* w, const Limb* a, const Limb* b) {
    ColumnSum column;
#pragma GCC unroll 8
    for (int64_t c = N == 1 ? 0 : N; c >= 0; c--) {
        const int64_t end = c < N ? c + 1 : N;
#pragma GCC unroll 8
        for (int64_t i = c < N ? 0 : 1; i < end; i += ProductsPerGroup) {
            Wide group = wide::Multiply(a[i], b[c - i]);
            if (i + 1 < end) {
                group = wide::Add(group, wide::Multiply(a[i + 1], b[c - i - 1]));
            }
            if (i + 2 < end) {
                group = wide::Add(group, wide::Multiply(a[i + 2], b[c - i - 2]));
            }
            wide::Accumulate(column.overflow, column.sum, group);
        }
        const Limb limb = TakeLimb(column);
        if (c < N) {
            w[c + 1] = limb;
        }
    }
    w[0] = column.sum.low;
}

// LimbsMultiply or LimbsMultiplyAligned for a length that the compiler can unroll: there the moves
// before and behind the product take as long as it does, and here they cost no calls.
template <int64_t N>
int MultiplyShort(Limb* product, Limb* guard, const Limb* a, const Limb* b, bool isAligned) {
    Limb w[N + 1];
    const int64_t t = numberContext.topLimbDigits;
    if (isAligned || t == DigitsPerLimb) {
        MultiplyColumns<N>(w, a, b);
    } else {
        Limb aligned[N];
        const PowerOfTenDivider missing(t);
        const Limb scale = PowerOfTen(DigitsPerLimb - t);
        Limb upper = a[0];
#pragma GCC unroll 8
        for (int64_t i = 0; i < N; i++) {
            const LimbQuotient next = i + 1 < N ? missing.Divide(a[i + 1]) : LimbQuotient{0, 0};
            aligned[i] = upper * scale + next.quotient;
            upper = next.remainder;
        }
        MultiplyColumns<N>(w, aligned, b);
    }
    if (w[0] >= PowerOfTen(t - 1)) {
#pragma GCC unroll 8
        for (int64_t i = 0; i < N; i++) {
            product[i] = w[i];
        }
        *guard = w[N];
        return 0;
    }
    constexpr PowerOfTenDivider firstDigit(DigitsPerLimb - 1);
    Limb upper = w[0];
#pragma GCC unroll 8
    for (int64_t i = 0; i < N; i++) {
        const LimbQuotient next = firstDigit.Divide(w[i + 1]);
        product[i] = upper * 10 + next.quotient;
        upper = next.remainder;
    }
    *guard = upper * 10;
    return 1;
}

// LimbsMultiply or LimbsMultiplyAligned for any length.
int MultiplyLong(int64_t n, Limb* product, Limb* guard, const Limb* a, const Limb* b,
                 bool isAligned) {
    CoreScratchScope scratch;
    Limb* w = scratch.Take(n + 2);
    if (!isAligned && numberContext.topLimbDigits != DigitsPerLimb) {
        Limb* aligned = scratch.Take(n);
        LimbsAlign(aligned, a, n);
        a = aligned;
    }
    LimbsMultiplyUpper(w, a, b, n);
    if (w[0] >= PowerOfTen(numberContext.topLimbDigits - 1)) {
        LimbsCopy(product, w, n);
        *guard = w[n];
        return 0;
    }
    *guard = LimbsShiftLeftDigits(product, w, n, 1, w[n]);
    return 1;
}

int Multiply(int64_t n, Limb* product, Limb* guard, const Limb* a, const Limb* b, bool isAligned) {
    switch (n) {
        case 1:
            return MultiplyShort<1>(product, guard, a, b, isAligned);
        case 2:
            return MultiplyShort<2>(product, guard, a, b, isAligned);
        case 3:
            return MultiplyShort<3>(product, guard, a, b, isAligned);
        case 4:
            return MultiplyShort<4>(product, guard, a, b, isAligned);
        case 5:
            return MultiplyShort<5>(product, guard, a, b, isAligned);
        case 6:
            return MultiplyShort<6>(product, guard, a, b, isAligned);
        default:
            return MultiplyLong(n, product, guard, a, b, isAligned);
    }
}

}  // namespace

void LimbsAlign(Limb* dest, const Limb* src, int64_t n) {
    TALLYMERE_REQUIRE(n == numberContext.realLimbs);
    TALLYMERE_REQUIRE(FirstLimbIsNormal(src));
    LimbsShiftLeftDigits(dest, src, n, DigitsPerLimb - numberContext.topLimbDigits, 0);
}

int LimbsMultiply(int64_t n, Limb* product, Limb* guard, const Limb* a, const Limb* b) {
    TALLYMERE_REQUIRE(n == numberContext.realLimbs);
    TALLYMERE_REQUIRE(FirstLimbIsNormal(a) && FirstLimbIsNormal(b));
    return Multiply(n, product, guard, a, b, false);
}

int LimbsMultiplyAligned(int64_t n, Limb* product, Limb* guard, const Limb* aligned,
                         const Limb* b) {
    TALLYMERE_REQUIRE(n == numberContext.realLimbs);
    TALLYMERE_REQUIRE(aligned[0] >= PowerOfTen(DigitsPerLimb - 1) && FirstLimbIsNormal(b));
    return Multiply(n, product, guard, aligned, b, true);
}

Limb RealMulRaw(RealNumber* dest, const RealNumber* a, const RealNumber* b) {
    TALLYMERE_REQUIRE(RealIsWellFormed(a) && RealIsWellFormed(b));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, a) && RealSameOrApart(dest, b));
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
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
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
