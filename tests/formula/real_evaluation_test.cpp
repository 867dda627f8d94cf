#include "formula/real_evaluation.h"

#include <gtest/gtest.h>

#include <string_view>

#include "formula/function_table.h"
#include "support/formula_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// The result of a function of one argument.
RealBuffer Apply(FunctionId id, std::string_view text) {
    const FieldScope<NumberType> type(numberContext.numberType, NumberTypeReal);
    const RealBuffer x(text);
    RealBuffer copy = x;
    RealBuffer apart;
    FormulaEvaluator evaluator{};
    const FormulaToken function = Token(id, 4, 3);
    CallFunction(evaluator, function, &apart.Get()->header, {&copy.Get()->header});
    EXPECT_EQ(copy, x) << "the argument stays";
    const CalcError code = TakeCode();
    CallFunction(evaluator, function, &copy.Get()->header, {&copy.Get()->header});
    EXPECT_EQ(copy, apart) << "also in place";
    EXPECT_EQ(TakeCode(), code);
    EXPECT_EQ(evaluator.error, uint32_t{FormulaErrorNone});
    SetCalcError(code);
    return apart;
}

RealBuffer Apply(FunctionId id, std::string_view a, std::string_view b) {
    const RealBuffer x(a);
    const RealBuffer y(b);
    RealBuffer apart;
    FormulaEvaluator evaluator{};
    CallFunction(evaluator, Token(id, 4, 3), &apart.Get()->header,
                 {&x.Get()->header, &y.Get()->header});
    EXPECT_EQ(evaluator.error, uint32_t{FormulaErrorNone});
    EXPECT_EQ(x, RealBuffer(a)) << "the arguments stay";
    EXPECT_EQ(y, RealBuffer(b));
    return apart;
}

TEST(RealFunctions, AbsClearsTheSign) {
    PrecisionScope scope(20);
    EXPECT_EQ(Apply(FunctionId::Abs, "-3.5"), RealBuffer("3.5"));
    EXPECT_EQ(Apply(FunctionId::Abs, "3.5"), RealBuffer("3.5"));
    EXPECT_EQ(Apply(FunctionId::Abs, "-0"), RealBuffer("0"));
    EXPECT_EQ(Apply(FunctionId::Abs, "-inf"), RealBuffer("inf"));
    EXPECT_EQ(Apply(FunctionId::Abs, "nan"), RealBuffer("nan"));
}

TEST(RealFunctions, TruncCutsTowardsZero) {
    PrecisionScope scope(20);
    EXPECT_EQ(Apply(FunctionId::Trunc, "3.99"), RealBuffer("3"));
    EXPECT_EQ(Apply(FunctionId::Trunc, "-3.99"), RealBuffer("-3"));
    EXPECT_EQ(Apply(FunctionId::Trunc, "-0.99"), RealBuffer("-0"));
    EXPECT_EQ(Apply(FunctionId::Trunc, "1e50"), RealBuffer("1e50"));
}

TEST(RealFunctions, FracKeepsTheSignAlsoOfZero) {
    PrecisionScope scope(20);
    EXPECT_EQ(Apply(FunctionId::Frac, "3.25"), RealBuffer("0.25"));
    EXPECT_EQ(Apply(FunctionId::Frac, "-3.25"), RealBuffer("-0.25"));
    EXPECT_EQ(Apply(FunctionId::Frac, "-3"), RealBuffer("-0"));
    EXPECT_EQ(Apply(FunctionId::Frac, "3"), RealBuffer("0"));
    EXPECT_EQ(Apply(FunctionId::Frac, "-1e50"), RealBuffer("-0"));
}

TEST(RealFunctions, RoundGoesToTheNearestInteger) {
    PrecisionScope scope(20);
    EXPECT_EQ(Apply(FunctionId::Round, "-2.5"), RealBuffer("-3"));
    EXPECT_EQ(Apply(FunctionId::Round, "-0.4"), RealBuffer("-0"));
    EXPECT_EQ(Apply(FunctionId::Round, "nan"), RealBuffer("nan"));
}

TEST(RealFunctions, NoteTheCodesOfTheirRoutines) {
    FormulaScope scope(20);
    const auto codeOf = [](FunctionId id, std::string_view x) {
        const RealBuffer result = Apply(id, x);
        const CalcError code = TakeCode();
        EXPECT_TRUE(RealIsSpecial(result)) << x;
        return code;
    };
    for (const FunctionId id :
         {FunctionId::Sqrt, FunctionId::Ln, FunctionId::Log2, FunctionId::Log10, FunctionId::Fact,
          FunctionId::Acosh, FunctionId::Asin, FunctionId::Acos, FunctionId::AsinDegrees,
          FunctionId::AcosDegrees, FunctionId::AsinGon, FunctionId::AcosGon, FunctionId::Atanh}) {
        EXPECT_EQ(codeOf(id, "-4"), CalcErrorUndefined) << Printable(FunctionOf(id).name);
    }
    EXPECT_EQ(codeOf(FunctionId::Fact, "2.5"), CalcErrorUndefined);
    EXPECT_EQ(codeOf(FunctionId::Sin, "1e20"), CalcErrorUndefined);
    EXPECT_EQ(codeOf(FunctionId::CosDegrees, "1e25"), CalcErrorUndefined);
    for (const FunctionId id : {FunctionId::Exp, FunctionId::Cosh, FunctionId::Fact}) {
        EXPECT_EQ(codeOf(id, "1e30"), CalcErrorOverflow) << Printable(FunctionOf(id).name);
    }
    EXPECT_EQ(codeOf(FunctionId::Ln, "0"), CalcErrorOverflow);
    EXPECT_EQ(codeOf(FunctionId::Atanh, "1"), CalcErrorOverflow);
    EXPECT_EQ(codeOf(FunctionId::Exp, "-1e30"), CalcErrorNone) << "an underflow is a silent zero";
    for (const FunctionId id : {FunctionId::Root, FunctionId::LogX, FunctionId::Ncr,
                                FunctionId::Npr, FunctionId::Gcd, FunctionId::Lcm}) {
        EXPECT_EQ(Apply(id, "-2", "-2"), RealBuffer("nan")) << Printable(FunctionOf(id).name);
        EXPECT_EQ(TakeCode(), CalcErrorUndefined) << Printable(FunctionOf(id).name);
    }
}

TEST(RealFunctions, OfTwoArgumentsHaveTheDegreeOrBaseFirst) {
    FormulaScope scope(20);
    EXPECT_EQ(Apply(FunctionId::Root, "3", "-8"), RealBuffer("-2"));
    EXPECT_EQ(Apply(FunctionId::LogX, "2", "8"), RealBuffer("3"));
    EXPECT_EQ(Apply(FunctionId::Ncr, "5", "2"), RealBuffer("10"));
    EXPECT_EQ(Apply(FunctionId::Ncr, "2", "5"), RealBuffer("0"));
    EXPECT_EQ(Apply(FunctionId::Npr, "5", "2"), RealBuffer("20"));
    EXPECT_EQ(Apply(FunctionId::Gcd, "12", "18"), RealBuffer("6"));
    EXPECT_EQ(Apply(FunctionId::Lcm, "4", "6"), RealBuffer("12"));
}

// A product that has more digits than the precision.
TEST(RealFunctions, LcmIsRounded) {
    FormulaScope scope(3);
    EXPECT_EQ(Apply(FunctionId::Lcm, "998", "999"), RealBuffer("997000"));
    EXPECT_EQ(Apply(FunctionId::Lcm, "971", "977"), RealBuffer("949000")) << "948667, rounded up";
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
