#include "algebra/square_factor.h"

#include <gtest/gtest.h>

#include <string>

#include "core/stop_request.h"
#include "numtheory/factorize_number.h"
#include "support/exact_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// "outer^2 * inner", and the code if one is noted.
std::string Split(std::string_view n) {
    WidthScope scope(FactorLimbs);
    const UintBuffer number(n);
    const UintBuffer before = number;
    UintBuffer outer;
    UintBuffer inner;
    EXPECT_TRUE(SplitSquareFactor(outer, inner, number));
    EXPECT_EQ(number, before);
    EXPECT_EQ(numberContext.calcError, CalcErrorNone);
    return outer.Text() + "^2 * " + inner.Text();
}

TEST(SquareFactor, SmallNumbers) {
    EXPECT_EQ(Split("0"), "0^2 * 1");
    EXPECT_EQ(Split("1"), "1^2 * 1");
    EXPECT_EQ(Split("2"), "1^2 * 2");
    EXPECT_EQ(Split("4"), "2^2 * 1");
    EXPECT_EQ(Split("8"), "2^2 * 2");
    EXPECT_EQ(Split("72"), "6^2 * 2");
    EXPECT_EQ(Split("1001"), "1^2 * 1001");
}

TEST(SquareFactor, PowersOfOnePrime) {
    EXPECT_EQ(Split("2^127"), UintTextOf("2^63") + "^2 * 2");
    EXPECT_EQ(Split("2^126"), UintTextOf("2^63") + "^2 * 1");
    // 3^80, 3^79
    EXPECT_EQ(Split("147808829414345923316083210206383297601"), "12157665459056928801^2 * 1");
    EXPECT_EQ(Split("49269609804781974438694403402127765867"), "4052555153018976267^2 * 3");
}

// The square of a prime that is larger than the cube root, times another one; and two primes of 64
// bits, for which a search up to the cube root would last for hours.
TEST(SquareFactor, LargePrimes) {
    EXPECT_EQ(Split("340282366920938463463374607431768211455"),
              "1^2 * 340282366920938463463374607431768211455");
    EXPECT_EQ(Split("18446744073709551557"), "1^2 * 18446744073709551557");
    // (2^64 - 59)^2, (2^64 - 59) (2^64 - 83)
    EXPECT_EQ(Split("340282366920938461286658806734041124249"), "18446744073709551557^2 * 1");
    EXPECT_EQ(Split("340282366920938460843936948965011886881"),
              "1^2 * 340282366920938460843936948965011886881");
    // (2^61 - 1)^2 * 61
    EXPECT_EQ(Split("324331630971519472707216075584333414461"), "2305843009213693951^2 * 61");
}

TEST(SquareFactor, ACodeThatWasNotedStays) {
    WidthScope scope(FactorLimbs);
    UintBuffer outer;
    UintBuffer inner;
    numberContext.calcError = CalcErrorSyntax;
    EXPECT_TRUE(SplitSquareFactor(outer, inner, UintBuffer("12")));
    EXPECT_EQ(numberContext.calcError, CalcErrorSyntax);
    numberContext.calcError = CalcErrorNone;
    EXPECT_EQ(outer.Text() + " " + inner.Text(), "2 3");
}

TEST(SquareFactor, AStopLeavesTheNumberUnsplit) {
    WidthScope scope(FactorLimbs);
    UintBuffer outer;
    UintBuffer inner;
    const UintBuffer number("340282366920938460843936948965011886881");
    RequestStop();
    EXPECT_FALSE(SplitSquareFactor(outer, inner, number));
    ClearStopRequest();
    EXPECT_EQ(outer.Text(), "1");
    EXPECT_EQ(inner, number);
}

}  // namespace
}  // namespace tallymere
