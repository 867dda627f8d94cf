#include "algebra/center_refinement.h"

#include "core/complex_arithmetic.h"
#include "core/contract.h"

namespace tallymere {

namespace {

// A step that leaves half of the digits alone, but for a few, doubles the right ones for the last
// time.
constexpr int64_t DigitsForCondition = 8;

// Digits that the first level has at most.
constexpr int64_t FirstLevelDigits = 60;

constexpr int64_t MaxStepsOfLevel = 12;

bool IsLastStep(const RealNumber* part, const RealNumber* step) {
    const int64_t settled = numberContext.precisionDigits / 2 - DigitsForCondition;
    return RealIsZero(step) || RealIsZero(part) ||
           RealExponent(step) < RealExponent(part) - settled;
}

// Steps from `z`, in the layout in force, until both parts have settled. False when a stop was
// requested.
bool IterateNewton(ComplexNumber* z, const Polynomial& polynomial) {
    ScratchStackScope scope;
    ComplexNumber* value = TakeComplex(scope);
    ComplexNumber* derivative = TakeComplex(scope);
    for (int64_t i = 0; i < MaxStepsOfLevel; i++) {
        if (!EvaluatePolynomial(value, derivative, polynomial, z)) {
            return false;
        }
        if (ComplexIsZero(value) || ComplexIsZero(derivative)) {
            return true;
        }
        ComplexDiv(value, value, derivative);
        ComplexSub(z, z, value);
        if (IsLastStep(RealPart(z), RealPart(value)) &&
            IsLastStep(ImaginaryPart(z), ImaginaryPart(value))) {
            return true;
        }
    }
    return true;
}

// The digits of the level below one of so many.
int64_t LevelBelow(int64_t digits) {
    return digits / 2 + 2 * DigitsForCondition;
}

bool RefineAtLevel(RootCluster& cluster, const Polynomial& polynomial, int64_t digits) {
    if (digits > FirstLevelDigits && LevelBelow(digits) > cluster.layout.digits &&
        !RefineAtLevel(cluster, polynomial, LevelBelow(digits))) {
        return false;
    }
    const DigitsScope level(digits);
    ScratchStackScope scope;
    const Polynomial derivative = MakeDerivative(scope, polynomial, cluster.multiplicity - 1);
    ComplexNumber* z = TakeComplex(scope);
    ComplexNumber* before = TakeComplex(scope);
    ConvertComplex(before, cluster.center, cluster.layout);
    ComplexCopy(z, before);
    if (!IterateNewton(z, derivative)) {
        return false;
    }
    ComplexCopy(cluster.center, z);
    const Magnitude rounding = MagnitudeOf(z) * MakeMagnitude(1, 1 - digits);
    ComplexSub(z, z, before);
    cluster.radius = cluster.radius + MagnitudeOf(z) + rounding;
    cluster.layout = CurrentRealLayout();
    return true;
}

}  // namespace

bool RefineCenter(RootCluster& cluster, const Polynomial& polynomial, int64_t digits) {
    TALLYMERE_REQUIRE(digits >= 1 && digits <= MostRootDigits);
    TALLYMERE_REQUIRE(ClusterIsWellFormed(cluster, polynomial));
    return RefineAtLevel(cluster, polynomial, digits);
}

}  // namespace tallymere
