#include "formula/uint_operators.h"

#include <gtest/gtest.h>

#include <string>

#include "exact/big_uint_division.h"
#include "exact/big_uint_multiply.h"
#include "formula/operation_dispatch.h"
#include "support/exact_operations.h"
#include "support/exact_testing.h"
#include "support/formula_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// At two limbs, so that 2^128 is the first number that does not fit.
class UintOperators : public ::testing::Test {
protected:
    FormulaScope scope_{NumberTypeUint, 2};
};

TEST_F(UintOperators, AddAndSubtractWhatFits) {
    EXPECT_EQ(Apply(OperatorId::Add, {"3", "4"}), Is("7"));
    EXPECT_EQ(Apply(OperatorId::Add, {"2^64-1", "1"}), Is("18446744073709551616"));
    EXPECT_EQ(Apply(OperatorId::Add, {"2^128-1", "0"}),
              Is("340282366920938463463374607431768211455"));
    EXPECT_EQ(Apply(OperatorId::Add, {"2^128-1", "1"}), Fails(CalcErrorOverflow));
    EXPECT_EQ(Apply(OperatorId::Subtract, {"5", "3"}), Is("2"));
    EXPECT_EQ(Apply(OperatorId::Subtract, {"5", "5"}), Is("0"));
    EXPECT_EQ(Apply(OperatorId::Subtract, {"3", "5"}), Fails(CalcErrorOverflow));
    EXPECT_EQ(Apply(OperatorId::Subtract, {"0", "2^128-1"}), Fails(CalcErrorOverflow));
}

TEST_F(UintOperators, MultiplyBySmallOperandsOfEitherSide) {
    EXPECT_EQ(Apply(OperatorId::Multiply, {"6", "7"}), Is("42"));
    EXPECT_EQ(Apply(OperatorId::Multiply, {"2^64-1", "2^64+1"}),
              Is("340282366920938463463374607431768211455"));
    EXPECT_EQ(Apply(OperatorId::Multiply, {"2^64+1", "2^64-1"}),
              Is("340282366920938463463374607431768211455"));
    EXPECT_EQ(Apply(OperatorId::Multiply, {"2^100", "0"}), Is("0"));
    EXPECT_EQ(Apply(OperatorId::Multiply, {"0", "2^100"}), Is("0"));
    EXPECT_EQ(Apply(OperatorId::Multiply, {"2^127", "2"}), Fails(CalcErrorOverflow));
    EXPECT_EQ(Apply(OperatorId::Multiply, {"2", "2^127"}), Fails(CalcErrorOverflow));
}

TEST_F(UintOperators, MultiplyLongOperands) {
    EXPECT_EQ(Apply(OperatorId::Multiply, {"2^64", "2^64"}), Fails(CalcErrorOverflow));
    FormulaScope wide(NumberTypeUint, 3);
    EXPECT_EQ(Apply(OperatorId::Multiply, {"2^64", "2^64+1"}),
              Is("340282366920938463481821351505477763072"));
    EXPECT_EQ(Apply(OperatorId::Multiply, {"2^96", "2^96"}), Fails(CalcErrorOverflow));
}

TEST_F(UintOperators, DivideDownwardsAndNoteALostRemainder) {
    EXPECT_EQ(Apply(OperatorId::Divide, {"7", "2"}), IsAbout("3"));
    EXPECT_EQ(Apply(OperatorId::Divide, {"8", "2"}), Is("4"));
    EXPECT_EQ(Apply(OperatorId::Divide, {"0", "5"}), Is("0"));
    EXPECT_EQ(Apply(OperatorId::Divide, {"5", "7"}), IsAbout("0"));
    EXPECT_EQ(Apply(OperatorId::Divide, {"2^127", "2^64"}), Is("9223372036854775808"));
    EXPECT_EQ(Apply(OperatorId::Divide, {"2^127+1", "2^64"}), IsAbout("9223372036854775808"));
    for (const char* a : {"0", "1", "2^127"}) {
        EXPECT_EQ(Apply(OperatorId::Divide, {a, "0"}), Fails(CalcErrorExactDivisionByZero)) << a;
        EXPECT_EQ(Apply(OperatorId::Mod, {a, "0"}), Fails(CalcErrorExactDivisionByZero)) << a;
    }
}

TEST_F(UintOperators, HaveARemainder) {
    EXPECT_EQ(Apply(OperatorId::Mod, {"7", "2"}), Is("1"));
    EXPECT_EQ(Apply(OperatorId::Mod, {"8", "2"}), Is("0"));
    EXPECT_EQ(Apply(OperatorId::Mod, {"5", "2^70"}), Is("5"));
    EXPECT_EQ(Apply(OperatorId::Mod, {"2^127+9", "2^64"}), Is("9"));
}

TEST_F(UintOperators, RaiseTwoAndTenByTheirOwnRoutines) {
    EXPECT_EQ(Apply(OperatorId::Power, {"2", "0"}), Is("1"));
    EXPECT_EQ(Apply(OperatorId::Power, {"2", "10"}), Is("1024"));
    EXPECT_EQ(Apply(OperatorId::Power, {"2", "127"}),
              Is("170141183460469231731687303715884105728"));
    EXPECT_EQ(Apply(OperatorId::Power, {"10", "0"}), Is("1"));
    EXPECT_EQ(Apply(OperatorId::Power, {"10", "1"}), Is("10"));
    EXPECT_EQ(Apply(OperatorId::Power, {"10", "38"}), Is("1" + std::string(38, '0')));
    for (const char* exponent : {"128", "2^63-1", "2^63", "2^64", "2^70"}) {
        EXPECT_EQ(Apply(OperatorId::Power, {"2", exponent}), Fails(CalcErrorOverflow)) << exponent;
        EXPECT_EQ(Apply(OperatorId::Power, {"10", exponent}), Fails(CalcErrorOverflow)) << exponent;
    }
    EXPECT_EQ(Apply(OperatorId::Power, {"10", "39"}), Fails(CalcErrorOverflow));
}

TEST_F(UintOperators, RaiseOtherBases) {
    EXPECT_EQ(Apply(OperatorId::Power, {"3", "5"}), Is("243"));
    EXPECT_EQ(Apply(OperatorId::Power, {"2^64", "1"}), Is("18446744073709551616"));
    EXPECT_EQ(Apply(OperatorId::Power, {"7", "0"}), Is("1"));
    EXPECT_EQ(Apply(OperatorId::Power, {"0", "0"}), Is("1"));
    EXPECT_EQ(Apply(OperatorId::Power, {"0", "5"}), Is("0"));
    EXPECT_EQ(Apply(OperatorId::Power, {"3", "81"}), Fails(CalcErrorOverflow));
    EXPECT_EQ(Apply(OperatorId::Power, {"2^64", "2"}), Fails(CalcErrorOverflow));
}

TEST_F(UintOperators, RaiseToExponentsAboveAMachineInteger) {
    for (const char* exponent : {"2^63", "2^64", "2^70"}) {
        EXPECT_EQ(Apply(OperatorId::Power, {"0", exponent}), Is("0")) << exponent;
        EXPECT_EQ(Apply(OperatorId::Power, {"1", exponent}), Is("1")) << exponent;
        EXPECT_EQ(Apply(OperatorId::Power, {"3", exponent}), Fails(CalcErrorOverflow)) << exponent;
    }
}

TEST_F(UintOperators, DoNotTakeAwayWhatWasNoted) {
    FormulaEvaluator evaluator{};
    evaluator.inexactResult = true;
    UintBuffer a("8");
    ApplyBinaryOperator(evaluator, OperatorId::Divide, a, UintBuffer("2"));
    EXPECT_EQ(a, UintBuffer("4"));
    EXPECT_TRUE(evaluator.inexactResult);
}

TEST(UintOperatorsAtAnyWidth, AgreeWithTheRoutinesForRandomOperands) {
    RandomSource random;
    for (const int64_t limbs : AllUintWidths) {
        FormulaScope scope(NumberTypeUint, limbs);
        FormulaEvaluator evaluator{};
        for (int i = limbs > 65 ? 20 : 500; i > 0; i--) {
            UintBuffer a;
            UintBuffer b;
            FillUint(random, a);
            FillUint(random, b);
            UintBuffer expected;
            BigUintMul(expected, a, b);
            const CalcError code = TakeCode();
            UintBuffer dest = a;
            ApplyBinaryOperator(evaluator, OperatorId::Multiply, dest, b);
            EXPECT_EQ(dest, expected) << "the way of small operands has the same product";
            EXPECT_EQ(TakeCode(), code);

            UintBuffer remainder;
            BigUintDivide(expected, remainder, a, b);
            const CalcError divisionCode = TakeCode();
            dest = a;
            evaluator.inexactResult = false;
            ApplyBinaryOperator(evaluator, OperatorId::Divide, dest, b);
            EXPECT_EQ(dest, expected);
            EXPECT_EQ(TakeCode(), divisionCode);
            EXPECT_EQ(evaluator.inexactResult, remainder != UintBuffer("0"));
            dest = a;
            ApplyBinaryOperator(evaluator, OperatorId::Mod, dest, b);
            EXPECT_EQ(dest, remainder);
            EXPECT_EQ(TakeCode(), divisionCode);
        }
    }
}

}  // namespace
}  // namespace tallymere
