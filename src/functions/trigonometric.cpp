#include "functions/trigonometric.h"

#include "core/contract.h"
#include "core/real_add.h"
#include "core/real_div_mod.h"
#include "core/real_divide.h"
#include "core/real_integer.h"
#include "core/scratch.h"
#include "functions/guard_digits.h"
#include "functions/series.h"
#include "functions/stored_constants.h"

namespace tallymere {

namespace {

constexpr int64_t AngleExponentLimit = 20;

// Which series of the rest makes which function of the angle, by the nearest multiple of pi / 2.
struct Quadrant {
    bool swapped;  // the sine comes from the cosine series, the cosine from the sine series
    bool sineNegative;
    bool cosineNegative;
};

// |x| = octant * pi / 4 + rest with 0 <= rest < pi / 4, and for an odd octant pi / 4 is taken off
// the rest once more: then |x| lies within pi / 4 of a multiple of pi / 2.
bool ReduceAngle(RealNumber* rest, Quadrant* quadrant, const RealNumber* x) {
    CoreScratchScope scratch;
    RealNumber* quarterPi = RealAt(scratch.Take(RealWords()));
    RealNumber* quotient = RealAt(scratch.Take(RealWords()));
    LoadConstant(quarterPi, ConstPiQuarter);
    RealAbs(rest, x);
    RealDivMod(quotient, rest, rest, quarterPi);
    uint64_t octant = 0;
    if (!RealToUint(&octant, quotient, AllowFraction)) {
        return false;
    }
    if (octant % 2 != 0) {
        RealAddRaw(rest, rest, quarterPi, true);
    }
    const uint64_t quarterTurns = (octant % 8 + 1) / 2;
    *quadrant = {quarterTurns % 2 != 0, (quarterTurns & 2) != 0, ((quarterTurns + 1) & 2) != 0};
    return true;
}

// For an angle that has no sine and no cosine; NaN, and `code` unless that is none.
void SetBothNaN(RealNumber* sine, RealNumber* cosine, CalcError code) {
    for (RealNumber* dest : {sine, cosine}) {
        if (dest != nullptr) {
            RealSetNaN(dest);
            if (code != CalcErrorNone) {
                SetCalcError(code);
            }
        }
    }
}

}  // namespace

Limb RealSinCos(RealNumber* sine, RealNumber* cosine, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealOutputsAreApart(sine, cosine, x));
    const uint64_t sign = RealSign(x);
    if (RealIsNaN(x)) {
        SetBothNaN(sine, cosine, CalcErrorNone);
        return 0;
    }
    if (RealIsZero(x)) {
        if (sine != nullptr) {
            RealSetZero(sine, sign);
        }
        if (cosine != nullptr) {
            RealSetOne(cosine);
        }
        return 0;
    }
    CoreScratchScope scratch;
    RealNumber* rest = RealAt(scratch.Take(RealWords()));
    Quadrant quadrant;
    if (RealIsInfinite(x) || RealExponent(x) >= AngleExponentLimit ||
        !ReduceAngle(rest, &quadrant, x)) {
        SetBothNaN(sine, cosine, CalcErrorUndefined);
        return 0;
    }
    Limb guard = 0;
    if (sine == nullptr || cosine == nullptr) {
        RealNumber* only = sine != nullptr ? sine : cosine;
        if (only == nullptr) {
            return 0;
        }
        const bool byCosine = quadrant.swapped == (only == sine);
        guard = byCosine ? SeriesCos(only, rest) : SeriesSin(only, rest);
    } else if (quadrant.swapped) {
        SeriesSinCos(cosine, sine, rest);
    } else {
        SeriesSinCos(sine, cosine, rest);
    }
    if (sine != nullptr && quadrant.sineNegative != (sign != 0)) {
        RealNegate(sine);
    }
    if (cosine != nullptr && quadrant.cosineNegative) {
        RealNegate(cosine);
    }
    return guard;
}

Limb RealSin(RealNumber* dest, const RealNumber* x) {
    return RealSinCos(dest, nullptr, x);
}

Limb RealCos(RealNumber* dest, const RealNumber* x) {
    return RealSinCos(nullptr, dest, x);
}

Limb RealTan(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    CoreScratchScope scratch;
    RealNumber* sine = RealAt(scratch.Take(RealWords()));
    RealNumber* cosine = RealAt(scratch.Take(RealWords()));
    RealSinCos(sine, cosine, x);
    return RealDivRaw(dest, sine, cosine);
}

void RealSinRounded(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, ArgumentGuardDigits(x), RealSin);
}

void RealCosRounded(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, ArgumentGuardDigits(x), RealCos);
}

void RealTanRounded(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, ArgumentGuardDigits(x), RealTan);
}

}  // namespace tallymere
