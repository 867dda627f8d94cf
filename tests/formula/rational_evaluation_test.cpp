#include "formula/rational_evaluation.h"

#include <gtest/gtest.h>

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
    EXPECT_EQ(Apply(FunctionSqrt, {"4/9"}), Is("2/3"));
    EXPECT_EQ(Apply(FunctionSqrt, {"0"}), Is("0"));
    EXPECT_EQ(Apply(FunctionCbrt, {"8/27"}), Is("2/3"));
    EXPECT_EQ(Apply(FunctionCbrt, {"-8/27"}), Is("-2/3"));
    for (const char* x : {"2", "4/3", "3/4", "-4", "-1/4"}) {
        EXPECT_EQ(Apply(FunctionSqrt, {x}), undefined_) << x;
    }
    for (const char* x : {"2", "8/3", "3/8", "-9"}) {
        EXPECT_EQ(Apply(FunctionCbrt, {x}), undefined_) << x;
    }
    EXPECT_EQ(Apply(FunctionRoot, {"2", "4/9"}), Is("2/3"));
    EXPECT_EQ(Apply(FunctionRoot, {"-2", "4/9"}), Is("3/2"));
    EXPECT_EQ(Apply(FunctionRoot, {"3", "-8"}), Is("-2"));
    EXPECT_EQ(Apply(FunctionRoot, {"1/2", "3"}), Is("9"));
    EXPECT_EQ(Apply(FunctionRoot, {"2/3", "4"}), Is("8"));
    EXPECT_EQ(Apply(FunctionRoot, {"0", "4"}), undefined_);
    EXPECT_EQ(Apply(FunctionRoot, {"2", "-4"}), undefined_);
    EXPECT_EQ(Apply(FunctionRoot, {"2", "5"}), undefined_);
    EXPECT_EQ(Apply(FunctionRoot, {"2/3", "-4"}), undefined_);
}

TEST_F(RationalFunctions, LogarithmsAreExactOrRefused) {
    EXPECT_EQ(Apply(FunctionLog2, {"8"}), Is("3"));
    EXPECT_EQ(Apply(FunctionLog2, {"1/8"}), Is("-3"));
    EXPECT_EQ(Apply(FunctionLog2, {"1"}), Is("0"));
    EXPECT_EQ(Apply(FunctionLog10, {"1000"}), Is("3"));
    EXPECT_EQ(Apply(FunctionLog10, {"1/100"}), Is("-2"));
    EXPECT_EQ(Apply(FunctionLogX, {"3", "81"}), Is("4"));
    EXPECT_EQ(Apply(FunctionLogX, {"3", "1/9"}), Is("-2"));
    for (const char* x : {"3", "3/8", "8/3", "0", "-8"}) {
        EXPECT_EQ(Apply(FunctionLog2, {x}), undefined_) << x;
        EXPECT_EQ(Apply(FunctionLog10, {x}), undefined_) << x;
        EXPECT_EQ(Apply(FunctionLogX, {"2", x}), undefined_) << x;
    }
    for (const char* base : {"1", "0", "1/2", "-2"}) {
        EXPECT_EQ(Apply(FunctionLogX, {base, "4"}), undefined_) << base;
    }
}

TEST_F(RationalFunctions, AbsTruncAndFracTakeANumberApart) {
    EXPECT_EQ(Apply(FunctionAbs, {"-7/3"}), Is("7/3"));
    EXPECT_EQ(Apply(FunctionAbs, {"-0"}), Is("0"));
    EXPECT_EQ(Apply(FunctionTrunc, {"7/3"}), Is("2"));
    EXPECT_EQ(Apply(FunctionTrunc, {"-7/3"}), Is("-2"));
    EXPECT_EQ(Apply(FunctionTrunc, {"-1/3"}), Is("-0")) << "the sign stays";
    EXPECT_EQ(Apply(FunctionFrac, {"7/3"}), Is("1/3"));
    EXPECT_EQ(Apply(FunctionFrac, {"-7/3"}), Is("-1/3"));
    EXPECT_EQ(Apply(FunctionFrac, {"5"}), Is("0"));
}

TEST_F(RationalFunctions, RoundIsTheIntegerPartBelowOneHalf) {
    EXPECT_EQ(Apply(FunctionRound, {"7/3"}), Is("2"));
    EXPECT_EQ(Apply(FunctionRound, {"-7/3"}), Is("-2"));
    EXPECT_EQ(Apply(FunctionRound, {"5"}), Is("5"));
    EXPECT_EQ(Apply(FunctionRound, {"0"}), Is("0"));
    EXPECT_EQ(Apply(FunctionRound, {"-1/3"}), Is("-0"));
    EXPECT_EQ(Apply(FunctionRound, {"170141183460469231731687303715884105727/2^128-1"}), Is("0"))
        << "just below one half";
}

// It is the argument that moves by 1, not its integer part.
TEST_F(RationalFunctions, RoundMovesTheArgumentFromOneHalfOn) {
    EXPECT_EQ(Apply(FunctionRound, {"5/2"}), Is("7/2"));
    EXPECT_EQ(Apply(FunctionRound, {"-5/2"}), Is("-7/2"));
    EXPECT_EQ(Apply(FunctionRound, {"1/2"}), Is("3/2"));
    EXPECT_EQ(Apply(FunctionRound, {"8/3"}), Is("11/3"));
    EXPECT_EQ(Apply(FunctionRound, {"-8/3"}), Is("-11/3"));
    EXPECT_EQ(Apply(FunctionRound, {"340282366920938463463374607431768211455/2"}),
              Fails(CalcErrorOverflow));
}

TEST_F(RationalFunctions, OfOneArgumentWorkInPlace) {
    for (const auto& [id, x] : {std::pair{FunctionAbs, "-7/3"}, std::pair{FunctionTrunc, "-7/3"},
                                std::pair{FunctionFrac, "-7/3"}, std::pair{FunctionRound, "-7/3"},
                                std::pair{FunctionRound, "-8/3"}, std::pair{FunctionSqrt, "4/9"},
                                std::pair{FunctionCbrt, "-8/27"}, std::pair{FunctionLog2, "1/8"},
                                std::pair{FunctionFact, "5"}}) {
        auto words = ExactWords(x);
        RationalApplyFunction1(id, RationalAt(words.data()), RationalAt(words.data()));
        EXPECT_EQ(Is(ValueText(words.data())), Apply(id, {x})) << id << " " << x;
    }
}

TEST_F(RationalFunctions, FactorialsTakeNonNegativeIntegers) {
    EXPECT_EQ(Apply(FunctionFact, {"5"}), Is("120"));
    EXPECT_EQ(Apply(FunctionFact, {"0"}), Is("1"));
    EXPECT_EQ(Apply(FunctionFact, {"1/2"}), undefined_);
    EXPECT_EQ(Apply(FunctionFact, {"-1"}), undefined_);
    EXPECT_EQ(Apply(FunctionFact, {"35"}), Fails(CalcErrorOverflow));
}

TEST_F(RationalFunctions, CombinationsTakeAnyFirstNumber) {
    EXPECT_EQ(Apply(FunctionNcr, {"5", "2"}), Is("10"));
    EXPECT_EQ(Apply(FunctionNcr, {"5", "7"}), Is("0"));
    EXPECT_EQ(Apply(FunctionNcr, {"1/2", "2"}), Is("-1/8"));
    EXPECT_EQ(Apply(FunctionNcr, {"-3", "2"}), Is("6"));
    EXPECT_EQ(Apply(FunctionNpr, {"7", "5"}), Is("2520"));
    EXPECT_EQ(Apply(FunctionNpr, {"1/2", "2"}), Is("-1/4"));
    EXPECT_EQ(Apply(FunctionNcr, {"1/2", "0"}), Is("1"));
    for (const char* k : {"1/2", "-1", "2^64"}) {
        EXPECT_EQ(Apply(FunctionNcr, {"1/2", k}), undefined_) << k;
        EXPECT_EQ(Apply(FunctionNpr, {"1/2", k}), undefined_) << k;
    }
}

TEST_F(RationalFunctions, DivisorsAndMultiplesNeedPositiveIntegers) {
    EXPECT_EQ(Apply(FunctionGcd, {"4", "6"}), Is("2"));
    EXPECT_EQ(Apply(FunctionLcm, {"4", "6"}), Is("12"));
    for (const uint32_t id : {FunctionGcd, FunctionLcm}) {
        for (const char* x : {"1/2", "0", "-4"}) {
            EXPECT_EQ(Apply(id, {x, "6"}), undefined_) << x;
            EXPECT_EQ(Apply(id, {"6", x}), undefined_) << x;
        }
    }
}

TEST_F(RationalFunctions, ThatPollForAStopAreCancelled) {
    uint8_t stop = 1;
    FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    for (const uint32_t id : {FunctionNcr, FunctionNpr}) {
        EXPECT_EQ(Apply(id, {"7", "5"}), Fails(CalcErrorCancelled));
        EXPECT_EQ(Apply(id, {"1/2", "5"}), Fails(CalcErrorCancelled));
    }
}

TEST_F(RationalFunctions, WithoutAnExactMeaningAreNotThere) {
    for (uint32_t id = FunctionSqrt; id <= FunctionAtanh; id++) {
        if (id != FunctionSqrt && id != FunctionCbrt && id != FunctionLog2 && id != FunctionLog10 &&
            id != FunctionAbs) {
            EXPECT_EQ(Apply(id, {"1/2"}), Fails(CalcErrorUnknownType)) << id;
        }
    }
    EXPECT_EQ(Apply(FunctionRoot, {"1"}), Fails(CalcErrorUnknownType))
        << "by the number of arguments";
    EXPECT_EQ(Apply(FunctionSqrt, {"1", "2"}), Fails(CalcErrorUnknownType));
    EXPECT_EQ(Apply(FunctionSqrt, {"1", "2", "3"}), Fails(CalcErrorUnknownType));
}

}  // namespace
}  // namespace tallymere
