#include "exact/big_uint.h"

#include <gtest/gtest.h>

#include "exact/big_uint_multiply.h"
#include "support/exact_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

TEST(BigUint, OverflowsToZero) {
    WidthScope scope(1);
    UintBuffer dest;
    BigUintAddSmall(dest, UintBuffer("2^64-1"), 1);
    EXPECT_EQ(TakeOutcome(dest), Refused(CalcErrorOverflow));
    BigUintMul(dest, UintBuffer("2^32"), UintBuffer("2^32"));
    EXPECT_EQ(TakeOutcome(dest), Refused(CalcErrorOverflow));
    BigUintMul(dest, UintBuffer("2^32"), UintBuffer("2^32-1"));
    EXPECT_EQ(TakeOutcome(dest), Silent("18446744069414584320"));
}

}  // namespace
}  // namespace tallymere
