#include "prime_pages/run_progress.h"

#include <atomic>

namespace tallymere {

namespace {

std::atomic<uint64_t> doneOfRun = 0;
std::atomic<uint64_t> totalOfRun = 0;

}  // namespace

RunProgress CurrentRunProgress() {
    return {doneOfRun.load(std::memory_order_relaxed), totalOfRun.load(std::memory_order_relaxed)};
}

void BeginRunProgress(uint64_t total) {
    doneOfRun.store(0, std::memory_order_relaxed);
    totalOfRun.store(total, std::memory_order_relaxed);
}

void SetRunProgress(uint64_t done) {
    doneOfRun.store(done, std::memory_order_relaxed);
}

}  // namespace tallymere
