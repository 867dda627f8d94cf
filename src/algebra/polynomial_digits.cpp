// RefinePolynomials of polynomial_calculation.h: passes with more and more digits, until every part
// of the result is proven.
#include <algorithm>

#include "algebra/enclosed_rounding.h"
#include "algebra/polynomial.h"
#include "algebra/polynomial_bounds.h"
#include "algebra/polynomial_calculation.h"
#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_layout.h"
#include "core/real_rounding.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

// A calculation with w digits is off by less than 10^(LostDigits - w) of the sum of the sizes of
// the terms. A product of two values errs by 10 units of 10^-w at most, a sum by 5, so a product of
// two polynomials by 115, a power of 20 by 2,200. A step of a quotient adds 45 at most, and there
// are 21.
constexpr int64_t LostDigits = 4;

// The digits of the first pass beyond those of the result, at least: for what is lost, for terms
// that cancel as terms do by chance, and so that few results lie too close to the middle between
// two.
constexpr int64_t FirstPassDigits = 24;

// One pass: `wide` are its digits, `narrow` those of the operands and of the result.
struct Pass {
    RealLayout wide;
    RealLayout narrow;
    bool last;        // settles what it finds
    int64_t lacking;  // digits that the next pass must have beyond these, 0 when all is settled
    bool isKnown;     // false when rounded coefficients leave a part between two results
};

struct SettledParts {
    bool result[PolyCoefficients][2];
    bool remainder[PolyCoefficients][2];
};

void WidenPolynomial(PolyNumbers& dest, const PolyNumbers& source, const Pass& pass) {
    for (int32_t i = 0; i <= MaxPolyDegree; i++) {
        for (int64_t part = 0; part < ValueRealParts(); part++) {
            RealConvertLayout(RealAt(dest.coefficients[i] + part * (pass.wide.limbs + 1)),
                              RealAt(source.coefficients[i] + part * (pass.narrow.limbs + 1)),
                              pass.narrow);
        }
    }
}

// The calculation in the layout of the pass, which is in force.
PolyOutcome CalculateWide(PolyNumbers& result, PolyNumbers& remainder,
                          const PolyCalculation& calculation, const Pass& pass) {
    const PolyNumbers* operands = calculation.operands;
    const int64_t digits = pass.wide.digits;
    ScratchStackScope scope;
    PolyNumbers operand = AllocPolynomial(scope);
    switch (calculation.operation) {
        case PolyOperator::Divide:
            WidenPolynomial(remainder, operands[0], pass);
            WidenPolynomial(operand, operands[1], pass);
            return DividePolynomials(result, remainder, remainder, operand, digits);
        case PolyOperator::Power:
            WidenPolynomial(operand, operands[0], pass);
            return RaisePolynomial(result, operand, calculation.exponent, digits);
        case PolyOperator::Plus:
        case PolyOperator::Minus:
        case PolyOperator::Times:
            break;
    }
    WidenPolynomial(result, operands[0], pass);
    for (int32_t k = 1; k < calculation.count; k++) {
        WidenPolynomial(operand, operands[k], pass);
        if (calculation.operation != PolyOperator::Times) {
            AddPolynomials(result, result, operand, calculation.operation == PolyOperator::Minus,
                           digits);
        } else if (MultiplyPolynomialBy(result, operand, digits) == PolyOutcome::Stopped) {
            return PolyOutcome::Stopped;
        }
    }
    return PolyOutcome::Done;
}

// The digits that x, off by less than 10^error, lacks to be known as 0, when it may be. 0 or less
// when it is proven to be 0.
int64_t LackingForZero(int64_t error, const CoefficientBounds& bounds) {
    const int64_t smallest = bounds.numeratorGrid - bounds.denominatorExponent;
    return error + 2 - smallest;
}

// Likewise to be known as the middle between two results whose last digits stand at the place
// `last`. 0 or less only where the error is below a tenth of that place.
int64_t LackingForMiddle(int64_t error, const CoefficientBounds& bounds, int64_t last) {
    const int64_t grid = std::min(bounds.numeratorGrid, last - 1 + bounds.denominatorGrid);
    return error + 1 - (grid - bounds.denominatorExponent);
}

// What a pass may be off, as a power of ten.
int64_t ErrorOfPass(const CoefficientBounds& bounds, const Pass& pass) {
    return bounds.size.exponent + 1 + LostDigits - pass.wide.digits;
}

// Writes the true value of x, rounded once, and returns 0; or returns how many digits are lacking.
int64_t SettleExactPart(RealNumber* settled, const RealNumber* x, const CoefficientBounds& bounds,
                        int64_t digits, const Pass& pass) {
    const int64_t error = ErrorOfPass(bounds, pass);
    if (IsZero(bounds.size) || RealIsZero(x) || RealExponent(x) <= error) {
        const int64_t lacking = IsZero(bounds.size) ? 0 : LackingForZero(error, bounds);
        RealSetZero(settled, 0);
        return pass.last ? 0 : std::max<int64_t>(lacking, 0);
    }
    if (RoundsAlike(settled, x, error, digits)) {
        return 0;
    }
    // What does not round alike lies beside a middle, which has one digit more.
    const int64_t lacking = LackingForMiddle(error, bounds, RealExponent(x) - digits + 1);
    RealRoundDigits(settled, x, lacking <= 0 ? digits + 1 : pass.wide.digits);
    RealRoundDigits(settled, settled, digits);
    return pass.last ? 0 : std::max<int64_t>(lacking, 0);
}

// The same for a part that rounded coefficients leave off by `carried`.
int64_t SettleRoundedPart(RealNumber* settled, const RealNumber* x, const CoefficientBounds& bounds,
                          Magnitude carried, int64_t digits, Pass& pass) {
    const int64_t ofPass = ErrorOfPass(bounds, pass);
    const int64_t ofOperands = carried.exponent + 1;
    const int64_t error = std::max(ofPass, ofOperands) + 1;
    const int64_t lacking = pass.last ? 0 : std::max<int64_t>(ofPass - ofOperands, 0);
    if (RealIsZero(x) || RealExponent(x) < error) {
        RealSetZero(settled, 0);
        pass.isKnown = pass.isKnown && lacking > 0;
        return lacking;
    }
    if (RoundsAlike(settled, x, error, digits)) {
        return 0;
    }
    if (lacking == 0) {
        pass.isKnown = false;
        const bool isMiddle = error < RealExponent(x) - digits;
        RealRoundDigits(settled, x, isMiddle ? digits + 1 : pass.wide.digits);
        RealRoundDigits(settled, settled, digits);
    }
    return lacking;
}

int64_t SettlePart(RealNumber* settled, const RealNumber* x, const CoefficientBounds& bounds,
                   Magnitude carried, int64_t digits, Pass& pass) {
    return IsZero(carried) ? SettleExactPart(settled, x, bounds, digits, pass)
                           : SettleRoundedPart(settled, x, bounds, carried, digits, pass);
}

// Settles the parts of one polynomial. `plain` has what the plain way gave, in its own layout.
void SettlePolynomial(PolyNumbers& plain, bool (*settled)[2], const PolyNumbers& wide,
                      const CoefficientBounds* bounds, int64_t digits, Pass& pass) {
    ScratchStackScope scope;
    RealNumber* value = RealAt(scope.Take(RealWords()));
    const int64_t parts = ValueRealParts();
    for (int32_t i = 0; i <= MaxPolyDegree; i++) {
        for (int64_t part = 0; part < parts; part++) {
            if (settled[i][part]) {
                continue;
            }
            const Magnitude carried =
                part == 0 ? bounds[i].carried.real : bounds[i].carried.imaginary;
            const RealNumber* x = RealAt(wide.coefficients[i] + part * (pass.wide.limbs + 1));
            RealNumber* dest = RealAt(plain.coefficients[i] + part * (pass.narrow.limbs + 1));
            const int64_t lacking = SettlePart(value, x, bounds[i], carried, digits, pass);
            pass.lacking = std::max(pass.lacking, lacking);
            settled[i][part] = lacking == 0;
            if (lacking == 0) {
                RealLayoutScope layout;
                InstallRealLayout(pass.narrow);
                RealConvertLayout(dest, value, pass.wide);
            }
        }
    }
}

PolyOutcome RunPass(PolyCalculation& calculation, SettledParts& settled,
                    const PolynomialBounds& bounds, Pass& pass) {
    const DigitsScope layout(pass.wide.digits);
    ScratchStackScope scope;
    PolyNumbers result = AllocPolynomial(scope);
    PolyNumbers remainder = AllocPolynomial(scope);
    const PolyOutcome outcome = CalculateWide(result, remainder, calculation, pass);
    if (outcome != PolyOutcome::Done) {
        return outcome;
    }
    SettlePolynomial(calculation.result, settled.result, result, bounds.result, calculation.digits,
                     pass);
    if (calculation.operation == PolyOperator::Divide) {
        SettlePolynomial(calculation.remainder, settled.remainder, remainder, bounds.remainder,
                         calculation.digits, pass);
    }
    return outcome;
}

// Whole limbs are multiplied fastest.
int64_t WholeLimbDigits(int64_t digits) {
    return std::min((digits + DigitsPerLimb - 1) / DigitsPerLimb * DigitsPerLimb,
                    MaxPrecisionDigits);
}

}  // namespace

PolyOutcome RefinePolynomials(PolyCalculation& calculation) {
    const bool isPowerZero =
        calculation.operation == PolyOperator::Power && calculation.exponent == 0;
    if (ValuesAreExact() || isPowerZero || numberContext.calcError != CalcErrorNone ||
        !OperandsAreBounded(calculation)) {
        return PolyOutcome::Done;
    }
    const PolynomialBounds bounds = FindPolynomialBounds(calculation);
    SettledParts settled = {};
    calculation.isKnown = true;
    int64_t digits = WholeLimbDigits(
        std::max(calculation.digits + FirstPassDigits, numberContext.precisionDigits));
    for (;;) {
        Pass pass = {.wide = LayoutForDigits(digits),
                     .narrow = CurrentRealLayout(),
                     .last = digits == MaxPrecisionDigits,
                     .lacking = 0,
                     .isKnown = true};
        const PolyOutcome outcome = RunPass(calculation, settled, bounds, pass);
        calculation.isKnown = calculation.isKnown && pass.isKnown;
        if (outcome != PolyOutcome::Done || pass.lacking == 0) {
            return outcome;
        }
        digits = WholeLimbDigits(std::min(2 * digits, digits + pass.lacking));
    }
}

}  // namespace tallymere
