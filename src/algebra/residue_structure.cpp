#include "algebra/residue_structure.h"

#include <algorithm>

#include "core/contract.h"
#include "core/wide_arithmetic.h"

namespace tallymere {

namespace {

// The largest primes below 2^63 that leave 3 modulo 4. -1 has no square root modulo one of them, so
// the numbers x + iy are a field.
constexpr uint64_t Primes[] = {9'223'372'036'854'775'783u, 9'223'372'036'854'775'643u,
                               9'223'372'036'854'775'507u};

uint64_t Add(uint64_t a, uint64_t b, uint64_t prime) {
    const uint64_t sum = a + b;
    return sum >= prime ? sum - prime : sum;
}
uint64_t Subtract(uint64_t a, uint64_t b, uint64_t prime) {
    return a >= b ? a - b : a + (prime - b);
}
uint64_t Multiply(uint64_t a, uint64_t b, uint64_t prime) {
    const Wide product = wide::Multiply(a, b);
    return product.low - wide::Divide(product, prime) * prime;
}
uint64_t Power(uint64_t base, uint64_t exponent, uint64_t prime) {
    uint64_t power = 1;
    for (; exponent != 0; exponent >>= 1) {
        if ((exponent & 1) != 0) {
            power = Multiply(power, base, prime);
        }
        base = Multiply(base, base, prime);
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
Residue Add(Residue a, Residue b, uint64_t prime) {
    return {Add(a.x, b.x, prime), Add(a.y, b.y, prime)};
}
Residue Subtract(Residue a, Residue b, uint64_t prime) {
    return {Subtract(a.x, b.x, prime), Subtract(a.y, b.y, prime)};
}
Residue Multiply(Residue a, Residue b, uint64_t prime) {
    return {Subtract(Multiply(a.x, b.x, prime), Multiply(a.y, b.y, prime), prime),
            Add(Multiply(a.x, b.y, prime), Multiply(a.y, b.x, prime), prime)};
}
Residue Inverse(Residue a, uint64_t prime) {
    const uint64_t norm = Add(Multiply(a.x, a.x, prime), Multiply(a.y, a.y, prime), prime);
    const uint64_t inverse = Power(norm, prime - 2, prime);
    return {Multiply(a.x, inverse, prime), Multiply(Subtract(0, a.y, prime), inverse, prime)};
}

// The residue of a finite number in the layout in force.
uint64_t ResidueOf(const RealNumber* number, uint64_t prime) {
    if (RealIsZero(number)) {
        return 0;
    }
    // Exact coefficients end long before the layout does.
    int64_t limbs = numberContext.realLimbs;
    while (RealLimbs(number)[limbs - 1] == 0) {
        limbs--;
    }
    const uint64_t base = PowerOfTen(DigitsPerLimb) % prime;
    uint64_t mantissa = 0;
    for (int64_t i = 0; i < limbs; i++) {
        mantissa = Add(Multiply(mantissa, base, prime), RealLimbs(number)[i] % prime, prime);
    }
    const int64_t digits =
        numberContext.precisionDigits - (numberContext.realLimbs - limbs) * DigitsPerLimb;
    const int64_t order = RealExponent(number) - digits + 1;
    const auto period = static_cast<int64_t>(prime - 1);
    const int64_t exponent = order % period + (order < 0 ? period : 0);
    const uint64_t value =
        Multiply(mantissa, Power(10, static_cast<uint64_t>(exponent), prime), prime);
    return RealSign(number) != 0 ? Subtract(0, value, prime) : value;
}

struct ResiduePolynomial {
    uint64_t prime;
    int64_t degree;  // -1 for the polynomial 0
    Residue coefficients[MaxEquationDegree + 1];
};

void Trim(ResiduePolynomial& a) {
    while (a.degree >= 0 && IsZero(a.coefficients[a.degree])) {
        a.degree--;
    }
}

ResiduePolynomial ResiduesOf(const Polynomial& polynomial, uint64_t prime) {
    const DigitsScope digits(polynomial.layout.digits);
    ResiduePolynomial residues{prime, polynomial.degree, {}};
    for (int64_t i = 0; i <= polynomial.degree; i++) {
        const ComplexNumber* coefficient = polynomial.coefficients[i];
        residues.coefficients[i] = {ResidueOf(RealPart(coefficient), prime),
                                    ResidueOf(ImaginaryPart(coefficient), prime)};
    }
    return residues;
}

ResiduePolynomial DerivativeOf(const ResiduePolynomial& a) {
    ResiduePolynomial derivative{a.prime, a.degree - 1, {}};
    for (int64_t i = 1; i <= a.degree; i++) {
        const Residue factor{static_cast<uint64_t>(i), 0};
        derivative.coefficients[i - 1] = Multiply(a.coefficients[i], factor, a.prime);
    }
    return derivative;
}

// a becomes the remainder of a by b, which is not 0.
void ReduceBy(ResiduePolynomial& a, const ResiduePolynomial& b) {
    const Residue inverse = Inverse(b.coefficients[b.degree], b.prime);
    for (; a.degree >= b.degree; Trim(a)) {
        const Residue factor = Multiply(a.coefficients[a.degree], inverse, a.prime);
        const int64_t shift = a.degree - b.degree;
        for (int64_t i = 0; i <= b.degree; i++) {
            Residue& coefficient = a.coefficients[i + shift];
            coefficient =
                Subtract(coefficient, Multiply(factor, b.coefficients[i], a.prime), a.prime);
        }
    }
}

// Of two polynomials that are not both 0.
int64_t DegreeOfCommonDivisor(ResiduePolynomial a, ResiduePolynomial b) {
    Trim(a);
    Trim(b);
    while (b.degree >= 0) {
        ReduceBy(a, b);
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
            const Residue product = Multiply(a.coefficients[i + 1], center, a.prime);
            a.coefficients[i] = Add(a.coefficients[i], product, a.prime);
        }
    }
}

// P(x) becomes P(ix).
void TurnRight(ResiduePolynomial& a) {
    Residue power{1, 0};
    for (int64_t i = 0; i <= a.degree; i++) {
        a.coefficients[i] = Multiply(a.coefficients[i], power, a.prime);
        power = Multiply(power, {0, 1}, a.prime);
    }
}

int64_t DegreeOfRepeatedPart(const ResiduePolynomial& residues) {
    return DegreeOfCommonDivisor(residues, DerivativeOf(residues));
}

// On the line, which becomes the real axis, P is A + iB with real coefficients. A root and its
// mirror image are roots of both.
int64_t DegreeOfMirroredPart(ResiduePolynomial& residues, NumberPart part, uint64_t center) {
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

// The least degree over the primes that do not divide the highest coefficient; 0 where all do.
template <typename FindDegree>
int64_t LeastDegree(const Polynomial& polynomial, FindDegree findDegree) {
    int64_t least = -1;
    for (const uint64_t prime : Primes) {
        ResiduePolynomial residues = ResiduesOf(polynomial, prime);
        if (IsZero(residues.coefficients[residues.degree])) {
            continue;
        }
        const int64_t degree = findDegree(residues);
        least = least < 0 ? degree : std::min(least, degree);
    }
    return std::max<int64_t>(least, 0);
}

}  // namespace

int64_t CountDistinctRoots(const Polynomial& polynomial) {
    TALLYMERE_REQUIRE(PolynomialIsWellFormed(polynomial) && polynomial.degree >= 1);
    return polynomial.degree - LeastDegree(polynomial, [](const ResiduePolynomial& residues) {
               return DegreeOfRepeatedPart(residues);
           });
}

int64_t CountMirroredRoots(const Polynomial& polynomial, NumberPart part,
                           const RealNumber* position) {
    TALLYMERE_REQUIRE(PolynomialIsWellFormed(polynomial));
    TALLYMERE_REQUIRE(RealIsWellFormed(position) && RealIsFinite(position));
    return LeastDegree(polynomial, [&](ResiduePolynomial& residues) {
        return DegreeOfMirroredPart(residues, part, ResidueOf(position, residues.prime));
    });
}

}  // namespace tallymere
