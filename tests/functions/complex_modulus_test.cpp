#include "functions/complex_modulus.h"

#include <gtest/gtest.h>

#include "functions/hypotenuse.h"
#include "support/complex_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

Outcome Modulus(std::string_view z) {
    return UnaryOutcome(ComplexAbs, ComplexBuffer(z));
}

TEST(ComplexAbs, IsTheHypotenuseOfTheParts) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(Modulus("3 -4"), Silent("5e0 0"));
        EXPECT_EQ(Modulus("-3e500 4e500"), Silent("5e500 0"));
        EXPECT_EQ(Modulus("-7 0"), Silent("7e0 0"));
        EXPECT_EQ(Modulus("-0 -7"), Silent("7e0 0"));
        EXPECT_EQ(Modulus("-0 -0"), Silent("0 0"));
        EXPECT_EQ(Modulus("1 -inf"), Silent("inf 0"));
        EXPECT_EQ(Modulus("-inf 1"), Silent("inf 0"));
        EXPECT_EQ(Modulus("nan 1"), Silent("nan 0"));
        EXPECT_EQ(Modulus("1 nan"), Silent("nan 0"));
    }
    PrecisionScope scope(20);
    EXPECT_EQ(Modulus("1 1"), Silent("1.4142135623730950488e0 0"));
    EXPECT_EQ(Modulus("3e-4611686018427387903 4e-4611686018427387903"),
              Silent("5e-4611686018427387903 0"));
    EXPECT_EQ(Modulus("9e4611686018427387903 9e4611686018427387903"),
              (Outcome{"inf 0", CalcErrorOverflow}));
}

}  // namespace
}  // namespace tallymere
