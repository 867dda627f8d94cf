#include "shell/windows/page_text.h"

#include "shell/page_text.h"
#include "shell/ui_error.h"
#include "shell/windows/calc_thread.h"
#include "toolkit/long_text_field.h"

namespace tallymere {

namespace {

// Holds while `gathered` is read or written, and never while a window is asked for anything.
SRWLOCK gatheredLock = SRWLOCK_INIT;
PageTextBuffer gathered;

// Used by the UI thread alone, except that the work of a run reads textPage.
PageTextBuffer taken;
HWND textPage = nullptr;

class GatheredScope {
public:
    GatheredScope() { AcquireSRWLockExclusive(&gatheredLock); }
    ~GatheredScope() { ReleaseSRWLockExclusive(&gatheredLock); }
    GatheredScope(const GatheredScope&) = delete;
    GatheredScope& operator=(const GatheredScope&) = delete;
};

int64_t Gather(std::u16string_view text) {
    const GatheredScope scope;
    return GatherPageText(gathered, text);
}

void Take() {
    const GatheredScope scope;
    TakePageText(taken, gathered);
}

}  // namespace

void BeginPageText(HWND page) {
    Take();
    textPage = page;
}

void SendPageText(const char16_t* text) {
    std::u16string_view rest = text;
    for (;;) {
        rest.remove_prefix(static_cast<size_t>(Gather(rest)));
        // Nobody makes room any more when the page was destroyed.
        if (rest.empty() || !IsWindow(textPage)) {
            return;
        }
        SendMessageW(textPage, PageWorkerMessage, PageWorkerText, 0);
    }
}

void ShowPageText(HWND output) {
    Take();
    if (output != nullptr && taken.length > 0) {
        AppendPageText(output, taken.text);
    }
}

void AppendPageText(HWND output, const char16_t* text) {
    if (!AppendLongText(output, text)) {
        SetUiError(UiErrorTextOverflow);
    }
}

}  // namespace tallymere
