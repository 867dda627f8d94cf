// Polynomials with decimal coefficients at any number of digits: their values, derivatives and
// expansions around a point.
#pragma once

#include <cstdint>

#include "algebra/magnitude.h"
#include "algebra/solution_set.h"
#include "core/scratch.h"

namespace tallymere {

/// Puts the layout of so many digits, 1 or more, in force until the end of its life.
class DigitsScope {
public:
    explicit DigitsScope(int64_t digits) { InstallRealLayout(LayoutForDigits(digits)); }

private:
    RealLayoutScope saved_;
};

/// True when the number, or both parts of one in the layout in force, is neither infinite nor NaN.
bool RealIsFinite(const RealNumber* x);
bool ComplexIsFinite(const ComplexNumber* z);

/// Takes a number of so many digits, or of the layout in force.
ComplexNumber* TakeComplex(ScratchScope& scope, int64_t digits);
ComplexNumber* TakeComplex(ScratchScope& scope);

/// Writes src, a number of layout `source`, to dest in the layout in force, both parts rounded;
/// they must have no word in common.
void ConvertComplex(ComplexNumber* dest, const ComplexNumber* src, RealLayout source);

/// A polynomial whose numbers are in a layout of its own.
struct Polynomial {
    int64_t degree;  ///< 0 to MaxEquationDegree
    RealLayout layout;
    ComplexNumber* coefficients[MaxEquationDegree + 1];  ///< index 0 the constant
};

/// True when the degree is in its range, the coefficients up to it are well-formed and finite, and
/// the highest of them is not 0.
bool PolynomialIsWellFormed(const Polynomial& polynomial);

/// A polynomial of that degree in the layout in force, without values.
Polynomial TakePolynomial(ScratchScope& scope, int64_t degree);

/// The polynomial with its coefficients in the layout in force, rounded.
Polynomial CopyPolynomial(ScratchScope& scope, const Polynomial& polynomial);

/// The derivative of that order, 0 to the degree, divided by the factorial of the order, in the
/// layout in force: coefficient i is that of i + order times the binomial coefficient. Every part
/// is rounded twice at most.
Polynomial MakeDerivative(ScratchScope& scope, const Polynomial& polynomial, int64_t order);

/// Writes P(z) and, where `derivative` is not null, P'(z); all in the layout in force and apart.
/// Method: Horner. False when a stop was requested, which is polled at each coefficient.
bool EvaluatePolynomial(ComplexNumber* value, ComplexNumber* derivative,
                        const Polynomial& polynomial, const ComplexNumber* z);

/// The sum of sizes[i] * |z|^i.
Magnitude EvaluateSizes(const Magnitude* sizes, int64_t degree, Magnitude z);

/// The sizes of all coefficients, in the polynomial's layout.
void FindSizes(Magnitude* sizes, const Polynomial& polynomial);

/// Replaces a polynomial in the layout in force by its expansion around z: the coefficients of
/// P(z + x). Method: repeated division by Horner's scheme. False when a stop was requested, which
/// is polled at each step.
bool ExpandAround(Polynomial& polynomial, const ComplexNumber* z);

/// The same for sizes, with |z|. Sizes of errors move in this way, and so do bounds of the error of
/// ExpandAround: it is at most ExpansionError units of 10^(1 - digits), relatively to the sizes of
/// the coefficients, expanded around |z|.
void ExpandSizes(Magnitude* sizes, int64_t degree, Magnitude z);
inline constexpr double ExpansionError = 100;

}  // namespace tallymere
