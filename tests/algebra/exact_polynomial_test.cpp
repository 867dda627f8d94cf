#include "algebra/exact_polynomial.h"

#include <gtest/gtest.h>

#include "algebra/exact_equation_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// The integers of ClearDenominators, or "none".
std::string Cleared(const std::vector<std::string>& coefficients) {
    WidthScope scope(FactorLimbs);
    const PolynomialBuffer polynomial(coefficients);
    const std::string before = polynomial.Text();
    PolynomialBuffer dest(static_cast<int64_t>(coefficients.size()) - 1);
    const bool fits = ClearDenominators(dest, polynomial);
    EXPECT_EQ(polynomial.Text(), before);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    return fits ? dest.Text() : "none";
}

// The quotient of DeflateByRoot, or "none".
std::string Deflated(const std::vector<std::string>& coefficients, std::string_view root) {
    WidthScope scope(FactorLimbs);
    const PolynomialBuffer polynomial(coefficients);
    const std::string before = polynomial.Text();
    PolynomialBuffer quotient(static_cast<int64_t>(coefficients.size()) - 1);
    const bool isRoot = DeflateByRoot(quotient, polynomial, RationalBuffer(root));
    EXPECT_EQ(polynomial.Text(), before);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    return isRoot ? quotient.Text() : "none";
}

TEST(ExactPolynomial, DenominatorsAreCleared) {
    EXPECT_EQ(Cleared({"3", "-2", "0", "7"}), "3 -2 0 7");
    EXPECT_EQ(Cleared({"1", "-1/3"}), "3 -1");
    EXPECT_EQ(Cleared({"1/2", "1/3", "1/4"}), "6 4 3");
    EXPECT_EQ(Cleared({"5", "0", "-3/7", "2/7"}), "35 0 -3 2");
    // A common factor of integers stays.
    EXPECT_EQ(Cleared({"4", "6"}), "4 6");
}

TEST(ExactPolynomial, DenominatorsThatDoNotFitAreRefused) {
    const std::string largest = LongText("2^128-1");
    EXPECT_EQ(Cleared({largest, "1"}), largest + " 1");
    EXPECT_EQ(Cleared({largest, "1/2"}), "none");
    // 2^64 - 59, 2^64 - 83 and 3.
    EXPECT_EQ(Cleared({"1/18446744073709551557", "1/18446744073709551533", "1"}),
              "18446744073709551533 18446744073709551557 "
              "340282366920938460843936948965011886881");
    EXPECT_EQ(Cleared({"1/18446744073709551557", "1/18446744073709551533", "2/3"}), "none");
}

TEST(ExactPolynomial, IsDividedByARoot) {
    EXPECT_EQ(Deflated({"1", "0", "-1"}, "1"), "1 1");
    EXPECT_EQ(Deflated({"1", "0", "-1"}, "-1"), "1 -1");
    EXPECT_EQ(Deflated({"6", "-5", "1"}, "1/2"), "6 -2");
    EXPECT_EQ(Deflated({"1", "0", "-1", "0"}, "0"), "1 0 -1");
    EXPECT_EQ(Deflated({"3", "-1"}, "1/3"), "3");
    EXPECT_EQ(Deflated({"1", "-3", "3", "-1"}, "1"), "1 -2 1");
    // In place of a zero there may be one with a sign.
    EXPECT_EQ(Deflated({"1", "1", "0"}, "-0"), "1 1");
}

TEST(ExactPolynomial, IsNotDividedByAnotherNumber) {
    EXPECT_EQ(Deflated({"1", "0", "-2"}, "1"), "none");
    EXPECT_EQ(Deflated({"1", "0", "-1"}, "1/2"), "none");
    EXPECT_EQ(Deflated({"1", "0", "1"}, "1"), "none");
    EXPECT_EQ(Deflated({"1", "2"}, "2"), "none");
}

TEST(ExactPolynomial, ADivisionThatDoesNotFitProvesNothing) {
    EXPECT_EQ(Deflated({"1", "0", "0", "0"}, LongText("2^65")), "none");
    EXPECT_EQ(Deflated({"1", "0", "-" + LongText("2^126")}, LongText("2^63")),
              "1 " + LongText("2^63"));
}

TEST(ExactPolynomial, ACodeThatWasNotedStaysAndDoesNotCount) {
    WidthScope scope(FactorLimbs);
    const PolynomialBuffer polynomial({"1/2", "-1/2"});
    PolynomialBuffer dest(1);
    const RationalBuffer one("1");
    const RationalBuffer tooSmall("1/" + LongText("2^128-1"));
    numberContext.calcError = CalcErrorSyntax;
    EXPECT_TRUE(DeflateByRoot(dest, polynomial, one));
    EXPECT_EQ(numberContext.calcError, CalcErrorSyntax);
    EXPECT_FALSE(DeflateByRoot(dest, polynomial, tooSmall));
    EXPECT_EQ(numberContext.calcError, CalcErrorSyntax);
    EXPECT_TRUE(ClearDenominators(dest, polynomial));
    EXPECT_EQ(TakeCode(), CalcErrorSyntax);
    EXPECT_EQ(dest.Text(), "1 -1");
}

TEST(ExactPolynomial, WellFormed) {
    WidthScope scope(FactorLimbs);
    EXPECT_TRUE(ExactPolynomialIsWellFormed(PolynomialBuffer({"1"})));
    EXPECT_TRUE(ExactPolynomialIsWellFormed(PolynomialBuffer({"-1/2", "-0", "0"})));
    EXPECT_FALSE(ExactPolynomialIsWellFormed(PolynomialBuffer({"0", "1"})));
    EXPECT_FALSE(ExactPolynomialIsWellFormed(PolynomialBuffer({"1", "2/4"})));
    EXPECT_FALSE(ExactPolynomialIsWellFormed(PolynomialBuffer({"1", "1/0"})));
    EXPECT_TRUE(ExactPolynomialIsWellFormed(PolynomialBuffer(std::vector<std::string>(11, "1"))));
    PolynomialBuffer polynomial({"1"});
    static_cast<ExactPolynomial&>(polynomial).degree = -1;
    EXPECT_FALSE(ExactPolynomialIsWellFormed(polynomial));
    static_cast<ExactPolynomial&>(polynomial).degree = MaxEquationDegree + 1;
    EXPECT_FALSE(ExactPolynomialIsWellFormed(polynomial));
}

}  // namespace
}  // namespace tallymere
