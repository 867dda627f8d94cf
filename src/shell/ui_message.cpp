#include "shell/ui_message.h"

#include "shell/text_format.h"
#include "shell/ui_error.h"
#include "shell/ui_text.h"

namespace tallymere {

namespace {

// The format for a code; null if the code has none of its own.
const char16_t* MessageFormat(UiErrorCode code) {
    switch (code) {
        case UiErrorNone:
            return uiText.TextErrAllRight;
        case UiErrorInvalidInput:
            return uiText.TextErrInvalidInput;
        case UiErrorCalculation:
            return uiText.TextErrErrorMathematicalCalculation;
        case UiErrorDivisionByZero:
            return uiText.TextErrDivision0;
        case UiErrorInputTooLong:
            return uiText.TextErrTextEnteredTooLong;
        case UiErrorFileNotFound:
            return uiText.TextErrFileWasFound;
        case UiErrorFileAccess:
            return uiText.TextErrErrorWhenAccessingFile;
        case UiErrorFormula:
            return uiText.TextErrErrorMathematicalFormula;
        case UiErrorSeparators:
            return uiText.TextErrDecimalThousandsSeparatorSame;
        case UiErrorSettingsNotSaved:
            return uiText.TextErrSettingsCouldSaved;
        case UiErrorVariableName:
            return uiText.TextErrVariableNameInvalidOnly;
        case UiErrorHighestCoefficientZero:
            return uiText.TextErrHighestCoefficient0;
        case UiErrorNotConverged:
            return uiText.TextErrIterationMethodConverged;
        case UiErrorCoefficient:
            return uiText.TextErrErrorEvaluatingCoefficient;
        case UiErrorCoefficientNotReal:
            return uiText.TextErrCoefficientReal;
        case UiErrorExactOverflow:
            return uiText.TextErrOverflowErrorWhenSolving;
        case UiErrorCoefficientNotRational:
            return uiText.TextErrCoefficientRationalNumberNumerator;
        case UiErrorCoefficientTooLong:
            return uiText.TextErrCoefficientManyCharacters;
        case UiErrorPrimeNumberOverflow:
            return uiText.TextErrOverflowPrimeNumberCalculation;
        case UiErrorPrimeFactorOverflow:
            return uiText.TextErrOverflowPrimeFactorCalculation;
        case UiErrorTooManyPrimeFactors:
            return uiText.TextErrNumberManyPrimeFactors;
        case UiErrorPolynomialCoefficient:
            return uiText.TextErrErrorEvaluatingCoefficientPolynomial;
        case UiErrorPolynomialCoefficientTooLong:
            return uiText.TextErrCoefficientPolynomialTooLong;
        case UiErrorPolynomialDegree:
            return uiText.TextErrMaximumPolynomialDegreeResult;
        case UiErrorPolynomialNotInteger:
            return uiText.TextErrPolynomialAnIntegerNumber;
        case UiErrorEquationCoefficientTooLong:
            return uiText.TextErrCoefficientEquationColumnToo;
        case UiErrorEquationCoefficient:
            return uiText.TextErrErrorEvaluatingCoefficientEquation;
        case UiErrorEquationCount:
            return uiText.TextErrNumberEquationVariablesBetween;
        case UiErrorInternal:
            return uiText.TextErrInternalError;
        case UiErrorNotImplemented:
            return uiText.TextErrYetImplemented;
        case UiErrorTextOverflow:
            return uiText.TextErrStringBufferOverflow;
        case UiErrorStopped:
            return u"";
    }
    return nullptr;
}

}  // namespace

void FormatUiErrorMessage(TextSink& sink) {
    const char16_t* format = MessageFormat(uiError.code);
    if (format == nullptr) {
        format = uiText.TextErrUnknownErrorOccurred;
        FormatBounded(uiError.arg1, UiErrorArgumentCapacity, u"%d", {uiError.code});
    }
    FormatIntoSink(sink, format, {uiError.arg1, uiError.arg2, uiError.arg3});
}

bool TakeUiErrorMessage(char16_t* buffer, int64_t capacity) {
    const bool shown = uiError.code != UiErrorNone && uiError.code != UiErrorStopped;
    TextSink sink{0, capacity, buffer};
    if (shown) {
        FormatUiErrorMessage(sink);
    }
    EndSinkText(sink);
    ClearErrors();
    return shown;
}

const char16_t* FormulaErrorText(FormulaError code) {
    switch (code) {
        case FormulaErrorSyntax:
            return uiText.TextFormulaSyntaxError;
        case FormulaErrorLeftParenMissing:
            return uiText.TextFormulaLeftParenthesisMissingRight;
        case FormulaErrorUnexpectedEnd:
            return uiText.TextFormulaUnexpectedEndFormula;
        case FormulaErrorOperationFailed:
            return uiText.TextFormulaOverflow;
        case FormulaErrorTooComplicated:
            return uiText.TextFormulaFormulaComplicatedBecauseMany;
        case FormulaErrorArgumentCount:
            return uiText.TextFormulaNumberParametersFunctionWrong;
        case FormulaErrorNeedsComplex:
            return uiText.TextFormulaFunctionNumberRequiresComplex;
        case FormulaErrorBadNumber:
            return uiText.TextFormulaNumberAnInvalidFormat;
        case FormulaErrorNotAvailable:
            return uiText.TextFormulaFunctionAvailableSetNumber;
        case FormulaErrorAborted:
            return uiText.TextFormulaCalculationWasAbortedUser;
        case FormulaErrorUndefinedName:
            return uiText.TextFormulaVariableFunctionDefined;
        case FormulaErrorVariableFailed:
            return uiText.TextFormulaVariableCouldEvaluated;
        case FormulaErrorNone:
        case FormulaErrorInternal:
            break;
    }
    return uiText.TextFormulaInternalFormulaErrorOccurred;
}

void FormatFormulaError(char16_t* buffer, int64_t capacity, FormulaError code, uint64_t position) {
    FormatBounded(buffer, capacity, FormulaErrorText(code), {static_cast<int32_t>(position)});
}

}  // namespace tallymere
