#include "core/real_divide.h"

#include "core/contract.h"
#include "core/limb_tools.h"
#include "core/real_add.h"
#include "core/real_integer.h"
#include "core/real_layout.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "core/scratch.h"

namespace tallymere {

namespace {

// The decimal digits that a double seed is sure to hold.
constexpr int64_t SeedDigits = 15;

constexpr int64_t ReciprocalGuardDigits = 2;
constexpr int64_t QuotientGuardDigits = 3;

// About 1 / x for a mantissa x in [1, 10) with the first 19 digits `leading`; good to SeedDigits
// digits.
void SeedReciprocal(RealNumber* dest, Limb leading) {
    const double quotient = 1e37 / static_cast<double>(leading);
    uint64_t seed = static_cast<uint64_t>(quotient);
    int64_t exponent = -1;
    if (seed < PowerOfTen(18)) {
        seed = PowerOfTen(18);
    } else if (seed >= LimbBase) {
        seed = PowerOfTen(18);
        exponent = 0;
    }
    RealSetLeading(RealLimbs(dest), seed);
    dest->header = MakeHeader(exponent, 0);
}

// w = 2 - w, truncated, for a positive finite w. Newton's products lie just below 1 but for the
// seed, so that case is a pass of its own: w moves down a digit and is taken from 2 limb by limb,
// which is what RealAddRaw does in three.
void SubtractFromTwo(RealNumber* w) {
    const int64_t n = numberContext.realLimbs;
    Limb* limbs = RealLimbs(w);
    if (RealExponent(w) != -1) {
        CoreScratchScope scratch;
        RealNumber* two = RealAt(scratch.Take(n + 1));
        RealFromUint(two, 2);
        RealAddRaw(w, two, w, true);
        return;
    }
    LimbQuotient parts = DivideByPowerOfTen(limbs[n - 1], 1);
    Limb borrow = parts.remainder != 0 ? 1 : 0;
    for (int64_t i = n - 1; i > 0; i--) {
        const LimbQuotient above = DivideByPowerOfTen(limbs[i - 1], 1);
        limbs[i] = SubtractLimbs(
            0, above.remainder * PowerOfTen(DigitsPerLimb - 1) + parts.quotient, borrow);
        parts = above;
    }
    limbs[0] = 2 * PowerOfTen(numberContext.topLimbDigits - 1) - parts.quotient - borrow;
    w->header = MakeHeader(0, 0);
}

// The mantissa of a finite non-zero number with its limbs moved to a full first limb.
struct AlignedNumber {
    Limb* mantissa;  // realLimbs limbs
    int64_t exponent;
};

// Takes `limbs` limbs of scratch for x of the current layout; those that x does not have become 0.
AlignedNumber Align(CoreScratchScope& scratch, const RealNumber* x, int64_t limbs) {
    const int64_t n = numberContext.realLimbs;
    const AlignedNumber aligned = {scratch.Take(limbs), RealExponent(x)};
    LimbsAlign(aligned.mantissa, RealLimbs(x), n);
    LimbsClear(aligned.mantissa + n, limbs - n);
    return aligned;
}

// dest = 1 / x with the sign given; raw. False if that is below the range, and dest then zero.
bool ReciprocalOfAligned(RealNumber* dest, Limb* guard, const AlignedNumber& x, uint64_t sign) {
    const int64_t n = numberContext.realLimbs;
    const int64_t p = numberContext.precisionDigits;
    CoreScratchScope scratch;
    RealNumber* w = RealAt(scratch.Take(n + 1));
    SeedReciprocal(dest, x.mantissa[0]);
    int64_t goodDigits = SeedDigits;
    do {
        const int moved = LimbsMultiplyAligned(n, RealLimbs(w), guard, x.mantissa, RealLimbs(dest));
        w->header = MakeHeader(RealExponent(dest) + 1 - moved, 0);
        SubtractFromTwo(w);
        *guard = RealMulRaw(dest, dest, w);
        goodDigits *= 2;
    } while (goodDigits < p);
    return RealSetExponentAndSign(dest, RealExponent(dest) - x.exponent, sign);
}

// dest = a * (1 / b) with the sign given; raw. Where 1 / b is below the range the quotient is zero,
// whatever a is.
Limb DivideAligned(RealNumber* dest, const AlignedNumber& a, const AlignedNumber& b,
                   uint64_t sign) {
    const int64_t n = numberContext.realLimbs;
    CoreScratchScope scratch;
    RealNumber* reciprocal = RealAt(scratch.Take(n + 1));
    Limb guard = 0;
    if (!ReciprocalOfAligned(reciprocal, &guard, b, 0)) {
        RealSetZero(dest, sign);
        return 0;
    }
    const int moved =
        LimbsMultiplyAligned(n, RealLimbs(dest), &guard, a.mantissa, RealLimbs(reciprocal));
    RealSetExponentAndSign(dest, a.exponent + RealExponent(reciprocal) + 1 - moved, sign);
    return guard;
}

// The quotient where a or b is zero, infinite or NaN.
void DivideSpecial(RealNumber* dest, const RealNumber* a, const RealNumber* b) {
    const uint64_t sign = RealSign(a) ^ RealSign(b);
    if (RealIsNaN(a) || RealIsNaN(b)) {
        RealSetNaN(dest);
    } else if ((RealIsInfinite(a) && RealIsInfinite(b)) || (RealIsZero(a) && RealIsZero(b))) {
        RealSetNaN(dest, CalcErrorUndefined);
    } else if (RealIsInfinite(a)) {
        RealSetInfinity(dest, sign);
    } else if (RealIsZero(a) || RealIsInfinite(b)) {
        RealSetZero(dest, sign);
    } else {
        RealSetOverflow(dest, sign);
    }
}

}  // namespace

Limb RealDivUint(RealNumber* dest, const RealNumber* x, uint64_t d, uint64_t reciprocal) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    TALLYMERE_REQUIRE(reciprocal == 0 || d == 0 || reciprocal == DivisorReciprocal(d));
    const uint64_t sign = RealSign(x);
    if (RealIsNaN(x)) {
        RealSetNaN(dest);
        return 0;
    }
    if (d == 0) {
        if (RealIsZero(x)) {
            RealSetNaN(dest, CalcErrorUndefined);
        } else {
            RealSetOverflow(dest, sign);
        }
        return 0;
    }
    if (RealIsSpecial(x)) {
        RealCopy(dest, x);
        return 0;
    }
    if (reciprocal == 0) {
        reciprocal = DivisorReciprocal(d);
    }
    const int64_t n = numberContext.realLimbs;
    const int64_t exponent = RealExponent(x);
    const Limb* from = RealLimbs(x);
    Limb* to = RealLimbs(dest);
    // A first limb below d is the first remainder, so that no quotient digits are lost; the
    // quotient then begins one limb later.
    const int64_t skipped = from[0] < d ? 1 : 0;
    uint64_t remainder = skipped != 0 ? from[0] : 0;
    const auto nextLimb = [&](Limb limb) {
        const Wide value = wide::Add(wide::Multiply(remainder, LimbBase), {0, limb});
        return Divide128(&remainder, value.high, value.low, d, reciprocal);
    };
    if (d < UintDivisorLimit) {
        remainder = LimbsDivideUint(to, from + skipped, n - skipped, skipped, d, remainder);
    } else {
        for (int64_t i = skipped; i < n; i++) {
            to[i - skipped] = nextLimb(from[i]);
        }
        if (skipped != 0) {
            to[n - 1] = nextLimb(0);
        }
    }
    Limb guard = nextLimb(0);
    const int64_t shift = numberContext.topLimbDigits - DigitCount(to[0]);
    if (shift >= 0) {
        guard = LimbsShiftLeftDigits(to, to, n, shift, guard);
    } else {
        guard = LimbsShiftRightDigits(to, to, n, -shift, guard);
    }
    RealSetExponentAndSign(dest, exponent - shift - skipped * DigitsPerLimb, sign);
    return guard;
}

Limb RealReciprocalRaw(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    TALLYMERE_REQUIRE(!RealIsSpecial(x));
    CoreScratchScope scratch;
    Limb guard = 0;
    ReciprocalOfAligned(dest, &guard, Align(scratch, x, numberContext.realLimbs), RealSign(x));
    return guard;
}

Limb RealReciprocalAny(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    if (!RealIsSpecial(x)) {
        return RealReciprocalRaw(dest, x);
    }
    if (RealIsNaN(x)) {
        RealSetNaN(dest);
    } else if (RealIsZero(x)) {
        RealSetOverflow(dest, RealSign(x));
    } else {
        RealSetZero(dest, RealSign(x));
    }
    return 0;
}

void RealReciprocal(RealNumber* dest, const RealNumber* x) {
    RealRound(dest, WithGuardDigitsUnary(dest, x, ReciprocalGuardDigits, RealReciprocalAny));
}

Limb RealDivRaw(RealNumber* dest, const RealNumber* a, const RealNumber* b) {
    TALLYMERE_REQUIRE(RealIsWellFormed(a) && RealIsWellFormed(b));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, a) && RealSameOrApart(dest, b));
    if (RealIsSpecial(a) || RealIsSpecial(b)) {
        DivideSpecial(dest, a, b);
        return 0;
    }
    const int64_t n = numberContext.realLimbs;
    CoreScratchScope scratch;
    const AlignedNumber alignedA = Align(scratch, a, n);
    const AlignedNumber alignedB = Align(scratch, b, n);
    return DivideAligned(dest, alignedA, alignedB, RealSign(a) ^ RealSign(b));
}

// What WithGuardDigitsBinary makes of RealDivRaw. Aligned mantissas are the same in both layouts
// but for zeros at the end, so the operands go there in one step instead of two.
void RealDiv(RealNumber* dest, const RealNumber* a, const RealNumber* b) {
    TALLYMERE_REQUIRE(RealIsWellFormed(a) && RealIsWellFormed(b));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, a) && RealSameOrApart(dest, b));
    if (RealIsSpecial(a) || RealIsSpecial(b)) {
        DivideSpecial(dest, a, b);
        return;
    }
    const int64_t n = numberContext.realLimbs;
    const RealLayout wide = WidenedLayout(QuotientGuardDigits);
    CoreScratchScope scratch;
    const AlignedNumber alignedA = Align(scratch, a, wide.limbs);
    const AlignedNumber alignedB = Align(scratch, b, wide.limbs);
    RealNumber* quotient = RealAt(scratch.Take(wide.limbs + 1));
    {
        RealLayoutScope layout;
        InstallRealLayout(wide);
        DivideAligned(quotient, alignedA, alignedB, RealSign(a) ^ RealSign(b));
    }
    RealRound(dest, RealNarrow(dest, quotient, QuotientGuardDigits, n, wide.limbs - n));
}

}  // namespace tallymere
