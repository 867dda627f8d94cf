// Sums, products, quotients and powers of polynomials, over any number type that divides.
//
// This is the plain way: each operation works at the precision in force and rounds its result once
// more, to the digits that are asked for. algebra/polynomial_calculation.h calculates with these
// operations and has the right digits also where terms cancel.
#pragma once

#include <cstdint>

#include "core/scratch.h"

namespace tallymere {

inline constexpr int32_t MaxPolyDegree = 20;
inline constexpr int32_t PolyCoefficients = MaxPolyDegree + 1;

/// The largest exponent of a power.
inline constexpr uint64_t MaxPolyExponent = 20;

/// Values of the number type in force; index i belongs to x^i. Operands and results of one
/// operation have no value in common unless an operation says so.
struct PolyNumbers {
    uint64_t* coefficients[PolyCoefficients];
};

enum class PolyOutcome {
    Done,             ///< a CalcError may be noted
    SameObject,       ///< the result of a product is one of its operands
    DegreeTooHigh,    ///< the product has a degree above MaxPolyDegree
    ExponentRefused,  ///< the exponent is no constant, or no integer from 0 to MaxPolyExponent
    DivisionByZero,   ///< by the polynomial 0
    Stopped,          ///< a stop is asked for, which products and quotients poll
};

/// Takes the 21 values from the scope, each 0.
PolyNumbers AllocPolynomial(ScratchScope& scope);

void ClearPolynomial(PolyNumbers& dest);
void CopyPolynomial(PolyNumbers& dest, const PolyNumbers& source);

/// The highest index with a value other than 0, and -1 for the polynomial 0.
int32_t PolyDegree(const PolyNumbers& a);

/// Rounds all coefficients to so many significant digits; fractions stay as they are.
void RoundPolynomial(PolyNumbers& a, int64_t digits);

/// result = a + b, or a - b with `subtract`, rounded to `digits`, 1 or more. result may be a or b.
void AddPolynomials(PolyNumbers& result, const PolyNumbers& a, const PolyNumbers& b, bool subtract,
                    int64_t digits);

/// result = a * b, rounded to `digits`. SameObject leaves result as it is; DegreeTooHigh and
/// Stopped leave the terms that were added before. Every product and every sum of the terms is
/// rounded to the precision in force.
PolyOutcome MultiplyPolynomials(PolyNumbers& result, const PolyNumbers& a, const PolyNumbers& b,
                                int64_t digits);

/// result = result * b, likewise; result and b are apart.
PolyOutcome MultiplyPolynomialBy(PolyNumbers& result, const PolyNumbers& b, int64_t digits);

/// a = quotient * b + remainder, with a remainder of a lower degree than b; both are rounded to
/// `digits`. DivisionByZero makes the quotient 0 and the remainder a. A quotient that is an
/// operand, or the remainder, is left as it is, and so is the remainder: then the result is Done.
/// remainder may be a.
PolyOutcome DividePolynomials(PolyNumbers& quotient, PolyNumbers& remainder, const PolyNumbers& a,
                              const PolyNumbers& b, int64_t digits);

/// *exponent = the constant polynomial b as an exponent, or ExponentRefused. The constant must not
/// be negative; in cplx it must be real.
PolyOutcome ReadPolyExponent(uint64_t* exponent, const PolyNumbers& b);

/// result = a^exponent, exponent 0 to MaxPolyExponent, by exponent - 1 products, each rounded to
/// `digits`. The exponent 0 gives 1, also for a = 0. Outcomes of MultiplyPolynomials.
PolyOutcome RaisePolynomial(PolyNumbers& result, const PolyNumbers& a, uint64_t exponent,
                            int64_t digits);

}  // namespace tallymere
