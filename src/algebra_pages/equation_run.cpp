#include "algebra_pages/equation_run.h"

#include "algebra/exact_roots.h"
#include "algebra/polynomial_roots.h"
#include "algebra_pages/coefficient_cell.h"
#include "core/complex_number.h"
#include "shell/scratch_text.h"
#include "shell/text_format.h"
#include "shell/ui_error.h"
#include "shell/ui_message.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

// Limbs of the numerators and denominators of exact coefficients.
constexpr int64_t ExactLimbs = 2;

void RaiseUnreadCell(const CellReading& reading, const char16_t* label, bool exact) {
    switch (reading.outcome) {
        case CellOutcome::Read:
            return;
        case CellOutcome::TooLong:
            SetUiError(UiErrorCoefficientTooLong, label);
            return;
        case CellOutcome::Stopped:
            SetUiError(UiErrorStopped);
            return;
        case CellOutcome::Failed:
            break;
    }
    if (exact) {
        SetUiError(UiErrorCoefficientNotRational, label);
        return;
    }
    char16_t text[UiErrorArgumentCapacity + 1];
    FormatFormulaError(text, UiErrorArgumentCapacity, reading.error, reading.errorPosition);
    SetUiError(UiErrorCoefficient, label, text);
}

// *value = the coefficient of a power of x. Otherwise raises an error and returns false.
bool ReadCoefficient(uint64_t* value, const EquationRequest& request, int64_t index) {
    const CoefficientLabel label = LabelOfCoefficient(index);
    RaiseUnreadCell(ReadCellWithoutNoise(value, request.coefficients[index]), label.text,
                    request.exact);
    if (RunShouldEnd()) {
        SetUiError(UiErrorStopped);
        return false;
    }
    if (!request.exact && request.mode == EquationMode::Real && !ComplexIsReal(ComplexAt(value))) {
        SetUiError(UiErrorCoefficientNotReal, label.text);
        return false;
    }
    if (index == request.degree && ValueIsZero(value)) {
        SetUiError(UiErrorHighestCoefficientZero, label.text);
        return false;
    }
    return true;
}

// Reads all coefficients into the scope.
bool ReadCoefficients(ScratchScope& scope, uint64_t** values, const EquationRequest& request) {
    for (int64_t i = request.degree; i >= 0; i--) {
        values[i] = scope.Take(static_cast<int64_t>(SizeOfNumber()) / BytesPerWord);
        if (!ReadCoefficient(values[i], request, i)) {
            return false;
        }
    }
    return true;
}

RootOutcome FindRoots(SolutionSet& solutions, uint64_t* const* values,
                      const EquationRequest& request) {
    const uint32_t flags = request.mode == EquationMode::Real ? uint32_t{KeepRealRootsOnly} : 0;
    if (request.exact) {
        ExactPolynomial polynomial = {.degree = request.degree, .coefficients = {}};
        for (int64_t i = 0; i <= request.degree; i++) {
            polynomial.coefficients[i] = RationalAt(values[i]);
        }
        return SolveExactEquation(solutions, polynomial, request.digits, flags);
    }
    CoefficientList list = {.degree = request.degree, .coefficients = {}};
    for (int64_t i = 0; i <= request.degree; i++) {
        list.coefficients[i] = ComplexAt(values[i]);
    }
    return SolvePolynomial(solutions, list, request.digits, flags);
}

void RaiseOutcome(RootOutcome outcome) {
    switch (outcome) {
        case RootOutcome::Found:
            return;
        case RootOutcome::NotConverged:
            SetUiError(UiErrorNotConverged);
            return;
        case RootOutcome::Stopped:
            SetUiError(UiErrorStopped);
            return;
        case RootOutcome::TextOverflow:
            SetUiError(UiErrorTextOverflow);
            return;
        case RootOutcome::Internal:
            SetUiError(UiErrorInternal);
            return;
    }
}

}  // namespace

NumberSetup EquationNumberSetup(const EquationRequest& request) {
    return {.type = request.exact ? NumberTypeRational : NumberTypeComplex,
            .digits = RootInputDigits(request.degree, request.digits),
            .width = UintWidthForLimbs(ExactLimbs)};
}

CoefficientLabel LabelOfCoefficient(int64_t index) {
    CoefficientLabel label;
    FormatBounded(label.text, std::size(label.text) - 1, u"a%d", {static_cast<int32_t>(index)});
    return label;
}

SolutionSet TakeSolutionSet(ScratchArea& area) {
    SolutionSet solutions = {};
    for (int64_t i = 0; i < MaxEquationDegree; i++) {
        solutions.values[i] = ComplexAt(ScratchTake(area, ComplexWords()));
        solutions.exactTexts[i] = TakeText(area, ExactTextCapacity);
    }
    return solutions;
}

void EquationWorker(SolutionSet& solutions, const EquationRequest& request) {
    solutions.count = -1;
    ScratchStackScope scope;
    uint64_t* values[MaxEquationDegree + 1] = {};
    if (ReadCoefficients(scope, values, request)) {
        RaiseOutcome(FindRoots(solutions, values, request));
    }
}

}  // namespace tallymere
