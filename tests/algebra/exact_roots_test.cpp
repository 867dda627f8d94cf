#include "algebra/exact_roots.h"

#include <gtest/gtest.h>

#include "algebra/exact_equation_testing.h"
#include "algebra/polynomial_roots.h"
#include "core/scratch.h"
#include "core/stop_request.h"

namespace tallymere {
namespace {

using namespace testing_support;

// A thread that calculates has a ScratchStack.
class ExactRoots : public ::testing::Test {
protected:
    ExactRoots() { CreateScratchStack(); }
    ~ExactRoots() override {
        const ScratchArea& stack = CurrentScratchStack();
        EXPECT_EQ(*stack.top, stack.base);
        DestroyScratchStack();
    }

    // The lines for so many digits, at the precision of the page.
    static Lines Solve(const std::vector<std::string>& coefficients, uint32_t flags = 0,
                       int64_t digits = 10) {
        EquationScope scope(RootInputDigits(static_cast<int64_t>(coefficients.size()) - 1, digits));
        const PolynomialBuffer polynomial(coefficients);
        const std::string before = polynomial.Text();
        SolutionBuffer solutions;
        EXPECT_EQ(SolveExactEquation(solutions, polynomial, digits, flags), RootOutcome::Found);
        EXPECT_EQ(TakeCode(), CalcErrorNone);
        EXPECT_EQ(polynomial.Text(), before);
        EXPECT_TRUE(SolutionSetIsWellFormed(solutions));
        return solutions.Lines();
    }
};

TEST_F(ExactRoots, OfDegree1) {
    EXPECT_EQ(Solve({"1", "-1/3"}), Lines({"1/3 = 3.333333333e-1 0"}));
    EXPECT_EQ(Solve({"-7", "0"}), Lines({"0 = 0 0"}));
}

// The denominator cannot be cleared, and need not be.
TEST_F(ExactRoots, OfDegree1WithLargeCoefficients) {
    const std::string largest = LongText("2^128-1");
    EXPECT_EQ(Solve({largest, largest + "/2"}), Lines({"-1/2 = -5e-1 0"}));
}

TEST_F(ExactRoots, OfDegree2InOrder) {
    EXPECT_EQ(Solve({"1", "0", "-2"}),
              Lines({"-sqrt(2) = -1.414213562e0 0", "sqrt(2) = 1.414213562e0 0"}));
    EXPECT_EQ(Solve({"1", "-2", "-1"}),
              Lines({"1-sqrt(2) = -4.142135624e-1 0", "1+sqrt(2) = 2.414213562e0 0"}));
    EXPECT_EQ(Solve({"2", "0", "1"}),
              Lines({"-1/2*sqrt(2)*i = 0 -7.071067812e-1", "1/2*sqrt(2)*i = 0 7.071067812e-1"}));
    EXPECT_EQ(Solve({"-1", "0", "-1"}), Lines({"-1*i = 0 -1e0", "1*i = 0 1e0"}));
}

TEST_F(ExactRoots, OfHigherDegrees) {
    EXPECT_EQ(Solve({"1", "0", "-1", "0"}), Lines({"-1 = -1e0 0", "0 = 0 0", "1 = 1e0 0"}));
    EXPECT_EQ(Solve({"1", "0", "0", "0", "-1"}),
              Lines({"-1 = -1e0 0", "1 = 1e0 0", "-1*i = 0 -1e0", "1*i = 0 1e0"}));
    EXPECT_EQ(Solve({"1", "0", "0", "-2"}),
              Lines({" = 1.25992105e0 0", " = -6.299605249e-1 -1.091123636e0",
                     " = -6.299605249e-1 1.091123636e0"}));
    // x (2x - 1) (3x + 2) (x^2 + 1), divided by 7
    EXPECT_EQ(Solve({"6/7", "1/7", "4/7", "1/7", "-2/7", "0"}),
              Lines({"-2/3 = -6.666666667e-1 0", "0 = 0 0", "1/2 = 5e-1 0", "-1*i = 0 -1e0",
                     "1*i = 0 1e0"}));
}

TEST_F(ExactRoots, EqualRootsAreMergedUnlessTheyAreToStay) {
    EXPECT_EQ(Solve({"1", "-6", "9"}), Lines({"3 = 3e0 0 [2]"}));
    EXPECT_EQ(Solve({"1", "-6", "9"}, KeepEqualRoots), Lines({"3 = 3e0 0", "3 = 3e0 0"}));
    EXPECT_EQ(Solve({"27", "-27", "9", "-1"}), Lines({"1/3 = 3.333333333e-1 0 [3]"}));
    EXPECT_EQ(Solve({"1", "0", "0", "0", "0"}), Lines({"0 = 0 0 [4]"}));
    // (x^2 + 1)^2
    EXPECT_EQ(Solve({"1", "0", "2", "0", "1"}), Lines({" = 0 -1e0 [2]", " = 0 1e0 [2]"}));
}

TEST_F(ExactRoots, RealRootsOnly) {
    EXPECT_EQ(Solve({"1", "0", "1"}, KeepRealRootsOnly), Lines());
    EXPECT_EQ(Solve({"1", "0", "0", "0", "-1"}, KeepRealRootsOnly),
              Lines({"-1 = -1e0 0", "1 = 1e0 0"}));
    EXPECT_EQ(Solve({"1", "-6", "9"}, KeepRealRootsOnly | KeepEqualRoots),
              Lines({"3 = 3e0 0", "3 = 3e0 0"}));
}

// The numbers of the formula do not fit, so the values are the numeric ones.
TEST_F(ExactRoots, CoefficientsThatAreTooLargeLeaveTheValues) {
    EXPECT_EQ(Solve({"1", LongText("2^64"), "1"}),
              Lines({" = -1.844674407e19 0", " = -5.421010862e-20 0"}));
    EXPECT_EQ(Solve({LongText("2^128-1"), "0", "-1/2"}),
              Lines({" = -3.833233542e-20 0", " = 3.833233542e-20 0"}));
}

TEST_F(ExactRoots, RootsWithDifferentTextsStayApartThoughTheirDigitsAreEqual) {
    EXPECT_EQ(Solve({"1000000000000", "-2000000000001", "1000000000001"}),
              Lines({"1 = 1e0 0", "1000000000001/1000000000000 = 1e0 0"}));
}

// The digits do not tell which of them is the smaller one.
TEST_F(ExactRoots, RootsWithEqualDigitsAreInOrderToo) {
    // x^2 - 2 10^12 x + 10^24 - 2, and its negative.
    const std::string first = "1000000000000-sqrt(2) = 1e12 0";
    const std::string second = "1000000000000+sqrt(2) = 1e12 0";
    EXPECT_EQ(Solve({"1", "-2000000000000", "999999999999999999999998"}), Lines({first, second}));
    EXPECT_EQ(Solve({"-1", "2000000000000", "-999999999999999999999998"}), Lines({first, second}));
    // The same times x - 10^12.
    EXPECT_EQ(Solve({"1", "-3000000000000", "2999999999999999999999998",
                     "-999999999999999999999998000000000000"}),
              Lines({first, "1000000000000 = 1e12 0", second}));
    // Fractions, one of them a double root.
    EXPECT_EQ(
        Solve({"1", "-3000000000003", "3000000000008999999999999",
               "-1000000000008999999999998999999999997", "2999999999999999999999997000000000000"}),
        Lines({"3 = 3e0 0", "999999999999 = 1e12 0", "1000000000000 = 1e12 0",
               "1000000000001 = 1e12 0"}));
    EXPECT_EQ(Solve({"1", "-3000000000001", "3000000000002000000000000",
                     "-1000000000001000000000000000000000000"}),
              Lines({"1000000000000 = 1e12 0 [2]", "1000000000001 = 1e12 0"}));
}

// (x - 1)^2 (x - 1000001/1000000)^2.
TEST_F(ExactRoots, MultipleRootsThatAreCloseAreMergedEach) {
    EXPECT_EQ(Solve({"1000000000000", "-4000002000000", "6000006000001", "-4000006000002",
                     "1000002000001"}),
              Lines({"1 = 1e0 0 [2]", "1000001/1000000 = 1.000001e0 0 [2]"}));
}

TEST_F(ExactRoots, AFailureLeavesNoRoots) {
    EquationScope scope(40);
    SolutionBuffer solutions({"1e0 0"});
    const PolynomialBuffer quadratic({"1", "0", "-2"});
    const PolynomialBuffer cubic({"1", "0", "0", "-2"});
    RequestStop();
    EXPECT_EQ(SolveExactEquation(solutions, quadratic, 10, 0), RootOutcome::Stopped);
    EXPECT_EQ(solutions.Count(), -1);
    EXPECT_EQ(SolveExactEquation(solutions, cubic, 10, 0), RootOutcome::Stopped);
    EXPECT_EQ(solutions.Count(), -1);
    // Here no search would hear it.
    const PolynomialBuffer power({"1", "0", "0", "0"});
    EXPECT_EQ(SolveExactEquation(solutions, power, 10, 0), RootOutcome::Stopped);
    EXPECT_EQ(solutions.Count(), -1);
    ClearStopRequest();
    // More digits than are in force.
    EXPECT_EQ(SolveExactEquation(solutions, cubic, 41, 0), RootOutcome::Internal);
    EXPECT_EQ(solutions.Count(), -1);
}

TEST_F(ExactRoots, ACodeThatWasNotedStays) {
    EquationScope scope(40);
    SolutionBuffer solutions;
    const PolynomialBuffer polynomial({"1", LongText("2^64"), "1", "0"});
    numberContext.calcError = CalcErrorSyntax;
    EXPECT_EQ(SolveExactEquation(solutions, polynomial, 10, 0), RootOutcome::Found);
    EXPECT_EQ(TakeCode(), CalcErrorSyntax);
    EXPECT_EQ(solutions.Text(2), "0");
}

}  // namespace
}  // namespace tallymere
