#include "shell/windows/calc_thread.h"

#include "core/scratch.h"
#include "core/scratch_making.h"
#include "shell/ui_error.h"

#include <process.h>

namespace tallymere {

namespace {

bool MakeSystemThread(unsigned(__stdcall* entry)(void*)) {
    const uintptr_t thread = _beginthreadex(nullptr, 0, entry, nullptr, 0, nullptr);
    if (thread == 0) {
        return false;
    }
    CloseHandle(reinterpret_cast<HANDLE>(thread));
    return true;
}

// What the one CalcThread runs. It lies here and not on the heap, so that a start cannot fail for
// want of memory.
struct CalcThreadStart {
    HWND page;
    PageWorker worker;
};
CalcThreadStart calcThreadStart;

// After a refusal of the queue, which is full while the UI thread takes no message.
constexpr DWORD PostAgainMilliseconds = 20;

bool PostEndToPage(HWND page) {
    return PostMessageW(page, PageWorkerMessage, PageWorkerEnded, 0) != FALSE;
}

unsigned __stdcall CalcThreadEntry(void*) {
    // Without memory the run ends with an error, and the program goes on with all that is unsaved.
    if (TryCreateScratchStack()) {
        calcThreadStart.worker();
        DestroyScratchStack();
    } else {
        SetUiError(UiErrorInternal);
    }
    // The page may start the next run as soon as it has the message.
    const HWND page = calcThreadStart.page;
    while (!postEnd(page) && IsWindow(page)) {
        Sleep(PostAgainMilliseconds);
    }
    return 0;
}

}  // namespace

ThreadMaker makeThread = MakeSystemThread;
EndPoster postEnd = PostEndToPage;

bool StartCalcThread(HWND page, PageWorker worker) {
    calcThreadStart = {page, worker};
    return makeThread(CalcThreadEntry);
}

}  // namespace tallymere
