// Output of work of some length: it is written as it comes, and a person at a terminal sees how far
// the work is.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>

namespace tallymere {

/// Between Begin and End another thread writes the gathered output every 50 ms. It requests a stop
/// when the output cannot be written. After a second it shows, and every second anew, how long the
/// work has taken and what `describe` says of it.
class LiveOutput {
public:
    /// `describe` is called on the other thread. An empty text adds nothing.
    explicit LiveOutput(std::string (*describe)());
    ~LiveOutput();
    LiveOutput(const LiveOutput&) = delete;
    LiveOutput& operator=(const LiveOutput&) = delete;

    void Begin();
    /// Takes the line of progress away.
    void End();

private:
    void Watch();

    std::string (*describe_)();
    std::mutex mutex_;
    std::condition_variable ending_;
    bool ended_ = false;
    bool isWorking_ = false;
    std::chrono::steady_clock::time_point start_;
    int64_t secondsShown_ = 0;
    std::thread thread_;  // last, since it uses the others
};

}  // namespace tallymere
