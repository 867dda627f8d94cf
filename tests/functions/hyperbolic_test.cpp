#include "functions/hyperbolic.h"

#include <gtest/gtest.h>

#include <string>

#include "functions/function_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

const Outcome Undefined = {"nan", CalcErrorUndefined};

TEST(Hyperbolic, PassesNaNWithoutACode) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (RoundedUnaryFunction f : {RealSinhRounded, RealCoshRounded, RealTanhRounded,
                                       RealAsinhRounded, RealAcoshRounded, RealAtanhRounded}) {
            EXPECT_EQ(ResultOf(f, "nan"), Silent("nan"));
        }
    }
}

TEST(Hyperbolic, KnowsZerosAndInfinities) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (const char* text : {"0", "-0", "inf", "-inf"}) {
            EXPECT_EQ(ResultOf(RealSinhRounded, text), Silent(text));
            EXPECT_EQ(ResultOf(RealAsinhRounded, text), Silent(text));
        }
        EXPECT_EQ(ResultOf(RealCoshRounded, "0"), Silent("1e0"));
        EXPECT_EQ(ResultOf(RealCoshRounded, "-0"), Silent("1e0"));
        EXPECT_EQ(ResultOf(RealCoshRounded, "inf"), Silent("inf"));
        EXPECT_EQ(ResultOf(RealCoshRounded, "-inf"), Silent("inf"));
        EXPECT_EQ(ResultOf(RealTanhRounded, "0"), Silent("0"));
        EXPECT_EQ(ResultOf(RealTanhRounded, "-0"), Silent("-0"));
        EXPECT_EQ(ResultOf(RealTanhRounded, "inf"), Silent("1e0"));
        EXPECT_EQ(ResultOf(RealTanhRounded, "-inf"), Silent("-1e0"));
        EXPECT_EQ(ResultOf(RealAcoshRounded, "inf"), Silent("inf"));
        EXPECT_EQ(ResultOf(RealAcoshRounded, "-inf"), Undefined);
        EXPECT_EQ(ResultOf(RealAtanhRounded, "0"), Silent("0"));
        EXPECT_EQ(ResultOf(RealAtanhRounded, "-0"), Silent("-0"));
        EXPECT_EQ(ResultOf(RealAtanhRounded, "inf"), Undefined);
        EXPECT_EQ(ResultOf(RealAtanhRounded, "-inf"), Undefined);
    }
}

}  // namespace
}  // namespace tallymere
