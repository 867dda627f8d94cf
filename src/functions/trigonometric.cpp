#include "functions/trigonometric.h"

#include <algorithm>

#include "core/contract.h"
#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_div_mod.h"
#include "core/real_divide.h"
#include "core/real_integer.h"
#include "core/scratch.h"
#include "functions/angle_units.h"
#include "functions/guard_digits.h"
#include "functions/series.h"
#include "functions/stored_constants.h"

namespace tallymere {

namespace {

constexpr int64_t AngleExponentLimit = 20;

// Digits that hold 2^64 octants in any unit exactly.
constexpr int64_t AngleLimitDigits = 24;

// Guard digits of the rounded forms beside those that the reduction needs. The series of the rest
// adds up as many truncations as it has terms, some 35 at ManyTermsDigits and 1,580 at the longest
// layout, and the tangent divides two such sums.
constexpr int64_t CircularGuardDigits = 5;
constexpr int64_t ManyTermsDigits = 100;
constexpr int64_t CircularGuardDigitsOfManyTerms = 7;

// Digits of the reduction beside those of the layout, its whole part and what cancels.
constexpr int64_t ReductionSpareDigits = 2;

enum class Circular {
    Sine,
    Cosine,
    Tangent,
};

// Which series of the rest makes which function of the angle, by the nearest multiple of pi / 2.
struct Quadrant {
    bool swapped;  // the sine comes from the cosine series, the cosine from the sine series
    bool sineNegative;
    bool cosineNegative;
};

// Of the nearest multiple of pi / 2, counted.
Quadrant QuadrantOf(uint64_t quarterTurns) {
    return {quarterTurns % 2 != 0, (quarterTurns & 2) != 0, ((quarterTurns + 1) & 2) != 0};
}

// |x| = octant * pi / 4 + rest with 0 <= rest < pi / 4, and for an odd octant pi / 4 is taken off
// the rest once more: then |x| lies within pi / 4 of a multiple of pi / 2. `quarterTurns` is that
// multiple. pi / 4 is taken as the layout in force holds it.
bool ReduceAngle(RealNumber* rest, uint64_t* quarterTurns, const RealNumber* x) {
    CoreScratchScope scratch;
    RealNumber* quarterPi = RealAt(scratch.Take(RealWords()));
    RealNumber* quotient = RealAt(scratch.Take(RealWords()));
    LoadLongPiQuarter(quarterPi);
    RealAbs(rest, x);
    RealDivMod(quotient, rest, rest, quarterPi);
    uint64_t octant = 0;
    if (!RealToUint(&octant, quotient, AllowFraction)) {
        return false;
    }
    if (octant % 2 != 0) {
        RealAddRaw(rest, rest, quarterPi, true);
    }
    *quarterTurns = octant / 2 + octant % 2;
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

// rest = |x| less the nearest multiple of pi / 2, within a few units of its own last place, for an
// x of another layout. The error of the remainder is 10^-ReductionSpareDigits units of a number
// from 0.1 on; a remainder with zeros behind its point needs as many digits more. Where nothing but
// that error is left the next pass has twice the digits, and the one after it as many as it needs.
bool ReduceAngleFully(RealNumber* rest, uint64_t* quarterTurns, const RealNumber* x,
                      RealLayout layoutOfX) {
    const int64_t precision = numberContext.precisionDigits;
    const int64_t least = precision + std::max<int64_t>(0, RealExponent(x)) + ReductionSpareDigits;
    const int64_t mostCancelled = LongPiDigits - least;
    TALLYMERE_REQUIRE(mostCancelled >= precision);
    int64_t cancelled = 0;
    while (true) {
        const RealLayout wide = LayoutForDigits(least + cancelled);
        CoreScratchScope scratch;
        RealNumber* wideRest = RealAt(scratch.Take(wide.limbs + 1));
        {
            RealLayoutScope layout;
            InstallRealLayout(wide);
            RealConvertLayout(wideRest, x, layoutOfX);
            if (!ReduceAngle(wideRest, quarterTurns, wideRest)) {
                return false;
            }
        }
        int64_t lost = 0;
        if (*quarterTurns != 0) {
            lost = RealIsZero(wideRest) ? precision + cancelled : -1 - RealExponent(wideRest);
        }
        if (lost <= cancelled || cancelled == mostCancelled) {
            RealConvertLayout(rest, wideRest, wide);
            return true;
        }
        cancelled = std::min(lost, mostCancelled);
    }
}

// The same for an angle in units, exactly, as far as the rest; that in radians.
template <uint64_t UnitsPerQuarter, void (*ToRadians)(RealNumber*, const RealNumber*)>
bool ReduceUnits(RealNumber* rest, uint64_t* quarterTurns, const RealNumber* x,
                 RealLayout layoutOfX) {
    CoreScratchScope scratch;
    RealNumber* integer = RealAt(scratch.Take(RealWords()));
    RealConvertLayout(rest, x, layoutOfX);
    if (RealAngleIsTooLarge(rest, UnitsPerQuarter / 2)) {
        return false;
    }
    RealSetSign(rest, 0);
    RealFromUint(integer, 4 * UnitsPerQuarter);
    RealDivMod(nullptr, rest, rest, integer);
    uint64_t units = 0;
    if (!RealToUint(&units, rest, AllowFraction)) {
        return false;
    }
    *quarterTurns = (units + UnitsPerQuarter / 2) / UnitsPerQuarter;
    if (*quarterTurns != 0) {
        RealFromUint(integer, *quarterTurns * UnitsPerQuarter);
        RealAddRaw(rest, rest, integer, true);
    }
    ToRadians(rest, rest);
    return true;
}

// dest = the function of the quarter turns and `rest` of an angle of that sign; raw.
template <Circular Function>
void CircularOfRest(RealNumber* dest, const RealNumber* rest, uint64_t quarterTurns,
                    uint64_t sign) {
    const Quadrant quadrant = QuadrantOf(quarterTurns);
    if constexpr (Function == Circular::Tangent) {
        CoreScratchScope scratch;
        RealNumber* sine = RealAt(scratch.Take(RealWords()));
        RealNumber* cosine = RealAt(scratch.Take(RealWords()));
        SeriesSinCos(sine, cosine, rest);
        if (quadrant.swapped) {
            RealDivRaw(dest, cosine, sine);
        } else {
            RealDivRaw(dest, sine, cosine);
        }
        if (quadrant.swapped != (sign != 0)) {
            RealNegate(dest);
        }
    } else {
        constexpr bool OfSine = Function == Circular::Sine;
        if (quadrant.swapped == OfSine) {
            SeriesCos(dest, rest);
        } else {
            SeriesSin(dest, rest);
        }
        if (OfSine ? quadrant.sineNegative != (sign != 0) : quadrant.cosineNegative) {
            RealNegate(dest);
        }
    }
}

// The same where nothing is left of the angle, which lies on a multiple of the quarter turn.
template <Circular Function>
void CircularOfMultiple(RealNumber* dest, uint64_t quarterTurns, uint64_t sign) {
    const Quadrant quadrant = QuadrantOf(quarterTurns);
    if (quadrant.swapped == (Function == Circular::Cosine)) {
        RealSetZero(dest, 0);
    } else if constexpr (Function == Circular::Tangent) {
        RealSetInfinity(dest, sign);
        if (numberContext.reportOverflow != 0) {
            SetCalcError(CalcErrorOverflow);
        }
    } else {
        RealSetOne(dest);
        RealSetSign(dest, Function == Circular::Cosine ? (quadrant.cosineNegative ? 1u : 0u)
                                                       : (quadrant.sineNegative ? 1u : 0u) ^ sign);
    }
}

using Reduction = bool (*)(RealNumber* rest, uint64_t* quarterTurns, const RealNumber* x,
                           RealLayout layoutOfX);

template <Circular Function, Reduction Reduce>
void CircularRounded(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    if (RealIsNaN(x)) {
        RealSetNaN(dest);
        return;
    }
    const uint64_t sign = RealSign(x);
    if (RealIsZero(x)) {
        if constexpr (Function == Circular::Cosine) {
            RealSetOne(dest);
        } else {
            RealSetZero(dest, sign);
        }
        return;
    }
    if (RealIsInfinite(x) || RealExponent(x) > AngleExponentLimit) {
        RealSetNaN(dest, CalcErrorUndefined);
        return;
    }
    const RealLayout layoutOfX = CurrentRealLayout();
    const int64_t guardDigits = numberContext.precisionDigits <= ManyTermsDigits
                                    ? CircularGuardDigits
                                    : CircularGuardDigitsOfManyTerms;
    RoundedResult(dest, guardDigits, [&](RealNumber* wide) {
        CoreScratchScope scratch;
        RealNumber* rest = RealAt(scratch.Take(RealWords()));
        uint64_t quarterTurns = 0;
        if (!Reduce(rest, &quarterTurns, x, layoutOfX)) {
            RealSetNaN(wide, CalcErrorUndefined);
        } else if (RealIsZero(rest)) {
            CircularOfMultiple<Function>(wide, quarterTurns, sign);
        } else {
            CircularOfRest<Function>(wide, rest, quarterTurns, sign);
        }
    });
}

constexpr Reduction InRadians = ReduceAngleFully;
constexpr Reduction InDegrees = ReduceUnits<90, RealDegToRad>;
constexpr Reduction InGon = ReduceUnits<100, RealGonToRad>;

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
    uint64_t quarterTurns = 0;
    if (RealIsInfinite(x) || RealExponent(x) >= AngleExponentLimit ||
        !ReduceAngle(rest, &quarterTurns, x)) {
        SetBothNaN(sine, cosine, CalcErrorUndefined);
        return 0;
    }
    const Quadrant quadrant = QuadrantOf(quarterTurns);
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
    CircularRounded<Circular::Sine, InRadians>(dest, x);
}

void RealCosRounded(RealNumber* dest, const RealNumber* x) {
    CircularRounded<Circular::Cosine, InRadians>(dest, x);
}

void RealTanRounded(RealNumber* dest, const RealNumber* x) {
    CircularRounded<Circular::Tangent, InRadians>(dest, x);
}

void RealSinDegreesRounded(RealNumber* dest, const RealNumber* x) {
    CircularRounded<Circular::Sine, InDegrees>(dest, x);
}

void RealCosDegreesRounded(RealNumber* dest, const RealNumber* x) {
    CircularRounded<Circular::Cosine, InDegrees>(dest, x);
}

void RealTanDegreesRounded(RealNumber* dest, const RealNumber* x) {
    CircularRounded<Circular::Tangent, InDegrees>(dest, x);
}

void RealSinGonRounded(RealNumber* dest, const RealNumber* x) {
    CircularRounded<Circular::Sine, InGon>(dest, x);
}

void RealCosGonRounded(RealNumber* dest, const RealNumber* x) {
    CircularRounded<Circular::Cosine, InGon>(dest, x);
}

void RealTanGonRounded(RealNumber* dest, const RealNumber* x) {
    CircularRounded<Circular::Tangent, InGon>(dest, x);
}

bool RealAngleIsTooLarge(const RealNumber* x, uint64_t unitsPerOctant) {
    TALLYMERE_REQUIRE(!RealIsNaN(x) && unitsPerOctant >= 1 && unitsPerOctant <= 1000);
    if (RealIsInfinite(x)) {
        return true;
    }
    const RealLayout layoutOfX = CurrentRealLayout();
    RealLayoutScope layout;
    InstallRealLayout(LayoutForDigits(std::max(numberContext.precisionDigits, AngleLimitDigits)));
    CoreScratchScope scratch;
    RealNumber* limit = RealAt(scratch.Take(RealWords()));
    RealNumber* magnitude = RealAt(scratch.Take(RealWords()));
    LoadConstantMultiple(limit, ConstTwoPow64, unitsPerOctant);
    RealConvertLayout(magnitude, x, layoutOfX);
    RealSetSign(magnitude, 0);
    return RealCompare(magnitude, limit) > 0;
}

}  // namespace tallymere
