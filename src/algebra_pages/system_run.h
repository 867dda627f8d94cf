// What the page of linear systems calculates: the unknowns of a system whose coefficients are
// formulas. The page and the console run it.
#pragma once

#include <cstdint>

#include "algebra_pages/number_choice.h"
#include "algebra_pages/system_columns.h"
#include "core/number_setup.h"

namespace tallymere {

/// The digits of the unknowns.
inline constexpr int32_t MinSystemDigits = MinChosenDigits;
inline constexpr int32_t MaxSystemDigits = MaxChosenDigits;

/// Characters of a line that shows an unknown. A longer one ends in an ellipsis.
inline constexpr int64_t SystemLineCharacters = 10'000;

struct SystemRequest {
    int32_t count;    ///< of equations, MinEquationCount to MaxEquationCount
    NumberType type;  ///< rat, real or cplx
    int64_t digits;   ///< MinSystemDigits to MaxSystemDigits; fractions are exact
    bool grouped;     ///< with thousands separators, see Settings::groupEquations
    /// Writes the text of a cell and a 0 behind it: row 0 to count - 1, column 0 to count - 1, and
    /// column count for the right side. There is room for CoefficientCharacters + 1 characters and
    /// the 0; a longer text is cut there. A cell may be read more than once.
    void (*readCell)(void* context, int32_t row, int32_t column, char16_t* text);
    void* context;
};

/// Takes the text of the result, which ends with a 0 and is there during the call alone.
using TakeSystemText = void (*)(void* context, const char16_t* text);

/// What a request is calculated with at first: so many digits that the rounding errors of the steps
/// stay behind those asked for.
NumberSetup SystemNumberSetup(const SystemRequest& request);

/// Reads the coefficients, row by row, and hands over the result as one text: a line for each
/// unknown and what is to be said of parameters, or one line that there is no solution. Lines end
/// with "\r\n". Runs under number setups of its own, and needs a ScratchStack.
///
/// What fails is pending as a UiError. Nothing is handed over then, but with UiErrorTextOverflow: a
/// line was too long. UiErrorEquationCoefficientTooLong and UiErrorEquationCoefficient come with
/// the equation, the column and, the latter, the text of the formula's error. UiErrorCalculation,
/// UiErrorInternal for a wrong count, UiErrorStopped after a stop.
///
/// Real and complex systems are solved with the digits of SystemNumberSetup, and then with 38 more.
/// That run nearly always proves that its text is right to the last digit, also for systems of bad
/// condition; see isCertain in algebra/linear_system.h, which also says what is taken for 0. Where
/// it does not, as for equal candidates for a pivot behind the first column, or a rounding that is
/// a tie, runs with more digits follow until one is certain, or two show the same text. So that no
/// two agree on rounding errors, they have the more digits, the longer the cells are, the further
/// the sizes of coefficients are from 1 and from each other, and the more equations there are: up
/// to 8,826 beyond. So that no two agree on what the reading of a cell is off, cells such as 1/3
/// are read anew in between, with more digits. Where no two agree, UiErrorCalculation comes
/// instead of digits that may be wrong: as for a second equation that is a multiple of the first
/// one, with coefficients beyond 10^8788.
///
/// An error of the first run is that of the request; a later run that fails where the first did not
/// changes nothing. All later runs take numbers that were read with 1,254 digits more at least. A
/// part that is no larger than its error there is 0, such as that of 1/3*3-1; what cancels within a
/// cell by more digits, as in 10^2000+1-10^2000, is lost.
void RunSystem(const SystemRequest& request, TakeSystemText take, void* takeContext);

}  // namespace tallymere
