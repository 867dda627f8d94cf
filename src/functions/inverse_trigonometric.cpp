#include "functions/inverse_trigonometric.h"

#include <algorithm>
#include <span>

#include "core/contract.h"
#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_divide.h"
#include "core/real_integer.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "core/scratch.h"
#include "functions/angle_units.h"
#include "functions/guard_digits.h"
#include "functions/roots.h"
#include "functions/series.h"
#include "functions/stored_constants.h"

namespace tallymere {

namespace {

constexpr int64_t ArcGuardDigits = 4;

// In degrees and gon, where the angle is rounded to these digits before and after it is converted.
constexpr int64_t ArcInUnitsGuardDigits = 6;

// From so many digits on a second reduction costs less than the terms that it saves.
constexpr int64_t FineStepDigits = 70;

constexpr int64_t TangentDigits = 9;

// Tangents of the angles midway between two steps, ascending, in units of 10^-places: a tangent
// that has reached the first k of them is nearest to step k. Nine digits of the tangent count.
struct StepThresholds {
    std::span<const uint64_t> midway;
    int64_t places;
};

constexpr uint64_t CoarseMidway[] = {
    237960416,  714961047,  1195220740, 1680978560, 2174575770, 2678502470,
    3195450190, 3728373190, 4280561430, 4855729280, 5458125370, 6092670900,
    6765136370, 7482370950, 8252604510, 9085851850, 9762165570,
};
constexpr StepThresholds CoarseThresholds = {CoarseMidway, 10};
static_assert(std::size(CoarseMidway) + 1 == AtanStepTable.coarse.size());

constexpr uint64_t FineMidway[] = {
    142449853, 427351873, 712260830, 997181350, 1282118060, 1567075590, 1852058560, 2137071610,
};
constexpr StepThresholds FineThresholds = {FineMidway, 11};
static_assert(std::size(FineMidway) + 1 == AtanStepTable.fine.size());

uint64_t NearestStep(const RealNumber* y, const StepThresholds& thresholds) {
    // The power of ten that puts the nine digits into the unit of the thresholds.
    const int64_t scale = RealExponent(y) - (TangentDigits - 1) + thresholds.places;
    if (RealIsSpecial(y) || scale < 0) {
        return 0;
    }
    const uint64_t tangent = RealLeadingDigits(RealLimbs(y), TangentDigits) * PowerOfTen(scale);
    const auto reached = std::ranges::upper_bound(thresholds.midway, tangent);
    return static_cast<uint64_t>(reached - thresholds.midway.begin());
}

// sum = sum + k * constant; raw. Without a multiple nothing stands behind the last limb.
Limb AddSteps(RealNumber* sum, const StoredConstant& constant, uint64_t k) {
    return k == 0 ? 0 : AddConstantMultiple(sum, constant, static_cast<int64_t>(k));
}

// dest = k pi / 4 with the sign given; raw.
Limb SetOctants(RealNumber* dest, uint64_t k, uint64_t sign) {
    const Limb guard = LoadConstantMultiple(dest, ConstPiQuarter, k);
    RealSetSign(dest, sign);
    return guard;
}

// minus = 1 - x and plus = 1 + x; raw.
void OneMinusAndPlus(RealNumber* minus, RealNumber* plus, const RealNumber* x) {
    RealSetOne(plus);
    RealAddRaw(minus, plus, x, true);
    RealAddRaw(plus, plus, x, false);
}

// Takes the angle of step k off that of the tangent y. Step 0 would change no limb.
void ShiftByStep(RealNumber* y, std::span<const AtanStep> steps, uint64_t k) {
    if (k != 0) {
        AtanShift(y, steps[k].numerator, steps[k].denominator);
    }
}

// y = the arc tangent of y, for 0 <= y <= 1; raw.
Limb AtanOfFraction(RealNumber* y) {
    const bool fineSteps = numberContext.precisionDigits >= FineStepDigits;
    const uint64_t coarse = NearestCoarseStep(y);
    ShiftByStep(y, AtanStepTable.coarse, coarse);
    const uint64_t sign = RealSign(y);
    uint64_t fine = 0;
    if (fineSteps) {
        RealSetSign(y, 0);
        fine = NearestFineStep(y);
        ShiftByStep(y, AtanStepTable.fine, fine);
    }
    SeriesAtan(y, y);
    if (fineSteps) {
        AddSteps(y, ConstAtan351, fine);
        RealSetSign(y, sign);
    }
    return coarse == AtanStepTable.coarse.size() - 1 ? AddSteps(y, ConstPiQuarter, 1)
                                                     : AddSteps(y, ConstAtan21, coarse);
}

// dest = a raw angle, in another unit. One less than ten units of the last place from a whole
// number is made that number: 45 and 135 degrees and 150 gon lie half way between two numbers of
// one digit or two, and have to be rounded up. No angle of a number of few digits comes as near to
// another such point, and beside more digits it makes no difference.
template <void (*FromRadians)(RealNumber*, const RealNumber*)>
void AngleInUnits(RealNumber* dest) {
    FromRadians(dest, dest);
    if (RealIsSpecial(dest)) {
        return;
    }
    CoreScratchScope scratch;
    RealNumber* whole = RealAt(scratch.Take(RealWords()));
    RealNumber* distance = RealAt(scratch.Take(RealWords()));
    RealRoundToInteger(whole, dest);
    RealSub(distance, dest, whole);
    const int64_t lastPlace = RealExponent(dest) - numberContext.precisionDigits + 1;
    if (!RealIsZero(whole) && (RealIsZero(distance) || RealExponent(distance) <= lastPlace)) {
        RealCopy(dest, whole);
    }
}

template <RealUnaryFunction Arc, void (*FromRadians)(RealNumber*, const RealNumber*)>
void ArcInUnits(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, ArcInUnitsGuardDigits, [](RealNumber* angle, const RealNumber* wideX) {
        Arc(angle, wideX);
        AngleInUnits<FromRadians>(angle);
        return Limb{0};
    });
}

template <void (*FromRadians)(RealNumber*, const RealNumber*)>
void Atan2InUnits(RealNumber* dest, const RealNumber* y, const RealNumber* x) {
    RoundedBinary(dest, y, x, ArcInUnitsGuardDigits,
                  [](RealNumber* angle, const RealNumber* wideY, const RealNumber* wideX) {
                      RealAtan2(angle, wideY, wideX);
                      AngleInUnits<FromRadians>(angle);
                      return Limb{0};
                  });
}

}  // namespace

uint64_t NearestCoarseStep(const RealNumber* y) {
    return NearestStep(y, CoarseThresholds);
}

uint64_t NearestFineStep(const RealNumber* y) {
    return NearestStep(y, FineThresholds);
}

Limb AtanShift(RealNumber* x, uint64_t numerator, uint64_t denominator) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    CoreScratchScope scratch;
    RealNumber* divisor = RealAt(scratch.Take(RealWords()));
    RealNumber* integer = RealAt(scratch.Take(RealWords()));
    RealMulUint(divisor, x, numerator);
    RealFromUint(integer, denominator);
    RealAddRaw(divisor, divisor, integer, false);
    RealMulUint(x, x, denominator);
    RealFromUint(integer, numerator);
    RealAddRaw(x, x, integer, true);
    return RealDivRaw(x, x, divisor);
}

Limb RealAtan(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    const uint64_t sign = RealSign(x);
    if (RealIsInfinite(x)) {
        return SetOctants(dest, 2, sign);
    }
    if (RealIsSpecial(x)) {
        RealCopy(dest, x);
        return 0;
    }
    CoreScratchScope scratch;
    RealNumber* y = RealAt(scratch.Take(RealWords()));
    const bool inverted = RealCompareUint(x, 1, true) > 0;
    if (inverted) {
        RealReciprocalAny(y, x);
    } else {
        RealCopy(y, x);
    }
    RealSetSign(y, 0);
    Limb guard = AtanOfFraction(y);
    if (inverted) {
        RealNumber* rightAngle = RealAt(scratch.Take(RealWords()));
        SetOctants(rightAngle, 2, 0);
        guard = RealAddRaw(y, rightAngle, y, true);
    }
    RealCopy(dest, y);
    RealSetSign(dest, sign);
    return guard;
}

Limb RealAsin(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    if (RealIsNaN(x) || RealIsZero(x)) {
        RealCopy(dest, x);
        return 0;
    }
    const int size = RealCompareUint(x, 1, true);
    if (size > 0) {
        RealSetNaN(dest, CalcErrorUndefined);
        return 0;
    }
    if (size == 0) {
        return SetOctants(dest, 2, RealSign(x));
    }
    CoreScratchScope scratch;
    RealNumber* plus = RealAt(scratch.Take(RealWords()));
    RealNumber* cosine = RealAt(scratch.Take(RealWords()));
    OneMinusAndPlus(cosine, plus, x);
    RealMulRaw(cosine, cosine, plus);
    RealSqrt(cosine, cosine);
    RealDivRaw(dest, x, cosine);
    return RealAtan(dest, dest);
}

Limb RealAcos(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    if (RealIsNaN(x)) {
        RealSetNaN(dest);
        return 0;
    }
    const int size = RealCompareUint(x, 1, true);
    if (size > 0) {
        RealSetNaN(dest, CalcErrorUndefined);
        return 0;
    }
    if (size == 0) {
        if (RealSign(x) == 0) {
            RealSetZero(dest, 0);
            return 0;
        }
        return SetOctants(dest, 4, 0);
    }
    CoreScratchScope scratch;
    RealNumber* plus = RealAt(scratch.Take(RealWords()));
    RealNumber* tangent = RealAt(scratch.Take(RealWords()));
    OneMinusAndPlus(tangent, plus, x);
    RealDivRaw(tangent, tangent, plus);
    RealSqrt(tangent, tangent);
    RealAtan(tangent, tangent);
    return RealMulUint(dest, tangent, 2);
}

Limb RealAtan2(RealNumber* dest, const RealNumber* y, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(y) && RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, y) && RealSameOrApart(dest, x));
    if (RealIsNaN(y) || RealIsNaN(x)) {
        RealSetNaN(dest);
        return 0;
    }
    const bool below = RealSign(y) != 0 && !RealIsZero(y);
    if (RealIsZero(x)) {
        if (RealIsZero(y)) {
            RealSetZero(dest, 0);
            return 0;
        }
        return SetOctants(dest, 2, below ? 1 : 0);
    }
    const bool left = RealSign(x) != 0;
    RealDivRaw(dest, y, x);
    const Limb guard = RealAtan(dest, dest);
    if (!left) {
        return guard;
    }
    CoreScratchScope scratch;
    RealNumber* halfTurn = RealAt(scratch.Take(RealWords()));
    SetOctants(halfTurn, 4, 0);
    return RealAddRaw(dest, dest, halfTurn, below);
}

void RealAtanRounded(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, ArcGuardDigits, RealAtan);
}

void RealAsinRounded(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, ArcGuardDigits, RealAsin);
}

void RealAcosRounded(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, ArcGuardDigits, RealAcos);
}

void RealAtan2Rounded(RealNumber* dest, const RealNumber* y, const RealNumber* x) {
    RoundedBinary(dest, y, x, ArcGuardDigits, RealAtan2);
}

void RealAtanDegreesRounded(RealNumber* dest, const RealNumber* x) {
    ArcInUnits<RealAtan, RealRadToDeg>(dest, x);
}

void RealAsinDegreesRounded(RealNumber* dest, const RealNumber* x) {
    ArcInUnits<RealAsin, RealRadToDeg>(dest, x);
}

void RealAcosDegreesRounded(RealNumber* dest, const RealNumber* x) {
    ArcInUnits<RealAcos, RealRadToDeg>(dest, x);
}

void RealAtan2DegreesRounded(RealNumber* dest, const RealNumber* y, const RealNumber* x) {
    Atan2InUnits<RealRadToDeg>(dest, y, x);
}

void RealAtanGonRounded(RealNumber* dest, const RealNumber* x) {
    ArcInUnits<RealAtan, RealRadToGon>(dest, x);
}

void RealAsinGonRounded(RealNumber* dest, const RealNumber* x) {
    ArcInUnits<RealAsin, RealRadToGon>(dest, x);
}

void RealAcosGonRounded(RealNumber* dest, const RealNumber* x) {
    ArcInUnits<RealAcos, RealRadToGon>(dest, x);
}

void RealAtan2GonRounded(RealNumber* dest, const RealNumber* y, const RealNumber* x) {
    Atan2InUnits<RealRadToGon>(dest, y, x);
}

}  // namespace tallymere
