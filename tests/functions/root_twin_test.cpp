// Square and cube root against their plain twins: the same limbs for every argument.
#include <gtest/gtest.h>

#include "core/real_integer.h"
#include "functions/roots.h"
#include "reference/root_twins.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

void ExpectTwins(const RealBuffer& x) {
    RealBuffer actual;
    RealBuffer expected;
    RealSqrt(actual, x);
    reference::TwinSqrt(expected, x);
    ASSERT_EQ(actual, expected) << "square root of " << PlainText(x);
    RealCbrt(actual, x);
    reference::TwinCbrt(expected, x);
    ASSERT_EQ(actual, expected) << "cube root of " << PlainText(x);
}

TEST(RootTwins, HaveTheSameLimbs) {
    RandomSource random;
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        for (int round = 0; round < TestRounds(p < 1000 ? 500 : 1); round++) {
            RealBuffer x;
            FillReal(random, x, 9);
            RealSetSign(x, 0);
            ASSERT_NO_FATAL_FAILURE(ExpectTwins(x));
        }
    }
}

// The three leading digits by which an argument is scaled, and those next below, with random digits
// behind them.
TEST(RootTwins, ScaleAlikeOnBothSidesOfEveryLimit) {
    RandomSource random;
    for (int64_t p : {3, 9, 16, 19, 20, 38, 57}) {
        PrecisionScope scope(p);
        for (uint64_t leading :
             {100, 159, 160, 249, 250, 399, 400, 511, 512, 639, 640, 799, 800, 999}) {
            for (int64_t exponent = -4; exponent <= 4; exponent++) {
                for (int round = 0; round < TestRounds(5); round++) {
                    RealBuffer x;
                    RealFromUint(x, leading * PowerOfTen(16) + random.Below(PowerOfTen(16)));
                    RealSetExponent(x, exponent);
                    ASSERT_NO_FATAL_FAILURE(ExpectTwins(x));
                }
            }
        }
    }
}

}  // namespace
}  // namespace tallymere
