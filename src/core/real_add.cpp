#include "core/real_add.h"

#include "core/contract.h"
#include "core/limb_tools.h"
#include "core/real_rounding.h"
#include "core/scratch.h"

namespace tallymere {

namespace {

// The sum where a or b is zero, infinite or NaN; signB is b's sign in the sum.
void AddSpecial(RealNumber* dest, const RealNumber* a, const RealNumber* b, uint64_t signB) {
    const uint64_t signA = RealSign(a);
    if (RealIsNaN(a) || RealIsNaN(b)) {
        RealSetNaN(dest);
    } else if (RealIsZero(a)) {
        RealCopy(dest, b);
        RealSetSign(dest, signB);
    } else if (RealIsZero(b)) {
        RealCopy(dest, a);
    } else if (!RealIsInfinite(a)) {
        RealSetInfinity(dest, signB);
    } else if (!RealIsInfinite(b) || signA == signB) {
        RealSetInfinity(dest, signA);
    } else {
        RealSetNaN(dest, CalcErrorUndefined);
    }
}

// Sets the exponent and sign of a result whose limbs stand in dest.
void Finish(RealNumber* dest, int64_t exponent, uint64_t sign) {
    if (RealLimbs(dest)[0] == 0) {
        RealSetZero(dest, sign);
    } else {
        RealSetExponentAndSign(dest, exponent, sign);
    }
}

// |a| + |b| in the limbs of dest, moved right by a digit where the sum has one more.
Limb AddMagnitudes(RealNumber* dest, const Limb* a, const Limb* b, Limb guard, int64_t exponent,
                   uint64_t sign) {
    const int64_t n = numberContext.realLimbs;
    const int64_t t = numberContext.topLimbDigits;
    Limb* limbs = RealLimbs(dest);
    const Limb carry = LimbsAdd(limbs, a, b, n);
    if (carry != 0 || limbs[0] >= PowerOfTen(t)) {
        guard = LimbsShiftRightDigits(limbs, limbs, n, 1, guard);
        limbs[0] += carry * PowerOfTen(DigitsPerLimb - 1);
        exponent++;
    }
    Finish(dest, exponent, sign);
    return guard;
}

// |large| - |small| in normal form in the limbs of dest.
Limb SubtractMagnitudes(RealNumber* dest, const Limb* large, const Limb* small, Limb guard,
                        int64_t exponent, uint64_t sign) {
    const int64_t n = numberContext.realLimbs;
    CoreScratchScope scratch;
    Limb* difference = scratch.Take(n);
    guard = LimbsSubtract(difference, large, small, n, guard);
    int64_t shift = 0;
    guard = LimbsNormalise(RealLimbs(dest), difference, n, &shift, guard);
    Finish(dest, exponent - shift, sign);
    return guard;
}

}  // namespace

Limb RealAddRaw(RealNumber* dest, const RealNumber* a, const RealNumber* b, bool subtract) {
    TALLYMERE_REQUIRE(RealIsWellFormed(a) && RealIsWellFormed(b));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, a) && RealSameOrApart(dest, b));
    const int64_t n = numberContext.realLimbs;
    const uint64_t signA = RealSign(a);
    const uint64_t signB = RealSign(b) ^ (subtract ? 1 : 0);
    if (RealIsSpecial(a) || RealIsSpecial(b)) {
        AddSpecial(dest, a, b, signB);
        return 0;
    }
    const int64_t exponentA = RealExponent(a);
    const int64_t exponentB = RealExponent(b);
    const Limb* limbsA = RealLimbs(a);
    const Limb* limbsB = RealLimbs(b);

    if (exponentA == exponentB) {
        if (signA == signB) {
            return AddMagnitudes(dest, limbsA, limbsB, 0, exponentA, signA);
        }
        const bool largeIsA = LimbsCompare(limbsA, limbsB, n) >= 0;
        return SubtractMagnitudes(dest, largeIsA ? limbsA : limbsB, largeIsA ? limbsB : limbsA, 0,
                                  exponentA, largeIsA ? signA : signB);
    }

    const bool largeIsA = exponentA > exponentB;
    const Limb* large = largeIsA ? limbsA : limbsB;
    const Limb* small = largeIsA ? limbsB : limbsA;
    const int64_t exponent = largeIsA ? exponentA : exponentB;
    const uint64_t sign = largeIsA ? signA : signB;
    CoreScratchScope scratch;
    Limb* shifted = scratch.Take(n);
    const Limb guard =
        LimbsShiftRightFar(shifted, small, n, exponent - (largeIsA ? exponentB : exponentA));
    if (signA == signB) {
        return AddMagnitudes(dest, large, shifted, guard, exponent, sign);
    }
    return SubtractMagnitudes(dest, large, shifted, guard, exponent, sign);
}

void RealAdd(RealNumber* dest, const RealNumber* a, const RealNumber* b) {
    RealRound(dest, RealAddRaw(dest, a, b, false));
}

void RealSub(RealNumber* dest, const RealNumber* a, const RealNumber* b) {
    RealRound(dest, RealAddRaw(dest, a, b, true));
}

}  // namespace tallymere
