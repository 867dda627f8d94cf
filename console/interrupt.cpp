#include "console/interrupt.h"

#include <atomic>
#include <cstdlib>

#include "console/exit_status.h"
#include "core/stop_request.h"

namespace tallymere {

namespace {

std::atomic<bool> interrupted = false;
std::atomic<bool> waiting = false;
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler uses them");

}  // namespace

void HandleInterrupt() {
    if (interrupted.exchange(true) || waiting) {
        std::_Exit(EndedByInterrupt);
    }
    RequestStop();
}

bool Interrupted() {
    return interrupted;
}

WaitingScope::WaitingScope() {
    waiting = true;
    if (interrupted) {
        std::_Exit(EndedByInterrupt);
    }
}

WaitingScope::~WaitingScope() {
    waiting = false;
}

}  // namespace tallymere
