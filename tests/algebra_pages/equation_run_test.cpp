#include "algebra_pages/equation_run.h"

#include <string>
#include <vector>

#include "algebra/polynomial_roots.h"
#include "algebra_pages/equation_lines.h"
#include "core/limits.h"
#include "core/stop_request.h"
#include "support/page_run_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

struct Options {
    EquationMode mode = EquationMode::Real;
    bool exact = false;
    int64_t digits = 10;
};

constexpr Options RealRoots = {};
constexpr Options ComplexRoots = {.mode = EquationMode::Complex};
constexpr Options ExactRealRoots = {.exact = true};
constexpr Options ExactComplexRoots = {.mode = EquationMode::Complex, .exact = true};

class EquationRun : public PageRunTest {
protected:
    // From the highest coefficient down, as in the grid.
    static RunResult Solve(const std::vector<std::u16string>& coefficients,
                           const Options& options = RealRoots) {
        EquationRequest request = {.degree = static_cast<int64_t>(coefficients.size()) - 1,
                                   .mode = options.mode,
                                   .exact = options.exact,
                                   .digits = options.digits,
                                   .coefficients = {}};
        for (int64_t i = 0; i <= request.degree; i++) {
            request.coefficients[i] = coefficients[static_cast<size_t>(request.degree - i)].c_str();
        }
        const NumberSetupScope setup(EquationNumberSetup(request));
        return ResultOf([&] {
            ScratchStackScope scope;
            SolutionSet solutions = TakeSolutionSet(CurrentScratchStack());
            EquationWorker(solutions, request);
            if (PendingUiError() == UiErrorNone) {
                ShowEquationRoots(solutions, request.exact, true, KeepPiece);
            }
        });
    }
    static RunResult Fails(UiErrorCode code, const std::u16string& label = u"") {
        return {u"", code, label};
    }
};

TEST_F(EquationRun, FindsRealRoots) {
    EXPECT_EQ(Solve({u"1", u"0", u"-1"}), Sends(u"x1 = -1   [1]\r\nx2 = 1   [1]\r\n"));
    EXPECT_EQ(Solve({u"2", u"3"}), Sends(u"x1 = -1.5   [1]\r\n"));
    EXPECT_EQ(Solve({u"1", u"-2", u"1"}), Sends(u"x1 = 1   [2]\r\n"));
    EXPECT_EQ(Solve({u"1", u"0", u"-2"}),
              Sends(u"x1 = -1.414213562   [1]\r\nx2 = 1.414213562   [1]\r\n"));
}

TEST_F(EquationRun, LeavesOutOtherRootsInRealMode) {
    EXPECT_EQ(Solve({u"1", u"0", u"1"}), Sends(u"The equation has no real solutions."));
    EXPECT_EQ(Solve({u"1", u"0", u"1"}, ExactRealRoots),
              Sends(u"The equation has no real solutions."));
    EXPECT_EQ(Solve({u"1", u"-1", u"1", u"-1"}), Sends(u"x1 = 1   [1]\r\n"));
}

TEST_F(EquationRun, FindsComplexRoots) {
    EXPECT_EQ(Solve({u"1", u"0", u"1"}, ComplexRoots), Sends(u"x1 = -i   [1]\r\nx2 = i   [1]\r\n"));
    EXPECT_EQ(Solve({u"i", u"2"}, ComplexRoots), Sends(u"x1 = 2i   [1]\r\n"));
}

// Numbers that end are taken as they are, and others as what they are the rounded values of.
TEST_F(EquationRun, TellsExactCoefficientsFromRoundedOnes) {
    const Options complex5 = {.mode = EquationMode::Complex, .digits = 5};
    const Options real5 = {.digits = 5};
    EXPECT_EQ(Solve({u"1", u"-246912", u"15241383937"}, complex5),
              Sends(u"x1 = 123460-i   [1]\r\nx2 = 123460+i   [1]\r\n"));
    EXPECT_EQ(Solve({u"1", u"-246912", u"15241383937"}, real5),
              Sends(u"The equation has no real solutions."));
    EXPECT_EQ(Solve({u"1", u"-24691357802", u"152415787526596567802"}, ComplexRoots),
              Sends(u"x1 = 1.23456789e+10-i   [1]\r\nx2 = 1.23456789e+10+i   [1]\r\n"));
    EXPECT_EQ(Solve({u"1", u"-2*1234567890123456.7", u"1234567890123456.7^2+1"}, complex5),
              Sends(u"x1 = 1.2346e+15-i   [1]\r\nx2 = 1.2346e+15+i   [1]\r\n"));
    EXPECT_EQ(Solve({u"1+i", u"-(123456+123457*i)"}, complex5),
              Sends(u"x1 = 123460+0.5i   [1]\r\n"));
    EXPECT_EQ(Solve({u"1+i", u"-(1.2345678901+1.2345678902*i)"}, ComplexRoots),
              Sends(u"x1 = 1.23456789+(5e-11)i   [1]\r\n"));
    EXPECT_EQ(Solve({u"1", u"-2.2345499999", u"1.2345499999"}, real5),
              Sends(u"x1 = 1   [1]\r\nx2 = 1.2345   [1]\r\n"));
    EXPECT_EQ(Solve({u"1", u"-2.23456789049999999999", u"1.23456789049999999999"}),
              Sends(u"x1 = 1   [1]\r\nx2 = 1.23456789   [1]\r\n"));
    EXPECT_EQ(Solve({u"1", u"-2/1.00001", u"1/1.00001^2"}, real5),
              Sends(u"x1 = 0.99999   [2]\r\n"));
    EXPECT_EQ(Solve({u"1", u"-5/1.00001", u"10/1.00001^2", u"-10/1.00001^3", u"5/1.00001^4",
                     u"-1/1.00001^5"},
                    ComplexRoots),
              Sends(u"x1 = 0.9999900001   [5]\r\n"));
    EXPECT_EQ(Solve({u"1", u"-3/1.0000001", u"3/1.0000001^2", u"-1/1.0000001^3"}, ComplexRoots),
              Sends(u"x1 = 0.9999999   [3]\r\n"));
    // What is left of 1/3 when 40 digits cancel is still a rounded number.
    EXPECT_EQ(Solve({u"1", u"-2*((1e40+1/3)-1e40)", u"((1e40+1/3)-1e40)^2"}, real5),
              Sends(u"x1 = 0.33333   [2]\r\n"));
    EXPECT_EQ(Solve({u"1", u"-412/3871", u"42436/14984641"}),
              Sends(u"x1 = 0.0532162232   [2]\r\n"));
    EXPECT_EQ(Solve({u"1", u"52/23-38/23*sqrt(2)", u"1398/529-988/529*sqrt(2)"},
                    {.mode = EquationMode::Complex, .digits = 14}),
              Sends(u"x1 = 0.037828595003861   [2]\r\n"));
}

TEST_F(EquationRun, TakesFractionsExactlyForExactRoots) {
    const std::u16string largest = u"3048315750647767350038103997500381042";
    EXPECT_EQ(Solve({u"1", u"30483157500381042", u"-493827156", u"2"},
                    {.mode = EquationMode::Complex, .exact = true, .digits = 5}),
              Sends(u"x1 \u2248 -3.0483e+16   [1]\r\n"
                    u"x2 \u2248 8.1e-9-(4.1754e-21)i   [1]\r\n"
                    u"x3 \u2248 8.1e-9+(4.1754e-21)i   [1]\r\n"));
    EXPECT_EQ(
        Solve({u"1", u"30483157500381042", u"-493827156", u"2"}, {.exact = true, .digits = 5}),
        Sends(u"x1 \u2248 -3.0483e+16   [1]\r\n"));
    // Denominators that no rational number clears.
    EXPECT_EQ(Solve({u"1/170141183460469231731687303715884105727",
                     u"3048315750647767350038103997500381043", u"-4938271560493827156", u"2"},
                    {.mode = EquationMode::Complex, .exact = true, .digits = 5}),
              Sends(u"x1 \u2248 -5.1864e+74   [1]\r\n"
                    u"x2 \u2248 8.1e-19-(4.6393e-37)i   [1]\r\n"
                    u"x3 \u2248 8.1e-19+(4.6393e-37)i   [1]\r\n"));
    EXPECT_EQ(Solve({u"1", largest, u"-4938271560493827156", u"2"}, ExactComplexRoots),
              Sends(u"x1 \u2248 -3.048315751e+36   [1]\r\n"
                    u"x2 \u2248 8.100000073e-19-(4.175394926e-46)i   [1]\r\n"
                    u"x3 \u2248 8.100000073e-19+(4.175394926e-46)i   [1]\r\n"));
    EXPECT_EQ(Solve({u"1", largest, u"-4938271560493827156", u"2"}, ExactRealRoots),
              Sends(u"x1 \u2248 -3.048315751e+36   [1]\r\n"));
}

TEST_F(EquationRun, FindsExactRoots) {
    EXPECT_EQ(Solve({u"3", u"-1"}, ExactRealRoots),
              Sends(u"x1 = 1/3 \u2248 0.3333333333   [1]\r\n"));
    EXPECT_EQ(Solve({u"1", u"0", u"-2"}, ExactRealRoots),
              Sends(u"x1 = -sqrt(2) \u2248 -1.414213562   [1]\r\n"
                    u"x2 = sqrt(2) \u2248 1.414213562   [1]\r\n"));
    EXPECT_EQ(Solve({u"1", u"0", u"0", u"0", u"-1"}, ExactComplexRoots),
              Sends(u"x1 = -1   [1]\r\nx2 = 1   [1]\r\nx3 = -1*i   [1]\r\nx4 = 1*i   [1]\r\n"));
    EXPECT_EQ(Solve({u"1", u"0", u"0", u"-2"}, ExactRealRoots),
              Sends(u"x1 \u2248 1.25992105   [1]\r\n"));
}

TEST_F(EquationRun, TakesBlankCellsForZero) {
    EXPECT_EQ(Solve({u"1", u"", u" \t"}), Sends(u"x1 = 0   [2]\r\n"));
}

TEST_F(EquationRun, NamesACoefficientThatIsNoFormula) {
    EXPECT_EQ(Solve({u"1", u"2+", u"*"}), Fails(UiErrorCoefficient, u"a1"));
    EXPECT_EQ(Solve({u"1", u"b", u"3"}), Fails(UiErrorCoefficient, u"a1"));
    EXPECT_EQ(Solve({u"sin(", u"b", u"3"}), Fails(UiErrorCoefficient, u"a2"));
    EXPECT_EQ(Solve(std::vector<std::u16string>(11, u"ln(0)")), Fails(UiErrorCoefficient, u"a10"));
}

TEST_F(EquationRun, SaysWhatIsWrongWithACoefficient) {
    const EquationRequest request = {.degree = 1,
                                     .mode = EquationMode::Real,
                                     .exact = false,
                                     .digits = 10,
                                     .coefficients = {u"  2*x", u"1"}};
    const NumberSetupScope setup(EquationNumberSetup(request));
    ScratchStackScope scope;
    SolutionSet solutions = TakeSolutionSet(CurrentScratchStack());
    solutions.count = 7;
    EquationWorker(solutions, request);
    EXPECT_EQ(PendingUiError(), UiErrorCoefficient);
    EXPECT_EQ(solutions.count, -1) << "those of another run";
    EXPECT_EQ(std::u16string(uiError.arg1), u"a0");
    EXPECT_EQ(std::u16string(uiError.arg2),
              u"The variable or function at character position 5 is not defined!");
}

TEST_F(EquationRun, WantsRealCoefficientsInRealMode) {
    EXPECT_EQ(Solve({u"1", u"i"}), Fails(UiErrorCoefficientNotReal, u"a0"));
    EXPECT_EQ(Solve({u"1+i", u"1"}), Fails(UiErrorCoefficientNotReal, u"a1"));
    EXPECT_EQ(Solve({u"i*i", u"4"}), Sends(u"x1 = 4   [1]\r\n"));
}

TEST_F(EquationRun, WantsFractionsForExactRoots) {
    for (const char16_t* text : {u"0.5", u"2^128", u"i", u"1+", u"x", u"1/0", u"sqrt(2)"}) {
        EXPECT_EQ(Solve({u"1", text, u"3"}, ExactRealRoots),
                  Fails(UiErrorCoefficientNotRational, u"a1"));
    }
}

TEST_F(EquationRun, WantsAHighestCoefficient) {
    for (const char16_t* text : {u"", u"0", u"1-1", u" "}) {
        EXPECT_EQ(Solve({text, u"1"}), Fails(UiErrorHighestCoefficientZero, u"a1"));
        EXPECT_EQ(Solve({text, u"1"}, ExactRealRoots), Fails(UiErrorHighestCoefficientZero, u"a1"));
    }
    // The rows below are not looked at.
    EXPECT_EQ(Solve({u"0", u"*"}), Fails(UiErrorHighestCoefficientZero, u"a1"));
}

// What rounding leaves of 0 is 0, wherever it stands and however large it is.
TEST_F(EquationRun, TakesACoefficientThatCancelsForZero) {
    for (const std::u16string text :
         {u"1/3*3-1", u"1e400*(1/3*3-1)", u"(1/3*3-1)/7", u"sqrt(2)^2-2", u"ln(exp(7))-7",
          u"sqrt(3)*sqrt(5)-sqrt(15)"}) {
        EXPECT_EQ(Solve({text, u"1", u"1"}), Fails(UiErrorHighestCoefficientZero, u"a2"));
        EXPECT_EQ(Solve({u"1", text, u"-4"}), Sends(u"x1 = -2   [1]\r\nx2 = 2   [1]\r\n"));
        EXPECT_EQ(Solve({u"1", u"1", text}), Sends(u"x1 = -1   [1]\r\nx2 = 0   [1]\r\n"));
        EXPECT_EQ(Solve({u"1", u"4+i*(" + text + u")"}), Sends(u"x1 = -4   [1]\r\n"));
    }
}

TEST_F(EquationRun, TakesACoefficientThatIsSmallAsItIs) {
    EXPECT_EQ(Solve({u"1e-200", u"-1"}), Sends(u"x1 = 1e+200   [1]\r\n"));
    EXPECT_EQ(Solve({u"1+1e-200-1", u"-1"}), Sends(u"x1 = 1e+200   [1]\r\n"));
    EXPECT_EQ(Solve({u"1e-2000/3", u"-1"}), Sends(u"x1 = 3e+2000   [1]\r\n"));
}

TEST_F(EquationRun, HasALongestCoefficient) {
    const std::u16string longest(CoefficientCharacters, u'1');
    EXPECT_EQ(Solve({u"1", longest + u"1"}), Fails(UiErrorCoefficientTooLong, u"a0"));
    EXPECT_EQ(Solve({u"1", longest + u"1"}, ExactRealRoots),
              Fails(UiErrorCoefficientTooLong, u"a0"));
    EXPECT_EQ(Solve({longest, u"0"}), Sends(u"x1 = 0   [1]\r\n"));
}

TEST_F(EquationRun, EndsWithAStop) {
    for (const char16_t* highest : {u"1", u""}) {
        RequestStop();
        EXPECT_EQ(Solve({highest, u"2"}), Fails(UiErrorStopped));
    }
}

TEST_F(EquationRun, LeavesNoRootsWhenItFails) {
    struct Coefficients {
        const char16_t* middle;
        const char16_t* highest;
    };
    for (const Coefficients& wrong : {Coefficients{u"1", u""}, Coefficients{u"*", u"1"},
                                      Coefficients{u"1e1000000000000000000", u"1"}}) {
        const EquationRequest request = {.degree = 2,
                                         .mode = EquationMode::Real,
                                         .exact = false,
                                         .digits = 10,
                                         .coefficients = {u"1", wrong.middle, wrong.highest}};
        const NumberSetupScope setup(EquationNumberSetup(request));
        ScratchStackScope scope;
        SolutionSet solutions = TakeSolutionSet(CurrentScratchStack());
        EquationWorker(solutions, request);
        EXPECT_NE(PendingUiError(), UiErrorNone);
        EXPECT_EQ(solutions.count, -1);
        ClearErrors();
    }
}

TEST_F(EquationRun, FailsWhereCoefficientsAreTooFarApart) {
    EXPECT_EQ(Solve({u"1", u"1e1000000000000000000", u"1"}), Fails(UiErrorNotConverged));
}

// The page takes the code when the root is shown.
TEST_F(EquationRun, ShowsARootBeyondTheRangeAndNotesIt) {
    EquationRequest request = {
        .degree = 1,
        .mode = EquationMode::Real,
        .exact = false,
        .digits = 10,
        .coefficients = {u"-1e4000000000000000000", u"1e-4000000000000000000"}};
    const NumberSetupScope setup(EquationNumberSetup(request));
    ScratchStackScope scope;
    SolutionSet solutions = TakeSolutionSet(CurrentScratchStack());
    EquationWorker(solutions, request);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    EXPECT_EQ(numberContext.calcError, CalcErrorOverflow);
    ShowEquationRoots(solutions, false, false, KeepPiece);
    EXPECT_EQ(keptText, u"x1 = \u221e\r\n");
    numberContext.calcError = CalcErrorNone;
}

TEST_F(EquationRun, IsSetUpForTheDigitsOfTheCoefficients) {
    const EquationRequest request = {
        .degree = 2, .mode = EquationMode::Real, .exact = false, .digits = 100, .coefficients = {}};
    const NumberSetup setup = EquationNumberSetup(request);
    EXPECT_EQ(setup.type, NumberTypeComplex);
    EXPECT_EQ(setup.digits, 558);
    EXPECT_EQ(setup.width.limbs, 2);
    EXPECT_EQ(setup.width.digits, 38);
    EXPECT_EQ(setup.window.low, -4);
    EXPECT_EQ(setup.window.high, 10);
    EquationRequest exact = request;
    exact.exact = true;
    exact.degree = 10;
    exact.digits = 750;
    EXPECT_EQ(EquationNumberSetup(exact).type, NumberTypeRational);
    EXPECT_EQ(EquationNumberSetup(exact).digits, 10'000);
}

}  // namespace
}  // namespace tallymere
