#include "shell/windows/calc_thread.h"

#include <cstdlib>

#include "core/scratch.h"
#include "shell/windows/error_report.h"
#include "toolkit/wide_text.h"

#include <process.h>

namespace tallymere {

namespace {

constexpr UINT_PTR LeaveTimer = 1000;
constexpr UINT LeaveMilliseconds = 200;

// What the thread is started with; it frees the block.
struct CalcThreadStart {
    HWND page;
    PageWorker worker;
};

thread_local HWND calculatingPage = nullptr;

unsigned __stdcall CalcThreadEntry(void* argument) {
    const CalcThreadStart start = *static_cast<CalcThreadStart*>(argument);
    std::free(argument);
    calculatingPage = start.page;
    CreateScratchStack();
    start.worker();
    PostMessageW(start.page, PageWorkerMessage, PageWorkerEnded, 0);
    DestroyScratchStack();
    return 0;
}

// All windows but one, for EnumThreadWindows.
struct OtherWindows {
    HWND page;
    bool enable;
};

BOOL CALLBACK EnableOtherWindow(HWND window, LPARAM parameter) {
    const auto* others = reinterpret_cast<const OtherWindows*>(parameter);
    if (window != others->page) {
        EnableWindow(window, others->enable);
    }
    return TRUE;
}

void GiveScratchBack(const PageRun& run) {
    ScratchRelease(CurrentScratchStack(), run.scratchStart);
}

void SetPageBusy(PageRun& run, bool busy) {
    run.isBusy = busy;
    if (run.stopButton != nullptr) {
        SetWindowTextW(run.stopButton,
                       ToWide(uiText.*(busy ? &UiText::TextBtnStop : run.startCaption)));
    }
    for (int32_t i = 0; i < run.otherButtonCount; i++) {
        EnableWindow(run.otherButtons[i], !busy);
    }
    EnableOtherWindows(run.page, !busy);
}

}  // namespace

void StartCalcThread(HWND page, PageWorker worker) {
    auto* start = static_cast<CalcThreadStart*>(std::malloc(sizeof(CalcThreadStart)));
    if (start == nullptr) {
        std::abort();
    }
    *start = {page, worker};
    const uintptr_t thread = _beginthreadex(nullptr, 0, CalcThreadEntry, start, 0, nullptr);
    if (thread == 0) {
        std::abort();
    }
    CloseHandle(reinterpret_cast<HANDLE>(thread));
}

void SendPageText(const char16_t* text) {
    SendMessageW(calculatingPage, PageWorkerMessage, PageWorkerText,
                 reinterpret_cast<LPARAM>(text));
}

void AppendPageText(HWND edit, LPARAM text) {
    const int end = GetWindowTextLengthW(edit);
    SendMessageW(edit, EM_SETSEL, static_cast<WPARAM>(end), end);
    SendMessageW(edit, EM_REPLACESEL, FALSE, text);
}

void EnableOtherWindows(HWND page, bool enable) {
    OtherWindows others = {page, enable};
    EnumThreadWindows(GetCurrentThreadId(), EnableOtherWindow, reinterpret_cast<LPARAM>(&others));
}

void BeginPageRun(PageRun& run) {
    ClearErrors();
    run.scratchStart = *CurrentScratchStack().top;
}

bool StartPageRun(PageRun& run, PageWorker worker, UiErrorCode fallback) {
    TakeCalcError(fallback);
    if (PendingUiError() != UiErrorNone) {
        ReportUiError();
        GiveScratchBack(run);
        return false;
    }
    SetPageBusy(run, true);
    StartCalcThread(run.page, worker);
    return true;
}

void EndPageRun(PageRun& run, UiErrorCode fallback) {
    TakeCalcError(fallback);
    ReportUiError();
    GiveScratchBack(run);
}

void LeavePageRun(PageRun& run) {
    // A stop that came after the end would stay pending and silence the next error.
    ClearErrors();
    SetPageBusy(run, false);
}

void LeavePageRunLater(const PageRun& run) {
    SetTimer(run.page, LeaveTimer, LeaveMilliseconds, nullptr);
}

void HandlePageRunTimer(PageRun& run, WPARAM timerId) {
    if (timerId == LeaveTimer) {
        KillTimer(run.page, LeaveTimer);
        LeavePageRun(run);
    }
}

void StopPageRun(const PageRun& run) {
    if (run.isBusy) {
        SetUiError(UiErrorStopped);
    }
}

}  // namespace tallymere
