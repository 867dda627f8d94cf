#include "algebra/polynomial_calculation.h"

#include <gtest/gtest.h>

#include <string>

#include "algebra/polynomial_testing.h"
#include "core/stop_request.h"
#include "support/formula_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

using enum PolyOperator;

class PolynomialCalculation : public ::testing::Test {
protected:
    FormulaScope scope_{13, NumberTypeReal};
};

TEST_F(PolynomialCalculation, GoesFromLeftToRight) {
    EXPECT_EQ(Calculated(Plus, {"1;2", "3", "5;0;0"}, 10), "5e0;1e0;5e0");
    EXPECT_EQ(Calculated(Minus, {"1;2", "3", "5;0;0"}, 10), "-5e0;1e0;-1e0");
    EXPECT_EQ(Calculated(Times, {"1;2", "3", "5;0;0"}, 10), "1.5e1;3e1;0;0");
    EXPECT_EQ(Calculated(Times, std::vector<std::string>(12, "1;1"), 10),
              "1e0;1.2e1;6.6e1;2.2e2;4.95e2;7.92e2;9.24e2;7.92e2;4.95e2;2.2e2;6.6e1;1.2e1;1e0");
}

TEST_F(PolynomialCalculation, DividesAndRaises) {
    EXPECT_EQ(Calculated(Divide, {"1;2;4", "1;1"}, 10), "1e0;1e0 rest 3e0");
    EXPECT_EQ(Calculated(Divide, {"5;6", "1;2;3"}, 10), "0 rest 5e0;6e0");
    EXPECT_EQ(Calculated(Power, {"1;-1", "3"}, 10), "1e0;-3e0;3e0;-1e0");
    EXPECT_EQ(Calculated(Power, {"1;-1", "0"}, 10), "1e0");
    EXPECT_EQ(Calculated(Power, {"0", "0"}, 10), "1e0");
}

TEST_F(PolynomialCalculation, TellsWhatItRefuses) {
    EXPECT_EQ(Calculated(Times, {"1;0;0;0;0;0;0;0;0;0;0", "1;0;0;0;0;0;0;0;0;0;0", "1;0"}, 10),
              "DegreeTooHigh");
    EXPECT_EQ(Calculated(Divide, {"1;1", "0"}, 10), "DivisionByZero");
    EXPECT_EQ(Calculated(Power, {"1;1", "1;2"}, 10), "ExponentRefused");
    EXPECT_EQ(Calculated(Power, {"1;1;1", "11"}, 10), "DegreeTooHigh");
    EXPECT_EQ(Calculated(Times, {"1e4611686018427387903", "10"}, 10), "inf code 200");
}

TEST_F(PolynomialCalculation, KeepsTheDigitsOfTermsThatCancel) {
    // The square has 25 digits, of which the first 6 cancel.
    const std::vector<std::string> factors = {"1.000001234567;1", "-1;1.000001234567"};
    EXPECT_EQ(CalculatedPlainly(Times, factors, 10), "-1.000001235e0;2.469136e-6;1.000001235e0");
    EXPECT_EQ(Calculated(Times, factors, 10), "-1.000001235e0;2.469135524e-6;1.000001235e0");
}

TEST_F(PolynomialCalculation, RoundsChainsOnce) {
    // Every step rounds to 5 digits in the plain way.
    EXPECT_EQ(CalculatedPlainly(Plus, {"1.0000", "0.00004", "0.00004", "0.00004"}, 5), "1e0");
    EXPECT_EQ(Calculated(Plus, {"1.0000", "0.00004", "0.00004", "0.00004"}, 5), "1.0001e0");
    EXPECT_EQ(CalculatedPlainly(Power, {"1.0001234", "20"}, 5), "1.002e0");
    EXPECT_EQ(Calculated(Power, {"1.0001234", "20"}, 5), "1.0025e0");
}

TEST_F(PolynomialCalculation, RoundsMiddlesAwayFromZero) {
    EXPECT_EQ(Calculated(Times, {"1.5", "1.00001"}, 5), "1.5e0");
    EXPECT_EQ(Calculated(Times, {"1.5", "1.0001"}, 5), "1.5002e0");
    EXPECT_EQ(Calculated(Times, {"1.5", "-1.0001"}, 5), "-1.5002e0");
    EXPECT_EQ(Calculated(Divide, {"6.0006", "4"}, 5), "1.5002e0 rest 0");
    EXPECT_EQ(Calculated(Divide, {"-6.0006", "4"}, 5), "-1.5002e0 rest 0");
    EXPECT_EQ(Calculated(Minus, {"1.00015", "1e-30"}, 5), "1.0001e0");
    EXPECT_EQ(Calculated(Minus, {"1.00015", "1e-3000"}, 5), "1.0001e0");
    // Farther than the most digits show.
    EXPECT_EQ(Calculated(Minus, {"1.00015", "1e-30000"}, 5), "1.0002e0");
}

TEST_F(PolynomialCalculation, FindsTheRemainderZero) {
    // (x^2 + 2x + 1) / (3x + 3), where no quotient of coefficients ends.
    EXPECT_EQ(CalculatedPlainly(Divide, {"1;2;1", "3;3"}, 10),
              "3.333333333e-1;3.333333333e-1 rest 1e-13");
    EXPECT_EQ(Calculated(Divide, {"1;2;1", "3;3"}, 10), "3.333333333e-1;3.333333333e-1 rest 0");
    EXPECT_EQ(Calculated(Divide, {"1;2;1.000000000001", "3;3"}, 10),
              "3.333333333e-1;3.333333333e-1 rest 1e-12");
}

// (h x + h j) (k/h x + 1.00015), with the first coefficient of the quotient beyond any digits. The
// second is a middle, to which no pass comes but nearly.
TEST_F(PolynomialCalculation, FindsMiddlesBehindDigitsWithoutEnd) {
    for (const int h : {3, 7, 9, 11, 13, 17}) {
        for (int k = 1; k < h; k++) {
            for (int j = 1; j <= 9; j++) {
                const auto fraction = [](int64_t hundredThousandths) {
                    return std::to_string(hundredThousandths) + "e-5";
                };
                const std::string dividend = std::to_string(k) + ";" +
                                             fraction(100015 * h + 100000 * j * k) + ";" +
                                             fraction(int64_t{100015} * h * j);
                const std::string divisor = std::to_string(h) + ";" + std::to_string(h * j);
                const std::string result = Calculated(Divide, {dividend, divisor}, 5);
                EXPECT_EQ(result.substr(result.find(';')), ";1.0002e0 rest 0")
                    << dividend << " / " << divisor;
            }
        }
    }
}

// t (x^3 + 3 x^2 + 3 x) / (h x + 1) has the constant t - t (h - 1)^3 / h^3: a little less than t.
TEST_F(PolynomialCalculation, TellsWhatIsBesideAMiddle) {
    EXPECT_EQ(Calculated(Divide, {"1.00015;3.00045;3.00045;0", "1.000000000001;1"}, 5),
              "1.0001e0;2.0003e0;1.0001e0 rest -1.0001e0");
    EXPECT_EQ(Calculated(Divide, {"1.00015;3.00045;3.00045;0", "0.999999999999;1"}, 5),
              "1.0002e0;2.0003e0;1.0002e0 rest -1.0002e0");
}

// What the rounded coefficients leave of sqrt(2) * sqrt(2) - 2 is 0, as far as is known.
TEST_F(PolynomialCalculation, TakesWhatErrorsCoverForZero) {
    for (const bool hasRemainder : {false, true}) {
        ScratchStackScope scope;
        PolyCalculation calculation = TakePolyCalculation(scope, Divide, 2, 8);
        SetPolynomial(NextOperand(calculation), hasRemainder ? "1;0;-3" : "1;0;-2");
        EXPECT_EQ(ApplyOperand(calculation), PolyOutcome::Done);
        SetPolynomial(NextOperand(calculation), "1;-1.414213562373");
        NextErrors(calculation)[0].real = MakeMagnitude(1, -12);
        EXPECT_EQ(ApplyOperand(calculation), PolyOutcome::Done);
        EXPECT_EQ(RefinePolynomials(calculation), PolyOutcome::Done);
        EXPECT_EQ(PolynomialText(calculation.result), "1e0;1.4142136e0");
        EXPECT_EQ(PolynomialText(calculation.remainder), hasRemainder ? "-1e0" : "0");
        EXPECT_EQ(calculation.isKnown, hasRemainder);
    }
    // Exact coefficients leave what is there.
    EXPECT_EQ(CalculatedPlainly(Plus, {"1", "1e-13", "-1"}, 10), "0");
    EXPECT_EQ(Calculated(Plus, {"1", "1e-13", "-1"}, 10), "1e-13");
}

// The dividend may be the middle 1.00015, or not.
TEST_F(PolynomialCalculation, TellsWhatErrorsLeaveOpen) {
    for (const int64_t order : {-14, -9}) {
        ScratchStackScope scope;
        PolyCalculation calculation = TakePolyCalculation(scope, Divide, 2, 5);
        SetPolynomial(NextOperand(calculation), "1.0001499999");
        NextErrors(calculation)[0].real = MakeMagnitude(1, order);
        EXPECT_EQ(ApplyOperand(calculation), PolyOutcome::Done);
        SetPolynomial(NextOperand(calculation), "1");
        EXPECT_EQ(ApplyOperand(calculation), PolyOutcome::Done);
        EXPECT_EQ(RefinePolynomials(calculation), PolyOutcome::Done);
        EXPECT_EQ(calculation.isKnown, order == -14);
        EXPECT_EQ(PolynomialText(calculation.result), order == -14 ? "1.0001e0" : "1.0002e0");
    }
}

TEST_F(PolynomialCalculation, TakesCoefficientsOfAnySize) {
    EXPECT_EQ(Calculated(Times, {"1e300;1", "1e-300;1"}, 10), "1e0;1e300;1e0");
    EXPECT_EQ(Calculated(Times, {"1e1000000;1", "1;-1e1000000"}, 10),
              "1e1000000;-1e2000000;-1e1000000");
    EXPECT_EQ(Calculated(Times, {"1e2000000000000000;1", "1;1"}, 10),
              "1e2000000000000000;1e2000000000000000;1e0");
    EXPECT_EQ(Calculated(Times, {"1e20000000000000000;1", "1;1"}, 10),
              "1e20000000000000000;1e20000000000000000;1e0");
    EXPECT_EQ(Calculated(Times, {"1e-4611686018427387903", "0.1"}, 10), "0");
}

TEST_F(PolynomialCalculation, LeavesACalculationWithACode) {
    ScratchStackScope scope;
    PolyCalculation calculation = TakePolyCalculation(scope, Plus, 2, 5);
    SetPolynomial(NextOperand(calculation), "1.00004");
    EXPECT_EQ(ApplyOperand(calculation), PolyOutcome::Done);
    SetPolynomial(NextOperand(calculation), "0.00004");
    EXPECT_EQ(ApplyOperand(calculation), PolyOutcome::Done);
    SetPolynomial(calculation.result, "5");
    SetCalcError(CalcErrorOverflow);
    EXPECT_EQ(RefinePolynomials(calculation), PolyOutcome::Done);
    EXPECT_EQ(PolynomialText(calculation.result), "5e0");
    EXPECT_EQ(TakeCode(), CalcErrorOverflow);
    EXPECT_EQ(RefinePolynomials(calculation), PolyOutcome::Done);
    EXPECT_EQ(PolynomialText(calculation.result), "1.0001e0");
}

TEST_F(PolynomialCalculation, HearsAStop) {
    ScratchStackScope scope;
    PolyCalculation calculation = TakePolyCalculation(scope, Times, 2, 5);
    SetPolynomial(NextOperand(calculation), "1;2");
    EXPECT_EQ(ApplyOperand(calculation), PolyOutcome::Done);
    SetPolynomial(NextOperand(calculation), "3;4");
    EXPECT_EQ(ApplyOperand(calculation), PolyOutcome::Done);
    RequestStop();
    EXPECT_EQ(RefinePolynomials(calculation), PolyOutcome::Stopped);
    ClearStopRequest();
}

TEST(ComplexPolynomials, HaveTheDigitsOfBothParts) {
    FormulaScope scope(13, NumberTypeComplex);
    // (1.000000000001 + i)(1 + 1.000000000001 i): the real part cancels.
    EXPECT_EQ(Calculated(Times, {"1.000000000001,1", "1,1.000000000001"}, 10), "0,2e0");
    EXPECT_EQ(Calculated(Times, {"1.000000000001,1", "1.000000000001,1"}, 10), "2e-12,2e0");
    EXPECT_EQ(Calculated(Divide, {"1;0;1", "1,1;-1,1"}, 10), "5e-1,-5e-1;-5e-1,-5e-1 rest 0,0");
    EXPECT_EQ(Calculated(Power, {"1,1", "20"}, 10), "-1.024e3,0");
    EXPECT_EQ(Calculated(Divide, {"1,2;3;4", "3,4;5,-6"}, 5),
              "4.4e-1,8e-2;3.968e-1,2.176e-1 rest 7.104e-1,1.2928e0");
}

TEST(RationalPolynomials, StayAsTheyAre) {
    FormulaScope scope(NumberTypeRational, 26);
    EXPECT_EQ(Calculated(Times, {"1/3;1", "3;1/7", "1;0"}, 10), "1;64/21;1/7;0");
    EXPECT_EQ(Calculated(Divide, {"1;2;3", "3;1"}, 10), "1/3;5/9 rest 22/9");
}

}  // namespace
}  // namespace tallymere
