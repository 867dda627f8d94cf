#include "algebra/polynomial_roots.h"

#include <gtest/gtest.h>

#include "core/stop_request.h"
#include "support/equation_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;
using Texts = std::vector<std::string>;

class PolynomialRoots : public ::testing::Test {
    ScratchStackOwner stack_;
};

TEST_F(PolynomialRoots, AreInOrderWithExactZeros) {
    EXPECT_EQ(RootsOf({"-1", "0", "1"}, 10), (Texts{"-1e0 0", "1e0 0"}));
    EXPECT_EQ(RootsOf({"1", "0", "1"}, 10), (Texts{"0 -1e0", "0 1e0"}));
    // (x^2 + 1) (x - 1)
    EXPECT_EQ(RootsOf({"-1", "1", "-1", "1"}, 10), (Texts{"1e0 0", "0 -1e0", "0 1e0"}));
    // (x^2 - 2 x + 2) (x^2 - 2 x + 5) (x + 7)
    EXPECT_EQ(RootsOf({"70", "-88", "53", "-12", "3", "1"}, 5).size(), 5u);
    EXPECT_EQ(RootsOf({"10", "-14", "11", "-4", "1"}, 5),
              (Texts{"1e0 -1e0", "1e0 1e0", "1e0 -2e0", "1e0 2e0"}));
}

TEST_F(PolynomialRoots, OfALinearEquation) {
    EXPECT_EQ(RootsOf({"1", "3"}, 10), (Texts{"-3.333333333e-1 0"}));
    EXPECT_EQ(RootsOf({"1 1", "0 3"}, 5), (Texts{"-3.3333e-1 3.3333e-1"}));
    EXPECT_EQ(RootsOf({"0", "3"}, 5), (Texts{"0 0"}));
    // Rounded once: through 6 digits it would be 1.2346.
    EXPECT_EQ(RootsOf({"-123455", "100001"}, 5), (Texts{"1.2345e0 0"}));
}

TEST_F(PolynomialRoots, OfZeroNeedNoSearch) {
    EXPECT_EQ(RootsOf({"0", "0", "0", "0", "1"}, 10), (Texts{"0 0 [4]"}));
    EXPECT_EQ(RootsOf({"0", "0", "-4", "0", "1"}, 10), (Texts{"-2e0 0", "0 0 [2]", "2e0 0"}));
    EXPECT_EQ(RootsOf({"5"}, 10), Texts{});
}

TEST_F(PolynomialRoots, HaveMultiplicities) {
    EXPECT_EQ(RootsOf({"1", "-2", "1"}, 10), (Texts{"1e0 0 [2]"}));
    EXPECT_EQ(RootsOf({"1", "-2", "1"}, 10, KeepEqualRoots), (Texts{"1e0 0", "1e0 0"}));
    // (x^2 + 1)^5
    EXPECT_EQ(RootsOf({"1", "0", "5", "0", "10", "0", "10", "0", "5", "0", "1"}, 750),
              (Texts{"0 -1e0 [5]", "0 1e0 [5]"}));
    // (x + 1)^10
    EXPECT_EQ(RootsOf({"1", "10", "45", "120", "210", "252", "210", "120", "45", "10", "1"}, 5),
              (Texts{"-1e0 0 [10]"}));
}

TEST_F(PolynomialRoots, OfRoundedCoefficientsKeepTheirMultiplicities) {
    // (x - 1/3)^2, (x - 1/3)^3 and (x - i/3)^2
    EXPECT_EQ(RootsOf({"0.11111111111", "-0.66666666667", "1"}, 5), (Texts{"3.3333e-1 0 [2]"}));
    EXPECT_EQ(RootsOf({"-0.037037037037037037037037037037037", "0.33333333333333333333333333333333",
                       "-1", "1"},
                      10),
              (Texts{"3.333333333e-1 0 [3]"}));
    EXPECT_EQ(RootsOf({"-0.11111111111", "0 -0.66666666667", "1"}, 5), (Texts{"0 3.3333e-1 [2]"}));
    // Full coefficients that are no square: the roots stay apart.
    EXPECT_EQ(RootsOf({"0.9999999999", "-2", "1"}, 5), (Texts{"9.9999e-1 0", "1e0 0"}));
}

TEST_F(PolynomialRoots, OfOtherRealPartsThanZeroByRounding) {
    // (3 x^2 + 1) (x - 1/7): a2 and a0 are rounded, and the roots on the imaginary axis stay there.
    EXPECT_EQ(RootsOf({"-0.1428571428571429", "1", "-0.4285714285714286", "3"}, 5),
              (Texts{"1.4286e-1 0", "0 -5.7735e-1", "0 5.7735e-1"}));
}

TEST_F(PolynomialRoots, AreRightInSmallParts) {
    EXPECT_EQ(RootsOf({"1", "-2e-300", "1"}, 10), (Texts{"1e-300 -1e0", "1e-300 1e0"}));
    EXPECT_EQ(RootsOf({"1", "-2e-20000", "1"}, 10), (Texts{"1e-20000 -1e0", "1e-20000 1e0"}));
    EXPECT_EQ(RootsOf({"1.00000000000000000001", "-2", "1"}, 10),
              (Texts{"1e0 -1e-10", "1e0 1e-10"}));
}

TEST_F(PolynomialRoots, HaveNoLimitOfSize) {
    EXPECT_EQ(RootsOf({"-1e40", "0", "1"}, 5), (Texts{"-1e20 0", "1e20 0"}));
    EXPECT_EQ(RootsOf({"-1e-40", "0", "1"}, 5), (Texts{"-1e-20 0", "1e-20 0"}));
    EXPECT_EQ(RootsOf({"-1e1000000000000000000", "0", "1"}, 5),
              (Texts{"-1e500000000000000000 0", "1e500000000000000000 0"}));
    EXPECT_EQ(RootsOf({"1", "-1e300", "1"}, 5), (Texts{"1e-300 0", "1e300 0"}));
}

TEST_F(PolynomialRoots, RoundTiesAwayFromZero) {
    // x^2 - 0.24691 x + 2: the real part is 0.123455.
    EXPECT_EQ(RootsOf({"2", "-0.24691", "1"}, 5),
              (Texts{"1.2346e-1 -1.4088e0", "1.2346e-1 1.4088e0"}));
    EXPECT_EQ(RootsOf({"2", "0.24691", "1"}, 5),
              (Texts{"-1.2346e-1 -1.4088e0", "-1.2346e-1 1.4088e0"}));
    // (x - 0.123455)^2 (x - 1)
    EXPECT_EQ(RootsOf({"-0.015241137025", "0.262151137025", "-1.24691", "1"}, 5),
              (Texts{"1.2346e-1 0 [2]", "1e0 0"}));
    // (x - 0.123455) (x - 0.1234549999)
    EXPECT_EQ(RootsOf({"0.0152411370126545", "-0.2469099999", "1"}, 10),
              (Texts{"1.234549999e-1 0", "1.23455e-1 0"}));
    EXPECT_EQ(RootsOf({"0.0152411370126545", "-0.2469099999", "1"}, 8),
              (Texts{"1.23455e-1 0 [2]"}));
}

TEST_F(PolynomialRoots, MayBeLimitedToRealOnes) {
    EXPECT_EQ(RootsOf({"1", "0", "1"}, 10, KeepRealRootsOnly), Texts{});
    EXPECT_EQ(RootsOf({"-1", "1", "-1", "1"}, 10, KeepRealRootsOnly), (Texts{"1e0 0"}));
    EXPECT_EQ(RootsOf({"0", "0", "1", "0", "1"}, 10, KeepRealRootsOnly | KeepEqualRoots),
              (Texts{"0 0", "0 0"}));
}

TEST_F(PolynomialRoots, AreFoundWithTheDigitsOfTheTable) {
    const int64_t working[] = {10, 11, 21, 32, 44, 55, 77, 91, 106, 120, 132};
    for (int64_t degree = 0; degree <= MaxEquationDegree; degree++) {
        EXPECT_EQ(RootWorkingDigits(degree, 10), working[degree]) << degree;
    }
    EXPECT_EQ(RootWorkingDigits(2, 100), 208);
    EXPECT_EQ(RootWorkingDigits(10, 750), 9'869);
    EXPECT_EQ(RootWorkingDigits(11, 750), 9'869);
    const int64_t most[] = {2000, 2000, 2000, 2000, 1000, 1000, 1000, 750, 750, 750};
    for (int64_t degree = 1; degree <= MaxEquationDegree; degree++) {
        EXPECT_EQ(MaxRootDigits(degree), most[degree - 1]) << degree;
        EXPECT_LE(RootWorkingDigits(degree, MaxRootDigits(degree)), MaxDigits);
    }
}

TEST_F(PolynomialRoots, RefuseWhatNobodyShouldAskFor) {
    EXPECT_EQ(RootsOf({"1", "0"}, 10), Texts{"Internal"});
    EXPECT_EQ(RootsOf({"0"}, 10), Texts{"Internal"});
    const PrecisionScope scope(20);
    const ComplexBuffer one("1 0");
    CoefficientList list{2, {one, one, one}};
    SolutionRoom room;
    EXPECT_EQ(SolvePolynomial(room.Set(), list, 21, 0), RootOutcome::Internal);
    EXPECT_EQ(room.Set().count, -1);
    EXPECT_EQ(SolvePolynomial(room.Set(), list, 0, 0), RootOutcome::Internal);
    EXPECT_EQ(SolvePolynomial(room.Set(), list, 20, 0), RootOutcome::Found);
    list.degree = 11;
    EXPECT_EQ(SolvePolynomial(room.Set(), list, 10, 0), RootOutcome::Internal);
    list.degree = -1;
    EXPECT_EQ(SolvePolynomial(room.Set(), list, 10, 0), RootOutcome::Internal);
}

TEST_F(PolynomialRoots, RefuseMoreWorkingDigitsThanThereAre) {
    const PrecisionScope scope(5'000);
    const ComplexBuffer one("1 0");
    const CoefficientList list{2, {one, one, one}};
    SolutionRoom room;
    EXPECT_EQ(SolvePolynomial(room.Set(), list, 4'821, 0), RootOutcome::Internal);
    EXPECT_EQ(SolvePolynomial(room.Set(), list, 4'820, 0), RootOutcome::Found);
}

TEST_F(PolynomialRoots, OfCoefficientsWithoutAValueAreNone) {
    EXPECT_EQ(RootsOf({"1", "inf", "1"}, 10), Texts{"NotConverged"});
    EXPECT_EQ(RootsOf({"1", "0 nan", "1"}, 10), Texts{"NotConverged"});
    EXPECT_EQ(RootsOf({"1", "1e1000000000000000000", "1"}, 10), Texts{"NotConverged"});
}

TEST_F(PolynomialRoots, BeyondTheRangeAreNoted) {
    EXPECT_EQ(RootsOf({"-1e4000000000000000000", "1e-4000000000000000000"}, 5),
              Texts{"CalcErrorOverflow"});
    EXPECT_EQ(RootsOf({"-1e-4000000000000000000", "1e4000000000000000000"}, 5), (Texts{"0 0"}));
}

TEST_F(PolynomialRoots, LeaveTheContextAsItWas) {
    const PrecisionScope scope(60);
    const ComplexBuffer one("1 0");
    const ComplexBuffer three("3 0");
    const CoefficientList list{2, {one, three, three}};
    SolutionRoom room;
    for (const CalcError noted : {CalcErrorNone, CalcErrorSyntax}) {
        numberContext.calcError = noted;
        EXPECT_EQ(SolvePolynomial(room.Set(), list, 20, 0), RootOutcome::Found);
        EXPECT_EQ(TakeCode(), noted);
        EXPECT_EQ(numberContext.precisionDigits, 60);
    }
    // Written in the layout that was in force, with empty texts.
    EXPECT_EQ(room.Texts(),
              (Texts{"-5e-1 -2.8867513459481288225e-1", "-5e-1 2.8867513459481288225e-1"}));
    EXPECT_EQ(room.Set().exactTexts[0][0], 0);
    EXPECT_EQ(room.Set().exactTexts[9][0], 0);
}

TEST_F(PolynomialRoots, StopWhenTheyAreAskedTo) {
    RequestStop();
    EXPECT_EQ(RootsOf({"1", "3", "1"}, 10), Texts{"Stopped"});
    EXPECT_EQ(RootsOf({"-2", "1"}, 10), Texts{"Stopped"});
    ClearStopRequest();
    EXPECT_EQ(RootsOf({"-2", "1"}, 10), Texts{"2e0 0"});
}

}  // namespace
}  // namespace tallymere
