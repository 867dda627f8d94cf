#include "formula/real_evaluation.h"

#include <gtest/gtest.h>

#include <string_view>

#include "support/formula_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// The result of a function of one argument; of one that fails without a code, NaN.
RealBuffer Apply(uint32_t id, std::string_view text) {
    const RealBuffer x(text);
    RealBuffer copy = x;
    RealBuffer apart;
    FormulaEvaluator evaluator{};
    const FormulaToken function = {id, 4, 3, nullptr};
    RealApplyFunction1(evaluator, function, apart, copy);
    EXPECT_EQ(copy, x) << "the argument stays";
    const CalcError code = TakeCode();
    RealApplyFunction1(evaluator, function, copy, copy);
    EXPECT_EQ(copy, apart) << "also in place";
    EXPECT_EQ(TakeCode(), code);
    EXPECT_EQ(evaluator.error, uint32_t{FormulaErrorNone});
    SetCalcError(code);
    return apart;
}

RealBuffer Apply(uint32_t id, std::string_view a, std::string_view b) {
    const RealBuffer x(a);
    const RealBuffer y(b);
    RealBuffer apart;
    RealApplyFunction2(id, apart, x, y);
    EXPECT_EQ(x, RealBuffer(a)) << "the arguments stay";
    EXPECT_EQ(y, RealBuffer(b));
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

TEST(RealFunctions, RoundGoesToTheNearestInteger) {
    PrecisionScope scope(20);
    EXPECT_EQ(Apply(FunctionRound, "-2.5"), RealBuffer("-3"));
    EXPECT_EQ(Apply(FunctionRound, "-0.4"), RealBuffer("-0"));
    EXPECT_EQ(Apply(FunctionRound, "nan"), RealBuffer("nan"));
}

TEST(RealFunctions, NoteTheCodesOfTheirRoutines) {
    FormulaScope scope(20);
    const auto codeOf = [](uint32_t id, std::string_view x) {
        const RealBuffer result = Apply(id, x);
        const CalcError code = TakeCode();
        EXPECT_TRUE(RealIsSpecial(result)) << x;
        return code;
    };
    for (const uint32_t id :
         {FunctionSqrt, FunctionLn, FunctionLog2, FunctionLog10, FunctionFact, FunctionAcosh,
          FunctionAsin, FunctionAcos, FunctionAsinDegrees, FunctionAcosDegrees, FunctionAsinGon,
          FunctionAcosGon, FunctionAtanh}) {
        EXPECT_EQ(codeOf(id, "-4"), CalcErrorUndefined) << id;
    }
    EXPECT_EQ(codeOf(FunctionFact, "2.5"), CalcErrorUndefined);
    EXPECT_EQ(codeOf(FunctionSin, "1e20"), CalcErrorUndefined);
    EXPECT_EQ(codeOf(FunctionCosDegrees, "1e25"), CalcErrorUndefined);
    for (const uint32_t id : {FunctionExp, FunctionCosh, FunctionFact}) {
        EXPECT_EQ(codeOf(id, "1e30"), CalcErrorOverflow) << id;
    }
    EXPECT_EQ(codeOf(FunctionLn, "0"), CalcErrorOverflow);
    EXPECT_EQ(codeOf(FunctionAtanh, "1"), CalcErrorOverflow);
    EXPECT_EQ(codeOf(FunctionExp, "-1e30"), CalcErrorNone) << "an underflow is a silent zero";
    for (const uint32_t id :
         {FunctionRoot, FunctionLogX, FunctionNcr, FunctionNpr, FunctionGcd, FunctionLcm}) {
        EXPECT_EQ(Apply(id, "-2", "-2"), RealBuffer("nan")) << id;
        EXPECT_EQ(TakeCode(), CalcErrorUndefined) << id;
    }
}

TEST(RealFunctions, ThatRealDoesNotHaveGiveNaNAndNoteACode) {
    FormulaScope scope(20);
    for (const uint32_t id : {FunctionArg, FunctionRealPart, FunctionImaginaryPart, FunctionRoot}) {
        EXPECT_EQ(Apply(id, "1"), RealBuffer("nan"));
        EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
    }
    for (const uint32_t id : {FunctionComplexSqrt, FunctionComplexCbrt, FunctionSqrt}) {
        EXPECT_EQ(Apply(id, "1", "1"), RealBuffer("nan"));
        EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
    }
}

TEST(RealFunctions, OfTwoArgumentsHaveTheDegreeOrBaseFirst) {
    FormulaScope scope(20);
    EXPECT_EQ(Apply(FunctionRoot, "3", "-8"), RealBuffer("-2"));
    EXPECT_EQ(Apply(FunctionLogX, "2", "8"), RealBuffer("3"));
    EXPECT_EQ(Apply(FunctionNcr, "5", "2"), RealBuffer("10"));
    EXPECT_EQ(Apply(FunctionNcr, "2", "5"), RealBuffer("0"));
    EXPECT_EQ(Apply(FunctionNpr, "5", "2"), RealBuffer("20"));
    EXPECT_EQ(Apply(FunctionGcd, "12", "18"), RealBuffer("6"));
    EXPECT_EQ(Apply(FunctionLcm, "4", "6"), RealBuffer("12"));
}

// A product that has more digits than the precision.
TEST(RealFunctions, LcmIsRounded) {
    FormulaScope scope(3);
    EXPECT_EQ(Apply(FunctionLcm, "998", "999"), RealBuffer("997000"));
    EXPECT_EQ(Apply(FunctionLcm, "971", "977"), RealBuffer("949000")) << "948667, rounded up";
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
