#include "formula/real_operators.h"

#include <gtest/gtest.h>

#include <string_view>

#include "core/real_add.h"
#include "core/real_div_mod.h"
#include "core/real_divide.h"
#include "core/real_integer.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "formula/operation_dispatch.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// a (operator) b.
RealBuffer Apply(OperatorId id, const RealBuffer& a, const RealBuffer& b) {
    const FieldScope<NumberType> type(numberContext.numberType, NumberTypeReal);
    RealBuffer left = a;
    const RealBuffer right = b;
    FormulaEvaluator evaluator{};
    ApplyBinaryOperator(evaluator, id, &left.Get()->header, &right.Get()->header);
    EXPECT_EQ(right, b) << "the right operand stays";
    return left;
}

RealBuffer Apply(OperatorId id, std::string_view a, std::string_view b) {
    return Apply(id, RealBuffer(a), RealBuffer(b));
}

TEST(RealOperators, AddSubtractMultiplyAndDivide) {
    PrecisionScope scope(20);
    EXPECT_EQ(Apply(OperatorId::Add, "1.5", "-4"), RealBuffer("-2.5"));
    EXPECT_EQ(Apply(OperatorId::Subtract, "1.5", "-4"), RealBuffer("5.5"));
    EXPECT_EQ(Apply(OperatorId::Multiply, "1.5", "-4"), RealBuffer("-6"));
    EXPECT_EQ(Apply(OperatorId::Divide, "1.5", "-4"), RealBuffer("-0.375"));
    EXPECT_EQ(Apply(OperatorId::Divide, "1", "0.75"), RealBuffer("1.3333333333333333333"));
    EXPECT_EQ(Apply(OperatorId::Multiply, "1.1", "1.1"), RealBuffer("1.21"));
}

TEST(RealOperators, TakeTheSmallWayWithAnIntegerOnEitherSide) {
    PrecisionScope scope(20);
    EXPECT_EQ(Apply(OperatorId::Multiply, "1e30", "2"), RealBuffer("2e30"));
    EXPECT_EQ(Apply(OperatorId::Multiply, "2", "1e30"), RealBuffer("2e30"));
    EXPECT_EQ(Apply(OperatorId::Multiply, "-2", "1.25"), RealBuffer("-2.5"));
    EXPECT_EQ(Apply(OperatorId::Multiply, "1.25", "-2"), RealBuffer("-2.5"));
    EXPECT_EQ(Apply(OperatorId::Multiply, "-1.25", "-2"), RealBuffer("2.5"));
    EXPECT_EQ(Apply(OperatorId::Divide, "-5", "-2"), RealBuffer("2.5"));
}

TEST(RealOperators, KeepTheSignOfAZero) {
    PrecisionScope scope(20);
    EXPECT_EQ(Apply(OperatorId::Multiply, "0", "5"), RealBuffer("0"));
    EXPECT_EQ(Apply(OperatorId::Multiply, "5", "0"), RealBuffer("0"));
    EXPECT_EQ(Apply(OperatorId::Multiply, "-0", "5"), RealBuffer("-0"));
    EXPECT_EQ(Apply(OperatorId::Multiply, "0", "-0.5"), RealBuffer("-0"));
    EXPECT_EQ(Apply(OperatorId::Multiply, "-0.5", "-0"), RealBuffer("0"));
    EXPECT_EQ(Apply(OperatorId::Divide, "0", "-7"), RealBuffer("-0"));
}

TEST(RealOperators, DivideByZero) {
    PrecisionScope scope(20);
    EXPECT_EQ(Apply(OperatorId::Divide, "6", "0"), RealBuffer("inf"));
    EXPECT_EQ(TakeCode(), CalcErrorOverflow);
    EXPECT_EQ(Apply(OperatorId::Divide, "6", "-0"), RealBuffer("-inf"));
    EXPECT_EQ(TakeCode(), CalcErrorOverflow);
    EXPECT_EQ(Apply(OperatorId::Divide, "0", "0"), RealBuffer("nan"));
    EXPECT_EQ(TakeCode(), CalcErrorUndefined);
    EXPECT_EQ(Apply(OperatorId::Mod, "6", "0"), RealBuffer("nan"));
    EXPECT_EQ(TakeCode(), CalcErrorUndefined);
}

TEST(RealOperators, GiveARemainderWithTheSignOfTheQuotient) {
    PrecisionScope scope(20);
    EXPECT_EQ(Apply(OperatorId::Mod, "7", "2"), RealBuffer("1"));
    EXPECT_EQ(Apply(OperatorId::Mod, "7", "-2"), RealBuffer("-1"));
    EXPECT_EQ(Apply(OperatorId::Mod, "-7", "2"), RealBuffer("-1"));
    EXPECT_EQ(Apply(OperatorId::Mod, "-7", "-2"), RealBuffer("1"));
    EXPECT_EQ(Apply(OperatorId::Mod, "7.5", "2"), RealBuffer("1.5"));
    EXPECT_EQ(Apply(OperatorId::Mod, "-1", "-2"), RealBuffer("-1"))
        << "a smaller operand is copied";
}

TEST(RealOperators, RaiseToPowers) {
    PrecisionScope scope(20);
    EXPECT_EQ(Apply(OperatorId::Power, "-1.5", "3"), RealBuffer("-3.375"));
    EXPECT_EQ(Apply(OperatorId::Power, "3", "-1"), RealBuffer("0.33333333333333333333"));
}

// The largest machine integer and its neighbours, at a precision that holds them.
TEST(RealOperators, DrawTheLineOfSmallOperandsAtSixtyFourBits) {
    PrecisionScope scope(57);
    const RealBuffer x("3.14159265358979323846264338327950288419716939937510582097");
    for (const char* k : {"18446744073709551615", "18446744073709551616", "1e19", "1e20", "0.5",
                          "18446744073709551615.5"}) {
        const RealBuffer factor(k);
        const bool small =
            std::string_view(k) == "18446744073709551615" || std::string_view(k) == "1e19";
        RealBuffer expected;
        if (small) {
            const uint64_t word = std::string_view(k) == "1e19" ? 10'000'000'000'000'000'000u
                                                                : 18'446'744'073'709'551'615u;
            RealRound(expected, RealMulUint(expected, x, word));
        } else {
            RealMul(expected, x, factor);
        }
        EXPECT_EQ(Apply(OperatorId::Multiply, x, factor), expected) << k;
        EXPECT_EQ(Apply(OperatorId::Multiply, factor, x), expected) << k;
    }
}

// By the short way where one operand is a machine integer, by the general one elsewhere.
TEST(RealOperators, AreTheRoundedOperationsOfTheCore) {
    RandomSource random;
    for (const int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        const int rounds = TestRounds(2000);
        for (int i = 0; i < rounds; i++) {
            RealBuffer a;
            RealBuffer b;
            FillReal(random, a, 30);
            FillPartner(random, b, a, 30);
            RealBuffer expected;
            RealAdd(expected, a, b);
            EXPECT_EQ(Apply(OperatorId::Add, a, b), expected);
            RealSub(expected, a, b);
            EXPECT_EQ(Apply(OperatorId::Subtract, a, b), expected);
            RealDivMod(nullptr, expected, a, b);
            EXPECT_EQ(Apply(OperatorId::Mod, a, b), expected);

            const uint64_t k = random.Word() >> random.Below(64);
            const uint64_t sign = random.Below(2);
            RealBuffer small;
            if (RealFromUint(small, k) != 0) {
                continue;  // more digits than the precision has
            }
            RealSetSign(small, sign);
            RealRound(expected, RealMulUint(expected, a, k));
            if (sign != 0) {
                RealNegate(expected);
            }
            if (!RealIsInteger(a)) {
                EXPECT_EQ(Apply(OperatorId::Multiply, small, a), expected);
                EXPECT_EQ(Apply(OperatorId::Multiply, a, small), expected);
                RealDiv(expected, small, a);
                EXPECT_EQ(Apply(OperatorId::Divide, small, a), expected);
            }
            if (k != 0) {
                RealRound(expected, RealDivUint(expected, a, k));
                if (sign != 0) {
                    RealNegate(expected);
                }
                EXPECT_EQ(Apply(OperatorId::Divide, a, small), expected);
            }
            if (!RealIsInteger(a) && !RealIsInteger(b)) {
                RealMul(expected, a, b);
                EXPECT_EQ(Apply(OperatorId::Multiply, a, b), expected);
                RealDiv(expected, a, b);
                EXPECT_EQ(Apply(OperatorId::Divide, a, b), expected);
            }
        }
    }
}

}  // namespace
}  // namespace tallymere
