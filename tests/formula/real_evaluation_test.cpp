#include "formula/real_evaluation.h"

#include <gtest/gtest.h>

#include <string_view>

#include "formula/formula_token.h"
#include "support/formula_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

RealBuffer Apply(uint32_t id, std::string_view text) {
    const RealBuffer x(text);
    RealBuffer copy = x;
    RealBuffer apart;
    RealApplyFunction1(id, apart, copy);
    EXPECT_EQ(copy, x) << "the argument stays";
    RealApplyFunction1(id, copy, copy);
    EXPECT_EQ(copy, apart) << "also in place";
    return apart;
}

TEST(RealFunctions, AbsClearsTheSign) {
    PrecisionScope scope(20);
    EXPECT_EQ(Apply(FunctionAbs, "-3.5"), RealBuffer("3.5"));
    EXPECT_EQ(Apply(FunctionAbs, "3.5"), RealBuffer("3.5"));
    EXPECT_EQ(Apply(FunctionAbs, "-0"), RealBuffer("0"));
    EXPECT_EQ(Apply(FunctionAbs, "-inf"), RealBuffer("inf"));
    EXPECT_EQ(Apply(FunctionAbs, "nan"), RealBuffer("nan"));
}

TEST(RealFunctions, TruncCutsTowardsZero) {
    PrecisionScope scope(20);
    EXPECT_EQ(Apply(FunctionTrunc, "3.99"), RealBuffer("3"));
    EXPECT_EQ(Apply(FunctionTrunc, "-3.99"), RealBuffer("-3"));
    EXPECT_EQ(Apply(FunctionTrunc, "-0.99"), RealBuffer("-0"));
    EXPECT_EQ(Apply(FunctionTrunc, "1e50"), RealBuffer("1e50"));
}

TEST(RealFunctions, FracKeepsTheSignAlsoOfZero) {
    PrecisionScope scope(20);
    EXPECT_EQ(Apply(FunctionFrac, "3.25"), RealBuffer("0.25"));
    EXPECT_EQ(Apply(FunctionFrac, "-3.25"), RealBuffer("-0.25"));
    EXPECT_EQ(Apply(FunctionFrac, "-3"), RealBuffer("-0"));
    EXPECT_EQ(Apply(FunctionFrac, "3"), RealBuffer("0"));
    EXPECT_EQ(Apply(FunctionFrac, "-1e50"), RealBuffer("-0"));
}

TEST(RealFunctions, RoundGoesToTheNearestIntegerAndHalvesAwayFromZero) {
    for (const int64_t p : {6, 9, 16, 19, 20, 38, 39, 57, 100}) {
        PrecisionScope scope(p);
        EXPECT_EQ(Apply(FunctionRound, "2.5"), RealBuffer("3"));
        EXPECT_EQ(Apply(FunctionRound, "-2.5"), RealBuffer("-3"));
        EXPECT_EQ(Apply(FunctionRound, "2.4999"), RealBuffer("2"));
        EXPECT_EQ(Apply(FunctionRound, "9.5"), RealBuffer("10"));
        EXPECT_EQ(Apply(FunctionRound, "99999.5"), RealBuffer("100000"));
        EXPECT_EQ(Apply(FunctionRound, "-1.49"), RealBuffer("-1"));
        EXPECT_EQ(Apply(FunctionRound, "7"), RealBuffer("7"));
        EXPECT_EQ(Apply(FunctionRound, "-1.25e99"), RealBuffer("-1.25e99"));
    }
}

TEST(RealFunctions, RoundBelowOneGoesByTheFirstDecimal) {
    for (const int64_t p : {1, 2, 18, 19, 20, 57}) {
        PrecisionScope scope(p);
        EXPECT_EQ(Apply(FunctionRound, "0.5"), RealBuffer("1"));
        EXPECT_EQ(Apply(FunctionRound, "-0.5"), RealBuffer("-1"));
        EXPECT_EQ(Apply(FunctionRound, "0.9"), RealBuffer("1"));
        EXPECT_EQ(Apply(FunctionRound, "0.4"), RealBuffer("0"));
        EXPECT_EQ(Apply(FunctionRound, "-0.4"), RealBuffer("-0"));
        EXPECT_EQ(Apply(FunctionRound, "-0.04"), RealBuffer("-0"));
        EXPECT_EQ(Apply(FunctionRound, "0.09"), RealBuffer("0"));
        EXPECT_EQ(Apply(FunctionRound, "9e-100"), RealBuffer("0"));
    }
    PrecisionScope scope(20);
    EXPECT_EQ(Apply(FunctionRound, "0.49999999999999999999"), RealBuffer("0"));
}

TEST(RealFunctions, RoundCopiesSpecialValues) {
    PrecisionScope scope(20);
    EXPECT_EQ(Apply(FunctionRound, "-0"), RealBuffer("-0"));
    EXPECT_EQ(Apply(FunctionRound, "0"), RealBuffer("0"));
    EXPECT_EQ(Apply(FunctionRound, "-inf"), RealBuffer("-inf"));
    EXPECT_EQ(Apply(FunctionRound, "nan"), RealBuffer("nan"));
}

TEST(RealFunctions, RoundCapsTheDigitsOfHugeNumbers) {
    PrecisionScope scope(20);
    EXPECT_EQ(Apply(FunctionRound, "1.5e2147483646"), RealBuffer("1.5e2147483646"));
    EXPECT_EQ(Apply(FunctionRound, "1.5e2147483648"), RealBuffer("1.5e2147483648"));
    EXPECT_EQ(Apply(FunctionRound, "1.5e4611686018427387903"),
              RealBuffer("1.5e4611686018427387903"));
}

TEST(RealFunctions, WithoutAnOperationGiveNaNAndNoteACode) {
    PrecisionScope scope(20);
    const RealBuffer x("1");
    RealBuffer dest;
    RealApplyFunction1(FunctionSin, dest, x);
    EXPECT_EQ(dest, RealBuffer("nan"));
    EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
}

TEST(RealFunctions, AreCalledByTheirNames) {
    FormulaScope scope(20);
    EXPECT_EQ(Evaluate(u"abs(-1.5)"), Value("1.5"));
    EXPECT_EQ(Evaluate(u"trunc(-1.5)"), Value("-1"));
    EXPECT_EQ(Evaluate(u"frac(-1.5)"), Value("-0.5"));
    EXPECT_EQ(Evaluate(u"round(-1.5)"), Value("-2"));
    EXPECT_EQ(Evaluate(u"round(-0.04)"), Value("-0"));
}

}  // namespace
}  // namespace tallymere
