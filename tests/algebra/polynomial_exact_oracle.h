// Fractions of GMP as the judge of calculations with polynomials.
#pragma once

#include <gmpxx.h>

#include <array>
#include <cstdint>

#include "algebra/polynomial_calculation.h"
#include "core/complex_number.h"
#include "exact/rational_number.h"
#include "support/exact_oracle.h"
#include "support/gmp_oracle.h"
#include "values/value_operations.h"

namespace tallymere::testing_support {

struct ExactComplex {
    mpq_class re = 0;
    mpq_class im = 0;
    bool IsZero() const { return re == 0 && im == 0; }
};

inline ExactComplex operator+(const ExactComplex& a, const ExactComplex& b) {
    return {a.re + b.re, a.im + b.im};
}
inline ExactComplex operator-(const ExactComplex& a, const ExactComplex& b) {
    return {a.re - b.re, a.im - b.im};
}
inline ExactComplex operator*(const ExactComplex& a, const ExactComplex& b) {
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}
inline ExactComplex operator/(const ExactComplex& a, const ExactComplex& b) {
    const mpq_class square = b.re * b.re + b.im * b.im;
    const ExactComplex product = a * ExactComplex{b.re, -b.im};
    return {product.re / square, product.im / square};
}

using ExactPoly = std::array<ExactComplex, PolyCoefficients>;

inline mpq_class TenTo(int64_t k) {
    mpz_class power;
    mpz_ui_pow_ui(power.get_mpz_t(), 10, static_cast<uint64_t>(k < 0 ? -k : k));
    return k < 0 ? mpq_class(1, power) : mpq_class(power);
}

inline mpq_class ExactReal(const RealNumber* x) {
    if (RealIsZero(x)) {
        return 0;
    }
    Integer mantissa;
    ReadMantissa(mantissa, x);
    mpq_class value{mpz_class(static_cast<mpz_srcptr>(mantissa))};
    value *= TenTo(RealExponent(x) - numberContext.precisionDigits + 1);
    return RealSign(x) != 0 ? mpq_class(-value) : value;
}

/// The value of the number type in force.
inline ExactComplex ExactOf(const uint64_t* value) {
    if (numberContext.numberType == NumberTypeComplex) {
        return {ExactReal(RealPart(ComplexAt(value))), ExactReal(ImaginaryPart(ComplexAt(value)))};
    }
    if (numberContext.numberType == NumberTypeReal) {
        return {ExactReal(RealAt(value)), 0};
    }
    const RationalNumber* q = RationalAt(value);
    const LimbsView numerator(RationalNumerator(q));
    const LimbsView denominator(RationalDenominator(q));
    mpq_class fraction{mpz_class(static_cast<mpz_srcptr>(numerator)),
                       mpz_class(static_cast<mpz_srcptr>(denominator))};
    fraction.canonicalize();
    return {RationalSign(q) != 0 ? mpq_class(-fraction) : fraction, 0};
}

inline ExactPoly ExactOf(const PolyNumbers& polynomial) {
    ExactPoly exact;
    for (size_t i = 0; i < exact.size(); i++) {
        exact[i] = ExactOf(polynomial.coefficients[i]);
    }
    return exact;
}

inline int DegreeOf(const ExactPoly& a) {
    int degree = MaxPolyDegree;
    while (degree >= 0 && a[static_cast<size_t>(degree)].IsZero()) {
        degree--;
    }
    return degree;
}

/// The product, whose degree is at most MaxPolyDegree.
inline ExactPoly ExactProduct(const ExactPoly& a, const ExactPoly& b) {
    ExactPoly product;
    for (size_t i = 0; i < a.size(); i++) {
        for (size_t j = 0; !a[i].IsZero() && i + j < a.size(); j++) {
            product[i + j] = product[i + j] + a[i] * b[j];
        }
    }
    return product;
}

/// The result of a calculation, and the remainder of a quotient.
struct ExactResult {
    ExactPoly result;
    ExactPoly remainder;
};

inline void ExactDivision(ExactResult& exact, const ExactPoly& a, const ExactPoly& b) {
    const auto degree = static_cast<size_t>(DegreeOf(b));
    const ExactComplex highest = b[degree];
    exact = {.result = {}, .remainder = a};
    for (int k = DegreeOf(a); k >= static_cast<int>(degree); k--) {
        const auto at = static_cast<size_t>(k);
        const ExactComplex term = exact.remainder[at] / highest;
        exact.result[at - degree] = term;
        exact.remainder[at] = {};
        for (size_t j = 0; j < degree; j++) {
            ExactComplex& rest = exact.remainder[at - degree + j];
            rest = rest - b[j] * term;
        }
    }
}

inline ExactResult ExactCalculation(const PolyCalculation& calculation) {
    ExactResult exact;
    const ExactPoly first = ExactOf(calculation.operands[0]);
    if (calculation.operation == PolyOperator::Divide) {
        ExactDivision(exact, first, ExactOf(calculation.operands[1]));
        return exact;
    }
    if (calculation.operation == PolyOperator::Power) {
        exact.result[0].re = 1;
        for (uint64_t k = 0; k < calculation.exponent; k++) {
            exact.result = ExactProduct(exact.result, first);
        }
        return exact;
    }
    exact.result = first;
    for (int32_t k = 1; k < calculation.count; k++) {
        const ExactPoly operand = ExactOf(calculation.operands[k]);
        if (calculation.operation == PolyOperator::Times) {
            exact.result = ExactProduct(exact.result, operand);
            continue;
        }
        for (size_t i = 0; i < operand.size(); i++) {
            exact.result[i] = calculation.operation == PolyOperator::Plus
                                  ? exact.result[i] + operand[i]
                                  : exact.result[i] - operand[i];
        }
    }
    return exact;
}

/// The value rounded to so many digits, half away from zero.
inline mpq_class RoundedTo(const mpq_class& value, int64_t digits) {
    if (value == 0) {
        return 0;
    }
    const mpq_class magnitude = abs(value);
    auto exponent = static_cast<int64_t>(mpz_sizeinbase(magnitude.get_num_mpz_t(), 10)) -
                    static_cast<int64_t>(mpz_sizeinbase(magnitude.get_den_mpz_t(), 10)) + 1;
    while (magnitude < TenTo(exponent)) {
        exponent--;
    }
    const mpq_class unit = TenTo(exponent - digits + 1);
    const mpq_class units = magnitude / unit + mpq_class(1, 2);
    mpz_class whole;
    mpz_fdiv_q(whole.get_mpz_t(), units.get_num_mpz_t(), units.get_den_mpz_t());
    const mpq_class rounded = whole * unit;
    return value < 0 ? mpq_class(-rounded) : rounded;
}

}  // namespace tallymere::testing_support
