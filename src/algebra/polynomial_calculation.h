// One calculation with polynomials, of which every digit is right.
//
// The plain way of algebra/polynomial_arithmetic.h loses digits where terms cancel, and rounds the
// result of every step. So it decides about outcomes and codes alone: the digits come from a second
// pass at more digits, with bounds of its errors. A result is the true one, rounded once, half away
// from zero.
//
// Coefficients are exact, or rounded numbers with a bound of their errors, which is carried through
// the calculation. What is 0:
// - a part that is proven to be 0. Exact coefficients are decimal fractions, so what their sums and
//   products leave cannot be arbitrarily small;
// - a part that is within the error that rounded coefficients leave it:
//   (sqrt(2)*x + 1) * (-2*x + sqrt(2)) has no term in x.
#pragma once

#include <cstdint>

#include "algebra/magnitude.h"
#include "algebra/polynomial_arithmetic.h"

namespace tallymere {

/// How many operands there are; a quotient and a power take the fewest.
inline constexpr int32_t MinPolynomials = 2;
inline constexpr int32_t MaxPolynomials = 12;

enum class PolyOperator : int32_t { Plus, Minus, Times, Divide, Power };
inline constexpr PolyOperator PolyOperators[] = {PolyOperator::Plus, PolyOperator::Minus,
                                                 PolyOperator::Times, PolyOperator::Divide,
                                                 PolyOperator::Power};

struct PolyCalculation {
    PolyOperator operation;
    int64_t digits;  ///< of the result, at least 1 and below those of the layout
    int32_t count;   ///< of the operands that were taken
    PolyNumbers operands[MaxPolynomials];
    PolyNumbers result;     ///< or the quotient
    PolyNumbers remainder;  ///< of PolyOperator::Divide
    uint64_t exponent;      ///< of PolyOperator::Power, once its second operand was taken
    /// How far the parts of each coefficient may be off; 0 for exact ones.
    PartSizes errors[MaxPolynomials][PolyCoefficients];
    /// False when the errors of the coefficients leave open whether a part of the result is 0, or
    /// how it is rounded.
    bool isKnown;
};

/// A calculation without operands, with errors of 0, with memory for `operands` of them,
/// MinPolynomials to MaxPolynomials, from the scope.
PolyCalculation TakePolyCalculation(ScratchScope& scope, PolyOperator operation, int32_t operands,
                                    int64_t digits);

/// Where the values of the next operand are to be written, and where their errors.
PolyNumbers& NextOperand(PolyCalculation& calculation);
PartSizes* NextErrors(PolyCalculation& calculation);

/// Counts the operand that was written, and applies the operator to it and to what there is.
/// Quotients and powers take two operands, and the result is there with the second one. An exponent
/// becomes the nearest integer where that is within its error. What is not Done ends the
/// calculation.
PolyOutcome ApplyOperand(PolyCalculation& calculation);

/// Makes the digits of the result right, once all operands are taken. Done or Stopped.
///
/// Each pass has a bound of its errors, and passes get more digits until every part is known. A
/// part that is 0, or in the middle between two results, takes about n * (d + o) of them:
/// - d is the digits of the longest coefficient;
/// - o is the decimal orders from the largest coefficient to the least;
/// - n is 1 in a sum, the number of factors in a product or a power, q + 1 in a quotient of q
///   coefficients, and 2 * q + 1 in one of cplx.
/// So 3 factors of 20 digits with coefficients from 1 to 1,000 take about 3 * (20 + 3) = 69 digits.
/// MaxPrecisionDigits are the most: they suffice for 9 factors of 1,000 digits, and for all
/// products and powers of 480. Where they do not, a part is 0 if it is below 10^-9,990 of the sum
/// of the sizes of its terms, and one that is as close as that to a middle may be rounded to either
/// side.
///
/// Where coefficients are rounded, passes go on until the bound of what they leave of a part is the
/// larger one. A part that is then as close as that to 0 is 0, one that is as close to a middle
/// counts as the middle, and isKnown becomes false.
///
/// Operands that are not finite, or have exponents beyond MaxBoundedExponent
/// (algebra/polynomial_bounds.h), leave the result of the plain way. Where a code is noted already,
/// and for exact types, nothing is done.
PolyOutcome RefinePolynomials(PolyCalculation& calculation);

}  // namespace tallymere
