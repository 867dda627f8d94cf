#include "formula/angles.h"

#include "core/contract.h"
#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_div_mod.h"
#include "core/real_integer.h"
#include "core/real_rounding.h"
#include "core/scratch.h"
#include "functions/angle_units.h"
#include "functions/inverse_trigonometric.h"
#include "functions/trigonometric.h"

namespace tallymere {

namespace {

// Angles with exponents outside 0 to this are not tested.
constexpr int64_t MaxTestedExponent = 8;

void AngleToRadians(RealNumber* dest, const RealNumber* x, AngleUnit unit) {
    switch (unit) {
        case AngleUnit::None:
        case AngleUnit::Radians:
            RealCopy(dest, x);
            break;
        case AngleUnit::Degrees:
            RealDegToRad(dest, x);
            break;
        case AngleUnit::Gon:
            RealGonToRad(dest, x);
            break;
    }
}

void QuarterTurn(RealNumber* dest, AngleUnit unit) {
    switch (unit) {
        case AngleUnit::None:
        case AngleUnit::Radians:
            // The arc sine of 1 is rounded once, which half of a rounded pi is not.
            RealSetOne(dest);
            RealAsinRounded(dest, dest);
            break;
        case AngleUnit::Degrees:
            RealFromInt(dest, 90);
            break;
        case AngleUnit::Gon:
            RealFromInt(dest, 100);
            break;
    }
}

// Takes an angle for the multiple of the quarter turn that it almost is: the remainder becomes 0,
// and the quotient that of the multiple. Otherwise the remainder is not 0 afterwards.
void SnapToMultiple(RealNumber* quotient, RealNumber* remainder, const RealNumber* quarter,
                    int64_t exponent) {
    ScratchStackScope scratch;
    RealNumber* tolerance = RealAt(scratch.Take(RealWords()));
    RealSetOne(tolerance);
    RealSetExponent(tolerance, exponent - numberContext.precisionDigits + 2);
    if (RealCompare(remainder, tolerance) < 0) {
        RealSetZero(remainder, 0);
        return;
    }
    RealSub(remainder, quarter, remainder);
    if (RealCompare(remainder, tolerance) < 0) {
        RealSetZero(remainder, 0);
        RealNumber* one = tolerance;
        RealSetOne(one);
        RealAdd(quotient, quotient, one);
    }
}

}  // namespace

QuarterTurns ReduceAngleArgument(RealNumber* dest, const RealNumber* x, AngleUnit unit) {
    TALLYMERE_REQUIRE(unit != AngleUnit::None);
    ScratchStackScope scratch;
    RealNumber* quotient = RealAt(scratch.Take(RealWords()));
    RealNumber* remainder = RealAt(scratch.Take(RealWords()));
    RealNumber* quarter = RealAt(scratch.Take(RealWords()));
    RealAbs(remainder, x);
    AngleToRadians(dest, x, unit);

    const int64_t exponent = RealExponent(remainder);
    if (RealIsZero(remainder)) {
        return QuarterTurns::Even;
    }
    if (exponent < 0 || exponent > MaxTestedExponent) {
        return QuarterTurns::NoMultiple;
    }
    QuarterTurn(quarter, unit);
    RealDivMod(quotient, remainder, remainder, quarter);
    if (unit == AngleUnit::Radians) {
        SnapToMultiple(quotient, remainder, quarter, exponent);
    }
    if (!RealIsZero(remainder)) {
        return QuarterTurns::NoMultiple;
    }
    return RealIsEven(quotient) ? QuarterTurns::Even : QuarterTurns::Odd;
}

void AngleFromRadians(RealNumber* dest, const RealNumber* x, AngleUnit unit) {
    TALLYMERE_REQUIRE(unit != AngleUnit::None);
    switch (unit) {
        case AngleUnit::None:
        case AngleUnit::Radians:
            RealCopy(dest, x);
            break;
        case AngleUnit::Degrees:
            RealRadToDeg(dest, x);
            break;
        case AngleUnit::Gon:
            RealRadToGon(dest, x);
            break;
    }
}

void SineOfAngle(RealNumber* dest, const RealNumber* x, AngleUnit unit) {
    if (ReduceAngleArgument(dest, x, unit) == QuarterTurns::Even) {
        RealSetZero(dest, 0);
    } else {
        RealSinRounded(dest, dest);
    }
}

void CosineOfAngle(RealNumber* dest, const RealNumber* x, AngleUnit unit) {
    if (ReduceAngleArgument(dest, x, unit) == QuarterTurns::Odd) {
        RealSetZero(dest, 0);
    } else {
        RealCosRounded(dest, dest);
    }
}

bool TangentOfAngle(RealNumber* dest, const RealNumber* x, AngleUnit unit) {
    switch (ReduceAngleArgument(dest, x, unit)) {
        case QuarterTurns::Even:
            RealSetZero(dest, 0);
            break;
        case QuarterTurns::Odd:
            return false;
        case QuarterTurns::NoMultiple:
            RealTanRounded(dest, dest);
            break;
    }
    return true;
}

void AngleOfSine(RealNumber* dest, const RealNumber* x, AngleUnit unit) {
    RealAsinRounded(dest, x);
    AngleFromRadians(dest, dest, unit);
}

void AngleOfCosine(RealNumber* dest, const RealNumber* x, AngleUnit unit) {
    RealAcosRounded(dest, x);
    AngleFromRadians(dest, dest, unit);
}

void AngleOfTangent(RealNumber* dest, const RealNumber* x, AngleUnit unit) {
    RealAtanRounded(dest, x);
    AngleFromRadians(dest, dest, unit);
}

}  // namespace tallymere
