#include "algebra_pages/polynomial_run.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "algebra_pages/coefficient_cell.h"
#include "algebra_pages/equation_run.h"
#include "algebra_pages/polynomial_names.h"
#include "core/digit_text.h"
#include "core/limits.h"
#include "layout/decimal_text.h"
#include "shell/scratch_text.h"
#include "shell/ui_error.h"
#include "shell/ui_message.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

// Two counts of digits that all cells are read with, beyond those of PolynomialNumberSetup or of
// the longest cell.
struct ExtraDigits {
    int64_t before;
    int64_t last;
};

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

// The most digits that are typed into one cell. Decimal numbers of so many are exact, and so are
// their sums and products within a cell.
int64_t MostTypedDigits(const PolynomialRequest& request) {
    ScratchStackScope scope;
    char16_t* text = TakeText(scope, CoefficientCharacters + 1);
    int64_t most = 0;
    for (int32_t k = 0; k < request.count; k++) {
        for (int32_t power = request.maxDegree; power >= 0; power--) {
            request.readCell(request.context, k, power, text);
            const std::u16string_view cell = text;
            most = std::max<int64_t>(most, std::count_if(cell.begin(), cell.end(), IsDecimalDigit));
        }
    }
    return most;
}

// What is beyond the highest degree stays 0.
void ReadPolynomial(PolyCalculation& calculation, const PolynomialRequest& request,
                    int32_t polynomial, const CellDigits& digits) {
    PolyNumbers& numbers = NextOperand(calculation);
    PartSizes* errors = NextErrors(calculation);
    ScratchStackScope scope;
    char16_t* text = TakeText(scope, CoefficientCharacters + 1);
    for (int32_t power = request.maxDegree; power >= 0; power--) {
        request.readCell(request.context, polynomial, power, text);
        RaiseUnreadCell(
            ReadCellWithError(numbers.coefficients[power], &errors[power], text, digits),
            polynomial, power);
        if (RunShouldEnd()) {
            SetUiError(UiErrorStopped);
            return;
        }
    }
}

void Calculate(PolyCalculation& calculation, const PolynomialRequest& request,
               const CellDigits& digits) {
    for (int32_t k = 0; k < request.count && PendingUiError() == UiErrorNone; k++) {
        ReadPolynomial(calculation, request, k, digits);
        if (PendingUiError() == UiErrorNone) {
            RaisePolyOutcome(ApplyOperand(calculation));
        }
    }
    if (PendingUiError() == UiErrorNone) {
        RaisePolyOutcome(RefinePolynomials(calculation));
    }
}

}  // namespace

void RaisePolyOutcome(PolyOutcome outcome) {
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
    NumberSetup setup = PolynomialNumberSetup(request);
    const NumberSetupScope numbers(setup);
    EmptyResultStore(store);
    TakeCalcError(UiErrorCalculation);
    if (PendingUiError() != UiErrorNone) {
        return false;
    }
    const int64_t checked = setup.digits;
    const int64_t typed = std::max(checked, MostTypedDigits(request));
    const auto withExtra = [&](int64_t extra) {
        return ValuesAreExact() ? checked : std::min(typed + extra, MaxPrecisionDigits);
    };
    // The last ones tell all digits of a part that those before tell from 0.
    const ExtraDigits readings[] = {{38, 76}, {570, 608 + request.digits}};
    for (const ExtraDigits* extra = readings;; extra++) {
        setup.digits = withExtra(extra->last);
        const NumberSetupScope wide(setup);
        ScratchStackScope scope;
        PolyCalculation calculation =
            TakePolyCalculation(scope, request.operation, request.count, request.digits);
        Calculate(calculation, request, {.checked = checked, .before = withExtra(extra->before)});
        if (PendingUiError() != UiErrorNone) {
            return false;
        }
        if (calculation.isKnown || extra + 1 == std::end(readings)) {
            return PrintPolyResult(calculation, store, request.printFlags,
                                   PolyLineCapacity(request.printFlags), take, takeContext);
        }
    }
}

}  // namespace tallymere
