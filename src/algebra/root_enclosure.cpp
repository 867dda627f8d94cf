#include "algebra/root_enclosure.h"

#include "core/complex_arithmetic.h"
#include "core/contract.h"
#include "core/stop_request.h"

namespace tallymere {

namespace {

// Contractions of one box. Each brings the bound of a part that is far below the other one down by
// some 37 digits, as far as 10^-1,000,000 of the other one.
constexpr int64_t MaxContractions = 30'000;

// Roundings count as a whole unit of the last place, with room for those of sizes.
constexpr double RoundingUnits = 1.5;

Magnitude UnitOfLayout() {
    return MakeMagnitude(RoundingUnits, 1 - numberContext.precisionDigits);
}

// value = P(z) for any z' within `reach` of z: `radii` become bounds of the error of each part.
// Coefficients may be off by two units. False when a stop was requested.
bool EvaluateBox(ComplexNumber* value, PartSizes& radii, const Polynomial& polynomial,
                 const ComplexNumber* z, PartSizes reach) {
    const Magnitude unit = UnitOfLayout();
    const Magnitude twoUnits = unit + unit;
    const PartSizes at = PartSizesOf(z);
    ComplexCopy(value, polynomial.coefficients[polynomial.degree]);
    PartSizes sizes = PartSizesOf(value);
    radii = sizes * twoUnits;
    for (int64_t i = polynomial.degree - 1; i >= 0; i--) {
        if (StopRequested()) {
            return false;
        }
        // What radius and reach add to the product. Each of its four products and their sums are
        // rounded; a sum is no larger than the products.
        const PartSizes ofProduct = radii * (at + reach) + sizes * reach + sizes * at * twoUnits;
        ComplexMul(value, value, z);
        ComplexAdd(value, value, polynomial.coefficients[i]);
        sizes = PartSizesOf(value);
        radii = ofProduct + PartSizesOf(polynomial.coefficients[i]) * twoUnits + sizes * unit;
    }
    return true;
}

// f and f' around the centre. f is the derivative of the polynomial of order m - 1, divided by the
// factorial of that order.
struct Surroundings {
    PartSizes value;  // the most that |f(c)| can be, part by part
    // At SweepDigits, as all that follows.
    Polynomial derivative;
    ComplexNumber* center;
    PartSizes centerSizes;
    PartSizes centerError;
};

// sizes = the most that the parts of f(c) can be. False when a stop was requested.
bool BoundValue(PartSizes& sizes, const RootCluster& cluster, const Polynomial& polynomial) {
    const DigitsScope digits(cluster.layout.digits);
    ScratchStackScope scope;
    const Polynomial f = MakeDerivative(scope, polynomial, cluster.multiplicity - 1);
    ComplexNumber* value = TakeComplex(scope);
    PartSizes radii{};
    if (!EvaluateBox(value, radii, f, cluster.center, {})) {
        return false;
    }
    sizes = PartSizesOf(value) + radii;
    return true;
}

// All but the value, with SweepDigits in force.
void SetSurroundings(ScratchScope& scope, Surroundings& around, const RootCluster& cluster,
                     const Polynomial& polynomial) {
    around.derivative = MakeDerivative(scope, polynomial, cluster.multiplicity);
    for (int64_t i = 0; i <= around.derivative.degree; i++) {
        ComplexNumber* coefficient = around.derivative.coefficients[i];
        ComplexMulUint(coefficient, coefficient, static_cast<uint64_t>(cluster.multiplicity));
    }
    around.center = TakeComplex(scope);
    ConvertComplex(around.center, cluster.center, cluster.layout);
    around.centerSizes = PartSizesOf(around.center);
    around.centerError = around.centerSizes * UnitOfLayout();
}

// distance = 1 - product.
void SetDistanceFromOne(ComplexNumber* distance, const ComplexNumber* product) {
    ScratchStackScope scope;
    ComplexNumber* one = TakeComplex(scope);
    RealSetOne(RealPart(one));
    ComplexClearImaginaryPart(one);
    ComplexSub(distance, one, product);
}

// Replaces `radii` by those of Krawczyk's operator, and `inverse`, y, by 1 / f'(c), about. False
// when f'(c) is 0, and after a stop.
bool Contract(PartSizes& radii, ComplexNumber* inverse, const Surroundings& around) {
    ScratchStackScope scope;
    ComplexNumber* derivative = TakeComplex(scope);
    ComplexNumber* product = TakeComplex(scope);
    PartSizes derivativeRadii{};
    if (!EvaluateBox(derivative, derivativeRadii, around.derivative, around.center,
                     radii + around.centerError) ||
        ComplexIsZero(derivative)) {
        return false;
    }
    ComplexReciprocal(inverse, derivative);
    const PartSizes y = PartSizesOf(inverse);
    ComplexMul(product, inverse, derivative);
    const PartSizes ofProduct = PartSizesOf(product);
    const PartSizes roundings =
        (y * PartSizesOf(derivative) + ofProduct + ofProduct) * UnitOfLayout();
    SetDistanceFromOne(product, product);
    // 1 - y f'(X).
    const PartSizes rest = PartSizesOf(product) + y * derivativeRadii + roundings;
    radii = (y * around.value + rest * radii) * MakeMagnitude(1 + MagnitudeMargin);
    return true;
}

bool IsInside(PartSizes a, PartSizes b) {
    return a.real < b.real && a.imaginary < b.imaginary;
}

// The smaller one of both, part by part.
PartSizes Smaller(PartSizes a, PartSizes b) {
    return {a.real < b.real ? a.real : b.real,
            a.imaginary < b.imaginary ? a.imaginary : b.imaginary};
}

// True when one part can still become smaller: it did, to half at least, and it is not below the
// digits of the centre yet.
bool IsWorthMore(Magnitude after, Magnitude before, Magnitude center, int64_t digits) {
    return after * MakeMagnitude(2) < before && !(after < center * MakeMagnitude(1, -digits));
}

// Makes the box of the enclosure smaller, as often as that helps; it is proven when it did once.
// False after a stop.
bool ShrinkBox(RootEnclosure& enclosure, ComplexNumber* inverse, const Surroundings& around,
               int64_t digitsOfCenter, ZeroParts zeros) {
    const PartSizes& center = around.centerSizes;
    for (int64_t i = 0; i < MaxContractions; i++) {
        const PartSizes before = enclosure.radii;
        PartSizes radii = before;
        if (!Contract(radii, inverse, around)) {
            return !StopRequested();
        }
        if (!enclosure.proven && !IsInside(radii, before)) {
            return true;
        }
        enclosure.proven = true;
        // Both boxes hold the root.
        radii = Smaller(radii, before);
        enclosure.radii = radii;
        const bool more =
            (!zeros.real && IsWorthMore(radii.real, before.real, center.real, digitsOfCenter)) ||
            (!zeros.imaginary &&
             IsWorthMore(radii.imaginary, before.imaginary, center.imaginary, digitsOfCenter));
        if (!more) {
            return true;
        }
    }
    return true;
}

}  // namespace

bool EncloseRoot(RootEnclosure& enclosure, const RootCluster& cluster, const Polynomial& polynomial,
                 const CoefficientErrors& errors, ZeroParts zeros) {
    TALLYMERE_REQUIRE(ClusterIsWellFormed(cluster, polynomial) && cluster.isOneRoot);
    enclosure = {false, {cluster.radius, cluster.radius}, {}};
    Surroundings around{};
    if (!BoundValue(around.value, cluster, polynomial)) {
        return false;
    }
    const DigitsScope digits(SweepDigits);
    ScratchStackScope scope;
    SetSurroundings(scope, around, cluster, polynomial);
    ComplexNumber* inverse = TakeComplex(scope);
    if (!ShrinkBox(enclosure, inverse, around, cluster.layout.digits, zeros)) {
        return false;
    }
    if (enclosure.proven && errors.any) {
        enclosure.shifts = FindPartShifts(errors, polynomial.degree, cluster.multiplicity - 1,
                                          around.center, inverse);
    }
    return true;
}

}  // namespace tallymere
