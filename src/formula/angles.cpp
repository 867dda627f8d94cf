#include "formula/angles.h"

#include "core/contract.h"
#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_div_mod.h"
#include "core/real_integer.h"
#include "core/real_rounding.h"
#include "core/scratch.h"
#include "functions/inverse_trigonometric.h"
#include "functions/trigonometric.h"

namespace tallymere {

namespace {

// Angles in radians with exponents above this are not tested.
constexpr int64_t MaxTestedExponent = 8;

// 10 to this is the largest difference for which an angle in radians counts as a multiple.
constexpr int64_t MaxToleranceExponent = -3;

constexpr uint64_t DegreesPerQuarter = 90;
constexpr uint64_t GonPerQuarter = 100;

// A function for each unit of angles.
template <typename Function>
struct FunctionByUnit {
    Function ofRadians;
    Function ofDegrees;
    Function ofGon;
};

template <typename Function>
Function ForUnit(const FunctionByUnit<Function>& functions, AngleUnit unit) {
    TALLYMERE_REQUIRE(unit != AngleUnit::None);
    switch (unit) {
        case AngleUnit::None:
        case AngleUnit::Radians:
            break;
        case AngleUnit::Degrees:
            return functions.ofDegrees;
        case AngleUnit::Gon:
            return functions.ofGon;
    }
    return functions.ofRadians;
}

constexpr FunctionByUnit<RealRoundedUnary> Sine = {RealSinRounded, RealSinDegreesRounded,
                                                   RealSinGonRounded};
constexpr FunctionByUnit<RealRoundedUnary> Cosine = {RealCosRounded, RealCosDegreesRounded,
                                                     RealCosGonRounded};
constexpr FunctionByUnit<RealRoundedUnary> Tangent = {RealTanRounded, RealTanDegreesRounded,
                                                      RealTanGonRounded};
constexpr FunctionByUnit<RealRoundedUnary> ArcSine = {RealAsinRounded, RealAsinDegreesRounded,
                                                      RealAsinGonRounded};
constexpr FunctionByUnit<RealRoundedUnary> ArcCosine = {RealAcosRounded, RealAcosDegreesRounded,
                                                        RealAcosGonRounded};
constexpr FunctionByUnit<RealRoundedUnary> ArcTangent = {RealAtanRounded, RealAtanDegreesRounded,
                                                         RealAtanGonRounded};
constexpr FunctionByUnit<RealRoundedBinary> PointAngle = {RealAtan2Rounded, RealAtan2DegreesRounded,
                                                          RealAtan2GonRounded};

// True where a multiple of the quarter turn is looked for.
bool IsTested(const RealNumber* x, AngleUnit unit) {
    const int64_t exponent = RealExponent(x);
    if (RealIsSpecial(x) || exponent < 0) {
        return false;
    }
    switch (unit) {
        case AngleUnit::None:
        case AngleUnit::Radians:
            break;
        case AngleUnit::Degrees:
            return !RealAngleIsTooLarge(x, DegreesPerQuarter / 2);
        case AngleUnit::Gon:
            return !RealAngleIsTooLarge(x, GonPerQuarter / 2);
    }
    return exponent <= MaxTestedExponent &&
           exponent - numberContext.precisionDigits + 2 <= MaxToleranceExponent;
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
            RealFromUint(dest, DegreesPerQuarter);
            break;
        case AngleUnit::Gon:
            RealFromUint(dest, GonPerQuarter);
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

QuarterTurns ReduceAngleArgument(const RealNumber* x, AngleUnit unit) {
    TALLYMERE_REQUIRE(unit != AngleUnit::None);
    if (RealIsZero(x)) {
        return QuarterTurns::Even;
    }
    if (!IsTested(x, unit)) {
        return QuarterTurns::NoMultiple;
    }
    ScratchStackScope scratch;
    RealNumber* quotient = RealAt(scratch.Take(RealWords()));
    RealNumber* remainder = RealAt(scratch.Take(RealWords()));
    RealNumber* quarter = RealAt(scratch.Take(RealWords()));
    RealAbs(remainder, x);
    QuarterTurn(quarter, unit);
    // The quotient is complete where nothing remains: the multiple has no more digits than x.
    RealDivMod(quotient, remainder, remainder, quarter);
    if (unit == AngleUnit::Radians) {
        SnapToMultiple(quotient, remainder, quarter, RealExponent(x));
    }
    if (!RealIsZero(remainder)) {
        return QuarterTurns::NoMultiple;
    }
    return RealIsEven(quotient) ? QuarterTurns::Even : QuarterTurns::Odd;
}

void SineOfAngle(RealNumber* dest, const RealNumber* x, AngleUnit unit) {
    if (ReduceAngleArgument(x, unit) == QuarterTurns::Even) {
        RealSetZero(dest, 0);
    } else {
        ForUnit(Sine, unit)(dest, x);
    }
}

void CosineOfAngle(RealNumber* dest, const RealNumber* x, AngleUnit unit) {
    if (ReduceAngleArgument(x, unit) == QuarterTurns::Odd) {
        RealSetZero(dest, 0);
    } else {
        ForUnit(Cosine, unit)(dest, x);
    }
}

bool TangentOfAngle(RealNumber* dest, const RealNumber* x, AngleUnit unit) {
    switch (ReduceAngleArgument(x, unit)) {
        case QuarterTurns::Even:
            RealSetZero(dest, 0);
            break;
        case QuarterTurns::Odd:
            return false;
        case QuarterTurns::NoMultiple:
            ForUnit(Tangent, unit)(dest, x);
            break;
    }
    return true;
}

void AngleOfSine(RealNumber* dest, const RealNumber* x, AngleUnit unit) {
    ForUnit(ArcSine, unit)(dest, x);
}

void AngleOfCosine(RealNumber* dest, const RealNumber* x, AngleUnit unit) {
    ForUnit(ArcCosine, unit)(dest, x);
}

void AngleOfTangent(RealNumber* dest, const RealNumber* x, AngleUnit unit) {
    ForUnit(ArcTangent, unit)(dest, x);
}

void AngleOfPoint(RealNumber* dest, const RealNumber* y, const RealNumber* x, AngleUnit unit) {
    ForUnit(PointAngle, unit)(dest, y, x);
}

}  // namespace tallymere
