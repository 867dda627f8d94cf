#include "algebra/root_enclosure.h"

#include "core/complex_arithmetic.h"

namespace tallymere {

namespace {

// Contractions of one box. Each brings the bound of a part that is far below the other one down by
// some 37 digits, as far as 10^-1,000,000 of the other one.
constexpr int64_t MaxContractions = 30'000;

// Roundings count as a whole unit of the last place, with room for those of sizes.
constexpr double RoundingUnits = 1.5;

struct PartSizes {
    Magnitude real;
    Magnitude imaginary;
};

PartSizes SizesOf(const ComplexNumber* z) {
    return {MagnitudeOf(RealPart(z)), MagnitudeOf(ImaginaryPart(z))};
}

Magnitude UnitOfLayout() {
    return MakeMagnitude(RoundingUnits, 1 - numberContext.precisionDigits);
}

// value = P(z) for any z' within `reach` of z: `radii` become bounds of the error of each part.
// Coefficients may be off by two units. False when a stop was requested.
bool EvaluateBox(ComplexNumber* value, PartRadii& radii, const Polynomial& polynomial,
                 const ComplexNumber* z, const PartRadii& reach) {
    const Magnitude unit = UnitOfLayout();
    const Magnitude ofCoefficient = unit + unit;
    const PartSizes at = SizesOf(z);
    ComplexCopy(value, polynomial.coefficients[polynomial.degree]);
    PartSizes s = SizesOf(value);
    radii = {s.real * ofCoefficient, s.imaginary * ofCoefficient};
    for (int64_t i = polynomial.degree - 1; i >= 0; i--) {
        if (StopRequested()) {
            return false;
        }
        // The four products, with what radii and roundings add to them.
        const Magnitude fromReal = radii.real * (at.real + reach.real) + s.real * reach.real;
        const Magnitude fromImaginary =
            radii.imaginary * (at.imaginary + reach.imaginary) + s.imaginary * reach.imaginary;
        const Magnitude crossReal =
            radii.real * (at.imaginary + reach.imaginary) + s.real * reach.imaginary;
        const Magnitude crossImaginary =
            radii.imaginary * (at.real + reach.real) + s.imaginary * reach.real;
        // Each product and their sum are rounded; the sum is no larger than the products.
        const Magnitude realTerms = s.real * at.real + s.imaginary * at.imaginary;
        const Magnitude imaginaryTerms = s.real * at.imaginary + s.imaginary * at.real;
        radii.real = fromReal + fromImaginary + (realTerms + realTerms) * unit;
        radii.imaginary = crossReal + crossImaginary + (imaginaryTerms + imaginaryTerms) * unit;
        ComplexMul(value, value, z);
        ComplexAdd(value, value, polynomial.coefficients[i]);
        s = SizesOf(value);
        const PartSizes added = SizesOf(polynomial.coefficients[i]);
        radii.real = radii.real + added.real * ofCoefficient + s.real * unit;
        radii.imaginary = radii.imaginary + added.imaginary * ofCoefficient + s.imaginary * unit;
    }
    return true;
}

// f and f' around the centre. f is the derivative of the polynomial of order m - 1.
struct Surroundings {
    PartSizes value;   // the most that |f(c)| can be, part by part
    Polynomial slope;  // f' at SweepDigits, as all that follows
    ComplexNumber* center;
    PartRadii centerError;
};

bool TakeValue(PartSizes& sizes, const RootCluster& cluster, const Polynomial& polynomial) {
    const DigitsScope digits(cluster.layout.digits);
    ScratchStackScope scope;
    const Polynomial derivative = TakeDerivative(scope, polynomial, cluster.multiplicity - 1);
    ComplexNumber* value = TakeComplex(scope);
    PartRadii radii{};
    if (!EvaluateBox(value, radii, derivative, cluster.center, {})) {
        return false;
    }
    sizes = SizesOf(value);
    sizes.real = sizes.real + radii.real;
    sizes.imaginary = sizes.imaginary + radii.imaginary;
    return true;
}

// Replaces `radii` by those of Krawczyk's operator, and `inverse` by 1 / f'(c), about. False when
// f'(c) is 0, and after a stop.
bool Contract(PartRadii& radii, ComplexNumber* inverse, const Surroundings& around) {
    ScratchStackScope scope;
    ComplexNumber* slope = TakeComplex(scope);
    ComplexNumber* rest = TakeComplex(scope);
    const PartRadii reach = {radii.real + around.centerError.real,
                             radii.imaginary + around.centerError.imaginary};
    PartRadii slopeRadii{};
    if (!EvaluateBox(slope, slopeRadii, around.slope, around.center, reach) ||
        ComplexIsZero(slope)) {
        return false;
    }
    ComplexReciprocal(inverse, slope);
    const PartSizes y = SizesOf(inverse);
    const PartSizes g = SizesOf(slope);
    ComplexMul(rest, inverse, slope);
    const PartSizes product = SizesOf(rest);
    ComplexNumber* one = TakeComplex(scope);
    RealSetOne(RealPart(one));
    ComplexClearImaginaryPart(one);
    ComplexSub(rest, one, rest);
    const Magnitude unit = UnitOfLayout();
    const PartSizes distance = SizesOf(rest);
    // 1 - y f'(X).
    const Magnitude real =
        distance.real + y.real * slopeRadii.real + y.imaginary * slopeRadii.imaginary +
        (y.real * g.real + y.imaginary * g.imaginary + product.real + product.real) * unit;
    const Magnitude imaginary =
        distance.imaginary + y.real * slopeRadii.imaginary + y.imaginary * slopeRadii.real +
        (y.real * g.imaginary + y.imaginary * g.real + product.imaginary + product.imaginary) *
            unit;
    const Magnitude margin = MakeMagnitude(1 + MagnitudeMargin);
    const PartSizes& f = around.value;
    const PartRadii before = radii;
    radii.real = (y.real * f.real + y.imaginary * f.imaginary + real * before.real +
                  imaginary * before.imaginary) *
                 margin;
    radii.imaginary = (y.real * f.imaginary + y.imaginary * f.real + real * before.imaginary +
                       imaginary * before.real) *
                      margin;
    return true;
}

bool IsInside(const PartRadii& a, const PartRadii& b) {
    return a.real < b.real && a.imaginary < b.imaginary;
}

// True when one part can still become smaller: it did, to half at least, and it is not below the
// digits of the centre yet.
bool IsWorthMore(Magnitude after, Magnitude before, Magnitude center, int64_t digits) {
    return after * MakeMagnitude(2) < before && !(after < center * MakeMagnitude(1, -digits));
}

}  // namespace

bool EncloseRoot(RootEnclosure& enclosure, const RootCluster& cluster, const Polynomial& polynomial,
                 const CoefficientErrors& errors, ZeroParts zeros) {
    enclosure = {false, {cluster.radius, cluster.radius}, {}};
    const int64_t m = cluster.multiplicity;
    Surroundings around{};
    if (!TakeValue(around.value, cluster, polynomial)) {
        return false;
    }
    const DigitsScope digits(SweepDigits);
    ScratchStackScope scope;
    around.slope = TakeDerivative(scope, polynomial, m);
    for (int64_t i = 0; i <= around.slope.degree; i++) {
        ComplexNumber* coefficient = around.slope.coefficients[i];
        ComplexMulUint(coefficient, coefficient, static_cast<uint64_t>(m));
    }
    around.center = TakeComplex(scope);
    ConvertComplex(around.center, cluster.center, cluster.layout);
    const PartSizes c = SizesOf(around.center);
    around.centerError = {c.real * UnitOfLayout(), c.imaginary * UnitOfLayout()};
    ComplexNumber* inverse = TakeComplex(scope);
    PartRadii radii = enclosure.radii;
    for (int64_t i = 0; i < MaxContractions; i++) {
        const PartRadii before = radii;
        if (!Contract(radii, inverse, around)) {
            return !StopRequested();
        }
        if (!enclosure.proven && !IsInside(radii, before)) {
            return true;
        }
        enclosure.proven = true;
        // Both boxes hold the root.
        radii.real = before.real < radii.real ? before.real : radii.real;
        radii.imaginary = before.imaginary < radii.imaginary ? before.imaginary : radii.imaginary;
        enclosure.radii = radii;
        const int64_t digitsOfCenter = cluster.layout.digits;
        const bool more =
            (!zeros.real && IsWorthMore(radii.real, before.real, c.real, digitsOfCenter)) ||
            (!zeros.imaginary &&
             IsWorthMore(radii.imaginary, before.imaginary, c.imaginary, digitsOfCenter));
        if (!more) {
            break;
        }
    }
    if (errors.any) {
        const PartShifts shifts =
            FindPartShifts(errors, polynomial.degree, m - 1, around.center, inverse);
        enclosure.shifts = {shifts.real, shifts.imaginary};
    }
    return true;
}

}  // namespace tallymere
