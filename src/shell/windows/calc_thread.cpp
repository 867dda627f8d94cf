#include "shell/windows/calc_thread.h"

#include "core/scratch.h"

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

unsigned __stdcall CalcThreadEntry(void*) {
    CreateScratchStack();
    calcThreadStart.worker();
    // The page may start the next run as soon as it has the message.
    const HWND page = calcThreadStart.page;
    DestroyScratchStack();
    PostMessageW(page, PageWorkerMessage, PageWorkerEnded, 0);
    return 0;
}

}  // namespace

ThreadMaker makeThread = MakeSystemThread;

bool StartCalcThread(HWND page, PageWorker worker) {
    calcThreadStart = {page, worker};
    return makeThread(CalcThreadEntry);
}

void SendPageText(const char16_t* text) {
    SendMessageW(calcThreadStart.page, PageWorkerMessage, PageWorkerText,
                 reinterpret_cast<LPARAM>(text));
}

void AppendPageText(HWND edit, LPARAM text) {
    const int end = GetWindowTextLengthW(edit);
    SendMessageW(edit, EM_SETSEL, static_cast<WPARAM>(end), end);
    SendMessageW(edit, EM_REPLACESEL, FALSE, text);
}

}  // namespace tallymere
