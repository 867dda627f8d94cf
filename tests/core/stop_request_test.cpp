#include "core/stop_request.h"

#include <gtest/gtest.h>

#include <thread>

#include "core/number_context.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

TEST(StopRequest, IsWhatTheArithmeticPollsFromTheStart) {
    EXPECT_EQ(NumberContext{}.abortFlag, &cancelFlag);
    EXPECT_EQ(numberContext.abortFlag, &cancelFlag);
    EXPECT_FALSE(StopRequested());
    RequestStop();
    EXPECT_TRUE(StopRequested());
    EXPECT_EQ(cancelFlag, 1);
    RequestStop();
    ClearStopRequest();
    EXPECT_FALSE(StopRequested());
    EXPECT_EQ(cancelFlag, 0);
}

TEST(StopRequest, ComesFromAnyThread) {
    std::thread asking(RequestStop);
    while (!StopRequested()) {
        std::this_thread::yield();
    }
    asking.join();
    ClearStopRequest();
}

TEST(StopRequest, LeavesAContextAloneThatPollsAnotherByte) {
    uint8_t stop = 0;
    const FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    RequestStop();
    EXPECT_FALSE(StopRequested());
    ClearStopRequest();
}

}  // namespace
}  // namespace tallymere
