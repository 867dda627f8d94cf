#include "algebra/polynomial_roots.h"

#include <algorithm>

#include "algebra/exponent_scaling.h"
#include "algebra/root_digits.h"
#include "core/contract.h"
#include "core/limits.h"
#include "core/real_layout.h"

namespace tallymere {

namespace {

// A thousand times the share of the working digits that an m-fold root keeps, m being the degree,
// with something to spare.
constexpr int64_t KeptShares[MaxEquationDegree + 1] = {1000, 950, 482, 320, 230, 184,
                                                       130,  110, 95,  84,  76};

// What a formula may cancel without harm, of the extra digits.
constexpr int64_t CancelledDigits = 50;
static_assert(CancelledDigits < ExtraCoefficientDigits);

// The digits of a rounded coefficient that count as right, beyond the working digits. More of them
// would cost time where roots are multiple, and change none.
constexpr int64_t ExtraKnownDigits = 20;

constexpr int64_t MostDigitsByDegree[MaxEquationDegree + 1] = {2000, 2000, 2000, 2000, 2000, 1000,
                                                               1000, 1000, 750,  750,  750};

// What a list of another degree has is never looked at.
bool CoefficientsAreWellFormed(const CoefficientList& list) {
    return list.degree < 0 || list.degree > MaxEquationDegree ||
           std::all_of(list.coefficients, list.coefficients + list.degree + 1,
                       [](const ComplexNumber* z) { return ComplexIsWellFormed(z); });
}

bool AllAreFinite(const CoefficientList& list) {
    return std::all_of(list.coefficients, list.coefficients + list.degree + 1, ComplexIsFinite);
}

Polynomial CopyCoefficients(ScratchScope& scope, const CoefficientList& list) {
    Polynomial polynomial = TakePolynomial(scope, list.degree);
    for (int64_t i = 0; i <= list.degree; i++) {
        ComplexCopy(polynomial.coefficients[i], list.coefficients[i]);
    }
    return polynomial;
}

// Drops the coefficients that are exactly 0 from the constant upward: each is a root 0. Returns how
// many.
int64_t StripZeroRoots(Polynomial& polynomial) {
    int64_t zeros = 0;
    while (ComplexIsZero(polynomial.coefficients[zeros])) {
        zeros++;
    }
    polynomial.degree -= zeros;
    for (int64_t i = 0; i <= polynomial.degree; i++) {
        polynomial.coefficients[i] = polynomial.coefficients[i + zeros];
    }
    return zeros;
}

// Puts a root into the next entries, as often as its multiplicity says, in the layout in force.
void AddRoot(SolutionSet& solutions, const ComplexNumber* value, RealLayout layout, int64_t order,
             int64_t multiplicity) {
    for (int64_t i = 0; i < multiplicity; i++) {
        ComplexNumber* dest = solutions.values[solutions.count];
        ConvertComplex(dest, value, layout);
        ScaleNumber(RealPart(dest), order);
        ScaleNumber(ImaginaryPart(dest), order);
        solutions.count++;
    }
}

// The roots of a polynomial of degree 1 or more without a root 0.
RootOutcome AddRoots(SolutionSet& solutions, Polynomial& polynomial, int64_t digits,
                     CoefficientDigits coefficientDigits) {
    int64_t order = 0;
    if (!ScaleExponents(polynomial, &order)) {
        return RootOutcome::NotConverged;
    }
    ScratchStackScope scope;
    const CoefficientErrors errors = FindCoefficientErrors(polynomial, coefficientDigits);
    RootClusters clusters{};
    TakeClusters(scope, clusters);
    ComplexNumber* values[MaxEquationDegree];
    for (ComplexNumber*& value : values) {
        value = TakeComplex(scope, digits);
    }
    // Whatever a step on the way notes is no failure of the result.
    const CalcError noted = numberContext.calcError;
    RootOutcome outcome = SeparateRoots(clusters, polynomial, errors);
    if (outcome == RootOutcome::Found) {
        outcome = RoundRoots(values, clusters, polynomial, errors, digits);
    }
    numberContext.calcError = noted;
    for (int64_t i = 0; i < clusters.count && outcome == RootOutcome::Found; i++) {
        AddRoot(solutions, values[i], LayoutForDigits(digits), order,
                clusters.clusters[i].multiplicity);
    }
    return outcome;
}

// All roots, neither in order nor merged.
RootOutcome FindRoots(SolutionSet& solutions, const CoefficientList& list, int64_t digits,
                      uint32_t flags) {
    const int64_t digitsInForce = numberContext.precisionDigits;
    if (list.degree < 0 || list.degree > MaxEquationDegree || digits < 1 ||
        digits > digitsInForce || RootWorkingDigits(list.degree, digits) > MaxDigits ||
        ComplexIsZero(list.coefficients[list.degree])) {
        return RootOutcome::Internal;
    }
    if (!AllAreFinite(list)) {
        return RootOutcome::NotConverged;
    }
    const CoefficientDigits coefficientDigits =
        (flags & ExactCoefficients) != 0 ? CoefficientDigits{digitsInForce, digitsInForce}
                                         : RootCoefficientDigits(list.degree, digits);
    ScratchStackScope scope;
    Polynomial polynomial = CopyCoefficients(scope, list);
    const int64_t zeros = StripZeroRoots(polynomial);
    if (polynomial.degree > 0) {
        const RootOutcome outcome = AddRoots(solutions, polynomial, digits, coefficientDigits);
        if (outcome != RootOutcome::Found) {
            return outcome;
        }
    }
    for (int64_t i = 0; i < zeros; i++) {
        ComplexSetZero(solutions.values[solutions.count++], 0);
    }
    return RootOutcome::Found;
}

}  // namespace

int64_t RootWorkingDigits(int64_t degree, int64_t digits) {
    TALLYMERE_REQUIRE(degree >= 0 && digits >= 1);
    const int64_t share = KeptShares[std::min(degree, MaxEquationDegree)];
    return (digits * 1000 + share - 1) / share;
}

int64_t RootInputDigits(int64_t degree, int64_t digits) {
    return std::min(RootWorkingDigits(degree, digits) + ExtraCoefficientDigits, MaxDigits);
}

CoefficientDigits RootCoefficientDigits(int64_t degree, int64_t digits) {
    const int64_t exact = RootInputDigits(degree, digits) - CancelledDigits;
    return {exact, std::min(RootWorkingDigits(degree, digits) + ExtraKnownDigits, exact)};
}

int64_t MaxRootDigits(int64_t degree) {
    TALLYMERE_REQUIRE(degree >= 0);
    return MostDigitsByDegree[std::min(degree, MaxEquationDegree)];
}

RootOutcome SolvePolynomial(SolutionSet& solutions, const CoefficientList& list, int64_t digits,
                            uint32_t flags) {
    TALLYMERE_REQUIRE(CoefficientsAreWellFormed(list));
    solutions.count = 0;
    for (int64_t i = 0; i < MaxEquationDegree; i++) {
        solutions.exactTexts[i][0] = 0;
        solutions.multiplicities[i] = 1;
    }
    const RootOutcome outcome = FindRoots(solutions, list, digits, flags);
    FinishSolutions(solutions, outcome, flags);
    return outcome;
}

}  // namespace tallymere
