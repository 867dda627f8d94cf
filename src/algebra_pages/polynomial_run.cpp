#include "algebra_pages/polynomial_run.h"

#include "algebra_pages/coefficient_cell.h"
#include "algebra_pages/equation_run.h"
#include "algebra_pages/polynomial_names.h"
#include "core/limits.h"
#include "layout/decimal_text.h"
#include "shell/scratch_text.h"
#include "shell/ui_error.h"
#include "shell/ui_message.h"

namespace tallymere {

namespace {

void RaiseUnreadCell(const CellReading& reading, int32_t polynomial, int32_t power) {
    const CoefficientLabel coefficient = LabelOfCoefficient(power);
    const PolynomialName name = NameOfPolynomial(polynomial);
    switch (reading.outcome) {
        case CellOutcome::Read:
            return;
        case CellOutcome::TooLong:
            SetUiError(UiErrorPolynomialCoefficientTooLong, coefficient.text, name.text);
            return;
        case CellOutcome::Stopped:
            SetUiError(UiErrorStopped);
            return;
        case CellOutcome::Failed:
            break;
    }
    char16_t text[UiErrorArgumentCapacity + 1];
    FormatFormulaError(text, UiErrorArgumentCapacity, reading.error, reading.errorPosition);
    SetUiError(UiErrorPolynomialCoefficient, coefficient.text, name.text, text);
}

// What is beyond the highest degree stays 0.
void ReadPolynomial(PolyNumbers& numbers, const PolynomialRequest& request, int32_t polynomial) {
    ScratchStackScope scope;
    char16_t* text = TakeText(scope, CoefficientCharacters + 1);
    for (int32_t power = request.maxDegree; power >= 0; power--) {
        request.readCell(request.context, polynomial, power, text);
        RaiseUnreadCell(ReadCoefficientCell(numbers.coefficients[power], text), polynomial, power);
        if (RunShouldEnd()) {
            SetUiError(UiErrorStopped);
            return;
        }
    }
}

void RaiseOutcome(PolyOutcome outcome) {
    switch (outcome) {
        case PolyOutcome::Done:
            break;
        case PolyOutcome::SameObject:
            SetUiError(UiErrorInternal);
            break;
        case PolyOutcome::DegreeTooHigh:
            SetUiError(UiErrorPolynomialDegree, DecimalTextOf(MaxPolyDegree).text);
            break;
        case PolyOutcome::ExponentRefused:
            SetUiError(UiErrorPolynomialNotInteger, NameOfPolynomial(1).text,
                       DecimalTextOf(static_cast<int32_t>(MaxPolyExponent)).text);
            break;
        case PolyOutcome::DivisionByZero:
            SetUiError(UiErrorDivisionByZero);
            break;
        case PolyOutcome::Stopped:
            SetUiError(UiErrorStopped);
            break;
    }
    TakeCalcError(UiErrorCalculation);
}

void Calculate(PolyCalculation& calculation, const PolynomialRequest& request) {
    for (int32_t k = 0; k < request.count && PendingUiError() == UiErrorNone; k++) {
        ReadPolynomial(NextOperand(calculation), request, k);
        if (PendingUiError() == UiErrorNone) {
            RaiseOutcome(ApplyOperand(calculation));
        }
    }
    if (PendingUiError() == UiErrorNone) {
        RaiseOutcome(RefinePolynomials(calculation));
    }
}

}  // namespace

NumberSetup PolynomialNumberSetup(const PolynomialRequest& request) {
    NumberSetup setup = {.type = request.type, .width = FractionWidth};
    if (request.type != NumberTypeRational) {
        setup.digits = request.digits + PolyGuardDigits;
    }
    return setup;
}

bool RunPolynomials(const PolynomialRequest& request, ResultStore& store, TakePolyText take,
                    void* takeContext) {
    TALLYMERE_REQUIRE(TakesPolynomials(request.operation, request.count));
    TALLYMERE_REQUIRE(request.maxDegree >= 0 && request.maxDegree <= MaxPolyDegree);
    ClearPendingErrors();
    const NumberSetupScope numbers(PolynomialNumberSetup(request));
    EmptyResultStore(store);
    TakeCalcError(UiErrorCalculation);
    if (PendingUiError() != UiErrorNone) {
        return false;
    }
    ScratchStackScope scope;
    PolyCalculation calculation =
        TakePolyCalculation(scope, request.operation, request.count, request.digits);
    Calculate(calculation, request);
    return PendingUiError() == UiErrorNone &&
           PrintPolyResult(calculation, store, request.printFlags,
                           PolyLineCapacity(request.printFlags), take, takeContext);
}

}  // namespace tallymere
