#include "functions/trigonometric.h"

#include <gtest/gtest.h>

#include <string>

#include "functions/function_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

TEST(RealSinCos, KnowsSpecialValues) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(ResultOf(RealSinRounded, "0"), Silent("0"));
        EXPECT_EQ(ResultOf(RealSinRounded, "-0"), Silent("-0"));
        EXPECT_EQ(ResultOf(RealCosRounded, "0"), Silent("1e0"));
        EXPECT_EQ(ResultOf(RealCosRounded, "-0"), Silent("1e0"));
        EXPECT_EQ(ResultOf(RealTanRounded, "0"), Silent("0"));
        EXPECT_EQ(ResultOf(RealTanRounded, "-0"), Silent("-0"));
        for (RoundedUnaryFunction f : {RealSinRounded, RealCosRounded, RealTanRounded}) {
            EXPECT_EQ(ResultOf(f, "nan"), Silent("nan"));
            for (const char* text : {"inf", "-inf", "1e20", "-1e20", "1e4000000000000000000"}) {
                EXPECT_EQ(ResultOf(f, text), (Outcome{"nan", CalcErrorUndefined})) << text;
            }
        }
    }
}

}  // namespace
}  // namespace tallymere
