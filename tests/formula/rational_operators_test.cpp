#include "formula/rational_operators.h"

#include <gtest/gtest.h>

#include <string>

#include "support/exact_operations.h"
#include "support/formula_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// At two limbs a part, so that 2^128 is the first integer that does not fit.
class RationalOperators : public ::testing::Test {
protected:
    FormulaScope scope_{NumberTypeRational, 2};
};

TEST_F(RationalOperators, AddAndSubtract) {
    EXPECT_EQ(Apply(OperatorId::Add, {"1/3", "1/6"}), Is("1/2"));
    EXPECT_EQ(Apply(OperatorId::Add, {"1/3", "-1/2"}), Is("-1/6"));
    EXPECT_EQ(Apply(OperatorId::Add, {"2^128-1", "1"}), Fails(CalcErrorOverflow));
    EXPECT_EQ(Apply(OperatorId::Subtract, {"1/2", "2"}), Is("-3/2"));
    EXPECT_EQ(Apply(OperatorId::Subtract, {"-1/2", "-2/3"}), Is("1/6"));
    EXPECT_EQ(Apply(OperatorId::Subtract, {"1/340282366920938463463374607431768211455",
                                           "1/340282366920938463463374607431768211454"}),
              Fails(CalcErrorOverflow));
}

// A zero keeps the sign of the second operand, which no text shows.
TEST_F(RationalOperators, LeaveZerosWithASign) {
    EXPECT_EQ(Apply(OperatorId::Subtract, {"1/2", "1/2"}), Is("-0"));
    EXPECT_EQ(Apply(OperatorId::Add, {"-1/2", "1/2"}), Is("0"));
}

TEST_F(RationalOperators, MultiplyBySmallOperandsOfEitherSide) {
    EXPECT_EQ(Apply(OperatorId::Multiply, {"6", "7"}), Is("42"));
    EXPECT_EQ(Apply(OperatorId::Multiply, {"-3", "5/6"}), Is("-5/2"));
    EXPECT_EQ(Apply(OperatorId::Multiply, {"5/6", "-3"}), Is("-5/2"));
    EXPECT_EQ(Apply(OperatorId::Multiply, {"-5/6", "-3"}), Is("5/2"));
    EXPECT_EQ(Apply(OperatorId::Multiply, {"-3", "-5/6"}), Is("5/2"));
    EXPECT_EQ(Apply(OperatorId::Multiply, {"0", "5/6"}), Is("0"));
    EXPECT_EQ(Apply(OperatorId::Multiply, {"0", "-5/6"}), Is("-0"));
    EXPECT_EQ(Apply(OperatorId::Multiply, {"5/6", "0"}), Is("0"));
    EXPECT_EQ(Apply(OperatorId::Multiply, {"-18446744073709551615", "2^64+1"}),
              Is("-340282366920938463463374607431768211455"));
    EXPECT_EQ(Apply(OperatorId::Multiply, {"2^127", "-2"}), Fails(CalcErrorOverflow))
        << "and no sign on the 0";
    EXPECT_EQ(Apply(OperatorId::Multiply, {"-2", "2^127"}), Fails(CalcErrorOverflow));
}

TEST_F(RationalOperators, MultiplyFractions) {
    EXPECT_EQ(Apply(OperatorId::Multiply, {"-2/3", "3/4"}), Is("-1/2"));
    EXPECT_EQ(Apply(OperatorId::Multiply, {"2^64/3", "3/18446744073709551616"}), Is("1"))
        << "reduced before it must fit";
    EXPECT_EQ(Apply(OperatorId::Multiply, {"-2^64", "2^64"}), Fails(CalcErrorOverflow));
}

TEST_F(RationalOperators, DivideBySmallOperands) {
    EXPECT_EQ(Apply(OperatorId::Divide, {"3", "2"}), Is("3/2"));
    EXPECT_EQ(Apply(OperatorId::Divide, {"3", "-2"}), Is("-3/2"));
    EXPECT_EQ(Apply(OperatorId::Divide, {"-3/4", "-6"}), Is("1/8"));
    EXPECT_EQ(Apply(OperatorId::Divide, {"0", "-6"}), Is("-0"));
    EXPECT_EQ(Apply(OperatorId::Divide, {"1/340282366920938463463374607431768211455", "-2"}),
              Fails(CalcErrorOverflow))
        << "and no sign on the 0";
}

TEST_F(RationalOperators, DivideByFractionsAndLongIntegers) {
    EXPECT_EQ(Apply(OperatorId::Divide, {"3/4", "-9/8"}), Is("-2/3"));
    EXPECT_EQ(Apply(OperatorId::Divide, {"2^64", "2^65"}), Is("1/2"));
    EXPECT_EQ(Apply(OperatorId::Divide, {"0", "1/2"}), Is("0"));
}

// A zero by a small divisor is 0 before the divisor is looked at.
TEST_F(RationalOperators, DivideZeroByZeroToZeroAndNothingElse) {
    EXPECT_EQ(Apply(OperatorId::Divide, {"0", "0"}), Is("0"));
    EXPECT_EQ(Apply(OperatorId::Divide, {"-0", "0"}), Is("-0"));
    for (const char* a : {"1", "-1", "1/2", "-1/2", "2^100"}) {
        EXPECT_EQ(Apply(OperatorId::Divide, {a, "0"}), Fails(CalcErrorExactDivisionByZero)) << a;
        EXPECT_EQ(Apply(OperatorId::Divide, {a, "-0"}), Fails(CalcErrorExactDivisionByZero)) << a;
    }
}

TEST_F(RationalOperators, HaveARemainderWithTheSignOfTheQuotient) {
    EXPECT_EQ(Apply(OperatorId::Mod, {"7", "2"}), Is("1"));
    EXPECT_EQ(Apply(OperatorId::Mod, {"-7", "2"}), Is("-1"));
    EXPECT_EQ(Apply(OperatorId::Mod, {"7", "-2"}), Is("-1"));
    EXPECT_EQ(Apply(OperatorId::Mod, {"-7", "-2"}), Is("1"));
    EXPECT_EQ(Apply(OperatorId::Mod, {"7/2", "1/3"}), Is("1/6"));
    EXPECT_EQ(Apply(OperatorId::Mod, {"-1/3", "7/2"}), Is("-1/3"));
    EXPECT_EQ(Apply(OperatorId::Mod, {"5", "0"}), Fails(CalcErrorExactDivisionByZero));
    EXPECT_EQ(Apply(OperatorId::Mod, {"0", "0"}), Fails(CalcErrorExactDivisionByZero));
}

TEST_F(RationalOperators, RaiseTwoAndTenByTheirOwnRoutines) {
    EXPECT_EQ(Apply(OperatorId::Power, {"2", "10"}), Is("1024"));
    EXPECT_EQ(Apply(OperatorId::Power, {"2", "-2"}), Is("1/4"));
    EXPECT_EQ(Apply(OperatorId::Power, {"2", "0"}), Is("1"));
    EXPECT_EQ(Apply(OperatorId::Power, {"2", "-127"}),
              Is("1/170141183460469231731687303715884105728"));
    EXPECT_EQ(Apply(OperatorId::Power, {"10", "3"}), Is("1000"));
    EXPECT_EQ(Apply(OperatorId::Power, {"10", "-3"}), Is("1/1000"));
    for (const char* base : {"2", "10"}) {
        for (const char* exponent : {"128", "-128", "2^63", "-2^63", "2^64", "2^100", "-2^100"}) {
            EXPECT_EQ(Apply(OperatorId::Power, {base, exponent}), Fails(CalcErrorOverflow))
                << exponent;
        }
        EXPECT_EQ(Apply(OperatorId::Power, {base, "1/2"}), Fails(CalcErrorUndefined));
        EXPECT_EQ(Apply(OperatorId::Power, {base, "1/1024"}), Fails(CalcErrorUndefined))
            << "1024 has a second and a tenth root, but these bases ask for none";
    }
}

TEST_F(RationalOperators, RaiseOtherBasesToMachineIntegers) {
    EXPECT_EQ(Apply(OperatorId::Power, {"2/3", "2"}), Is("4/9"));
    EXPECT_EQ(Apply(OperatorId::Power, {"-2", "3"}), Is("-8"));
    EXPECT_EQ(Apply(OperatorId::Power, {"-2", "2"}), Is("4"));
    EXPECT_EQ(Apply(OperatorId::Power, {"-2/3", "-3"}), Is("-27/8"));
    EXPECT_EQ(Apply(OperatorId::Power, {"1/2", "-3"}), Is("8"));
    EXPECT_EQ(Apply(OperatorId::Power, {"5/7", "0"}), Is("1"));
    EXPECT_EQ(Apply(OperatorId::Power, {"0", "0"}), Is("1"));
    EXPECT_EQ(Apply(OperatorId::Power, {"1", "-9223372036854775808"}), Is("1"));
    EXPECT_EQ(Apply(OperatorId::Power, {"-1", "9223372036854775807"}), Is("-1"));
    EXPECT_EQ(Apply(OperatorId::Power, {"3", "81"}), Fails(CalcErrorOverflow));
    EXPECT_EQ(Apply(OperatorId::Power, {"1/3", "81"}), Fails(CalcErrorOverflow));
    EXPECT_EQ(Apply(OperatorId::Power, {"0", "-1"}), Fails(CalcErrorExactDivisionByZero));
}

// Where the exponent is no machine integer, the general power.
TEST_F(RationalOperators, RaiseToLongIntegers) {
    EXPECT_EQ(Apply(OperatorId::Power, {"1", "2^100"}), Is("1"));
    EXPECT_EQ(Apply(OperatorId::Power, {"-1", "2^100+1"}), Is("-1"));
    EXPECT_EQ(Apply(OperatorId::Power, {"-1", "2^100"}), Is("1"));
    EXPECT_EQ(Apply(OperatorId::Power, {"-1", "-2^100"}), Is("1"));
    EXPECT_EQ(Apply(OperatorId::Power, {"-1", "9223372036854775808"}), Is("1"));
    EXPECT_EQ(Apply(OperatorId::Power, {"3", "2^100"}), Fails(CalcErrorOverflow));
    EXPECT_EQ(Apply(OperatorId::Power, {"0", "-2^100"}), Fails(CalcErrorExactDivisionByZero));
}

// The roots that a broken exponent takes have the base as their degree, and their powers are not
// reduced.
TEST_F(RationalOperators, RaiseToFractionsByRootsOfTheDenominator) {
    EXPECT_EQ(Apply(OperatorId::Power, {"4", "1/2"}), Fails(CalcErrorUndefined));
    EXPECT_EQ(Apply(OperatorId::Power, {"1", "1/2"}), Is("2/2"));
    EXPECT_EQ(Apply(OperatorId::Power, {"1", "2/3"}), Is("9/9"));
    EXPECT_EQ(Apply(OperatorId::Power, {"3", "1/8"}), Is("2/8")) << "third and first root of 8";
    EXPECT_EQ(Apply(OperatorId::Power, {"3/2", "1/64"}), Is("4/8"));
    EXPECT_EQ(Apply(OperatorId::Power, {"3/2", "-1/64"}), Is("8/4"));
    EXPECT_EQ(Apply(OperatorId::Power, {"-4", "1/2"}), Fails(CalcErrorUndefined));
}

TEST_F(RationalOperators, KeepACodeThatWasNotedBefore) {
    numberContext.calcError = CalcErrorTextTooLong;
    EXPECT_EQ(Apply(OperatorId::Multiply, {"1/2", "-3"}),
              (ExactOutcome{"-3/2", CalcErrorTextTooLong}))
        << "and give the result nevertheless";
    numberContext.calcError = CalcErrorTextTooLong;
    EXPECT_EQ(Apply(OperatorId::Divide, {"1/2", "0"}), (ExactOutcome{"0", CalcErrorTextTooLong}));
}

}  // namespace
}  // namespace tallymere
