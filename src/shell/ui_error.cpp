#include "shell/ui_error.h"

#include <atomic>

#include "core/number_context.h"
#include "shell/text_sink.h"

namespace tallymere {

namespace {

// What the user sees of a code of the arithmetic; `fallback` where that has no code of its own.
UiErrorCode CodeOfCalcError(CalcError code, UiErrorCode fallback) {
    switch (code) {
        case CalcErrorCancelled:
            return UiErrorStopped;
        case CalcErrorTextTooLong:
            return UiErrorTextOverflow;
        case CalcErrorCapacity:
            return UiErrorInternal;
        case CalcErrorNone:
        case CalcErrorBadParameter:
        case CalcErrorUnknownType:
        case CalcErrorOverflow:
        case CalcErrorUnderflow:
        case CalcErrorExactDivisionByZero:
        case CalcErrorUndefined:
        case CalcErrorMalformed:
        case CalcErrorComplexNotAllowed:
        case CalcErrorSyntax:
            break;
    }
    return fallback;
}

}  // namespace

UiError uiError;

UiErrorCode PendingUiError() {
    return std::atomic_ref<UiErrorCode>(uiError.code).load(std::memory_order_relaxed);
}

void SetUiError(UiErrorCode code, const char16_t* arg1, const char16_t* arg2,
                const char16_t* arg3) {
    // Only the thread whose code went in writes the arguments.
    UiErrorCode pending = UiErrorNone;
    if (!std::atomic_ref<UiErrorCode>(uiError.code)
             .compare_exchange_strong(pending, code, std::memory_order_relaxed)) {
        return;
    }
    CopyBounded(uiError.arg1, UiErrorArgumentCapacity, arg1);
    CopyBounded(uiError.arg2, UiErrorArgumentCapacity, arg2);
    CopyBounded(uiError.arg3, UiErrorArgumentCapacity, arg3);
}

void TakeCalcError(UiErrorCode fallback) {
    if (numberContext.calcError != CalcErrorNone) {
        SetUiError(CodeOfCalcError(numberContext.calcError, fallback));
        numberContext.calcError = CalcErrorNone;
    }
}

void RaiseStop() {
    if (StopRequested()) {
        SetUiError(UiErrorStopped);
    }
}

void TakeStopRequest() {
    if (StopRequested()) {
        RaiseStop();
        ClearStopRequest();
    }
}

bool RunShouldEnd() {
    return PendingUiError() != UiErrorNone || StopRequested();
}

void ClearPendingErrors() {
    std::atomic_ref<UiErrorCode>(uiError.code).store(UiErrorNone, std::memory_order_relaxed);
    CopyBounded(uiError.arg1, UiErrorArgumentCapacity, u"");
    CopyBounded(uiError.arg2, UiErrorArgumentCapacity, u"");
    CopyBounded(uiError.arg3, UiErrorArgumentCapacity, u"");
    numberContext.calcError = CalcErrorNone;
}

void ClearErrors() {
    ClearPendingErrors();
    ClearStopRequest();
}

}  // namespace tallymere
