#include "core/real_layout.h"

#include "core/contract.h"
#include "core/limb_tools.h"
#include "core/real_rounding.h"
#include "core/scratch.h"

namespace tallymere {

namespace {

// What g guard digits are made of: up to 18 digits by which the first limb grows, or 19 where only
// whole limbs are added, and how many of the added limbs hold nothing but zeros at the end.
struct GuardShape {
    int64_t digits;
    int64_t spareLimbs;
};

GuardShape ShapeOfGuard(int64_t g) {
    return g > DigitsPerLimb ? GuardShape{g - DigitsPerLimb, 1} : GuardShape{g, 0};
}

// True when two records of so many limbs begin at the same word, or have no word in common.
[[maybe_unused]] bool RecordsAreSameOrApart(const RealNumber* a, int64_t limbsA,
                                            const RealNumber* b, int64_t limbsB) {
    return SameOrApart(&a->header, limbsA + 1, &b->header, limbsB + 1);
}

}  // namespace

RealLayout WidenedLayout(int64_t g) {
    TALLYMERE_REQUIRE(g >= 0 && g <= MaxGuardDigits);
    return LayoutForDigits(numberContext.precisionDigits + g);
}

void RealWiden(RealNumber* dest, const RealNumber* src, int64_t g, int64_t oldLimbs,
               int64_t limbIncrease) {
    TALLYMERE_REQUIRE(g >= 0 && g <= MaxGuardDigits && oldLimbs >= 1);
    TALLYMERE_REQUIRE(RecordsAreSameOrApart(dest, oldLimbs + limbIncrease, src, oldLimbs));
    const GuardShape shape = ShapeOfGuard(g);
    const int64_t increase = limbIncrease - shape.spareLimbs;
    TALLYMERE_REQUIRE(increase == 0 || increase == 1);
    const int64_t limbs = oldLimbs + increase;
    const Limb* from = RealLimbs(src);
    Limb* to = RealLimbs(dest);
    dest->header = src->header;
    LimbsClear(to + limbs, shape.spareLimbs);
    if (RealIsSpecial(src) || shape.digits == 0 || shape.digits == DigitsPerLimb) {
        LimbsCopy(to, from, oldLimbs);
        LimbsClear(to + oldLimbs, increase);
    } else if (increase == 0) {
        LimbsShiftLeftDigits(to, from, oldLimbs, shape.digits, 0);
    } else {
        const int64_t moved = DigitsPerLimb - shape.digits;
        to[oldLimbs] = LimbsShiftRightDigits(to, from, oldLimbs, moved, 0);
    }
}

Limb RealNarrow(RealNumber* dest, const RealNumber* src, int64_t g, int64_t oldLimbs,
                int64_t limbIncrease) {
    TALLYMERE_REQUIRE(g >= 0 && g <= MaxGuardDigits && oldLimbs >= 1);
    TALLYMERE_REQUIRE(RecordsAreSameOrApart(dest, oldLimbs, src, oldLimbs + limbIncrease));
    const GuardShape shape = ShapeOfGuard(g);
    const int64_t decrease = limbIncrease - shape.spareLimbs;
    TALLYMERE_REQUIRE(decrease == 0 || decrease == 1);
    const Limb* from = RealLimbs(src);
    Limb* to = RealLimbs(dest);
    const Limb below = limbIncrease > 0 ? from[oldLimbs] : 0;
    dest->header = src->header;
    if (RealIsSpecial(src) || shape.digits == 0 || shape.digits == DigitsPerLimb) {
        LimbsCopy(to, from, oldLimbs);
        return below;
    }
    if (decrease == 0) {
        return LimbsShiftRightDigits(to, from, oldLimbs, shape.digits, below);
    }
    return LimbsShiftLeftDigits(to, from, oldLimbs, DigitsPerLimb - shape.digits, below);
}

Limb WithGuardDigitsUnary(RealNumber* dest, const RealNumber* x, int64_t g, RealUnaryFunction f) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    const int64_t oldLimbs = numberContext.realLimbs;
    const RealLayout wide = WidenedLayout(g);
    const int64_t increase = wide.limbs - oldLimbs;
    CoreScratchScope scratch;
    RealNumber* wideX = RealAt(scratch.Take(wide.limbs + 1));
    RealWiden(wideX, x, g, oldLimbs, increase);
    RealLayoutScope layout;
    InstallRealLayout(wide);
    f(wideX, wideX);
    return RealNarrow(dest, wideX, g, oldLimbs, increase);
}

Limb WithGuardDigitsBinary(RealNumber* dest, const RealNumber* a, const RealNumber* b, int64_t g,
                           RealBinaryFunction f) {
    TALLYMERE_REQUIRE(RealIsWellFormed(a) && RealIsWellFormed(b));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, a) && RealSameOrApart(dest, b));
    const int64_t oldLimbs = numberContext.realLimbs;
    const RealLayout wide = WidenedLayout(g);
    const int64_t increase = wide.limbs - oldLimbs;
    CoreScratchScope scratch;
    RealNumber* wideA = RealAt(scratch.Take(wide.limbs + 1));
    RealNumber* wideB = RealAt(scratch.Take(wide.limbs + 1));
    RealWiden(wideA, a, g, oldLimbs, increase);
    RealWiden(wideB, b, g, oldLimbs, increase);
    RealLayoutScope layout;
    InstallRealLayout(wide);
    f(wideA, wideA, wideB);
    return RealNarrow(dest, wideA, g, oldLimbs, increase);
}

Limb RealConvertLayout(RealNumber* dest, const RealNumber* src, RealLayout source) {
    TALLYMERE_REQUIRE(RealLayoutIsConsistent(source));
    TALLYMERE_REQUIRE(RealIsWellFormed(src, source));
    TALLYMERE_REQUIRE(RecordsAreSameOrApart(dest, numberContext.realLimbs, src, source.limbs));
    const int64_t n = numberContext.realLimbs;
    const int64_t t = numberContext.topLimbDigits;
    const Limb* from = RealLimbs(src);
    Limb* to = RealLimbs(dest);
    const int64_t common = n < source.limbs ? n : source.limbs;
    const bool special = RealIsSpecial(src);
    const Limb below = n < source.limbs ? from[n] : 0;
    dest->header = src->header;
    LimbsCopy(to, from, common);
    LimbsClear(to + common, n - common);
    if (special) {
        return 0;
    }
    if (t < source.topDigits) {
        return LimbsShiftRightDigits(to, to, n, source.topDigits - t, below);
    }
    const int64_t up = t - source.topDigits;
    const Limb guard = LimbsShiftLeftDigits(to, to, n, up, below);
    const Limb next = n + 1 < source.limbs ? from[n + 1] : 0;
    return guard + DivideByPowerOfTen(next, DigitsPerLimb - up).quotient;
}

bool RealConvertPrecision(RealNumber* dest, int64_t digits, const RealNumber* src,
                          int64_t sourceDigits) {
    if (!IsPrecision(digits) || !IsPrecision(sourceDigits)) {
        SetCalcError(CalcErrorBadParameter);
        return false;
    }
    RealLayoutScope layout;
    InstallRealLayout(LayoutForDigits(digits));
    RealRound(dest, RealConvertLayout(dest, src, LayoutForDigits(sourceDigits)));
    return true;
}

}  // namespace tallymere
