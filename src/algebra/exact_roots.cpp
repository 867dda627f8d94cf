#include "algebra/exact_roots.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "algebra/exact_formulas.h"
#include "algebra/polynomial.h"
#include "algebra/polynomial_roots.h"
#include "algebra/rational_roots.h"
#include "core/contract.h"
#include "core/real_compare.h"
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

// Digits that tell any two real roots with a text apart, which are below 2^129. Fractions with
// numbers of 2 limbs differ by 2^-256 at least. p + q sqrt(r) differs from one of them by 2^-900 at
// least: the norm of the difference is a fraction with a denominator below 2^768, and the conjugate
// of it is below 2^131 where both are nearly equal. Together these are 310 digits.
constexpr int64_t DigitsOfOrder = 400;

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

// All roots, neither merged nor left out, in the order of their values.
RootOutcome SolveInOrder(SolutionSet& solutions, const ExactPolynomial& list, int64_t digits) {
    RootOutcome outcome = SolveNumerically(solutions, list, digits);
    if (outcome == RootOutcome::Found) {
        outcome = SolveExactly(solutions, list, digits);
    }
    FinishSolutions(solutions, outcome, KeepEqualRoots);
    return outcome;
}

// True when two neighbouring real roots have the same value, but different texts.
bool AreTied(const SolutionSet& solutions, int64_t i, int64_t j) {
    const std::u16string_view a = solutions.exactTexts[i];
    const std::u16string_view b = solutions.exactTexts[j];
    return !a.empty() && !b.empty() && a != b && ComplexIsReal(solutions.values[i]) &&
           ComplexIsReal(solutions.values[j]) &&
           RealCompare(RealPart(solutions.values[i]), RealPart(solutions.values[j])) == 0;
}

bool HasTies(const SolutionSet& solutions) {
    for (int64_t i = 1; i < solutions.count; i++) {
        if (AreTied(solutions, i - 1, i)) {
            return true;
        }
    }
    return false;
}

SolutionSet TakeSolutions(ScratchScope& scratch) {
    SolutionSet solutions{};
    for (int64_t i = 0; i < MaxEquationDegree; i++) {
        solutions.values[i] = TakeComplex(scratch);
        uint64_t* words = scratch.Take(ExactTextCapacity / CharactersPerWord + 1);
        solutions.exactTexts[i] = reinterpret_cast<char16_t*>(words);
    }
    return solutions;
}

// The place of the root with that text, or -1.
int64_t PlaceOf(const SolutionSet& solutions, std::u16string_view text) {
    for (int64_t i = 0; i < solutions.count; i++) {
        if (solutions.exactTexts[i] == text) {
            return i;
        }
    }
    return -1;
}

// Brings tied roots into the order that `finer` has them in.
void OrderTies(SolutionSet& solutions, const SolutionSet& finer) {
    for (int64_t end = solutions.count; end > 1; end--) {
        for (int64_t i = 1; i < end; i++) {
            const int64_t place = PlaceOf(finer, solutions.exactTexts[i]);
            if (place >= 0 && place < PlaceOf(finer, solutions.exactTexts[i - 1]) &&
                AreTied(solutions, i - 1, i)) {
                std::swap(solutions.exactTexts[i - 1], solutions.exactTexts[i]);
            }
        }
    }
}

// Brings tied roots into the order of what their texts mean: that of their values at more digits.
RootOutcome ResolveTies(SolutionSet& solutions, const ExactPolynomial& list) {
    const int64_t digitsInForce = numberContext.precisionDigits;
    const DigitsScope layout(std::max(digitsInForce, DigitsOfOrder));
    ScratchStackScope scratch;
    SolutionSet finer = TakeSolutions(scratch);
    const RootOutcome outcome = SolveInOrder(finer, list, DigitsOfOrder);
    const DigitsScope ofSolutions(digitsInForce);
    OrderTies(solutions, finer);
    return outcome;
}

}  // namespace

RootOutcome SolveExactEquation(SolutionSet& solutions, const ExactPolynomial& list, int64_t digits,
                               uint32_t flags) {
    TALLYMERE_REQUIRE(numberContext.uintLimbs == FactorLimbs && digits >= MinExactDigits);
    TALLYMERE_REQUIRE(ExactPolynomialIsWellFormed(list) && list.degree >= 1);
    RootOutcome outcome = SolveInOrder(solutions, list, digits);
    if (outcome == RootOutcome::Found && HasTies(solutions)) {
        outcome = ResolveTies(solutions, list);
    }
    // One that came too late for the searches still leaves nothing to show.
    if (outcome == RootOutcome::Found && StopRequested()) {
        outcome = RootOutcome::Stopped;
    }
    FinishSolutions(solutions, outcome, flags);
    return outcome;
}

}  // namespace tallymere
