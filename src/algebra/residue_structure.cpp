#include "algebra/residue_structure.h"

#include "core/wide_arithmetic.h"

namespace tallymere {

namespace {

// 2^63 - 25, the largest prime below 2^63. It leaves 3 modulo 4, so -1 has no square root modulo
// it, and the numbers x + iy are a field.
constexpr uint64_t Prime = 9'223'372'036'854'775'783u;
static_assert(Prime % 4 == 3);

uint64_t Add(uint64_t a, uint64_t b) {
    const uint64_t sum = a + b;
    return sum >= Prime ? sum - Prime : sum;
}
uint64_t Subtract(uint64_t a, uint64_t b) {
    return a >= b ? a - b : a + (Prime - b);
}
uint64_t Multiply(uint64_t a, uint64_t b) {
    const Wide product = wide::Multiply(a, b);
    return product.low - wide::Divide(product, Prime) * Prime;
}
uint64_t Power(uint64_t base, uint64_t exponent) {
    uint64_t power = 1;
    for (; exponent != 0; exponent >>= 1) {
        if ((exponent & 1) != 0) {
            power = Multiply(power, base);
        }
        base = Multiply(base, base);
    }
    return power;
}

// x + iy.
struct Residue {
    uint64_t x = 0;
    uint64_t y = 0;
};

bool IsZero(Residue a) {
    return a.x == 0 && a.y == 0;
}
Residue Add(Residue a, Residue b) {
    return {Add(a.x, b.x), Add(a.y, b.y)};
}
Residue Subtract(Residue a, Residue b) {
    return {Subtract(a.x, b.x), Subtract(a.y, b.y)};
}
Residue Multiply(Residue a, Residue b) {
    return {Subtract(Multiply(a.x, b.x), Multiply(a.y, b.y)),
            Add(Multiply(a.x, b.y), Multiply(a.y, b.x))};
}
Residue Inverse(Residue a) {
    const uint64_t norm = Add(Multiply(a.x, a.x), Multiply(a.y, a.y));
    const uint64_t inverse = Power(norm, Prime - 2);
    return {Multiply(a.x, inverse), Multiply(Subtract(0, a.y), inverse)};
}

// The residue of a finite number in the layout in force.
uint64_t ResidueOf(const RealNumber* number) {
    if (RealIsZero(number)) {
        return 0;
    }
    uint64_t mantissa = 0;
    for (int64_t i = 0; i < numberContext.realLimbs; i++) {
        const uint64_t base = PowerOfTen(DigitsPerLimb) % Prime;
        mantissa = Add(Multiply(mantissa, base), RealLimbs(number)[i] % Prime);
    }
    const int64_t order = RealExponent(number) - numberContext.precisionDigits + 1;
    const auto period = static_cast<int64_t>(Prime - 1);
    const int64_t exponent = order % period + (order < 0 ? period : 0);
    const uint64_t value = Multiply(mantissa, Power(10, static_cast<uint64_t>(exponent)));
    return RealSign(number) != 0 ? Subtract(0, value) : value;
}

struct ResiduePolynomial {
    int64_t degree;  // -1 for the polynomial 0
    Residue coefficients[MaxEquationDegree + 1];
};

void Trim(ResiduePolynomial& a) {
    while (a.degree >= 0 && IsZero(a.coefficients[a.degree])) {
        a.degree--;
    }
}

ResiduePolynomial ResiduesOf(const Polynomial& polynomial) {
    const DigitsScope digits(polynomial.layout.digits);
    ResiduePolynomial residues{polynomial.degree, {}};
    for (int64_t i = 0; i <= polynomial.degree; i++) {
        const ComplexNumber* coefficient = polynomial.coefficients[i];
        residues.coefficients[i] = {ResidueOf(RealPart(coefficient)),
                                    ResidueOf(ImaginaryPart(coefficient))};
    }
    return residues;
}

ResiduePolynomial DerivativeOf(const ResiduePolynomial& a) {
    ResiduePolynomial derivative{a.degree - 1, {}};
    for (int64_t i = 1; i <= a.degree; i++) {
        const Residue factor{static_cast<uint64_t>(i), 0};
        derivative.coefficients[i - 1] = Multiply(a.coefficients[i], factor);
    }
    return derivative;
}

// a becomes the remainder of a by b, which is not 0.
void TakeRemainder(ResiduePolynomial& a, const ResiduePolynomial& b) {
    const Residue inverse = Inverse(b.coefficients[b.degree]);
    for (; a.degree >= b.degree; Trim(a)) {
        const Residue factor = Multiply(a.coefficients[a.degree], inverse);
        const int64_t shift = a.degree - b.degree;
        for (int64_t i = 0; i <= b.degree; i++) {
            Residue& coefficient = a.coefficients[i + shift];
            coefficient = Subtract(coefficient, Multiply(factor, b.coefficients[i]));
        }
    }
}

// Of two polynomials that are not both 0.
int64_t DegreeOfCommonDivisor(ResiduePolynomial a, ResiduePolynomial b) {
    Trim(a);
    Trim(b);
    while (b.degree >= 0) {
        TakeRemainder(a, b);
        const ResiduePolynomial rest = a;
        a = b;
        b = rest;
    }
    return a.degree;
}

// P(x) becomes P(x + center).
void Expand(ResiduePolynomial& a, Residue center) {
    for (int64_t j = 0; j < a.degree; j++) {
        for (int64_t i = a.degree - 1; i >= j; i--) {
            a.coefficients[i] = Add(a.coefficients[i], Multiply(a.coefficients[i + 1], center));
        }
    }
}

// P(x) becomes P(ix).
void TurnRight(ResiduePolynomial& a) {
    Residue power{1, 0};
    for (int64_t i = 0; i <= a.degree; i++) {
        a.coefficients[i] = Multiply(a.coefficients[i], power);
        power = Multiply(power, {0, 1});
    }
}

}  // namespace

int64_t CountDistinctRoots(const Polynomial& polynomial) {
    const ResiduePolynomial residues = ResiduesOf(polynomial);
    return polynomial.degree - DegreeOfCommonDivisor(residues, DerivativeOf(residues));
}

// On the line, which becomes the real axis, P is A + iB with real coefficients. A root and its
// mirror image are roots of both.
int64_t CountMirroredRoots(const Polynomial& polynomial, NumberPart part,
                           const RealNumber* position) {
    ResiduePolynomial residues = ResiduesOf(polynomial);
    const uint64_t center = ResidueOf(position);
    Expand(residues, part == NumberPart::Real ? Residue{center, 0} : Residue{0, center});
    if (part == NumberPart::Real) {
        TurnRight(residues);
    }
    ResiduePolynomial real = residues;
    ResiduePolynomial imaginary = residues;
    for (int64_t i = 0; i <= residues.degree; i++) {
        real.coefficients[i].y = 0;
        imaginary.coefficients[i] = {residues.coefficients[i].y, 0};
    }
    return DegreeOfCommonDivisor(real, imaginary);
}

}  // namespace tallymere
