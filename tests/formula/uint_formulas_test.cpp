// Formulas in the number type uint, from their text to their value or error.
#include <gtest/gtest.h>

#include <string>

#include "support/formula_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// At two limbs, so that 2^128 is the first number that does not fit.
class UintFormulas : public ::testing::Test {
protected:
    FormulaScope scope_{NumberTypeUint, 2};
};

// Numbers.

TEST_F(UintFormulas, ReadNumbersOfFourBases) {
    EXPECT_EQ(Evaluate(u"31"), Exactly("31"));
    EXPECT_EQ(Evaluate(u"0x1F"), Exactly("31"));
    EXPECT_EQ(Evaluate(u"0X1f"), Exactly("31"));
    EXPECT_EQ(Evaluate(u"0y101"), Exactly("5"));
    EXPECT_EQ(Evaluate(u"0Y1"), Exactly("1"));
    EXPECT_EQ(Evaluate(u"0t17"), Exactly("15"));
    EXPECT_EQ(Evaluate(u"0T777"), Exactly("511"));
    EXPECT_EQ(Evaluate(u"0x1e5"), Exactly("485")) << "e is a digit there";
    EXPECT_EQ(Evaluate(u"0x1e+5"), Exactly("35"));
    EXPECT_EQ(Evaluate(u"0xFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF"),
              Exactly("340282366920938463463374607431768211455"));
    EXPECT_EQ(Evaluate(u"007"), Exactly("7")) << "a leading zero is no prefix";
}

TEST_F(UintFormulas, ReadDecimalNumbersThatAreIntegers) {
    EXPECT_EQ(Evaluate(u"1e3"), Exactly("1000"));
    EXPECT_EQ(Evaluate(u"1.5e1"), Exactly("15"));
    EXPECT_EQ(Evaluate(u"100e-2"), Exactly("1"));
    EXPECT_EQ(Evaluate(u"2.0"), Exactly("2"));
    EXPECT_EQ(Evaluate(u"1'000'000"), Exactly("1000000"));
    EXPECT_EQ(Evaluate(u"0y1'0000"), Exactly("16"));
    EXPECT_EQ(Evaluate(u"1'000", {}, TextGroup | 16), Exactly("1000")) << "the flags have no base";
}

TEST_F(UintFormulas, RefuseNumbersThatAreNone) {
    EXPECT_EQ(Evaluate(u"0x"), Failure(10208, 1, 2));
    EXPECT_EQ(Evaluate(u"2+0x"), Failure(10208, 3, 2));
    EXPECT_EQ(Evaluate(u"0y"), Failure(10208, 1, 2));
    EXPECT_EQ(Evaluate(u"0y102"), Failure(10208, 1, 5));
    EXPECT_EQ(Evaluate(u"1+0t18"), Failure(10208, 3, 4));
    EXPECT_EQ(Evaluate(u"0x1.5"), Failure(10208, 1, 5));
    EXPECT_EQ(Evaluate(u"1.5"), Failure(10208, 1, 3));
    EXPECT_EQ(Evaluate(u"1e-1"), Failure(10208, 1, 4));
    EXPECT_EQ(Evaluate(u"1e2e3"), Failure(10208, 1, 5));
    EXPECT_EQ(Evaluate(u"1e39"), Failure(10208, 1, 4)) << "does not fit";
    EXPECT_EQ(Evaluate(u"0x100000000000000000000000000000000"), Failure(10208, 1, 35));
    EXPECT_EQ(Evaluate(u"0xG"), Failure(10208, 1, 2)) << "before the name that follows";
}

TEST_F(UintFormulas, HaveNeitherPiNorTheImaginaryUnit) {
    EXPECT_EQ(Evaluate(u"pi"), Failure(10203, 1, 2));
    EXPECT_EQ(Evaluate(u"2*\u03C0"), Failure(10203, 3, 1));
    EXPECT_EQ(Evaluate(u"(1)i"), Failure(10207, 4, 1));
}

// Operators.

TEST_F(UintFormulas, NoteWhatADivisionLoses) {
    EXPECT_EQ(Evaluate(u"7/2"), Rounded("3"));
    EXPECT_EQ(Evaluate(u"8/2"), Exactly("4"));
    EXPECT_EQ(Evaluate(u"7/2+8/2"), Rounded("7")) << "a later division does not take it back";
    EXPECT_EQ(Evaluate(u"7 mod 2"), Exactly("1"));
    EXPECT_EQ(Evaluate(u"0/5"), Exactly("0"));
}

TEST_F(UintFormulas, HaveNoSignToTurn) {
    EXPECT_EQ(Evaluate(u"-1"), Failure(10203, 3, 0));
    EXPECT_EQ(Evaluate(u"-5"), Failure(10203, 3, 0));
    EXPECT_EQ(Evaluate(u"-0"), Failure(10203, 3, 0));
    EXPECT_EQ(Evaluate(u"(-5)"), Failure(10203, 4, 1));
    EXPECT_EQ(Evaluate(u"-2+3"), Failure(10203, 3, 1));
    EXPECT_EQ(Evaluate(u"+5"), Exactly("5"));
    EXPECT_EQ(Evaluate(u"(+5)*2"), Exactly("10"));
}

TEST_F(UintFormulas, FailWhereTheResultIsOutOfRange) {
    EXPECT_EQ(Evaluate(u"2-3"), Failure(10203, 4, 0));
    EXPECT_EQ(Evaluate(u"3-5"), Failure(10203, 4, 0));
    EXPECT_EQ(Evaluate(u"3-5+9"), Failure(10203, 4, 1));
    EXPECT_EQ(Evaluate(u"2^128"), Failure(10203, 6, 0));
    EXPECT_EQ(Evaluate(u"2^127*2"), Failure(10203, 8, 0));
    EXPECT_EQ(Evaluate(u"2^64*2^64"), Failure(10203, 10, 0));
    EXPECT_EQ(Evaluate(u"2^127+2^127"), Failure(10203, 12, 0));
    EXPECT_EQ(Evaluate(u"5/0"), Failure(10203, 4, 0));
    EXPECT_EQ(Evaluate(u"0/0*1"), Failure(10203, 4, 1));
    EXPECT_EQ(Evaluate(u"5 mod 0"), Failure(10203, 8, 0));
    FormulaScope narrow(NumberTypeUint, 1);
    EXPECT_EQ(Evaluate(u"2^63"), Exactly("9223372036854775808"));
    EXPECT_EQ(Evaluate(u"2^64"), Failure(10203, 5, 0));
    EXPECT_EQ(Evaluate(u"18446744073709551615"), Exactly("18446744073709551615"));
    EXPECT_EQ(Evaluate(u"18446744073709551616"), Failure(10208, 1, 20));
}

TEST_F(UintFormulas, Raise) {
    EXPECT_EQ(Evaluate(u"0^0"), Exactly("1"));
    EXPECT_EQ(Evaluate(u"1^(2^70)"), Exactly("1"));
    EXPECT_EQ(Evaluate(u"0^(2^70)"), Exactly("0"));
    EXPECT_EQ(Evaluate(u"2^3^2"), Exactly("512"));
    EXPECT_EQ(Evaluate(u"10^38"), Exactly("1" + std::string(38, '0')));
    EXPECT_EQ(Evaluate(u"7^3*2"), Exactly("686"));
    EXPECT_EQ(Evaluate(u"3^(2^70)"), Failure(10203, 9, 0));
    EXPECT_EQ(Evaluate(u"2^(2^70)"), Failure(10203, 9, 0));
    EXPECT_EQ(Evaluate(u"10^(2^70)"), Failure(10203, 10, 0));
}

// Functions.

TEST_F(UintFormulas, NoteWhatAFunctionLoses) {
    EXPECT_EQ(Evaluate(u"sqrt(17)"), Rounded("4"));
    EXPECT_EQ(Evaluate(u"sqrt(16)"), Exactly("4"));
    EXPECT_EQ(Evaluate(u"cbrt(28)"), Rounded("3"));
    EXPECT_EQ(Evaluate(u"cbrt(27)"), Exactly("3"));
    EXPECT_EQ(Evaluate(u"log2(9)"), Rounded("3"));
    EXPECT_EQ(Evaluate(u"log2(8)"), Exactly("3"));
    EXPECT_EQ(Evaluate(u"log10(99)"), Rounded("1"));
    EXPECT_EQ(Evaluate(u"log10(100)"), Exactly("2"));
    EXPECT_EQ(Evaluate(u"logx(3;80)"), Rounded("3"));
    EXPECT_EQ(Evaluate(u"logx(3;81)"), Exactly("4"));
    EXPECT_EQ(Evaluate(u"root(3;26)"), Rounded("2"));
    EXPECT_EQ(Evaluate(u"root(3;27)"), Exactly("3"));
    EXPECT_EQ(Evaluate(u"2*sqrt(2)-2"), Rounded("0"));
}

TEST_F(UintFormulas, HaveExactFunctions) {
    EXPECT_EQ(Evaluate(u"abs(5)"), Exactly("5"));
    EXPECT_EQ(Evaluate(u"trunc(5)"), Exactly("5"));
    EXPECT_EQ(Evaluate(u"fact(20)"), Exactly("2432902008176640000"));
    EXPECT_EQ(Evaluate(u"ncr(5;2)"), Exactly("10"));
    EXPECT_EQ(Evaluate(u"ncr(5;7)"), Exactly("0"));
    EXPECT_EQ(Evaluate(u"npr(7;5)"), Exactly("2520"));
    EXPECT_EQ(Evaluate(u"gcd(4;6)"), Exactly("2"));
    EXPECT_EQ(Evaluate(u"lcm(4;6)"), Exactly("12"));
    EXPECT_EQ(Evaluate(u"powmod(2;10;1000)"), Exactly("24"));
    EXPECT_EQ(Evaluate(u"powmod(2;0;1)"), Exactly("0"));
    EXPECT_EQ(Evaluate(u"powmod(0;0;5)"), Exactly("1"));
}

TEST_F(UintFormulas, FailWhereAFunctionHasNoValue) {
    EXPECT_EQ(Evaluate(u"log2(0)"), Failure(10203, 7, 1));
    EXPECT_EQ(Evaluate(u"log10(0)"), Failure(10203, 8, 1));
    EXPECT_EQ(Evaluate(u"logx(1;5)"), Failure(10203, 9, 1));
    EXPECT_EQ(Evaluate(u"root(0;5)"), Failure(10203, 9, 1));
    EXPECT_EQ(Evaluate(u"fact(35)"), Failure(10203, 8, 1));
    EXPECT_EQ(Evaluate(u"fact(2^64)"), Failure(10203, 10, 1));
    EXPECT_EQ(Evaluate(u"gcd(0;6)"), Failure(10203, 8, 1));
    EXPECT_EQ(Evaluate(u"lcm(6;0)"), Failure(10203, 8, 1));
    EXPECT_EQ(Evaluate(u"powmod(5;3;0)"), Failure(10203, 13, 1));
}

TEST_F(UintFormulas, FailForFunctionsOfRealNumbers) {
    for (const std::u16string& formula : FormulasOfRealFunctions()) {
        EXPECT_EQ(Evaluate(formula), Failure(10203, formula.size(), 1)) << Printable(formula);
    }
}

TEST_F(UintFormulas, NeedTheComplexTypeForItsFunctions) {
    for (const std::u16string& formula : FormulasOfComplexFunctions()) {
        const uint64_t length = formula.find(u'(');
        EXPECT_EQ(Evaluate(formula), Failure(10207, 1, length)) << Printable(formula);
    }
}

// The slot of "round" holds what stood there last, and 0 where nothing did: the type has nothing to
// round, so nothing is written.
TEST_F(UintFormulas, RoundShowsWhatItsSlotHeld) {
    EXPECT_EQ(Evaluate(u"round(7)"), Exactly("0"));
    EXPECT_EQ(Evaluate(u"2*round(7)"), Exactly("0"));
    EXPECT_EQ(Evaluate(u"1+5+round(3)"), Exactly("11")) << "the 5 stood there";
    EXPECT_EQ(Evaluate(u"1*5+1*round(3)"), Exactly("5")) << "one entry further up";
    EXPECT_EQ(Evaluate(u"gcd(8;12)+round(9)"), Exactly("12")) << "the 8 stood there";
    EXPECT_EQ(Evaluate(u"round(9)", {{u"x", u"5"}}), Exactly("0"));
    EXPECT_EQ(Evaluate(u"x+round(9)", {{u"x", u"1+5+round(3)"}}), Exactly("11"))
        << "a variable has a stack of its own";
}

TEST_F(UintFormulas, FracFails) {
    EXPECT_EQ(Evaluate(u"frac(5)"), Failure(10203, 7, 1));
    EXPECT_EQ(Evaluate(u"frac(0)"), Failure(10203, 7, 1));
    EXPECT_EQ(Evaluate(u"1+frac(2^127)*2"), Failure(10203, 13, 1));
}

// The request to stop has no place in the text.
TEST_F(UintFormulas, AreStopped) {
    uint8_t stop = 1;
    FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    EXPECT_EQ(EvaluateTokenByToken(u"1+powmod(2;10;1000)"), Failure(FormulaErrorAborted, 1, 0));
    EXPECT_EQ(EvaluateTokenByToken(u"ncr(5;2)"), Failure(FormulaErrorAborted, 1, 0));
    EXPECT_EQ(EvaluateTokenByToken(u"npr(5;2)"), Failure(FormulaErrorAborted, 1, 0));
    EXPECT_EQ(EvaluateTokenByToken(u"ncr(5;0)"), Exactly("1")) << "no factor, no check point";
    EXPECT_EQ(EvaluateTokenByToken(u"fact(5)"), Exactly("120"));
}

// Variables.

TEST_F(UintFormulas, UseVariables) {
    EXPECT_EQ(Evaluate(u"x+x", {{u"x", u"2"}}), Exactly("4"));
    EXPECT_EQ(Evaluate(u"ans+1", {{u"ans", u"0x1F"}}), Exactly("32"));
    EXPECT_EQ(Evaluate(u"ans+1", {{u"ans", u"0y11"}}), Exactly("4"));
    EXPECT_EQ(Evaluate(u"ans+1", {{u"ans", u"0t17"}}), Exactly("16"));
    EXPECT_EQ(Evaluate(u"ans+1", {{u"ans", u"1'000"}}), Exactly("1001"));
    EXPECT_EQ(Evaluate(u"x", {{u"x", u"1.5"}}), Failure(10212, 1, 1));
    EXPECT_EQ(Evaluate(u"2*x", {{u"x", u"-1"}}), Failure(10212, 3, 1));
    EXPECT_EQ(Evaluate(u"ans", {{u"ans", u""}}), Failure(10212, 1, 3));
}

TEST_F(UintFormulas, TakeOverWhatAVariableLost) {
    EXPECT_EQ(Evaluate(u"2*x", {{u"x", u"7/2"}}), Rounded("6"));
    EXPECT_EQ(Evaluate(u"x+y", {{u"x", u"7/2"}, {u"y", u"1"}}), Rounded("4"));
    EXPECT_EQ(Evaluate(u"x", {{u"x", u"8/2"}}), Exactly("4"));
    EXPECT_EQ(Evaluate(u"1", {{u"x", u"7/2"}}), Exactly("1")) << "not used, not evaluated";
}

TEST_F(UintFormulas, TakeNothingOverFromAVariableThatFailed) {
    EXPECT_EQ(Evaluate(u"1+x", {{u"x", u"7/2+1/0"}}), Failure(10212, 3, 1));
    EXPECT_EQ(Evaluate(u"x+y", {{u"x", u"1/0"}, {u"y", u"7/2"}}), Failure(10212, 1, 1))
        << "y is not even evaluated";
}

TEST_F(UintFormulas, FailByAVariableThatWasStopped) {
    uint8_t stop = 1;
    FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    EXPECT_EQ(Evaluate(u"1+x", {{u"x", u"powmod(2;10;1000)"}}), Failure(10212, 3, 1));
}

// The longest numbers of the calculator.

TEST(LongestUintFormulas, HaveValues) {
    FormulaScope scope(NumberTypeUint, UintLimbsForDigits(20'000));
    EXPECT_EQ(Evaluate(u"2^66495/2^66400"), Exactly("39614081257132168796771975168"));
    EXPECT_EQ(Evaluate(u"2^66496"), Failure(10203, 8, 0));
    EXPECT_EQ(Evaluate(u"10^20000 mod 7"), Exactly("2"));
    EXPECT_EQ(Evaluate(u"log10(10^20015)"), Exactly("20015"));
    EXPECT_EQ(Evaluate(u"sqrt(10^20000)-10^10000"), Exactly("0"));
    EXPECT_EQ(Evaluate(u"gcd(10^20000;6^7000)/2^7000"), Exactly("1"));
    EXPECT_EQ(Evaluate(u"ncr(66400;66398)"), Exactly("2204446800"));
    EXPECT_EQ(Evaluate(u"powmod(10^20000-1;3;10^20000+2)+25-10^20000"), Exactly("0"));
    EXPECT_EQ(Evaluate(u"fact(5900)/fact(5899)"), Exactly("5900"));
    EXPECT_EQ(Evaluate(u"fact(6000)"), Failure(10203, 10, 1));
    EXPECT_EQ(Evaluate(u"cbrt(10^19998)-10^6666"), Exactly("0"));
    EXPECT_EQ(Evaluate(u"root(7;3^40000)/3^5714"), Rounded("1"));
    EXPECT_EQ(Evaluate(u"logx(3;3^41000)"), Exactly("41000"));
    EXPECT_EQ(Evaluate(u"lcm(10^10000;6^9999)*gcd(10^10000;6^9999)/10^10000/6^9999"), Exactly("1"));
    EXPECT_EQ(Evaluate(u"frac(10^20000)"), Failure(10203, 14, 1));
    const std::u16string digits(20'000, u'9');
    EXPECT_EQ(Evaluate(digits + u"+1-10^20000"), Exactly("0"));
}

}  // namespace
}  // namespace tallymere
