#include "formula/formula_operands.h"

#include <gtest/gtest.h>

#include <string>

#include "core/scratch.h"
#include "formula/formula_driver.h"
#include "formula/formula_evaluation.h"
#include "formula/formula_stack.h"
#include "support/formula_testing.h"
#include "values/value_operations.h"

namespace tallymere {
namespace {

using namespace testing_support;

TEST(ParseNumberToken, ChecksWhatStandsBelow) {
    FormulaScope scope;
    ScratchStackScope scratch;
    FormulaEvaluator evaluator{};
    evaluator.text = u"12";
    StartFormulaStack(evaluator);
    ParseNumberToken(evaluator, Token(TokenValue, 0, 1));
    ASSERT_EQ(evaluator.error, uint32_t{FormulaErrorNone});
    EXPECT_EQ(evaluator.top, 0);
    ParseNumberToken(evaluator, Token(TokenValue, 1, 1));
    EXPECT_EQ(evaluator.error, uint32_t{FormulaErrorSyntax});
    EXPECT_EQ(evaluator.errorPosition, 2u);
    EXPECT_EQ(evaluator.top, 0);
}

TEST(ParseNumberToken, ForgetsTheCodeOfTheConversion) {
    FormulaScope scope;
    ScratchStackScope scratch;
    FormulaEvaluator evaluator{};
    evaluator.text = u"1.2.3";
    StartFormulaStack(evaluator);
    ParseNumberToken(evaluator, Token(TokenValue, 0, 5));
    EXPECT_EQ(evaluator.error, uint32_t{FormulaErrorBadNumber});
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

TEST(ParseNumberToken, TurnsARequestToStopIntoItsOwnError) {
    FormulaScope scope;
    ScratchStackScope scratch;
    FormulaEvaluator evaluator{};
    evaluator.text = u"2+1";
    StartFormulaStack(evaluator);
    SetCalcError(CalcErrorCancelled);  // what a long conversion would note
    ParseNumberToken(evaluator, Token(TokenValue, 2, 1));
    EXPECT_EQ(evaluator.error, uint32_t{FormulaErrorAborted});
    EXPECT_EQ(evaluator.errorPosition, 1u);
    EXPECT_EQ(evaluator.errorLength, 0u);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

// The imaginary unit, in the type cplx.
class ImaginaryUnit : public ::testing::Test {
protected:
    ImaginaryUnit() : scope_(20, NumberTypeComplex) { StartFormulaStack(evaluator_); }

    // Lays a value on the stack.
    void PushValue(std::string_view realPart, std::string_view imaginaryPart) {
        ASSERT_TRUE(PushFormulaToken(evaluator_, Token(TokenValue, 0, 1)));
        uint64_t* value = evaluator_.stack[evaluator_.top].value;
        RealFromPlainText(RealAt(value), realPart);
        RealFromPlainText(RealAt(value + RealWords()), imaginaryPart);
    }

    void Apply() { ApplyImaginaryUnit(evaluator_, Token(TokenImaginaryUnit, 4, 2)); }

    std::string Top() const {
        const uint64_t* value = evaluator_.stack[evaluator_.top].value;
        return PlainText(RealAt(value)) + " " + PlainText(RealAt(value + RealWords()));
    }

    FormulaScope scope_;
    ScratchStackScope scratch_;
    FormulaEvaluator evaluator_{};
};

TEST_F(ImaginaryUnit, MovesARealValueToTheImaginaryPart) {
    PushValue("-3.5", "0");
    Apply();
    EXPECT_EQ(evaluator_.error, uint32_t{FormulaErrorNone});
    EXPECT_EQ(Top(), "0 -3.5e0");
    evaluator_.top = -1;
    PushValue("2", "-0");
    Apply();
    EXPECT_EQ(Top(), "0 2e0") << "a zero of either sign";
    EXPECT_EQ(evaluator_.top, 0);
}

TEST_F(ImaginaryUnit, RefusesAValueThatHasAnImaginaryPart) {
    PushValue("1", "1");
    Apply();
    EXPECT_EQ(evaluator_.error, uint32_t{FormulaErrorBadNumber});
    EXPECT_EQ(evaluator_.errorPosition, 5u);
    EXPECT_EQ(evaluator_.errorLength, 2u);
    EXPECT_EQ(Top(), "1e0 1e0");
}

TEST_F(ImaginaryUnit, IsPushedOnWhateverIsNoValue) {
    for (const Symbol& below : std::initializer_list<Symbol>{
             TokenNone, OperatorId::Add, FunctionId::Sin, TokenLeftParen, TokenSeparator}) {
        evaluator_.top = -1;
        if (below.kind != TokenNone) {
            ASSERT_TRUE(PushFormulaToken(evaluator_, Token(below, 0, 1)));
        }
        const int64_t top = evaluator_.top;
        Apply();
        EXPECT_EQ(evaluator_.error, uint32_t{FormulaErrorNone});
        EXPECT_EQ(evaluator_.top, top + 1);
        EXPECT_EQ(StackKind(evaluator_, 0), TokenValue);
        EXPECT_EQ(Top(), "0 1e0");
    }
}

TEST_F(ImaginaryUnit, CountsAsAStackEntry) {
    for (int i = 0; i < 50; i++) {
        ASSERT_TRUE(PushFormulaToken(evaluator_, Token(TokenLeftParen, 0, 1)));
    }
    Apply();
    EXPECT_EQ(evaluator_.error, uint32_t{FormulaErrorTooComplicated});
}

TEST_F(ImaginaryUnit, IsReadInFormulas) {
    std::string one = Evaluate(u"i").value;
    EXPECT_EQ(Evaluate(u"(i)").value, one);
    EXPECT_EQ(Evaluate(u"+i").value, one);
    EXPECT_EQ(Evaluate(u"i i"), Failure(10208, 3, 0));
    EXPECT_EQ(Evaluate(u"(i)i"), Failure(10208, 4, 1));
    EXPECT_EQ(Evaluate(u"i(1)"), Failure(10200, 2, 1));
    EXPECT_EQ(Evaluate(u"abs i"), Failure(10202, 6, 0)) << "refused only by the rules behind it";
    EXPECT_EQ(Evaluate(u"abs i)"), Failure(10201, 6, 1));
}

TEST(ImaginaryUnitOutsideCplx, NeedsTheComplexType) {
    for (const NumberType type :
         {NumberTypeReal, NumberTypeUint, NumberTypeRational, NumberTypeNone}) {
        FormulaScope scope(20, type);
        ScratchStackScope scratch;
        FormulaEvaluator evaluator{};
        StartFormulaStack(evaluator);
        TakeCode();
        ApplyImaginaryUnit(evaluator, Token(TokenImaginaryUnit, 4, 2));
        EXPECT_EQ(evaluator.error, uint32_t{FormulaErrorNeedsComplex});
        EXPECT_EQ(evaluator.errorPosition, 5u);
        EXPECT_EQ(evaluator.errorLength, 2u);
        EXPECT_EQ(evaluator.top, -1);
    }
}

}  // namespace
}  // namespace tallymere
