// What the page of linear systems calculates: the unknowns of a system whose coefficients are
// formulas. The page and the console run it.
#pragma once

#include <cstdint>

#include "algebra_pages/system_columns.h"
#include "core/number_setup.h"

namespace tallymere {

/// The digits of the unknowns.
inline constexpr int32_t MinSystemDigits = 5;
inline constexpr int32_t MaxSystemDigits = 1000;

/// The limbs and the decimal digits of numerators and denominators.
inline constexpr UintWidth SystemWidth = {500, 26};

/// Characters of a line that shows an unknown. A longer one ends in an ellipsis.
inline constexpr int64_t SystemLineCharacters = 10'000;

struct SystemRequest {
    int32_t count;    ///< of equations, MinEquationCount to MaxEquationCount
    NumberType type;  ///< rat, real or cplx
    int64_t digits;   ///< MinSystemDigits to MaxSystemDigits; fractions are exact
    /// Writes the text of a cell and a 0 behind it: row 0 to count - 1, column 0 to count - 1, and
    /// column count for the right side. There is room for CoefficientCharacters + 1 characters and
    /// the 0; a longer text is cut there. A cell may be read more than once.
    void (*readCell)(void* context, int32_t row, int32_t column, char16_t* text);
    void* context;
};

/// Takes the next characters of the result, which end with a 0 and are there during the call alone.
using TakeSystemText = void (*)(void* context, const char16_t* text);

/// What a request is calculated with at first: so many digits that the rounding errors of the steps
/// stay behind those asked for.
NumberSetup SystemNumberSetup(const SystemRequest& request);

/// Reads the coefficients, row by row, and hands over one line for each unknown, which ends with
/// "\r\n", and what is to be said of parameters; or one line that says that there is no solution.
/// Runs under number setups of its own, and needs a ScratchStack.
///
/// What fails is pending as a UiError. Nothing is handed over then, but after UiErrorTextOverflow,
/// which a line raises that is too long. UiErrorEquationCoefficientTooLong and
/// UiErrorEquationCoefficient come with the equation, the column and the text of the formula's
/// error; UiErrorCalculation, UiErrorInternal for a wrong count, and UiErrorStopped after a stop.
///
/// Real and complex systems are solved with the digits of SystemNumberSetup and again with more,
/// until two runs agree in all that is shown, so the digits are right also for systems of bad
/// condition. algebra/linear_system.h says what is taken for 0. Where no two runs agree, the last
/// one is shown. An error of the first run is the error of the request; a later run that fails
/// where the first did not leaves the result as it was.
void RunSystem(const SystemRequest& request, TakeSystemText take, void* takeContext);

}  // namespace tallymere
