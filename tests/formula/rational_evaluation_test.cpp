#include "formula/rational_evaluation.h"

#include <gtest/gtest.h>

#include "formula/function_table.h"
#include "support/exact_operations.h"
#include "support/formula_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// At two limbs a part, so that 2^128 is the first integer that does not fit.
class RationalFunctions : public ::testing::Test {
protected:
    FormulaScope scope_{NumberTypeRational, 2};
    const ExactOutcome undefined_ = Fails(CalcErrorUndefined);
};

TEST_F(RationalFunctions, RootsAreExactOrRefused) {
    EXPECT_EQ(Apply(FunctionId::Sqrt, {"4/9"}), Is("2/3"));
    EXPECT_EQ(Apply(FunctionId::Sqrt, {"0"}), Is("0"));
    EXPECT_EQ(Apply(FunctionId::Cbrt, {"8/27"}), Is("2/3"));
    EXPECT_EQ(Apply(FunctionId::Cbrt, {"-8/27"}), Is("-2/3"));
    for (const char* x : {"2", "4/3", "3/4", "-4", "-1/4"}) {
        EXPECT_EQ(Apply(FunctionId::Sqrt, {x}), undefined_) << x;
    }
    for (const char* x : {"2", "8/3", "3/8", "-9"}) {
        EXPECT_EQ(Apply(FunctionId::Cbrt, {x}), undefined_) << x;
    }
    EXPECT_EQ(Apply(FunctionId::Root, {"2", "4/9"}), Is("2/3"));
    EXPECT_EQ(Apply(FunctionId::Root, {"-2", "4/9"}), Is("3/2"));
    EXPECT_EQ(Apply(FunctionId::Root, {"3", "-8"}), Is("-2"));
    EXPECT_EQ(Apply(FunctionId::Root, {"1/2", "3"}), Is("9"));
    EXPECT_EQ(Apply(FunctionId::Root, {"2/3", "4"}), Is("8"));
    EXPECT_EQ(Apply(FunctionId::Root, {"0", "4"}), undefined_);
    EXPECT_EQ(Apply(FunctionId::Root, {"2", "-4"}), undefined_);
    EXPECT_EQ(Apply(FunctionId::Root, {"2", "5"}), undefined_);
    EXPECT_EQ(Apply(FunctionId::Root, {"2/3", "-4"}), undefined_);
}

TEST_F(RationalFunctions, LogarithmsAreExactOrRefused) {
    EXPECT_EQ(Apply(FunctionId::Log2, {"8"}), Is("3"));
    EXPECT_EQ(Apply(FunctionId::Log2, {"1/8"}), Is("-3"));
    EXPECT_EQ(Apply(FunctionId::Log2, {"1"}), Is("0"));
    EXPECT_EQ(Apply(FunctionId::Log10, {"1000"}), Is("3"));
    EXPECT_EQ(Apply(FunctionId::Log10, {"1/100"}), Is("-2"));
    EXPECT_EQ(Apply(FunctionId::LogX, {"3", "81"}), Is("4"));
    EXPECT_EQ(Apply(FunctionId::LogX, {"3", "1/9"}), Is("-2"));
    for (const char* x : {"3", "3/8", "8/3", "0", "-8"}) {
        EXPECT_EQ(Apply(FunctionId::Log2, {x}), undefined_) << x;
        EXPECT_EQ(Apply(FunctionId::Log10, {x}), undefined_) << x;
        EXPECT_EQ(Apply(FunctionId::LogX, {"2", x}), undefined_) << x;
    }
    for (const char* base : {"1", "0", "1/2", "-2"}) {
        EXPECT_EQ(Apply(FunctionId::LogX, {base, "4"}), undefined_) << base;
    }
}

TEST_F(RationalFunctions, AbsTruncAndFracTakeANumberApart) {
    EXPECT_EQ(Apply(FunctionId::Abs, {"-7/3"}), Is("7/3"));
    EXPECT_EQ(Apply(FunctionId::Abs, {"-0"}), Is("0"));
    EXPECT_EQ(Apply(FunctionId::Trunc, {"7/3"}), Is("2"));
    EXPECT_EQ(Apply(FunctionId::Trunc, {"-7/3"}), Is("-2"));
    EXPECT_EQ(Apply(FunctionId::Trunc, {"-1/3"}), Is("-0")) << "the sign stays";
    EXPECT_EQ(Apply(FunctionId::Frac, {"7/3"}), Is("1/3"));
    EXPECT_EQ(Apply(FunctionId::Frac, {"-7/3"}), Is("-1/3"));
    EXPECT_EQ(Apply(FunctionId::Frac, {"5"}), Is("0"));
}

TEST_F(RationalFunctions, RoundIsTheIntegerPartBelowOneHalf) {
    EXPECT_EQ(Apply(FunctionId::Round, {"7/3"}), Is("2"));
    EXPECT_EQ(Apply(FunctionId::Round, {"-7/3"}), Is("-2"));
    EXPECT_EQ(Apply(FunctionId::Round, {"5"}), Is("5"));
    EXPECT_EQ(Apply(FunctionId::Round, {"0"}), Is("0"));
    EXPECT_EQ(Apply(FunctionId::Round, {"-1/3"}), Is("-0"));
    EXPECT_EQ(Apply(FunctionId::Round, {"170141183460469231731687303715884105727/2^128-1"}),
              Is("0"))
        << "just below one half";
}

// It is the argument that moves by 1, not its integer part.
TEST_F(RationalFunctions, RoundMovesTheArgumentFromOneHalfOn) {
    EXPECT_EQ(Apply(FunctionId::Round, {"5/2"}), Is("7/2"));
    EXPECT_EQ(Apply(FunctionId::Round, {"-5/2"}), Is("-7/2"));
    EXPECT_EQ(Apply(FunctionId::Round, {"1/2"}), Is("3/2"));
    EXPECT_EQ(Apply(FunctionId::Round, {"8/3"}), Is("11/3"));
    EXPECT_EQ(Apply(FunctionId::Round, {"-8/3"}), Is("-11/3"));
    EXPECT_EQ(Apply(FunctionId::Round, {"340282366920938463463374607431768211455/2"}),
              Fails(CalcErrorOverflow));
}

TEST_F(RationalFunctions, OfOneArgumentWorkInPlace) {
    for (const auto& [id, x] :
         {std::pair{FunctionId::Abs, "-7/3"}, std::pair{FunctionId::Trunc, "-7/3"},
          std::pair{FunctionId::Frac, "-7/3"}, std::pair{FunctionId::Round, "-7/3"},
          std::pair{FunctionId::Round, "-8/3"}, std::pair{FunctionId::Sqrt, "4/9"},
          std::pair{FunctionId::Cbrt, "-8/27"}, std::pair{FunctionId::Log2, "1/8"},
          std::pair{FunctionId::Fact, "5"}}) {
        auto words = ExactWords(x);
        FormulaEvaluator evaluator{};
        CallFunction(evaluator, Token(id, 4, 6), words.data(), {words.data()});
        EXPECT_EQ(Is(ValueText(words.data())), Apply(id, {x}))
            << Printable(FunctionOf(id).name) << " " << x;
    }
}

TEST_F(RationalFunctions, FactorialsTakeNonNegativeIntegers) {
    EXPECT_EQ(Apply(FunctionId::Fact, {"5"}), Is("120"));
    EXPECT_EQ(Apply(FunctionId::Fact, {"0"}), Is("1"));
    EXPECT_EQ(Apply(FunctionId::Fact, {"1/2"}), undefined_);
    EXPECT_EQ(Apply(FunctionId::Fact, {"-1"}), undefined_);
    EXPECT_EQ(Apply(FunctionId::Fact, {"35"}), Fails(CalcErrorOverflow));
}

TEST_F(RationalFunctions, CombinationsTakeAnyFirstNumber) {
    EXPECT_EQ(Apply(FunctionId::Ncr, {"5", "2"}), Is("10"));
    EXPECT_EQ(Apply(FunctionId::Ncr, {"5", "7"}), Is("0"));
    EXPECT_EQ(Apply(FunctionId::Ncr, {"1/2", "2"}), Is("-1/8"));
    EXPECT_EQ(Apply(FunctionId::Ncr, {"-3", "2"}), Is("6"));
    EXPECT_EQ(Apply(FunctionId::Npr, {"7", "5"}), Is("2520"));
    EXPECT_EQ(Apply(FunctionId::Npr, {"1/2", "2"}), Is("-1/4"));
    EXPECT_EQ(Apply(FunctionId::Ncr, {"1/2", "0"}), Is("1"));
    for (const char* k : {"1/2", "-1", "2^64"}) {
        EXPECT_EQ(Apply(FunctionId::Ncr, {"1/2", k}), undefined_) << k;
        EXPECT_EQ(Apply(FunctionId::Npr, {"1/2", k}), undefined_) << k;
    }
}

TEST_F(RationalFunctions, DivisorsAndMultiplesNeedPositiveIntegers) {
    EXPECT_EQ(Apply(FunctionId::Gcd, {"4", "6"}), Is("2"));
    EXPECT_EQ(Apply(FunctionId::Lcm, {"4", "6"}), Is("12"));
    for (const FunctionId id : {FunctionId::Gcd, FunctionId::Lcm}) {
        for (const char* x : {"1/2", "0", "-4"}) {
            EXPECT_EQ(Apply(id, {x, "6"}), undefined_) << x;
            EXPECT_EQ(Apply(id, {"6", x}), undefined_) << x;
        }
    }
}

TEST_F(RationalFunctions, ThatPollForAStopAreCancelled) {
    uint8_t stop = 1;
    FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    for (const FunctionId id : {FunctionId::Ncr, FunctionId::Npr}) {
        EXPECT_EQ(Apply(id, {"7", "5"}), Fails(CalcErrorCancelled));
        EXPECT_EQ(Apply(id, {"1/2", "5"}), Fails(CalcErrorCancelled));
    }
}

TEST_F(RationalFunctions, WithoutAnExactMeaningAreNotThere) {
    for (const FunctionId id :
         {FunctionId::Ln, FunctionId::Exp, FunctionId::Sin, FunctionId::CosDegrees,
          FunctionId::TanGon, FunctionId::Asin, FunctionId::AcosDegrees, FunctionId::AtanGon,
          FunctionId::Sinh, FunctionId::Cosh, FunctionId::Tanh, FunctionId::Asinh,
          FunctionId::Acosh, FunctionId::Atanh}) {
        EXPECT_EQ(Apply(id, {"1/2"}), Fails(CalcErrorUnknownType))
            << Printable(FunctionOf(id).name);
    }
}

}  // namespace
}  // namespace tallymere
