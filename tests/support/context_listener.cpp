// Every test leaves the number context as it found it: this is part of the test program of each
// room but those of windows, and needs no word in a test.
#include <gtest/gtest.h>

#include <optional>

#include "support/real_testing.h"

namespace tallymere::testing_support {
namespace {

class ContextListener : public ::testing::EmptyTestEventListener {
public:
    void OnTestStart(const ::testing::TestInfo&) override { check_.emplace(); }
    void OnTestEnd(const ::testing::TestInfo&) override { check_.reset(); }

private:
    std::optional<ContextCheck> check_;
};

// GoogleTest owns its listeners.
[[maybe_unused]] const bool Registered = [] {
    ::testing::UnitTest::GetInstance()->listeners().Append(new ContextListener);
    return true;
}();

}  // namespace
}  // namespace tallymere::testing_support
