#include "shell/ui_error.h"

#include <atomic>

#include "core/number_context.h"
#include "shell/text_sink.h"

namespace tallymere {

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
    switch (numberContext.calcError) {
        case CalcErrorNone:
            return;
        case CalcErrorCancelled:
            SetUiError(UiErrorStopped);
            break;
        case CalcErrorTextTooLong:
            SetUiError(UiErrorTextOverflow);
            break;
        case CalcErrorCapacity:
            SetUiError(UiErrorInternal);
            break;
        default:
            SetUiError(fallback);
    }
    numberContext.calcError = CalcErrorNone;
}

void TakeStopRequest() {
    if (StopRequested()) {
        SetUiError(UiErrorStopped);
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
