#include "functions/guard_digits.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

int64_t ForArgument(std::string_view text) {
    return ArgumentGuardDigits(RealBuffer(text));
}

int64_t ForPower(std::string_view text) {
    return PowerGuardDigits(RealBuffer(text));
}

int64_t ForFactorial(std::string_view text) {
    return FactorialGuardDigits(RealBuffer(text));
}

TEST(GuardDigits, GrowWithTheIntegerDigitsOfAnArgument) {
    PrecisionScope scope(20);
    EXPECT_EQ(ForArgument("1e-900"), 4);
    EXPECT_EQ(ForArgument("9"), 4);
    EXPECT_EQ(ForArgument("-99.9"), 4);
    EXPECT_EQ(ForArgument("100"), 5);
    EXPECT_EQ(ForArgument("-1e17"), 20);
    EXPECT_EQ(ForArgument("1e34"), 37);
    EXPECT_EQ(ForArgument("1e35"), 38);
    EXPECT_EQ(ForArgument("1e36"), 38);
    EXPECT_EQ(ForArgument("1e4611686018427387903"), 38);
    EXPECT_EQ(ForArgument("0"), 4);
    EXPECT_EQ(ForArgument("inf"), 4);
    EXPECT_EQ(ForArgument("nan"), 4);
}

TEST(GuardDigits, GrowWithTheIntegerDigitsOfAPower) {
    PrecisionScope scope(20);
    EXPECT_EQ(ForPower("1e-900"), 5);
    EXPECT_EQ(ForPower("0.99"), 5);
    EXPECT_EQ(ForPower("1"), 5);
    EXPECT_EQ(ForPower("-9"), 5);
    EXPECT_EQ(ForPower("10"), 6);
    EXPECT_EQ(ForPower("1e33"), 38);
    EXPECT_EQ(ForPower("1e34"), 38);
    EXPECT_EQ(ForPower("-1e4611686018427387903"), 38);
    EXPECT_EQ(ForPower("0"), 5);
    EXPECT_EQ(ForPower("-inf"), 5);
}

TEST(GuardDigits, GrowWithTheIntegerDigitsOfAFactorial) {
    PrecisionScope scope(20);
    EXPECT_EQ(ForFactorial("0"), 7);
    EXPECT_EQ(ForFactorial("0.5"), 7);
    EXPECT_EQ(ForFactorial("9"), 7);
    EXPECT_EQ(ForFactorial("10"), 8);
    EXPECT_EQ(ForFactorial("1e31"), 38);
    EXPECT_EQ(ForFactorial("1e32"), 38);
    EXPECT_EQ(ForFactorial("1e4611686018427387903"), 38);
    EXPECT_EQ(ForFactorial("inf"), 7);
}

TEST(GuardDigits, GrowWithTheDigitsOfAnIntegerPower) {
    EXPECT_EQ(IntegerPowerGuardDigits(0), 3);
    EXPECT_EQ(IntegerPowerGuardDigits(99), 3);
    EXPECT_EQ(IntegerPowerGuardDigits(-99), 3);
    EXPECT_EQ(IntegerPowerGuardDigits(100), 4);
    EXPECT_EQ(IntegerPowerGuardDigits(-100), 4);
    EXPECT_EQ(IntegerPowerGuardDigits(999), 4);
    EXPECT_EQ(IntegerPowerGuardDigits(1000), 5);
    EXPECT_EQ(IntegerPowerGuardDigits(99'999'999'999'999'999), 18);
    EXPECT_EQ(IntegerPowerGuardDigits(100'000'000'000'000'000), 19);
    EXPECT_EQ(IntegerPowerGuardDigits(1'000'000'000'000'000'000), 19);
    EXPECT_EQ(IntegerPowerGuardDigits(std::numeric_limits<int64_t>::max()), 19);
    EXPECT_EQ(IntegerPowerGuardDigits(std::numeric_limits<int64_t>::min()), 19);
}

}  // namespace
}  // namespace tallymere
