#include "shell/windows/page_text.h"

#include <chrono>

#include "shell/page_text.h"
#include "shell/ui_error.h"
#include "shell/windows/calc_thread.h"
#include "toolkit/long_text_field.h"

namespace tallymere {

namespace {

// Holds while these are read or written, and never while a window is asked for anything.
SRWLOCK gatheredLock = SRWLOCK_INIT;
PageTextBuffer gathered;
bool waitsForRoom = false;

CONDITION_VARIABLE roomIsMade = CONDITION_VARIABLE_INIT;

// A page whose timer the system refused is asked for room after that time.
constexpr DWORD LongestWaitMilliseconds = 500;

// Used by the UI thread alone, except that the work of a run reads textPage.
PageTextBuffer taken;
HWND textPage = nullptr;
bool isOutputFull = false;

// Characters of this run that the page took, and what the last text of them took.
int64_t shown = 0;
PageTextCost lastCost;

class GatheredScope {
public:
    GatheredScope() { AcquireSRWLockExclusive(&gatheredLock); }
    ~GatheredScope() { ReleaseSRWLockExclusive(&gatheredLock); }
    GatheredScope(const GatheredScope&) = delete;
    GatheredScope& operator=(const GatheredScope&) = delete;
};

// Returns how many characters of the text it took. If these were not all, waits until there is room
// again; false in `isThereRoom` when that takes too long.
int64_t Gather(std::u16string_view text, bool mayWait, bool& isThereRoom) {
    const GatheredScope scope;
    const int64_t count = GatherPageText(gathered, text);
    isThereRoom = static_cast<size_t>(count) == text.size();
    if (!isThereRoom && mayWait) {
        waitsForRoom = true;
        while (waitsForRoom && SleepConditionVariableSRW(&roomIsMade, &gatheredLock,
                                                         LongestWaitMilliseconds, 0) != FALSE) {
        }
        isThereRoom = !waitsForRoom;
    }
    return count;
}

// With `begins` what was gathered is of an earlier run. Returns whether the thread of the run
// waited for it.
bool Take(bool begins) {
    const GatheredScope scope;
    shown = begins ? 0 : shown + gathered.length;
    TakePageText(taken, gathered, shown, lastCost);
    const bool didWait = waitsForRoom;
    waitsForRoom = false;
    WakeConditionVariable(&roomIsMade);
    return didWait;
}

}  // namespace

void BeginPageText(HWND page) {
    lastCost = {};
    Take(true);
    textPage = page;
    isOutputFull = false;
}

void SendPageText(const char16_t* text) {
    std::u16string_view rest = text;
    const bool mayWait = GetWindowThreadProcessId(textPage, nullptr) != GetCurrentThreadId();
    // Nobody makes room any more when the page was destroyed.
    while (!rest.empty() && IsWindow(textPage)) {
        bool isThereRoom = false;
        rest.remove_prefix(static_cast<size_t>(Gather(rest, mayWait, isThereRoom)));
        if (!isThereRoom) {
            SendMessageW(textPage, PageWorkerMessage, PageWorkerText, 0);
        }
    }
}

bool ShowPageText(HWND output) {
    const bool didWait = Take(false);
    if (output != nullptr && taken.length > 0 && !isOutputFull) {
        using Clock = std::chrono::steady_clock;
        const Clock::time_point start = Clock::now();
        isOutputFull = !AppendPageText(output, taken.text);
        const std::chrono::duration<double, std::milli> passed = Clock::now() - start;
        lastCost = {taken.length, passed.count()};
    }
    return didWait;
}

bool AppendPageText(HWND output, const char16_t* text) {
    const bool fits = AppendLongText(output, text);
    if (!fits) {
        SetUiError(UiErrorTextOverflow);
    }
    return fits;
}

}  // namespace tallymere
