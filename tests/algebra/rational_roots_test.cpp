#include "algebra/rational_roots.h"

#include <gtest/gtest.h>

#include "algebra/exact_equation_testing.h"
#include "core/stop_request.h"

namespace tallymere {
namespace {

using namespace testing_support;

// The lines after the search among roots that are known to `digits` digits.
Lines Search(const std::vector<std::string>& coefficients, const std::vector<std::string>& values,
             int64_t digits = 10, int64_t precision = 40) {
    EquationScope scope(precision);
    SolutionBuffer solutions(values);
    EXPECT_EQ(FindExactRoots(solutions, PolynomialBuffer(coefficients), digits),
              RootOutcome::Found);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    EXPECT_TRUE(SolutionSetIsWellFormed(solutions));
    return solutions.Lines();
}

TEST(RationalRoots, Integers) {
    EXPECT_EQ(Search({"1", "0", "-1", "0"}, {"-1e0 0", "0 0", "1e0 0"}),
              Lines({"-1 = -1e0 0", "0 = 0 0", "1 = 1e0 0"}));
    EXPECT_EQ(Search({"1", "-3", "3", "-1"}, {"1e0 0", "1e0 0", "1e0 0"}),
              Lines({"1 = 1e0 0", "1 = 1e0 0", "1 = 1e0 0"}));
}

// The product with the highest coefficient has more digits than are looked at.
TEST(RationalRoots, AnIntegerIsFoundWhateverTheHighestCoefficient) {
    // (x - 123) (10000019 x^3 - 2)
    EXPECT_EQ(Search({"10000019", "-1230002337", "0", "-2", "246"},
                     {"5.848031773e-3 0", "1.23e2 0", "-2.924015886e-3 -5.064544077e-3",
                      "-2.924015886e-3 5.064544077e-3"})[1],
              "123 = 1.23e2 0");
}

// A value that is no integer does not count as 0.
TEST(RationalRoots, TheRootZeroGoesToItsValue) {
    EXPECT_EQ(Search({"1", "0", "-2", "0"}, {"-1.414213562e0 0", "0 0", "1.414213562e0 0"}),
              Lines({"sqrt(2) = 1.414213562e0 0", "0 = 0 0", "-sqrt(2) = -1.414213562e0 0"}));
}

TEST(RationalRoots, Fractions) {
    // (2x - 1) (3x + 2) (x - 5), and the same with the coefficients divided by 12.
    const Lines lines = {"-2/3 = -6.666666667e-1 0", "1/2 = 5e-1 0", "5 = 5e0 0"};
    const std::vector<std::string> values = {"-6.666666667e-1 0", "5e-1 0", "5e0 0"};
    EXPECT_EQ(Search({"6", "-29", "-7", "10"}, values), lines);
    EXPECT_EQ(Search({"1/2", "-29/12", "-7/12", "5/6"}, values), lines);
    EXPECT_EQ(Search({"-6", "29", "7", "-10"}, values), lines);
}

// x^4 - 1
TEST(RationalRoots, AQuadraticRestIsSolvedByFormula) {
    EXPECT_EQ(Search({"1", "0", "0", "0", "-1"}, {"-1e0 0", "1e0 0", "0 -1e0", "0 1e0"}),
              Lines({"-1 = -1e0 0", "1 = 1e0 0", "1*i = 0 1e0", "-1*i = 0 -1e0"}));
    // (x - 1) (x^2 - 2), where the values of the rest are replaced in the order of the formula.
    EXPECT_EQ(Search({"1", "-1", "-2", "2"}, {"-1.414213562e0 0", "1e0 0", "1.414213562e0 0"}),
              Lines({"sqrt(2) = 1.414213562e0 0", "1 = 1e0 0", "-sqrt(2) = -1.414213562e0 0"}));
}

// (x - 1) (x^2 - 2x + 2)
TEST(RationalRoots, AValueThatIsNotRealIsLeftAlone) {
    EXPECT_EQ(Search({"1", "-3", "4", "-2"}, {"1e0 -1e0", "1e0 1e0", "1e0 0"}),
              Lines({"1+1*i = 1e0 1e0", "1-1*i = 1e0 -1e0", "1 = 1e0 0"}));
}

// Six digits do not show that the second root is a fraction; it is what is left.
TEST(RationalRoots, ALinearRestIsSolvedByFormula) {
    EXPECT_EQ(Search({"1000003", "-1000004", "1"}, {"9.99997e-7 0", "1e0 0"}, 6),
              Lines({"1/1000003 = 9.99997e-7 0", "1 = 1e0 0"}));
}

TEST(RationalRoots, ARestOfAHigherDegreeHasNoTexts) {
    const std::vector<std::string> values = {"1.25992105e0 0", "-6.299605249e-1 -1.091123636e0",
                                             "-6.299605249e-1 1.091123636e0"};
    EXPECT_EQ(Search({"1", "0", "0", "-2"}, values),
              Lines({" = " + values[0], " = " + values[1], " = " + values[2]}));
    // (x + 1) (x^3 - 2)
    EXPECT_EQ(Search({"1", "1", "0", "-2", "-2"}, {"-1e0 0", values[0], values[1], values[2]}),
              Lines({"-1 = -1e0 0", " = " + values[0], " = " + values[1], " = " + values[2]}));
    // (x^2 - 2) (x^2 - 3)
    EXPECT_EQ(Search({"1", "0", "-5", "0", "6"}, {"-1.7e0 0", "-1.4e0 0", "1.4e0 0", "1.7e0 0"}),
              Lines({" = -1.7e0 0", " = -1.4e0 0", " = 1.4e0 0", " = 1.7e0 0"}));
}

// The values are rounded to two digits less than they have. Where that hides the integer, it is not
// found, although the value shows it.
TEST(RationalRoots, AnIntegerOfManyDigitsIsNotFound) {
    const std::vector<std::string> coefficients = {"1", "-1236", "2469", "-1234"};
    const std::vector<std::string> values = {"1e0 0", "1e0 0", "1.234e3 0"};
    // It is what is left, if nothing else is.
    EXPECT_EQ(Search(coefficients, values, 5)[2], "1234 = 1.234e3 0");
    // (x - 1234) (x^3 - 2)
    const std::vector<std::string> others = {"1.2599e0 0", "1.234e3 0", "-6.2996e-1 -1.0911e0",
                                             "-6.2996e-1 1.0911e0"};
    EXPECT_EQ(Search({"1", "-1234", "0", "-2", "2468"}, others, 5)[1], " = 1.234e3 0");
    EXPECT_EQ(Search({"1", "-1234", "0", "-2", "2468"}, others, 6)[1], "1234 = 1.234e3 0");
}

// The same for the product with the highest coefficient.
TEST(RationalRoots, AFractionWhoseProductHasManyDigitsIsNotFound) {
    // (1000 x - 1001) (x^3 - 2)
    const std::vector<std::string> coefficients = {"1000", "-1001", "0", "-2000", "2002"};
    const std::vector<std::string> values = {"1.001e0 0", "1.2599e0 0", "-6.2996e-1 -1.0911e0",
                                             "-6.2996e-1 1.0911e0"};
    EXPECT_EQ(Search(coefficients, values, 5)[0], " = 1.001e0 0");
    EXPECT_EQ(Search(coefficients, values, 6)[0], "1001/1000 = 1.001e0 0");
}

// Values that differ in the two last digits alone lead to the same fraction. Its text goes to the
// value that is nearest.
TEST(RationalRoots, AFractionGoesToTheNearestValue) {
    // (x - 3) (1000 x - 2999)
    EXPECT_EQ(Search({"1000", "-5999", "8997"}, {"2.999e0 0", "3e0 0"}, 5),
              Lines({"3 = 3e0 0", "2999/1000 = 2.999e0 0"}));
    // (x - 3) (x^3 - 26.97): only one text is there to give.
    EXPECT_EQ(
        Search({"100", "-300", "0", "-2697", "8091"},
               {"2.9989e0 0", "3e0 0", "-1.4994e0 -2.5971e0", "-1.4994e0 2.5971e0"}, 5),
        Lines({"3 = 3e0 0", " = 2.9989e0 0", " = -1.4994e0 -2.5971e0", " = -1.4994e0 2.5971e0"}));
    // The same with three values near 3.
    EXPECT_EQ(Search({"100", "-300", "0", "-2697", "8091"},
                     {"2.999e0 0", "3e0 0", "3.0003e0 0", "-1.5e0 -2.5981e0"}, 5),
              Lines({"3 = 3e0 0", " = 2.999e0 0", " = 3.0003e0 0", " = -1.5e0 -2.5981e0"}));
    // (x - 1) (x^3 - 2): a value that is not real takes no part.
    EXPECT_EQ(
        Search({"1", "-1", "0", "-2", "2"}, {"1.01e0 0", "1e0 1e-4", "1e0 -1e-4", "1.26e0 0"}, 4),
        Lines({"1 = 1e0 0", " = 1e0 1e-4", " = 1e0 -1e-4", " = 1.26e0 0"}));
}

TEST(RationalRoots, TheValueIsThatOfTheFraction) {
    // (x - 1/3)^3; the last digits were lost.
    EXPECT_EQ(
        Search({"27", "-27", "9", "-1"},
               {"3.333333321e-1 0", "3.333333333e-1 0", "3.333333345e-1 0"}),
        Lines({"1/3 = 3.333333333e-1 0", "1/3 = 3.333333333e-1 0", "1/3 = 3.333333333e-1 0"}));
}

TEST(RationalRoots, WhatDoesNotFitLeavesNoTextAndNoCode) {
    const std::vector<std::string> values = {"1e0 0", "1e0 0", "1e0 0"};
    const Lines none = {" = 1e0 0", " = 1e0 0", " = 1e0 0"};
    // The denominators.
    const std::string largest = LongText("2^128-1");
    EXPECT_EQ(Search({largest, "0", "0", "-1/2"}, values), none);
    EXPECT_EQ(Search({largest, "0", "1/2", "0"}, {"0 0", "1e0 0", "1e0 0"}),
              Lines({" = 0 0", " = 1e0 0", " = 1e0 0"}));
    // An integer above the width, and the product with the highest coefficient.
    EXPECT_EQ(Search({"1", "0", "0", "-5"}, {"1e39 0", "1e39 0", "1e39 0"})[0], " = 1e39 0");
    EXPECT_EQ(Search({largest, "0", "0", "-5"}, {"1.5e0 0", "-1.5e0 0", "1e1 0"})[0], " = 1.5e0 0");
    // The division: the cube of 2^65.
    const std::string power = "3.6893488147419103232e19 0";
    EXPECT_EQ(Search({"1", "0", "0", "0"}, {power, power, power}, 30),
              Lines({" = " + power, " = " + power, " = " + power}));
    // The formula for what is left: x (x^2 + 2^64 x + 1).
    EXPECT_EQ(Search({"1", LongText("2^64"), "1", "0"}, {"-1.844674407e19 0", "-5e-20 0", "0 0"}),
              Lines({" = -1.844674407e19 0", " = -5e-20 0", "0 = 0 0"}));
}

TEST(RationalRoots, TooFewValuesForTheRest) {
    EquationScope scope(20);
    SolutionBuffer solutions({"1.4e0 0"});
    EXPECT_EQ(FindExactRoots(solutions, PolynomialBuffer({"1", "0", "-2"}), 10),
              RootOutcome::Internal);
}

TEST(RationalRoots, AStopEndsTheFormula) {
    EquationScope scope(20);
    SolutionBuffer solutions({"-1.4142e0 0", "1e0 0", "1.4142e0 0"});
    RequestStop();
    EXPECT_EQ(FindExactRoots(solutions, PolynomialBuffer({"1", "-1", "-2", "2"}), 10),
              RootOutcome::Stopped);
    ClearStopRequest();
}

TEST(RationalRoots, ACodeThatWasNotedStaysAndDoesNotCount) {
    EquationScope scope(20);
    SolutionBuffer solutions({"-1e0 0", "1e0 0"});
    const PolynomialBuffer polynomial({"1/2", "0", "-1/2"});
    numberContext.calcError = CalcErrorSyntax;
    EXPECT_EQ(FindExactRoots(solutions, polynomial, 10), RootOutcome::Found);
    EXPECT_EQ(TakeCode(), CalcErrorSyntax);
    EXPECT_EQ(solutions.Lines(), Lines({"-1 = -1e0 0", "1 = 1e0 0"}));
}

}  // namespace
}  // namespace tallymere
