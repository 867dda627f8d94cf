#include "algebra/exact_roots.h"

#include "algebra/exact_formulas.h"
#include "algebra/polynomial_roots.h"
#include "algebra/rational_roots.h"
#include "core/contract.h"
#include "core/scratch.h"
#include "core/stop_request.h"
#include "numtheory/factorize_number.h"
#include "values/exact_conversions.h"

namespace tallymere {

namespace {

RootOutcome SolveNumerically(SolutionSet& solutions, const ExactPolynomial& list, int64_t digits) {
    ScratchStackScope scratch;
    // Integers stay exact as decimal numbers, since these have the digits for them.
    ExactPolynomial integers = TakeExactPolynomial(scratch, list.degree);
    const bool areIntegers = ClearDenominators(integers, list);
    const ExactPolynomial& source = areIntegers ? integers : list;
    CoefficientList numbers = {list.degree, {}};
    for (int64_t i = 0; i <= list.degree; i++) {
        ComplexNumber* number = ComplexAt(scratch.Take(ComplexWords()));
        ConvertRationalToComplex(number, numberContext.precisionDigits, source.coefficients[i],
                                 numberContext.uintLimbs);
        numbers.coefficients[i] = number;
    }
    const uint32_t flags = areIntegers ? KeepEqualRoots | ExactCoefficients : KeepEqualRoots;
    return SolvePolynomial(solutions, numbers, digits, flags);
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
    if (outcome != RootOutcome::Found) {
        solutions.count = -1;
        return outcome;
    }
    SortRoots(solutions);
    if ((flags & KeepEqualRoots) == 0) {
        MergeEqualRoots(solutions);
    }
    if ((flags & KeepRealRootsOnly) != 0) {
        DropNonRealRoots(solutions);
    }
    return outcome;
}

}  // namespace tallymere
