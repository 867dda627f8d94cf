#include "shell/ui_error.h"

#include <atomic>

#include "core/number_context.h"
#include "shell/text_sink.h"

namespace tallymere {

namespace {

void SetArgument(char16_t (&argument)[UiErrorArgumentCapacity + 1], const char16_t* text) {
    TextSink sink{0, UiErrorArgumentCapacity, argument};
    SinkText(sink, text);
    EndSinkText(sink);
}

}  // namespace

UiError uiError;
uint8_t cancelFlag = 0;

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
    SetArgument(uiError.arg1, arg1);
    SetArgument(uiError.arg2, arg2);
    SetArgument(uiError.arg3, arg3);
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

void ClearErrors() {
    std::atomic_ref<UiErrorCode>(uiError.code).store(UiErrorNone, std::memory_order_relaxed);
    SetArgument(uiError.arg1, u"");
    SetArgument(uiError.arg2, u"");
    SetArgument(uiError.arg3, u"");
    numberContext.calcError = CalcErrorNone;
    SetAbortByte(&cancelFlag, 0);
}

void InstallCancelFlag() {
    numberContext.abortFlag = &cancelFlag;
}

void RequestCancel() {
    SetAbortByte(&cancelFlag, 1);
}

}  // namespace tallymere
