#include "algebra/polynomial_calculation.h"

#include "core/complex_number.h"
#include "core/real_add.h"
#include "core/real_rounding.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

// Makes a real part that is off by `error` at most the nearest integer, when it may be that.
void TakeNearestInteger(uint64_t* value, Magnitude error) {
    if (IsZero(error)) {
        return;
    }
    ScratchStackScope scope;
    RealNumber* nearest = RealAt(scope.Take(RealWords()));
    RealNumber* distance = RealAt(scope.Take(RealWords()));
    RealRoundToInteger(nearest, RealAt(value));
    RealSub(distance, nearest, RealAt(value));
    if (!(error < MagnitudeOf(distance))) {
        RealCopy(RealAt(value), nearest);
    }
}

}  // namespace

PolyCalculation TakePolyCalculation(ScratchScope& scope, PolyOperator operation, int32_t operands,
                                    int64_t digits) {
    TALLYMERE_REQUIRE(operands >= MinPolynomials && operands <= MaxPolynomials);
    PolyCalculation calculation = {.operation = operation,
                                   .digits = digits,
                                   .count = 0,
                                   .operands = {},
                                   .result = AllocPolynomial(scope),
                                   .remainder = AllocPolynomial(scope),
                                   .exponent = 0,
                                   .errors = {},
                                   .isKnown = true};
    for (int32_t k = 0; k < operands; k++) {
        calculation.operands[k] = AllocPolynomial(scope);
    }
    return calculation;
}

PolyNumbers& NextOperand(PolyCalculation& calculation) {
    return calculation.operands[calculation.count];
}

PartSizes* NextErrors(PolyCalculation& calculation) {
    return calculation.errors[calculation.count];
}

PolyOutcome ApplyOperand(PolyCalculation& calculation) {
    const PolyNumbers& operand = NextOperand(calculation);
    const PartSizes* errors = NextErrors(calculation);
    calculation.count++;
    if (calculation.count == 1) {
        CopyPolynomial(calculation.result, operand);
        return PolyOutcome::Done;
    }
    PolyNumbers& result = calculation.result;
    const PolyNumbers& first = calculation.operands[0];
    switch (calculation.operation) {
        case PolyOperator::Plus:
        case PolyOperator::Minus:
            AddPolynomials(result, result, operand, calculation.operation == PolyOperator::Minus,
                           calculation.digits);
            return PolyOutcome::Done;
        case PolyOperator::Times:
            return MultiplyPolynomialBy(result, operand, calculation.digits);
        case PolyOperator::Divide:
            return DividePolynomials(result, calculation.remainder, first, operand,
                                     calculation.digits);
        case PolyOperator::Power:
            break;
    }
    TakeNearestInteger(operand.coefficients[0], errors[0].real);
    const PolyOutcome outcome = ReadPolyExponent(&calculation.exponent, operand);
    return outcome == PolyOutcome::Done
               ? RaisePolynomial(result, first, calculation.exponent, calculation.digits)
               : outcome;
}

}  // namespace tallymere
