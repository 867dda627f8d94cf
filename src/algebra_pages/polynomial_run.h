// What the polynomials' page calculates: sums, products, quotients and powers of polynomials whose
// coefficients are formulas. The page and the console run it.
#pragma once

#include <cstdint>

#include "algebra/polynomial_calculation.h"
#include "algebra_pages/number_choice.h"
#include "algebra_pages/polynomial_lines.h"
#include "algebra_pages/result_store.h"
#include "core/number_setup.h"

namespace tallymere {

/// The lowest "Max. degree", and the one that the page begins with.
inline constexpr int32_t MinPolyMaxDegree = 1;
inline constexpr int32_t InitialPolyMaxDegree = 2;

/// The digits of the result, in real and cplx.
inline constexpr int32_t MinPolyDigits = MinChosenDigits;
inline constexpr int32_t MaxPolyDigits = MaxChosenDigits;

/// Digits that coefficients must be readable with, beyond those of the result. They are read with
/// more in the end.
inline constexpr int64_t PolyGuardDigits = 3;

struct PolynomialRequest {
    PolyOperator operation;
    int32_t count;      ///< of polynomials: MinPolynomials to MaxPolynomials
    int32_t maxDegree;  ///< coefficients above are 0, whatever their cells say: 0 to MaxPolyDegree
    NumberType type;    ///< rat, real or cplx
    int64_t digits;     ///< MinPolyDigits to MaxPolyDigits; fractions are exact
    uint32_t printFlags;  ///< TextGroup for group separators in the result, else 0
    /// Writes the text of a cell and a 0 behind it: polynomial 0 to count - 1, power 0 to
    /// maxDegree. There is room for CoefficientCharacters + 1 characters and the 0; a longer text
    /// is cut there. A cell may be read more than once.
    void (*readCell)(void* context, int32_t polynomial, int32_t power, char16_t* text);
    void* context;
};

/// True when a calculation takes so many polynomials: a quotient and a power take two, the others
/// as many as there are.
constexpr bool TakesPolynomials(PolyOperator operation, int32_t count) {
    const bool takesTwo = operation == PolyOperator::Divide || operation == PolyOperator::Power;
    return count >= MinPolynomials && count <= (takesTwo ? MinPolynomials : MaxPolynomials);
}

/// What coefficients are checked with.
NumberSetup PolynomialNumberSetup(const PolynomialRequest& request);

/// Raises the error that an outcome means to a user, and then a code of the arithmetic as
/// UiErrorCalculation; PolyOutcome::Done alone raises none. SameObject is UiErrorInternal, as a
/// product into one of its operands is a mistake of the program. DegreeTooHigh, ExponentRefused,
/// DivisionByZero and Stopped: see RunPolynomials.
void RaisePolyOutcome(PolyOutcome outcome);

/// Empties the store, reads the polynomials from the first one on, each from its highest power
/// down, calculates, hands the result over as PrintPolyResult does and keeps its texts. Clears what
/// was pending before. Runs under a number setup of its own, and needs a ScratchStack. True when
/// the result may be taken into the grid; otherwise an error is pending.
///
/// Real and complex coefficients are read with 38 and 76 digits more than the check has, or than
/// the longest cell has typed digits. A part with the same digits both times is exact, so that
/// 1+1e-200 may be 1; of others the error is known, see ReadCellWithError. Where these errors leave
/// open whether a part of the result is 0, or how it is rounded, all cells are read once more, with
/// 570 digits more and with 608 and those of the result. What is open then is 0, or counts as the
/// middle between two results. So what is left of terms that cancel is right, unless it is below
/// about 10^-570 of them: then it is 0. Degree, divisor 0 and exponent are those of the
/// coefficients that were read so; an error is that of the first cell or step that has one.
///
/// Errors: UiErrorPolynomialCoefficientTooLong and UiErrorPolynomialCoefficient with coefficient,
/// polynomial and the text of the formula's error; UiErrorPolynomialDegree with MaxPolyDegree;
/// UiErrorPolynomialNotInteger with "P1(x)" and MaxPolyExponent; UiErrorDivisionByZero;
/// UiErrorCalculation, also for digits beyond what the program calculates with;
/// UiErrorTextOverflow; and UiErrorStopped after a stop.
bool RunPolynomials(const PolynomialRequest& request, ResultStore& store, TakePolyText take,
                    void* takeContext);

}  // namespace tallymere
