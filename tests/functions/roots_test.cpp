#include "functions/roots.h"

#include <gtest/gtest.h>

#include <string>

#include "core/real_integer.h"
#include "core/real_multiply.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

using RoundedFunction = void (*)(RealNumber* dest, const RealNumber* x);

Outcome ResultOf(RoundedFunction function, std::string_view text) {
    const RealBuffer x(text);
    RealBuffer dest;
    function(dest, x);
    RealBuffer same = x;
    function(same, same);
    EXPECT_EQ(dest, same) << "with the destination as operand";
    return {PlainText(dest), TakeCode()};
}

Outcome SquareRoot(std::string_view text) {
    return ResultOf(RealSqrtRounded, text);
}
Outcome CubeRoot(std::string_view text) {
    return ResultOf(RealCbrtRounded, text);
}

TEST(RealSqrt, KnowsSpecialValues) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(SquareRoot("nan"), Silent("nan"));
        EXPECT_EQ(SquareRoot("0"), Silent("0"));
        EXPECT_EQ(SquareRoot("-0"), Silent("-0"));
        EXPECT_EQ(SquareRoot("inf"), Silent("inf"));
        EXPECT_EQ(SquareRoot("-inf"), (Outcome{"nan", CalcErrorUndefined}));
        EXPECT_EQ(SquareRoot("-4"), (Outcome{"nan", CalcErrorUndefined}));
        EXPECT_EQ(SquareRoot("-1e-900"), (Outcome{"nan", CalcErrorUndefined}));
    }
}

TEST(RealCbrt, KnowsSpecialValues) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        for (const char* text : {"nan", "0", "-0", "inf", "-inf"}) {
            EXPECT_EQ(CubeRoot(text), Silent(text));
        }
    }
}

}  // namespace
}  // namespace tallymere
