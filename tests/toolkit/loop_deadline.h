// A limit for message loops in tests: one that waits for what never comes would hang the whole run.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>

#include "toolkit/win32.h"

namespace tallymere::testing_support {

/// Ends every message loop of this thread once it has lived for that long: those of the test, and
/// those of the program, such as the loop of a modal dialog or of a message box. They get WM_QUIT.
/// A deadline that had to do this fails the test when it goes. Each fixture with windows has one.
class LoopDeadline {
public:
    static constexpr uint32_t UsualMilliseconds = 60'000;

    explicit LoopDeadline(uint32_t milliseconds = UsualMilliseconds) {
        CreateTimerQueueTimer(&timer_, nullptr, EndLoops, this, milliseconds, milliseconds, 0);
    }
    ~LoopDeadline() {
        // Waits for a call of EndLoops to return.
        DeleteTimerQueueTimer(nullptr, timer_, INVALID_HANDLE_VALUE);
        if (InterlockedOr(&hasPassed_, 0) != 0) {
            ADD_FAILURE() << "a message loop waited in vain, or the test took too long";
            MSG message;
            while (PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) {
            }
        }
    }
    /// It has that long from now on, however long it has lived.
    void Change(uint32_t milliseconds) {
        ChangeTimerQueueTimer(nullptr, timer_, milliseconds, milliseconds);
    }
    LoopDeadline(const LoopDeadline&) = delete;
    LoopDeadline& operator=(const LoopDeadline&) = delete;

private:
    // On a thread of the system.
    static void CALLBACK EndLoops(void* argument, BOOLEAN) {
        auto& deadline = *static_cast<LoopDeadline*>(argument);
        InterlockedExchange(&deadline.hasPassed_, 1);
        PostThreadMessageW(deadline.thread_, WM_QUIT, 0, 0);
    }

    const DWORD thread_ = GetCurrentThreadId();
    volatile LONG hasPassed_ = 0;
    HANDLE timer_ = nullptr;
};

}  // namespace tallymere::testing_support
