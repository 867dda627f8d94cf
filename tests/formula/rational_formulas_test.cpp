// Formulas in the number type rat, from their text to their value or error.
#include <gtest/gtest.h>

#include <string>

#include "support/formula_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// At two limbs a part, so that 2^128 is the first integer that does not fit.
class RationalFormulas : public ::testing::Test {
protected:
    FormulaScope scope_{NumberTypeRational, 2};
};

// Numbers.

TEST_F(RationalFormulas, ReadDecimalNumbersThatAreIntegers) {
    EXPECT_EQ(Evaluate(u"31"), Exactly("31"));
    EXPECT_EQ(Evaluate(u"1.5e1"), Exactly("15"));
    EXPECT_EQ(Evaluate(u"100e-2"), Exactly("1"));
    EXPECT_EQ(Evaluate(u"2.0"), Exactly("2"));
    EXPECT_EQ(Evaluate(u"1'000"), Exactly("1000"));
    EXPECT_EQ(Evaluate(u"0.5"), Failure(10208, 1, 3));
    EXPECT_EQ(Evaluate(u"1+1e-1"), Failure(10208, 3, 4));
    EXPECT_EQ(Evaluate(u"1e39"), Failure(10208, 1, 4)) << "does not fit";
}

TEST_F(RationalFormulas, HaveNoOtherBases) {
    EXPECT_EQ(Evaluate(u"0x1F"), Failure(10208, 1, 4));
    EXPECT_EQ(Evaluate(u"1+0y101"), Failure(10208, 3, 5));
    EXPECT_EQ(Evaluate(u"0t17"), Failure(10208, 1, 4));
    EXPECT_EQ(Evaluate(u"0x"), Failure(10208, 1, 2));
}

TEST_F(RationalFormulas, HaveNeitherPiNorTheImaginaryUnit) {
    EXPECT_EQ(Evaluate(u"pi"), Failure(10203, 1, 2));
    EXPECT_EQ(Evaluate(u"(1)i"), Failure(10207, 4, 1));
}

// Operators.

TEST_F(RationalFormulas, AreExact) {
    EXPECT_EQ(Evaluate(u"1/3+1/6"), Exactly("1/2"));
    EXPECT_EQ(Evaluate(u"1/3-1/2"), Exactly("-1/6"));
    EXPECT_EQ(Evaluate(u"2/3*3/4"), Exactly("1/2"));
    EXPECT_EQ(Evaluate(u"(2/3)/(4/9)"), Exactly("3/2"));
    EXPECT_EQ(Evaluate(u"-5"), Exactly("-5"));
    EXPECT_EQ(Evaluate(u"-(1/2)"), Exactly("-1/2"));
    EXPECT_EQ(Evaluate(u"+5"), Exactly("5"));
    EXPECT_EQ(Evaluate(u"-(-5)"), Exactly("5"));
    EXPECT_EQ(Evaluate(u"7/2"), Exactly("7/2")) << "nothing is lost";
}

TEST_F(RationalFormulas, HaveARemainderWithTheSignOfTheQuotient) {
    EXPECT_EQ(Evaluate(u"(-7) mod 2"), Exactly("-1"));
    EXPECT_EQ(Evaluate(u"7 mod (-2)"), Exactly("-1"));
    EXPECT_EQ(Evaluate(u"(7/2) mod (1/3)"), Exactly("1/6"));
    EXPECT_EQ(Evaluate(u"5 mod 0"), Failure(10203, 8, 0));
}

TEST_F(RationalFormulas, DivideZeroByZeroToZero) {
    EXPECT_EQ(Evaluate(u"0/0"), Exactly("0"));
    EXPECT_EQ(Evaluate(u"0/(1-1)+2"), Exactly("2"));
    EXPECT_EQ(Evaluate(u"5/0"), Failure(10203, 4, 0));
    EXPECT_EQ(Evaluate(u"5/0+1"), Failure(10203, 4, 1));
    EXPECT_EQ(Evaluate(u"(1/2)/0"), Failure(10203, 8, 0));
}

TEST_F(RationalFormulas, Raise) {
    EXPECT_EQ(Evaluate(u"2^(-2)"), Exactly("1/4"));
    EXPECT_EQ(Evaluate(u"10^(-2)"), Exactly("1/100"));
    EXPECT_EQ(Evaluate(u"(-2)^3"), Exactly("-8"));
    EXPECT_EQ(Evaluate(u"(2/3)^2"), Exactly("4/9"));
    EXPECT_EQ(Evaluate(u"(-2/3)^(-3)"), Exactly("-27/8"));
    EXPECT_EQ(Evaluate(u"-2^2"), Exactly("-4"));
    EXPECT_EQ(Evaluate(u"0^0"), Exactly("1"));
    EXPECT_EQ(Evaluate(u"1^(1/2)"), Exactly("2/2"));
    EXPECT_EQ(Evaluate(u"(-1)^(2^100+1)"), Exactly("-1"));
    EXPECT_EQ(Evaluate(u"4^(1/2)"), Failure(10203, 8, 0));
    EXPECT_EQ(Evaluate(u"2^(1/2)"), Failure(10203, 8, 0));
    EXPECT_EQ(Evaluate(u"10^(1/2)*2"), Failure(10203, 9, 1));
    EXPECT_EQ(Evaluate(u"(-8)^(1/3)"), Failure(10203, 11, 0));
    EXPECT_EQ(Evaluate(u"0^(-1)"), Failure(10203, 7, 0));
    EXPECT_EQ(Evaluate(u"2^128"), Failure(10203, 6, 0));
    EXPECT_EQ(Evaluate(u"3^(2^100)"), Failure(10203, 10, 0));
}

// Functions.

TEST_F(RationalFormulas, HaveExactFunctions) {
    EXPECT_EQ(Evaluate(u"sqrt(4/9)"), Exactly("2/3"));
    EXPECT_EQ(Evaluate(u"cbrt(-8/27)"), Exactly("-2/3"));
    EXPECT_EQ(Evaluate(u"log2(1/8)"), Exactly("-3"));
    EXPECT_EQ(Evaluate(u"log2(8)"), Exactly("3"));
    EXPECT_EQ(Evaluate(u"log10(1/100)"), Exactly("-2"));
    EXPECT_EQ(Evaluate(u"logx(3;81)"), Exactly("4"));
    EXPECT_EQ(Evaluate(u"root(-2;4/9)"), Exactly("3/2"));
    EXPECT_EQ(Evaluate(u"root(2/3;4)"), Exactly("8"));
    EXPECT_EQ(Evaluate(u"abs(-7/3)"), Exactly("7/3"));
    EXPECT_EQ(Evaluate(u"trunc(-7/3)"), Exactly("-2"));
    EXPECT_EQ(Evaluate(u"frac(-7/3)"), Exactly("-1/3"));
    EXPECT_EQ(Evaluate(u"fact(5)"), Exactly("120"));
    EXPECT_EQ(Evaluate(u"ncr(1/2;2)"), Exactly("-1/8"));
    EXPECT_EQ(Evaluate(u"npr(1/2;2)"), Exactly("-1/4"));
    EXPECT_EQ(Evaluate(u"gcd(4;6)"), Exactly("2"));
    EXPECT_EQ(Evaluate(u"lcm(4;6)"), Exactly("12"));
}

TEST_F(RationalFormulas, RoundFromTheArgument) {
    EXPECT_EQ(Evaluate(u"round(7/3)"), Exactly("2"));
    EXPECT_EQ(Evaluate(u"round(5/2)"), Exactly("7/2"));
    EXPECT_EQ(Evaluate(u"round(-5/2)"), Exactly("-7/2"));
}

TEST_F(RationalFormulas, FailWhereAFunctionHasNoFraction) {
    EXPECT_EQ(Evaluate(u"sqrt(2)"), Failure(10203, 7, 1));
    EXPECT_EQ(Evaluate(u"sqrt(-4)"), Failure(10203, 8, 1));
    EXPECT_EQ(Evaluate(u"cbrt(9)"), Failure(10203, 7, 1));
    EXPECT_EQ(Evaluate(u"log2(3)"), Failure(10203, 7, 1));
    EXPECT_EQ(Evaluate(u"log10(0)"), Failure(10203, 8, 1));
    EXPECT_EQ(Evaluate(u"logx(1/2;4)"), Failure(10203, 11, 1));
    EXPECT_EQ(Evaluate(u"root(0;4)"), Failure(10203, 9, 1));
    EXPECT_EQ(Evaluate(u"fact(1/2)"), Failure(10203, 9, 1));
    EXPECT_EQ(Evaluate(u"ncr(5;1/2)"), Failure(10203, 10, 1));
    EXPECT_EQ(Evaluate(u"gcd(1/2;3)"), Failure(10203, 10, 1));
    EXPECT_EQ(Evaluate(u"lcm(0;3)"), Failure(10203, 8, 1));
}

TEST_F(RationalFormulas, FailForFunctionsOfRealNumbers) {
    for (const std::u16string& formula : FormulasOfRealFunctions()) {
        EXPECT_EQ(Evaluate(formula), Failure(10203, formula.size(), 1)) << Printable(formula);
    }
}

TEST_F(RationalFormulas, DoNotHaveTheFunctionsOfOtherTypes) {
    for (const std::u16string& formula : FormulasOfComplexFunctions()) {
        const uint64_t length = formula.find(u'(');
        EXPECT_EQ(Evaluate(formula), Failure(10207, 1, length)) << Printable(formula);
    }
    EXPECT_EQ(Evaluate(u"1+powmod(2;10;1000)"), Failure(10209, 3, 6));
}

TEST_F(RationalFormulas, AreStopped) {
    uint8_t stop = 1;
    FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    EXPECT_EQ(EvaluateTokenByToken(u"1+ncr(5;2)"), Failure(FormulaErrorAborted, 1, 0));
    EXPECT_EQ(EvaluateTokenByToken(u"npr(1/2;2)"), Failure(FormulaErrorAborted, 1, 0));
}

TEST_F(RationalFormulas, UseVariables) {
    EXPECT_EQ(Evaluate(u"x+x", {{u"x", u"1/3"}}), Exactly("2/3"));
    EXPECT_EQ(Evaluate(u"ans^2", {{u"ans", u"-2/3"}}), Exactly("4/9")) << "a value, not its text";
    EXPECT_EQ(Evaluate(u"1+x", {{u"x", u"0.5"}}), Failure(10212, 3, 1));
    EXPECT_EQ(Evaluate(u"x", {{u"x", u"sqrt(2)"}}), Failure(10212, 1, 1));
}

// The longest fractions of the calculator.
TEST(LongestRationalFormulas, HaveValues) {
    FormulaScope scope(NumberTypeRational, UintLimbsForDigits(10'000));
    EXPECT_EQ(Evaluate(u"(1/3^20000-1/7^11000)*3^20000*7^11000-7^11000+3^20000"),
              Failure(10203, 21, 1))
        << "the common denominator does not fit";
    EXPECT_EQ(Evaluate(u"(3^20000/2^33000)*(2^32999/3^19998)"), Exactly("9/2"));
    EXPECT_EQ(Evaluate(u"sqrt(10^10000)-10^5000"), Exactly("-0"));
    EXPECT_EQ(Evaluate(u"log10(1/10^10000)"), Exactly("-10000"));
    EXPECT_EQ(Evaluate(u"round(10^9999/7)*7-10^9999"), Exactly("7")) << "1 more, for 6/7";
    EXPECT_EQ(Evaluate(u"frac(-10^9999/7)*7"), Exactly("-6"));
    EXPECT_EQ(Evaluate(u"((5^14000/3) mod (7^11000/2)*6) mod 7^5"), Exactly("14344"));
    EXPECT_EQ(Evaluate(u"cbrt(8^3000/27^2000)*9^1000/2^3000"), Exactly("1"));
    EXPECT_EQ(Evaluate(u"root(-5;3^20000/2^30000)*3^4000/2^6000"), Exactly("1"));
    EXPECT_EQ(Evaluate(u"fact(3200)/fact(3199)"), Exactly("3200"));
    EXPECT_EQ(Evaluate(u"fact(3300)"), Failure(10203, 10, 1));
    EXPECT_EQ(Evaluate(u"ncr(1/2;300)/ncr(1/2;299)"), Exactly("-199/200"));
}

}  // namespace
}  // namespace tallymere
