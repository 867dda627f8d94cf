// UiError: the one pending error that the user is to see.
//
// Whatever goes wrong anywhere ends here. The first error wins, and one report shows it and clears
// everything. A run that the user stops ends with UiErrorStopped, which is reported by silence. Two
// threads raise and poll errors, so the code is read and written atomically.
#pragma once

#include <cstdint>

#include "core/limits.h"

namespace tallymere {

/// What went wrong; the comments name the arguments that the code's message wants, in order.
/// shell/ui_message.h finds the message. Any other value is an unknown error.
enum UiErrorCode : int32_t {
    UiErrorNone = 0,

    UiErrorInvalidInput = 1000,  ///< the input
    UiErrorCalculation = 1001,
    UiErrorDivisionByZero = 1002,
    UiErrorInputTooLong = 1003,
    UiErrorFileNotFound = 1005,  ///< the path
    UiErrorFileAccess = 1006,    ///< the path
    UiErrorFormula = 1007,       ///< the formula error's text
    UiErrorSeparators = 1100,
    UiErrorSettingsNotSaved = 1200,  ///< the path
    UiErrorVariableName = 1300,      ///< the name

    UiErrorHighestCoefficientZero = 2000,  ///< the coefficient's label
    UiErrorNotConverged = 2001,
    UiErrorCoefficient = 2002,         ///< the label, the formula error's text
    UiErrorCoefficientNotReal = 2003,  ///< the label
    UiErrorExactOverflow = 2004,
    UiErrorCoefficientNotRational = 2005,  ///< the label
    UiErrorCoefficientTooLong = 2006,      ///< the label

    UiErrorPrimeNumberOverflow = 3000,
    UiErrorPrimeFactorOverflow = 3100,
    UiErrorTooManyPrimeFactors = 3101,  ///< the number

    UiErrorPolynomialCoefficient = 3300,         ///< coefficient, polynomial, formula error's text
    UiErrorPolynomialCoefficientTooLong = 3301,  ///< coefficient, polynomial
    UiErrorPolynomialDegree = 3302,              ///< the highest degree
    UiErrorPolynomialNotInteger = 3303,          ///< the polynomial, the highest value

    UiErrorEquationCoefficientTooLong = 3400,  ///< equation, column
    UiErrorEquationCoefficient = 3401,         ///< equation, column, formula error's text
    UiErrorEquationCount = 3402,               ///< the highest count

    UiErrorInternal = 9000,
    UiErrorNotImplemented = 9001,
    UiErrorTextOverflow = 9002,  ///< a text did not fit its buffer and ends in an ellipsis
    UiErrorStopped = 9003,       ///< the user stopped the run; reported by silence
};

/// The arguments are texts of at most UiErrorArgumentCapacity characters, ended by a 0, for the
/// "%s" of the code's message.
struct UiError {
    UiErrorCode code = UiErrorNone;
    char16_t arg1[UiErrorArgumentCapacity + 1] = u"?";
    char16_t arg2[UiErrorArgumentCapacity + 1] = u"?";
    char16_t arg3[UiErrorArgumentCapacity + 1] = u"?";
};

/// The one record of the process. While a calculation runs on another thread it is used through
/// PendingUiError and SetUiError only.
extern UiError uiError;

/// The code of the pending error.
UiErrorCode PendingUiError();

/// Raises an error, unless one is pending. An argument that is null is missing and becomes "?"; one
/// that does not fit ends in an ellipsis, which needs no code of its own as this one is pending by
/// then. The texts are copied.
void SetUiError(UiErrorCode code, const char16_t* arg1 = nullptr, const char16_t* arg2 = nullptr,
                const char16_t* arg3 = nullptr);

/// Moves a code of the arithmetic into the record: cancelled becomes UiErrorStopped, a text too
/// long UiErrorTextOverflow, exhausted capacity UiErrorInternal, and any other `fallback`. An error
/// that is pending stays. calcError is cleared in any case.
void TakeCalcError(UiErrorCode fallback);

/// The end of a worker: if a stop is asked for, raises UiErrorStopped, unless an error is pending.
/// The request stays.
void RaiseStop();

/// The end of a run: if a stop is asked for, raises UiErrorStopped, unless an error is pending, and
/// takes the request back. So one request silences one run.
void TakeStopRequest();

/// True when a worker has nothing more to do: an error is pending or a stop is asked for. Workers
/// poll it between their steps.
bool RunShouldEnd();

/// Clears uiError (its arguments become empty) and calcError. A request to stop stays.
void ClearPendingErrors();

/// Likewise, and takes a request to stop back: a new run may start.
void ClearErrors();

}  // namespace tallymere
