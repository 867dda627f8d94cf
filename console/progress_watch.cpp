#include "console/progress_watch.h"

#include <chrono>

#include "console/output.h"
#include "core/stop_request.h"

namespace tallymere {

namespace {

constexpr auto WriteInterval = std::chrono::milliseconds(50);
constexpr int WritesPerSecond = 20;

}  // namespace

ProgressWatch::ProgressWatch(std::string (*describe)())
    : describe_(describe), thread_([this] { Watch(); }) {}

ProgressWatch::~ProgressWatch() {
    {
        const std::scoped_lock lock(mutex_);
        ended_ = true;
    }
    ending_.notify_one();
    thread_.join();
    ShowProgress({});
}

void ProgressWatch::Watch() {
    const auto start = std::chrono::steady_clock::now();
    std::unique_lock lock(mutex_);
    for (int writes = 1; !ending_.wait_for(lock, WriteInterval, [this] { return ended_; });
         writes++) {
        if (!FlushOutput()) {
            RequestStop();
        }
        if (writes % WritesPerSecond == 0) {
            const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(
                std::chrono::steady_clock::now() - start);
            const std::string description = describe_();
            ShowProgress(std::to_string(seconds.count()) + " s" +
                         (description.empty() ? "" : ", " + description));
        }
    }
}

}  // namespace tallymere
