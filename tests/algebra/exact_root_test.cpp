#include "algebra/exact_root.h"

#include <gtest/gtest.h>

#include "algebra/exact_equation_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// The value to so many digits, in a precision of `precision` digits.
std::string Value(const ExactRoot& root, int64_t digits, int64_t precision) {
    PrecisionScope scope(precision);
    ComplexBuffer value;
    ExactRootToComplex(value, root, digits);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    return PlainText(value.Get());
}

std::string FractionValue(std::string_view p, int64_t digits, int64_t precision) {
    WidthScope scope(FactorLimbs);
    const RationalBuffer fraction(p);
    return Value(FractionRoot(fraction), digits, precision);
}

std::string SurdValue(std::string_view p, std::string_view q, std::string_view r, bool imaginary,
                      int64_t digits, int64_t precision) {
    WidthScope scope(FactorLimbs);
    const RationalBuffer pValue(p);
    const RationalBuffer qValue(q);
    const UintBuffer rValue(r);
    return Value({pValue, qValue, rValue, imaginary}, digits, precision);
}

TEST(ExactRoot, FractionsAreRoundedOnce) {
    EXPECT_EQ(FractionValue("1/3", 5, 11), "3.3333e-1 0");
    EXPECT_EQ(FractionValue("-2/3", 5, 11), "-6.6667e-1 0");
    EXPECT_EQ(FractionValue("123456789", 5, 11), "1.2346e8 0");
    EXPECT_EQ(FractionValue("-0", 5, 11), "0 0");
    // The middle goes away from zero; a little less does not.
    EXPECT_EQ(FractionValue("123455/1000000", 5, 11), "1.2346e-1 0");
    EXPECT_EQ(FractionValue("-123455/1000000", 5, 11), "-1.2346e-1 0");
    EXPECT_EQ(FractionValue("123454999999999999999999999/1000000000000000000000000000", 5, 11),
              "1.2345e-1 0");
    EXPECT_EQ(FractionValue("1/3", 1, 1), "3e-1 0");
}

TEST(ExactRoot, SquareRoots) {
    EXPECT_EQ(SurdValue("0", "1", "2", false, 10, 20), "1.414213562e0 0");
    EXPECT_EQ(SurdValue("-0", "-1/2", "2", true, 10, 20), "0 -7.071067812e-1");
    EXPECT_EQ(SurdValue("-1/3", "2", "3", true, 4, 20), "-3.333e-1 3.464e0");
    EXPECT_EQ(SurdValue("-1/3", "2/3", "1", true, 4, 4), "-3.333e-1 6.667e-1");
    EXPECT_EQ(SurdValue("1/2", "-1/2", "5", false, 10, 20), "-6.180339887e-1 0");
}

// 10^18 - sqrt(10^36 - 1) is 5 10^-19: 37 digits cancel.
TEST(ExactRoot, DigitsThatCancelAreThere) {
    const std::string radicand = "999999999999999999999999999999999999";
    EXPECT_EQ(SurdValue("1000000000000000000", "-1", radicand, false, 5, 11), "5e-19 0");
    EXPECT_EQ(SurdValue("1000000000000000000", "1", radicand, false, 5, 11), "2e18 0");
}

// sqrt(15^2 10^34 +- 1) is next to the middle 1.5 10^18, with 37 digits of both alike.
TEST(ExactRoot, SquareRootsNextToTheMiddleAreRoundedOnce) {
    EXPECT_EQ(SurdValue("0", "1", "2249999999999999999999999999999999999", false, 1, 4), "1e18 0");
    EXPECT_EQ(SurdValue("0", "1", "2250000000000000000000000000000000001", false, 1, 4), "2e18 0");
}

TEST(ExactRoot, IsPutIntoItsSlotAlone) {
    EquationScope scope(20);
    SolutionBuffer solutions({"1e0 0", "2e0 0", "3e0 0"});
    const RationalBuffer p("22/7");
    EXPECT_EQ(PutExactRoot(solutions, 1, FractionRoot(p), 6), RootOutcome::Found);
    EXPECT_EQ(solutions.Lines(), Lines({" = 1e0 0", "22/7 = 3.14286e0 0", " = 3e0 0"}));
}

TEST(ExactRoot, ACutTextIsReported) {
    EquationScope scope(20, 26);
    SolutionBuffer solutions({"1e0 0"});
    const RationalBuffer p("1" + std::string(ExactTextCapacity, '0'));
    EXPECT_EQ(PutExactRoot(solutions, 0, FractionRoot(p), 6), RootOutcome::TextOverflow);
}

}  // namespace
}  // namespace tallymere
