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
    EXPECT_FALSE(AbortRequested());
    RequestCancel();
    EXPECT_TRUE(AbortRequested());
    EXPECT_EQ(cancelFlag, 1);
    RequestCancel();
    ClearCancelRequest();
    EXPECT_FALSE(AbortRequested());
    EXPECT_EQ(cancelFlag, 0);
}

TEST(StopRequest, ComesFromAnyThread) {
    std::thread asking(RequestCancel);
    while (!AbortRequested()) {
        std::this_thread::yield();
    }
    asking.join();
    ClearCancelRequest();
}

TEST(StopRequest, LeavesAContextAloneThatPollsAnotherByte) {
    uint8_t stop = 0;
    const FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    RequestCancel();
    EXPECT_FALSE(AbortRequested());
    ClearCancelRequest();
}

}  // namespace
}  // namespace tallymere
