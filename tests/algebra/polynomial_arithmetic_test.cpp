#include "algebra/polynomial_arithmetic.h"

#include <gtest/gtest.h>

#include <string>

#include "algebra/polynomial_testing.h"
#include "core/stop_request.h"
#include "support/formula_testing.h"
#include "values/value_operations.h"

namespace tallymere {
namespace {

using namespace testing_support;

// Three polynomials of the number type in force; the result begins with junk.
struct Operands {
    explicit Operands(const std::string& first, const std::string& second = "0")
        : a(AllocPolynomial(scope)),
          b(AllocPolynomial(scope)),
          result(AllocPolynomial(scope)),
          remainder(AllocPolynomial(scope)) {
        SetPolynomial(a, first);
        SetPolynomial(b, second);
        SetPolynomial(result, "7;7;7;7;7;7;7;7;7;7;7;7;7;7;7;7;7;7;7;7;7");
        SetPolynomial(remainder, "7;7;7;7;7;7;7;7;7;7;7;7;7;7;7;7;7;7;7;7;7");
    }
    ScratchStackScope scope;
    PolyNumbers a;
    PolyNumbers b;
    PolyNumbers result;
    PolyNumbers remainder;
};

std::string Sum(const std::string& a, const std::string& b, bool subtract = false) {
    Operands operands(a, b);
    AddPolynomials(operands.result, operands.a, operands.b, subtract, 10);
    return PolynomialText(operands.result);
}

std::string Product(const std::string& a, const std::string& b) {
    Operands operands(a, b);
    const PolyOutcome outcome = MultiplyPolynomials(operands.result, operands.a, operands.b, 10);
    return outcome == PolyOutcome::Done ? PolynomialText(operands.result) : OutcomeName(outcome);
}

std::string Quotient(const std::string& a, const std::string& b) {
    Operands operands(a, b);
    const PolyOutcome outcome =
        DividePolynomials(operands.result, operands.remainder, operands.a, operands.b, 10);
    return (outcome == PolyOutcome::Done ? "" : OutcomeName(outcome) + " ") +
           PolynomialText(operands.result) + " rest " + PolynomialText(operands.remainder);
}

std::string Power(const std::string& a, uint64_t exponent) {
    Operands operands(a);
    const PolyOutcome outcome = RaisePolynomial(operands.result, operands.a, exponent, 10);
    return outcome == PolyOutcome::Done ? PolynomialText(operands.result) : OutcomeName(outcome);
}

std::string Exponent(const std::string& b) {
    Operands operands("0", b);
    uint64_t exponent = 99;
    const PolyOutcome outcome = ReadPolyExponent(&exponent, operands.b);
    return outcome == PolyOutcome::Done ? std::to_string(exponent) : OutcomeName(outcome);
}

TEST(PolynomialArithmetic, AllocatesZeros) {
    FormulaScope scope(13, NumberTypeComplex);
    ScratchStackScope scratch;
    const PolyNumbers polynomial = AllocPolynomial(scratch);
    EXPECT_EQ(PolyDegree(polynomial), -1);
    EXPECT_EQ(PolynomialText(polynomial), "0,0");
    const auto words = static_cast<int64_t>(SizeOfNumber()) / BytesPerWord;
    EXPECT_EQ(polynomial.coefficients[20] - polynomial.coefficients[0],
              20 * (words + ScratchGapWords));
}

TEST(PolynomialArithmetic, AddsAndSubtracts) {
    FormulaScope scope(13, NumberTypeReal);
    EXPECT_EQ(Sum("1;2;3", "4;5"), "1e0;6e0;8e0");
    EXPECT_EQ(Sum("1;2;3", "1;5", true), "1e0;1e0;-2e0");
    EXPECT_EQ(Sum("1;2", "1;1", true), "1e0");
    EXPECT_EQ(Sum("3", "3", true), "0");
    EXPECT_EQ(Sum("1;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0", "1"),
              "1e0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;1e0");
}

TEST(PolynomialArithmetic, AddsOverItsOperands) {
    FormulaScope scope(13, NumberTypeReal);
    Operands operands("1;2", "3;4");
    AddPolynomials(operands.a, operands.a, operands.b, false, 10);
    EXPECT_EQ(PolynomialText(operands.a), "4e0;6e0");
    AddPolynomials(operands.b, operands.a, operands.b, true, 10);
    EXPECT_EQ(PolynomialText(operands.b), "1e0;2e0");
}

// To the digits that are asked for, which are fewer than those of the operands.
TEST(PolynomialArithmetic, RoundsItsResults) {
    FormulaScope scope(13, NumberTypeReal);
    EXPECT_EQ(Sum("1.00000000049", "0"), "1e0");
    EXPECT_EQ(Sum("1.0000000005", "0"), "1.000000001e0");
    EXPECT_EQ(Product("1.0000000005", "1"), "1.000000001e0");
    EXPECT_EQ(Quotient("1;1.0000000005", "1;0"), "1e0 rest 1.000000001e0");
    EXPECT_EQ(Quotient("1.0000000005;0", "1;0"), "1.000000001e0 rest 0");
}

TEST(PolynomialArithmetic, Multiplies) {
    FormulaScope scope(13, NumberTypeReal);
    EXPECT_EQ(Product("1;1", "1;-1"), "1e0;0;-1e0");
    EXPECT_EQ(Product("2;0;3", "4;5"), "8e0;1e1;1.2e1;1.5e1");
    EXPECT_EQ(Product("1;2;3", "0"), "0");
    EXPECT_EQ(Product("0", "1;2;3"), "0");
    EXPECT_EQ(Product("2;0;0;0;0;0;0;0;0;0;0", "3;0;0;0;0;0;0;0;0;0;1"),
              "6e0;0;0;0;0;0;0;0;0;0;2e0;0;0;0;0;0;0;0;0;0;0");
}

TEST(PolynomialArithmetic, RefusesDegreesAboveTwenty) {
    FormulaScope scope(13, NumberTypeReal);
    const std::string degree20 = "1;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;1";
    EXPECT_EQ(Product(degree20, "1;0"), "DegreeTooHigh");
    EXPECT_EQ(Product("1;0", degree20), "DegreeTooHigh");
    EXPECT_EQ(Product(degree20, degree20), "DegreeTooHigh");
    EXPECT_EQ(Product("0;" + degree20.substr(2), "1;1"), "1e0;1e0");
    EXPECT_EQ(Product(degree20, "2"), "2e0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;2e0");
    EXPECT_EQ(Product(degree20, "0"), "0");
    EXPECT_EQ(Product("1;0;0;0;0;0;0;0;0;0;0", "1;0;0;0;0;0;0;0;0;0;0;0"), "DegreeTooHigh");
}

TEST(PolynomialArithmetic, RefusesToMultiplyIntoAnOperand) {
    FormulaScope scope(13, NumberTypeReal);
    Operands operands("1;2", "3;4");
    EXPECT_EQ(MultiplyPolynomials(operands.a, operands.a, operands.b, 10), PolyOutcome::SameObject);
    EXPECT_EQ(MultiplyPolynomials(operands.b, operands.a, operands.b, 10), PolyOutcome::SameObject);
    EXPECT_EQ(PolynomialText(operands.a), "1e0;2e0");
    EXPECT_EQ(PolynomialText(operands.b), "3e0;4e0");
    EXPECT_EQ(MultiplyPolynomialBy(operands.a, operands.b, 10), PolyOutcome::Done);
    EXPECT_EQ(PolynomialText(operands.a), "3e0;1e1;8e0");
}

TEST(PolynomialArithmetic, Divides) {
    FormulaScope scope(13, NumberTypeReal);
    EXPECT_EQ(Quotient("1;0;-1", "1;1"), "1e0;-1e0 rest 0");
    EXPECT_EQ(Quotient("1;2;3", "2;0"), "5e-1;1e0 rest 3e0");
    EXPECT_EQ(Quotient("1;2;3", "4"), "2.5e-1;5e-1;7.5e-1 rest 0");
    EXPECT_EQ(Quotient("1", "3"), "3.333333333e-1 rest 0");
    EXPECT_EQ(Quotient("0", "1;2"), "0 rest 0");
}

TEST(PolynomialArithmetic, LeavesADividendOfALowerDegree) {
    FormulaScope scope(13, NumberTypeReal);
    EXPECT_EQ(Quotient("5;6", "1;2;3"), "0 rest 5e0;6e0");
    EXPECT_EQ(Quotient("1.00000000049", "1;2;3"), "0 rest 1e0");
}

TEST(PolynomialArithmetic, DoesNotDivideByZero) {
    FormulaScope scope(13, NumberTypeReal);
    EXPECT_EQ(Quotient("1;1.0000000005", "0"), "DivisionByZero 0 rest 1e0;1.000000001e0");
    EXPECT_EQ(Quotient("0", "0"), "DivisionByZero 0 rest 0");
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

TEST(PolynomialArithmetic, KeepsWhatItWouldDivideInto) {
    FormulaScope scope(13, NumberTypeReal);
    Operands operands("1;2;3", "3;4");
    const std::string junk = PolynomialText(operands.remainder);
    EXPECT_EQ(DividePolynomials(operands.a, operands.remainder, operands.a, operands.b, 10),
              PolyOutcome::Done);
    EXPECT_EQ(DividePolynomials(operands.b, operands.remainder, operands.a, operands.b, 10),
              PolyOutcome::Done);
    EXPECT_EQ(DividePolynomials(operands.remainder, operands.remainder, operands.a, operands.b, 10),
              PolyOutcome::Done);
    EXPECT_EQ(PolynomialText(operands.a), "1e0;2e0;3e0");
    EXPECT_EQ(PolynomialText(operands.b), "3e0;4e0");
    EXPECT_EQ(PolynomialText(operands.remainder), junk);
}

TEST(PolynomialArithmetic, DividesADividendInItsPlace) {
    FormulaScope scope(13, NumberTypeReal);
    Operands operands("1;2;3", "1;1");
    EXPECT_EQ(DividePolynomials(operands.result, operands.a, operands.a, operands.b, 10),
              PolyOutcome::Done);
    EXPECT_EQ(PolynomialText(operands.result), "1e0;1e0");
    EXPECT_EQ(PolynomialText(operands.a), "2e0");
}

TEST(PolynomialArithmetic, RaisesToAPower) {
    FormulaScope scope(13, NumberTypeReal);
    EXPECT_EQ(Power("1;1", 0), "1e0");
    EXPECT_EQ(Power("0", 0), "1e0");
    EXPECT_EQ(Power("0", 3), "0");
    EXPECT_EQ(Power("1;1", 1), "1e0;1e0");
    EXPECT_EQ(Power("1;-1", 3), "1e0;-3e0;3e0;-1e0");
    EXPECT_EQ(Power("2", 20), "1.048576e6");
    EXPECT_EQ(Power("1;0", 20), "1e0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0");
    EXPECT_EQ(Power("1;0;0", 11), "DegreeTooHigh");
}

TEST(PolynomialArithmetic, TakesIntegersFromZeroToTwentyForExponents) {
    FormulaScope scope(13, NumberTypeReal);
    EXPECT_EQ(Exponent("0"), "0");
    EXPECT_EQ(Exponent("20"), "20");
    for (const char* text : {"21", "-1", "0.5", "1e30", "1;0", "0;1;2", "1.999999999999"}) {
        EXPECT_EQ(Exponent(text), "ExponentRefused") << text;
    }
}

TEST(PolynomialArithmetic, TakesRealExponentsAlone) {
    FormulaScope scope(13, NumberTypeComplex);
    EXPECT_EQ(Exponent("3,0"), "3");
    EXPECT_EQ(Exponent("0,3"), "ExponentRefused");
    EXPECT_EQ(Exponent("3,1"), "ExponentRefused");
    FormulaScope fractions(NumberTypeRational, 26);
    EXPECT_EQ(Exponent("3"), "3");
    EXPECT_EQ(Exponent("1/2"), "ExponentRefused");
    EXPECT_EQ(Exponent("-2"), "ExponentRefused");
}

TEST(PolynomialArithmetic, TakesComplexNumbers) {
    FormulaScope scope(13, NumberTypeComplex);
    EXPECT_EQ(Product("1;0,1", "1;0,-1"), "1e0,0;0,0;1e0,0");
    EXPECT_EQ(Quotient("1;0;1", "1;0,1"), "1e0,0;0,-1e0 rest 0,0");
    EXPECT_EQ(Sum("1,2;3", "4,5;6,7", true), "-3e0,-3e0;-3e0,-7e0");
    EXPECT_EQ(Power("1;0,1", 2), "1e0,0;0,2e0;-1e0,0");
}

TEST(PolynomialArithmetic, TakesFractionsExactly) {
    FormulaScope scope(NumberTypeRational, 26);
    EXPECT_EQ(Sum("1/3;1/2", "1/6;1/2", true), "1/6;0");
    EXPECT_EQ(Product("1/2;1/3", "2/5;-3/7"), "1/5;-17/210;-1/7");
    EXPECT_EQ(Quotient("1;2;3", "3;1"), "1/3;5/9 rest 22/9");
    EXPECT_EQ(Power("1/2;1", 3), "1/8;3/4;3/2;1");
    EXPECT_EQ(Sum("123456789012345678901/7", "0"), "123456789012345678901/7");
}

TEST(PolynomialArithmetic, NotesWhatOverflows) {
    FormulaScope scope(NumberTypeRational, 1);
    Product("18446744073709551615", "2");
    EXPECT_EQ(TakeCode(), CalcErrorOverflow);
    FormulaScope real(13, NumberTypeReal);
    Product("1e4611686018427387903", "10");
    EXPECT_EQ(TakeCode(), CalcErrorOverflow);
}

TEST(PolynomialArithmetic, DoesNotDivideIntegersWithoutFractions) {
    FormulaScope scope(NumberTypeUint, 2);
    EXPECT_EQ(Product("1;2", "3;4"), "3;10;8");
    Quotient("6;3", "3");
    EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
}

TEST(PolynomialArithmetic, HearsAStop) {
    FormulaScope scope(13, NumberTypeReal);
    RequestStop();
    EXPECT_EQ(Product("1;2", "3;4"), "Stopped");
    EXPECT_EQ(Power("1;2", 3), "Stopped");
    EXPECT_EQ(Quotient("1;2", "3;4").substr(0, 7), "Stopped");
    ClearStopRequest();
}

}  // namespace
}  // namespace tallymere
