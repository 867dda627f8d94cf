#include "core/stop_request.h"

#include <atomic>

#include "core/number_context.h"

namespace tallymere {

static_assert(std::atomic_ref<uint8_t>::is_always_lock_free, "a signal handler writes the byte");

constinit uint8_t cancelFlag = 0;

void RequestStop() {
    SetStopByte(&cancelFlag, 1);
}

void ClearStopRequest() {
    SetStopByte(&cancelFlag, 0);
}

bool StopRequested() {
    uint8_t* flag = numberContext.abortFlag;
    return flag != nullptr && std::atomic_ref<uint8_t>(*flag).load(std::memory_order_relaxed) != 0;
}

void SetStopByte(uint8_t* flag, uint8_t value) {
    std::atomic_ref<uint8_t>(*flag).store(value, std::memory_order_relaxed);
}

}  // namespace tallymere
