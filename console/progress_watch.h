// A run of some length: its output is written as it comes, and a person at a terminal sees how far
// it is.
#pragma once

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace tallymere {

/// While it lives, another thread writes the gathered output every 50 ms. After a second it shows,
/// and every second anew, how long the run has taken and what `describe` says of it.
class ProgressWatch {
public:
    /// `describe` is called on the other thread. An empty text adds nothing.
    explicit ProgressWatch(std::string (*describe)());
    ~ProgressWatch();
    ProgressWatch(const ProgressWatch&) = delete;
    ProgressWatch& operator=(const ProgressWatch&) = delete;

private:
    void Watch();

    std::string (*describe_)();
    std::mutex mutex_;
    std::condition_variable ending_;
    bool ended_ = false;
    std::thread thread_;
};

}  // namespace tallymere
