#include "algebra/exact_formulas.h"

#include <gtest/gtest.h>

#include "algebra/exact_equation_testing.h"
#include "core/stop_request.h"

namespace tallymere {
namespace {

using namespace testing_support;

// At 10 digits, in the slots 1 and 0 of three that hold junk. The lines come in the order of the
// roots.
Lines Quadratic(const std::vector<std::string>& coefficients, int64_t digits = 10,
                int64_t precision = 25) {
    EquationScope scope(precision);
    SolutionBuffer solutions({"7e7 7e7", "8e8 8e8", "9e9 9e9"});
    SolutionSet& set = solutions;
    set.exactTexts[0][0] = u'?';
    set.exactTexts[1][0] = u'?';
    EXPECT_EQ(SolveExactQuadratic(solutions, PolynomialBuffer(coefficients), 1, 0, digits),
              RootOutcome::Found);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    EXPECT_TRUE(SolutionSetIsWellFormed(set));
    const Lines lines = solutions.Lines();
    EXPECT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[2], " = 9e9 9e9");
    return {lines[1], lines[0]};
}

std::string Linear(const std::string& a1, const std::string& a0, int64_t digits = 10) {
    EquationScope scope(25);
    SolutionBuffer solutions({"7e7 7e7"});
    static_cast<SolutionSet&>(solutions).exactTexts[0][0] = u'?';
    EXPECT_EQ(SolveExactLinear(solutions, PolynomialBuffer({a1, a0}), 0, digits),
              RootOutcome::Found);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    return solutions.Lines()[0];
}

const Lines NoTexts = {" = 8e8 8e8", " = 7e7 7e7"};

TEST(ExactFormulas, Linear) {
    EXPECT_EQ(Linear("1", "-1/3"), "1/3 = 3.333333333e-1 0");
    EXPECT_EQ(Linear("2", "6"), "-3 = -3e0 0");
    EXPECT_EQ(Linear("-5", "0"), "0 = 0 0");
    EXPECT_EQ(Linear("5", "-0"), "0 = 0 0");
    EXPECT_EQ(Linear("2/3", "5/7"), "-15/14 = -1.071428571e0 0");
}

TEST(ExactFormulas, ALinearRootThatDoesNotFitHasNoText) {
    const std::string half = LongText("2^127");
    EXPECT_EQ(Linear("1/2", half), " = 7e7 7e7");
    EXPECT_EQ(Linear("1/2", LongText("2^127-1")),
              "-" + LongText("2^128-2") + " = -3.402823669e38 0");
}

TEST(ExactFormulas, SquareRoots) {
    EXPECT_EQ(Quadratic({"1", "0", "-2"}),
              Lines({"sqrt(2) = 1.414213562e0 0", "-sqrt(2) = -1.414213562e0 0"}));
    EXPECT_EQ(Quadratic({"1", "-2", "-1"}),
              Lines({"1+sqrt(2) = 2.414213562e0 0", "1-sqrt(2) = -4.142135624e-1 0"}));
    EXPECT_EQ(Quadratic({"1", "-1", "-1"}),
              Lines({"1/2+1/2*sqrt(5) = 1.618033989e0 0", "1/2-1/2*sqrt(5) = -6.180339887e-1 0"}));
    EXPECT_EQ(Quadratic({"1", "0", "-1/2"}),
              Lines({"1/2*sqrt(2) = 7.071067812e-1 0", "-1/2*sqrt(2) = -7.071067812e-1 0"}));
    EXPECT_EQ(Quadratic({"1", "1/3", "-5/7"}), Lines({"-1/6+1/42*sqrt(1309) = 6.947644055e-1 0",
                                                      "-1/6-1/42*sqrt(1309) = -1.028097739e0 0"}));
}

// The first root has the sign of the highest coefficient before its square root.
TEST(ExactFormulas, TheOrderFollowsTheHighestCoefficient) {
    EXPECT_EQ(Quadratic({"-1", "0", "2"}),
              Lines({"-sqrt(2) = -1.414213562e0 0", "sqrt(2) = 1.414213562e0 0"}));
    EXPECT_EQ(Quadratic({"-1", "0", "-1"}), Lines({"-1*i = 0 -1e0", "1*i = 0 1e0"}));
    EXPECT_EQ(Quadratic({"-1", "3", "-2"}), Lines({"1 = 1e0 0", "2 = 2e0 0"}));
    EXPECT_EQ(Quadratic({"1", "-3", "2"}), Lines({"2 = 2e0 0", "1 = 1e0 0"}));
}

TEST(ExactFormulas, NegativeDiscriminants) {
    EXPECT_EQ(Quadratic({"2", "0", "1"}),
              Lines({"1/2*sqrt(2)*i = 0 7.071067812e-1", "-1/2*sqrt(2)*i = 0 -7.071067812e-1"}));
    EXPECT_EQ(Quadratic({"1", "1", "1"}), Lines({"-1/2+1/2*sqrt(3)*i = -5e-1 8.660254038e-1",
                                                 "-1/2-1/2*sqrt(3)*i = -5e-1 -8.660254038e-1"}));
    EXPECT_EQ(Quadratic({"1", "-4", "5"}), Lines({"2+1*i = 2e0 1e0", "2-1*i = 2e0 -1e0"}));
    EXPECT_EQ(Quadratic({"9", "-6", "5"}), Lines({"1/3+2/3*i = 3.333333333e-1 6.666666667e-1",
                                                  "1/3-2/3*i = 3.333333333e-1 -6.666666667e-1"}));
}

TEST(ExactFormulas, FractionsAndDoubleRoots) {
    EXPECT_EQ(Quadratic({"6", "-5", "1"}), Lines({"1/2 = 5e-1 0", "1/3 = 3.333333333e-1 0"}));
    EXPECT_EQ(Quadratic({"1", "0", "0"}), Lines({"0 = 0 0", "0 = 0 0"}));
    EXPECT_EQ(Quadratic({"1", "-0", "0"}), Lines({"0 = 0 0", "0 = 0 0"}));
    EXPECT_EQ(Quadratic({"-3", "2", "-1/3"}),
              Lines({"1/3 = 3.333333333e-1 0", "1/3 = 3.333333333e-1 0"}));
    EXPECT_EQ(Quadratic({"1", "5", "0"}), Lines({"0 = 0 0", "-5 = -5e0 0"}));
}

// The second root is smaller than what the digits in force show of the first one.
TEST(ExactFormulas, DigitsThatCancelAreThere) {
    const Lines lines = Quadratic({"1", "-1000000000000000000", "1"}, 5, 11);
    EXPECT_EQ(lines[0].substr(lines[0].find('=')), "= 1e18 0");
    EXPECT_EQ(lines[1].substr(lines[1].find('=')), "= 1e-18 0");
}

TEST(ExactFormulas, NumbersThatDoNotFitLeaveNoTextAndNoCode) {
    // a1^2, 4 a2 a0, their difference, and 2 a2.
    EXPECT_EQ(Quadratic({"1", LongText("2^64"), "1"}), NoTexts);
    EXPECT_EQ(Quadratic({"1", "1", LongText("2^126")}), NoTexts);
    EXPECT_EQ(Quadratic({"1", LongText("2^64-1"), "-" + LongText("2^125")}), NoTexts);
    EXPECT_EQ(Quadratic({LongText("2^127"), "0", "1/" + LongText("2^120")}), NoTexts);
    // r, with two primes, and q.
    const std::string prime = LongText("2^89-1");
    EXPECT_EQ(Quadratic({"1", "0", "-" + prime + "/" + LongText("2^61-1")}), NoTexts);
    EXPECT_EQ(Quadratic({LongText("2^100"), "0", "-1/" + prime}), NoTexts);
    // p + q, but not p - q.
    EXPECT_EQ(Quadratic({"1/" + LongText("2^65"), "-" + LongText("2^64-1"),
                         "340282366920938463435704491321203884032"}),
              NoTexts);
}

TEST(ExactFormulas, AStopLeavesNoTexts) {
    EquationScope scope(25);
    SolutionBuffer solutions({"1e0 0", "2e0 0"});
    RequestStop();
    EXPECT_EQ(SolveExactQuadratic(solutions, PolynomialBuffer({"1", "0", "-2"}), 0, 1, 10),
              RootOutcome::Stopped);
    ClearStopRequest();
    EXPECT_EQ(solutions.Lines(), Lines({" = 1e0 0", " = 2e0 0"}));
}

TEST(ExactFormulas, ACodeThatWasNotedStaysAndDoesNotCount) {
    EquationScope scope(25);
    SolutionBuffer solutions({"1e0 0", "2e0 0"});
    numberContext.calcError = CalcErrorSyntax;
    EXPECT_EQ(SolveExactQuadratic(solutions, PolynomialBuffer({"1", "0", "-2"}), 0, 1, 10),
              RootOutcome::Found);
    EXPECT_EQ(TakeCode(), CalcErrorSyntax);
    EXPECT_EQ(solutions.Text(0), "sqrt(2)");
    numberContext.calcError = CalcErrorSyntax;
    EXPECT_EQ(SolveExactLinear(solutions, PolynomialBuffer({"1", "-2"}), 0, 10),
              RootOutcome::Found);
    EXPECT_EQ(TakeCode(), CalcErrorSyntax);
    EXPECT_EQ(solutions.Text(0), "2");
}

}  // namespace
}  // namespace tallymere
