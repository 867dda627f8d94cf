#include "formula/angles.h"

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

// The ids of each unit are a block of their own, in the same order.
constexpr uint32_t FunctionsOfUnit = FunctionSinDegrees - FunctionSin;
static_assert(FunctionAtanDegrees == FunctionAtan + FunctionsOfUnit);
static_assert(FunctionSinGon == FunctionSin + 2 * FunctionsOfUnit);
static_assert(FunctionAtanGon == FunctionAtan + 2 * FunctionsOfUnit);

// Angles with exponents outside 0 to this are not tested.
constexpr int64_t MaxTestedExponent = 8;

void AngleToRadians(RealNumber* dest, const RealNumber* x, AngleUnit unit) {
    switch (unit) {
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
    RealSubtract(remainder, quarter, remainder);
    if (RealCompare(remainder, tolerance) < 0) {
        RealSetZero(remainder, 0);
        RealNumber* one = tolerance;
        RealSetOne(one);
        RealAdd(quotient, quotient, one);
    }
}

}  // namespace

QuarterTurns ReduceAngleArgument(RealNumber* dest, const RealNumber* x, AngleUnit unit) {
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
    switch (unit) {
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

bool IsCircularFunction(uint32_t functionId) {
    return functionId >= FunctionSin && functionId <= FunctionAtanGon;
}

void ApplyCircularFunction(FormulaEvaluator& evaluator, const FormulaToken& function,
                           RealNumber* dest, const RealNumber* x) {
    const uint32_t index = function.id - FunctionSin;
    const auto unit = static_cast<AngleUnit>(index / FunctionsOfUnit);
    switch (FunctionSin + index % FunctionsOfUnit) {
        case FunctionSin:
            if (ReduceAngleArgument(dest, x, unit) == QuarterTurns::Even) {
                RealSetZero(dest, 0);
            } else {
                RealSinRounded(dest, dest);
            }
            break;
        case FunctionCos:
            if (ReduceAngleArgument(dest, x, unit) == QuarterTurns::Odd) {
                RealSetZero(dest, 0);
            } else {
                RealCosRounded(dest, dest);
            }
            break;
        case FunctionTan:
            switch (ReduceAngleArgument(dest, x, unit)) {
                case QuarterTurns::Even:
                    RealSetZero(dest, 0);
                    break;
                case QuarterTurns::Odd:
                    SetFormulaError(evaluator, FormulaErrorOverflow, function);
                    break;
                case QuarterTurns::NoMultiple:
                    RealTanRounded(dest, dest);
                    break;
            }
            break;
        case FunctionAsin:
            RealAsinRounded(dest, x);
            AngleFromRadians(dest, dest, unit);
            break;
        case FunctionAcos:
            RealAcosRounded(dest, x);
            AngleFromRadians(dest, dest, unit);
            break;
        default:
            RealAtanRounded(dest, x);
            AngleFromRadians(dest, dest, unit);
            break;
    }
}

}  // namespace tallymere
