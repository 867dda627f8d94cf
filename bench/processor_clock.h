// The clock of what is not measured by Google Benchmark.
#pragma once

#include <cstdint>
#include <ctime>

namespace tallymere::bench {

/// The processor time of the calling thread.
inline int64_t ThreadNanoseconds() {
    timespec now = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return int64_t{now.tv_sec} * 1'000'000'000 + now.tv_nsec;
}

}  // namespace tallymere::bench
