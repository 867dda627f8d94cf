#include "shell/windows/error_report.h"

#include "core/limits.h"
#include "shell/ui_message.h"
#include "shell/ui_text.h"
#include "toolkit/wide_text.h"
#include "toolkit/win32.h"

namespace tallymere {

void ReportUiError() {
    char16_t message[UiErrorMessageCapacity + 1];
    if (TakeUiErrorMessage(message, UiErrorMessageCapacity)) {
        MessageBoxW(GetActiveWindow(), ToWide(message), ToWide(uiText.TextErrError), MB_ICONERROR);
    }
}

}  // namespace tallymere
