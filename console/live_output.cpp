#include "console/live_output.h"

#include "console/output.h"
#include "core/stop_request.h"

namespace tallymere {

namespace {

constexpr auto WriteInterval = std::chrono::milliseconds(50);

}  // namespace

LiveOutput::LiveOutput(std::string (*describe)())
    : describe_(describe), thread_([this] { Watch(); }) {}

LiveOutput::~LiveOutput() {
    {
        const std::scoped_lock lock(mutex_);
        ended_ = true;
    }
    ending_.notify_one();
    thread_.join();
}

void LiveOutput::Begin() {
    const std::scoped_lock lock(mutex_);
    isWorking_ = true;
    start_ = std::chrono::steady_clock::now();
    secondsShown_ = 0;
}

void LiveOutput::End() {
    const std::scoped_lock lock(mutex_);
    isWorking_ = false;
    ShowProgress({});
}

void LiveOutput::Watch() {
    std::unique_lock lock(mutex_);
    while (!ending_.wait_for(lock, WriteInterval, [this] { return ended_; })) {
        if (!isWorking_) {
            continue;
        }
        if (!FlushOutput()) {
            RequestStop();
        }
        const int64_t seconds = std::chrono::duration_cast<std::chrono::seconds>(
                                    std::chrono::steady_clock::now() - start_)
                                    .count();
        if (seconds > secondsShown_) {
            secondsShown_ = seconds;
            const std::string description = describe_();
            ShowProgress(std::to_string(seconds) + " s" +
                         (description.empty() ? "" : ", " + description));
        }
    }
}

}  // namespace tallymere
