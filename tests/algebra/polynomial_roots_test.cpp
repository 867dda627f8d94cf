#include "algebra/polynomial_roots.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "core/scratch.h"
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
    EXPECT_EQ(RootsOf({"70", "-88", "63", "-17", "3", "1"}, 5),
              (Texts{"-7e0 0", "1e0 -1e0", "1e0 1e0", "1e0 -2e0", "1e0 2e0"}));
    EXPECT_EQ(RootsOf({"10", "-14", "11", "-4", "1"}, 5),
              (Texts{"1e0 -1e0", "1e0 1e0", "1e0 -2e0", "1e0 2e0"}));
}

TEST_F(PolynomialRoots, AreInOrderWithoutTheirConjugates) {
    // (x - 1 - 2i)(x - 1 + i)(x - 3)(x + i)(x - 2 i)
    EXPECT_EQ(RootsOf({"-18 -6", "15 17", "-15 -14", "10 9", "-5 -2", "1"}, 5),
              (Texts{"3e0 0", "0 -1e0", "0 2e0", "1e0 -1e0", "1e0 2e0"}));
    // (x + 1 - i)(x + 1 - 3i)(x + 1 + 2i)
    EXPECT_EQ(RootsOf({"6 -8", "8 -4", "3 -2", "1"}, 5),
              (Texts{"-1e0 1e0", "-1e0 -2e0", "-1e0 3e0"}));
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

// A decimal number with as many digits behind the point as the coefficients of an equation of that
// degree are read with: those of `begin`, and others that come again and again.
std::string Repeating(const std::string& begin, const std::string& period, int64_t degree,
                      int64_t digits) {
    std::string text = begin;
    const size_t length =
        begin.find('.') + 1 + static_cast<size_t>(RootInputDigits(degree, digits));
    while (text.size() < length) {
        text += period;
    }
    return text.substr(0, length);
}

TEST_F(PolynomialRoots, OfRoundedCoefficientsKeepTheirMultiplicities) {
    // (x - 1/3)^2, (x - i/3)^2 and (x - 1/3)^3
    const std::string ninth = Repeating("0.", "1", 2, 5);
    const std::string minusTwoThirds = Repeating("-0.", "6", 2, 5);
    EXPECT_EQ(RootsOf({ninth, minusTwoThirds, "1"}, 5), (Texts{"3.3333e-1 0 [2]"}));
    EXPECT_EQ(RootsOf({"-" + ninth, "0 " + minusTwoThirds, "1"}, 5), (Texts{"0 3.3333e-1 [2]"}));
    EXPECT_EQ(
        RootsOf({Repeating("-0.0", "370", 3, 10), Repeating("0.", "3", 3, 10), "-1", "1"}, 10),
        (Texts{"3.333333333e-1 0 [3]"}));
}

TEST_F(PolynomialRoots, OfRoundedCoefficientsDependOnThirtyOneDigits) {
    const std::string minusTwoThirds = Repeating("-0.", "6", 2, 5);
    const auto rightTo = [](size_t ones) {
        return Repeating("0." + std::string(ones, '1'), "473829104728391047", 2, 5);
    };
    EXPECT_EQ(RootsOf({rightTo(33), minusTwoThirds, "1"}, 5), (Texts{"3.3333e-1 0 [2]"}));
    EXPECT_EQ(RootsOf({rightTo(30), minusTwoThirds, "1"}, 5),
              (Texts{"3.3333e-1 -6.0226e-16", "3.3333e-1 6.0226e-16"}));
}

// What goes on for 312 digits counts as rounded, although a formula lost the 49 digits behind.
TEST_F(PolynomialRoots, OfRoundedCoefficientsMayLackTheirLastDigits) {
    const auto roots = [](size_t digits) {
        return RootsOf({"0." + std::string(digits, '1'), "-0." + std::string(digits, '6'), "1"}, 5);
    };
    EXPECT_EQ(roots(312), (Texts{"3.3333e-1 0 [2]"}));
    EXPECT_EQ(roots(311), (Texts{"3.3333e-1 -1.0541e-156", "3.3333e-1 1.0541e-156"}));
}

// Numbers that end before are what they are, however many digits they have.
TEST_F(PolynomialRoots, OfExactCoefficientsStayApart) {
    EXPECT_EQ(RootsOf({"0.9999999999", "-2", "1"}, 5), (Texts{"9.9999e-1 0", "1e0 0"}));
    EXPECT_EQ(RootsOf({"15241383937", "-246912", "1"}, 5),
              (Texts{"1.2346e5 -1e0", "1.2346e5 1e0"}));
    EXPECT_EQ(RootsOf({"15241383937", "-246912", "1"}, 5, KeepRealRootsOnly), Texts{});
    EXPECT_EQ(RootsOf({"152415787526596567802", "-24691357802", "1"}, 10),
              (Texts{"1.23456789e10 -1e0", "1.23456789e10 1e0"}));
    EXPECT_EQ(RootsOf({"-123456 -123457", "1 1"}, 5), (Texts{"1.2346e5 5e-1"}));
    EXPECT_EQ(RootsOf({"-1.2345678901 -1.2345678902", "1 1"}, 10), (Texts{"1.23456789e0 5e-11"}));
    // 1234567890123457^2 + 1, which has 31 digits, and (10^150 + 7)^2 + 1.
    EXPECT_EQ(RootsOf({"1524157875323884196006701630850", "-2469135780246914", "1"}, 5),
              (Texts{"1.2346e15 -1e0", "1.2346e15 1e0"}));
    const std::string zeros(148, '0');
    EXPECT_EQ(RootsOf({"1" + zeros + "14" + zeros + "50", "-2" + zeros + "14", "1"}, 5),
              (Texts{"1e150 -1e0", "1e150 1e0"}));
    EXPECT_EQ(RootsOf({"0.11111111111", "-0.66666666667", "1"}, 6),
              (Texts{"3.33332e-1 0", "3.33335e-1 0"}));
}

// Neither of the numbers lies in the middle between two results.
TEST_F(PolynomialRoots, OfExactCoefficientsAreNoTies) {
    EXPECT_EQ(RootsOf({"1.2345499999", "-2.2345499999", "1"}, 5), (Texts{"1e0 0", "1.2345e0 0"}));
    EXPECT_EQ(RootsOf({"1.23456789049999999999", "-2.23456789049999999999", "1"}, 10),
              (Texts{"1e0 0", "1.23456789e0 0"}));
}

// 9223372036854775783 is a prime that residues are taken by.
TEST_F(PolynomialRoots, StayApartWhereAPrimeDividesTheDifference) {
    EXPECT_EQ(
        RootsOf({"1.000000000000000000000000000000000000000009223372036854775783", "-2", "1"}, 30),
        (Texts{"1e0 -3.03700049997604968833548535513e-21",
               "1e0 3.03700049997604968833548535513e-21"}));
    EXPECT_EQ(
        RootsOf({"0.999999999999999999999999999999999999999990776627963145224217", "-2", "1"}, 30),
        (Texts{"9.999999999999999999969629995e-1 0", "1.0000000000000000000030370005e0 0"}));
    // A real part of half of the prime times 10^-60.
    EXPECT_EQ(RootsOf({"1", "-9223372036854775783e-60", "1"}, 10),
              (Texts{"4.611686018e-42 -1e0", "4.611686018e-42 1e0"}));
    // Below the middle between two results.
    EXPECT_EQ(RootsOf({"2", "-0.246909999999999999990776627963145224217", "1"}, 5),
              (Texts{"1.2345e-1 -1.4088e0", "1.2345e-1 1.4088e0"}));
}

TEST_F(PolynomialRoots, AreOfExactCoefficientsWhereTheCallerSaysSo) {
    // 1/9 and -2/3 to all digits: the discriminant is (8/9) 10^-361.
    const Texts coefficients{Repeating("0.", "1", 2, 5), Repeating("-0.", "6", 2, 5), "1"};
    EXPECT_EQ(RootsOf(coefficients, 5), (Texts{"3.3333e-1 0 [2]"}));
    EXPECT_EQ(RootsOf(coefficients, 5, ExactCoefficients),
              (Texts{"3.3333e-1 -1.0541e-181", "3.3333e-1 1.0541e-181"}));
}

TEST_F(PolynomialRoots, OfOtherRealPartsThanZeroByRounding) {
    // (3 x^2 + 1) (x - 1/7): a2 and a0 are rounded, and the roots on the imaginary axis stay there.
    const std::string seventh = Repeating("0.", "142857", 3, 5);
    const std::string threeSevenths = Repeating("0.", "428571", 3, 5);
    EXPECT_EQ(RootsOf({"-" + seventh, "1", "-" + threeSevenths, "3"}, 5),
              (Texts{"1.4286e-1 0", "0 -5.7735e-1", "0 5.7735e-1"}));
}

TEST_F(PolynomialRoots, AreRightInSmallParts) {
    EXPECT_EQ(RootsOf({"1", "-2e-300", "1"}, 10), (Texts{"1e-300 -1e0", "1e-300 1e0"}));
    EXPECT_EQ(RootsOf({"1", "-2e-20000", "1"}, 10), (Texts{"1e-20000 -1e0", "1e-20000 1e0"}));
    EXPECT_EQ(RootsOf({"1", "2e-200000", "1"}, 10), (Texts{"-1e-200000 -1e0", "-1e-200000 1e0"}));
    EXPECT_EQ(RootsOf({"1", "2e-1000000", "1"}, 10),
              (Texts{"-1e-1000000 -1e0", "-1e-1000000 1e0"}));
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
    EXPECT_EQ(RootInputDigits(2, 100), 558);
    EXPECT_EQ(RootCoefficientDigits(2, 100).exact, 508);
    EXPECT_EQ(RootCoefficientDigits(2, 100).known, 228);
    EXPECT_EQ(RootInputDigits(10, 750), MaxDigits);
    EXPECT_EQ(RootCoefficientDigits(10, 750).exact, 9'950);
    EXPECT_EQ(RootCoefficientDigits(10, 750).known, 9'889);
    EXPECT_EQ(RootWorkingDigits(10, 750), 9'869);
    EXPECT_EQ(RootWorkingDigits(11, 750), 9'869);
    const int64_t most[] = {2000, 2000, 2000, 2000, 1000, 1000, 1000, 750, 750, 750};
    for (int64_t degree = 1; degree <= MaxEquationDegree; degree++) {
        EXPECT_EQ(MaxRootDigits(degree), most[degree - 1]) << degree;
        EXPECT_LE(RootInputDigits(degree, MaxRootDigits(degree)), MaxDigits);
    }
}

TEST_F(PolynomialRoots, RefuseWhatNobodyShouldAskFor) {
    EXPECT_EQ(RootsOf({"1", "0"}, 10), Texts{"Internal"});
    EXPECT_EQ(RootsOf({"0"}, 10), Texts{"Internal"});
    const PrecisionScope scope(20);
    const ComplexBuffer one("1 0");
    CoefficientList list{2, {one, one, one}};
    SolutionBuffer solutions;
    EXPECT_EQ(SolvePolynomial(solutions.Set(), list, 21, 0), RootOutcome::Internal);
    EXPECT_EQ(solutions.Set().count, -1);
    EXPECT_EQ(SolvePolynomial(solutions.Set(), list, 0, 0), RootOutcome::Internal);
    EXPECT_EQ(SolvePolynomial(solutions.Set(), list, 20, 0), RootOutcome::Found);
    list.degree = 11;
    EXPECT_EQ(SolvePolynomial(solutions.Set(), list, 10, 0), RootOutcome::Internal);
    list.degree = -1;
    EXPECT_EQ(SolvePolynomial(solutions.Set(), list, 10, 0), RootOutcome::Internal);
}

TEST_F(PolynomialRoots, RefuseMoreWorkingDigitsThanThereAre) {
    const PrecisionScope scope(5'000);
    const ComplexBuffer one("1 0");
    const CoefficientList list{2, {one, one, one}};
    SolutionBuffer solutions;
    EXPECT_EQ(SolvePolynomial(solutions.Set(), list, 4'821, 0), RootOutcome::Internal);
    EXPECT_EQ(SolvePolynomial(solutions.Set(), list, 4'820, 0), RootOutcome::Found);
}

TEST_F(PolynomialRoots, OfCoefficientsWithoutAValueAreNone) {
    EXPECT_EQ(RootsOf({"1", "inf", "1"}, 10), Texts{"NotConverged"});
    EXPECT_EQ(RootsOf({"1", "0 nan", "1"}, 10), Texts{"NotConverged"});
    EXPECT_EQ(RootsOf({"1", "1e1000000000000000000", "1"}, 10), Texts{"NotConverged"});
    EXPECT_EQ(RootsOf({"1", "1e36028797018963968", "1"}, 10),
              (Texts{"-1e36028797018963968 0", "-1e-36028797018963968 0"}));
    EXPECT_EQ(RootsOf({"1", "1e36028797018963984", "1"}, 10), Texts{"NotConverged"});
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
    SolutionBuffer solutions;
    for (const CalcError noted : {CalcErrorNone, CalcErrorSyntax}) {
        numberContext.calcError = noted;
        EXPECT_EQ(SolvePolynomial(solutions.Set(), list, 20, 0), RootOutcome::Found);
        EXPECT_EQ(TakeCode(), noted);
        EXPECT_EQ(numberContext.precisionDigits, 60);
    }
    // Written in the layout that was in force, with empty texts.
    EXPECT_EQ(solutions.Texts(),
              (Texts{"-5e-1 -2.8867513459481288225e-1", "-5e-1 2.8867513459481288225e-1"}));
    EXPECT_EQ(solutions.Set().exactTexts[0][0], 0);
    EXPECT_EQ(solutions.Set().exactTexts[9][0], 0);
}

// What a run must leave as it was.
struct ContextState {
    int64_t digits = numberContext.precisionDigits;
    int64_t limbs = numberContext.realLimbs;
    int64_t topLimbDigits = numberContext.topLimbDigits;
    uint64_t* scratchTop = numberContext.scratchTop;
    uint64_t* stackTop = *CurrentScratchStack().top;
    bool operator==(const ContextState&) const = default;
};

TEST_F(PolynomialRoots, LeaveTheContextAsItWasWithoutAResult) {
    const PrecisionScope scope(60);
    const ComplexBuffer one("1 0");
    const ComplexBuffer three("3 0");
    const ComplexBuffer zero("0 0");
    const ComplexBuffer infinite("inf 0");
    const ComplexBuffer large("1e1000000000000000000 0");
    const struct {
        CoefficientList list;
        RootOutcome outcome;
        bool stops;
    } cases[] = {
        {{2, {one, three, one}}, RootOutcome::Stopped, true},
        {{2, {one, three, zero}}, RootOutcome::Internal, false},
        {{2, {one, infinite, one}}, RootOutcome::NotConverged, false},
        {{2, {one, large, one}}, RootOutcome::NotConverged, false},
    };
    for (const auto& failing : cases) {
        for (const CalcError noted : {CalcErrorNone, CalcErrorSyntax}) {
            SolutionBuffer solutions;
            const ContextState before;
            numberContext.calcError = noted;
            if (failing.stops) {
                RequestStop();
            }
            EXPECT_EQ(SolvePolynomial(solutions.Set(), failing.list, 10, 0), failing.outcome);
            ClearStopRequest();
            EXPECT_EQ(TakeCode(), noted);
            EXPECT_EQ(solutions.Set().count, -1);
            EXPECT_TRUE(ContextState() == before);
        }
    }
}

// Solves while another thread asks for a stop, some time after the start.
RootOutcome SolveWithStop(SolutionSet& solutions, const CoefficientList& list, int64_t digits,
                          std::chrono::steady_clock::duration wait) {
    std::atomic<bool> runs = false;
    std::thread stopping([&runs, wait] {
        runs.wait(false);
        std::this_thread::sleep_for(wait);
        RequestStop();
    });
    runs = true;
    runs.notify_one();
    const RootOutcome outcome = SolvePolynomial(solutions, list, digits, 0);
    stopping.join();
    ClearStopRequest();
    return outcome;
}

TEST_F(PolynomialRoots, StopInTheMidst) {
    constexpr int64_t Digits = 200;
    const PrecisionScope scope(RootInputDigits(10, Digits));
    const ComplexBuffer one("1 0");
    const ComplexBuffer zero("0 0");
    const ComplexBuffer a0("-2 0");
    const ComplexBuffer a1("4e50 0");
    const ComplexBuffer a2("-2e100 0");
    // x^10 - 2 (10^50 x - 1)^2: two roots are very near to each other.
    const CoefficientList list{10, {a0, a1, a2, zero, zero, zero, zero, zero, zero, zero, one}};
    SolutionBuffer solutions;
    const ContextState before;
    const auto begin = std::chrono::steady_clock::now();
    ASSERT_EQ(SolvePolynomial(solutions.Set(), list, Digits, 0), RootOutcome::Found);
    const auto whole = std::chrono::steady_clock::now() - begin;
    for (int eighths = 1; eighths < 8; eighths++) {
        // A run that is faster than the first one may end before its stop. So the next stop is
        // earlier.
        constexpr int Attempts = 100;
        auto wait = whole * eighths / 8;
        RootOutcome outcome = RootOutcome::Found;
        for (int i = 0; i < Attempts && outcome == RootOutcome::Found; i++) {
            outcome = SolveWithStop(solutions.Set(), list, Digits, wait);
            wait -= wait / 8;
        }
        EXPECT_EQ(outcome, RootOutcome::Stopped) << eighths;
        EXPECT_EQ(solutions.Set().count, -1);
        EXPECT_EQ(TakeCode(), CalcErrorNone);
        EXPECT_TRUE(ContextState() == before);
    }
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
