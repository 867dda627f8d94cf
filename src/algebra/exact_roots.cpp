#include "algebra/exact_roots.h"

#include <algorithm>

#include "algebra/exact_formulas.h"
#include "algebra/polynomial.h"
#include "algebra/polynomial_roots.h"
#include "algebra/rational_roots.h"
#include "core/contract.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "core/scratch.h"
#include "core/stop_request.h"
#include "numtheory/factorize_number.h"
#include "values/exact_conversions.h"

namespace tallymere {

namespace {

// Digits of a number of FactorLimbs limbs, and of the product of one for each coefficient.
constexpr int64_t DigitsOfNumber = 39;
constexpr int64_t DigitsOfProduct = DigitsOfNumber * (MaxEquationDegree + 1);
static_assert(FactorLimbs == 2);

void SetFromBigUint(RealNumber* dest, const uint64_t* number) {
    RealRound(dest, RealFromBigUint(dest, number, numberContext.uintLimbs));
}

// dest = coefficient k times all denominators, exact with DigitsOfProduct digits in force.
void SetCleared(RealNumber* dest, const ExactPolynomial& list, int64_t k) {
    ScratchStackScope scratch;
    RealNumber* factor = RealAt(scratch.Take(RealWords()));
    const RationalNumber* coefficient = list.coefficients[k];
    if (RationalIsZero(coefficient)) {
        RealSetZero(dest, 0);
        return;
    }
    SetFromBigUint(dest, RationalNumerator(coefficient));
    for (int64_t i = 0; i <= list.degree; i++) {
        if (i != k) {
            SetFromBigUint(factor, RationalDenominator(list.coefficients[i]));
            RealMul(dest, dest, factor);
        }
    }
    RealSetSign(dest, RationalSign(coefficient));
}

// The numbers may need more digits than are in force.
RootOutcome SolveNumerically(SolutionSet& solutions, const ExactPolynomial& list, int64_t digits) {
    const int64_t digitsInForce = numberContext.precisionDigits;
    if (digits > digitsInForce) {
        return RootOutcome::Internal;
    }
    const DigitsScope layout(std::max(digitsInForce, DigitsOfProduct));
    ScratchStackScope scratch;
    CoefficientList numbers = {list.degree, {}};
    for (int64_t i = 0; i <= list.degree; i++) {
        ComplexNumber* number = TakeComplex(scratch);
        SetCleared(RealPart(number), list, i);
        ComplexClearImaginaryPart(number);
        numbers.coefficients[i] = number;
    }
    SolutionSet found = solutions;
    for (ComplexNumber*& value : found.values) {
        value = TakeComplex(scratch);
    }
    const RootOutcome outcome =
        SolvePolynomial(found, numbers, digits, KeepEqualRoots | ExactCoefficients);
    const RealLayout source = CurrentRealLayout();
    const DigitsScope ofResult(digitsInForce);
    solutions.count = found.count;
    for (int64_t i = 0; i < found.count; i++) {
        ConvertComplex(solutions.values[i], found.values[i], source);
        solutions.multiplicities[i] = 1;
    }
    return outcome;
}

RootOutcome SolveExactly(SolutionSet& solutions, const ExactPolynomial& list, int64_t digits) {
    if (list.degree == 1) {
        return SolveExactLinear(solutions, list, 0, digits);
    }
    if (list.degree == 2) {
        return SolveExactQuadratic(solutions, list, 0, 1, digits);
    }
    return FindExactRoots(solutions, list, digits);
}

}  // namespace

RootOutcome SolveExactEquation(SolutionSet& solutions, const ExactPolynomial& list, int64_t digits,
                               uint32_t flags) {
    TALLYMERE_REQUIRE(numberContext.uintLimbs == FactorLimbs && digits >= MinExactDigits);
    TALLYMERE_REQUIRE(ExactPolynomialIsWellFormed(list) && list.degree >= 1);
    RootOutcome outcome = SolveNumerically(solutions, list, digits);
    if (outcome == RootOutcome::Found) {
        outcome = SolveExactly(solutions, list, digits);
    }
    // One that came too late for the searches still leaves nothing to show.
    if (outcome == RootOutcome::Found && StopRequested()) {
        outcome = RootOutcome::Stopped;
    }
    FinishSolutions(solutions, outcome, flags);
    return outcome;
}

}  // namespace tallymere
