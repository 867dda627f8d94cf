// States of the stack that the driver never lets arise, and what operands leave behind on the
// stack.
#include "formula/formula_reduction.h"

#include <gtest/gtest.h>

#include <initializer_list>

#include "core/scratch.h"
#include "formula/formula_stack.h"
#include "support/formula_testing.h"
#include "values/value_operations.h"

namespace tallymere {
namespace {

using namespace testing_support;

class FormulaStack : public ::testing::Test {
protected:
    FormulaStack() { StartFormulaStack(evaluator_); }

    // Puts entries on the stack, each three characters long and ten behind the one before; values
    // are 1, 2, 3 and so on.
    void Push(std::initializer_list<uint32_t> ids) {
        for (const uint32_t id : ids) {
            ASSERT_TRUE(PushFormulaToken(evaluator_, {id, NextPosition(), 3, nullptr}));
            if (id == TokenValue) {
                ValueFromInteger(evaluator_.stack[evaluator_.top].value, ++values_);
            }
        }
    }

    void Reduce(uint32_t id) { ReduceOnToken(evaluator_, Coming(id)); }

    void Restart() {
        evaluator_.top = -1;
        evaluator_.error = FormulaErrorNone;
    }

    FormulaToken Coming(uint32_t id) const { return {id, NextPosition(), 4, nullptr}; }

    void ExpectError(uint32_t error, uint64_t index, uint64_t length) {
        EXPECT_EQ(evaluator_.error, error);
        EXPECT_EQ(evaluator_.errorPosition, 10 * index + 1);
        EXPECT_EQ(evaluator_.errorLength, length);
    }

    void ExpectTop(int64_t top, std::string_view value, uint64_t position, uint64_t length) {
        EXPECT_EQ(evaluator_.error, uint32_t{FormulaErrorNone});
        ASSERT_EQ(evaluator_.top, top);
        const FormulaToken& entry = evaluator_.stack[top];
        EXPECT_EQ(entry.id, uint32_t{TokenValue});
        EXPECT_EQ(PlainText(RealAt(entry.value)), PlainText(RealBuffer(value)));
        EXPECT_EQ(entry.position, position);
        EXPECT_EQ(entry.length, length);
    }

    FormulaScope scope_;
    ScratchStackScope scratch_;
    FormulaEvaluator evaluator_{};

private:
    uint64_t NextPosition() const { return 10 * static_cast<uint64_t>(evaluator_.top + 1); }

    int64_t values_ = 0;
};

TEST_F(FormulaStack, ClearsASlotWhenItIsTaken) {
    Push({TokenLeftParen});
    for (int64_t i = 0; i < RealWords(); i++) {
        EXPECT_EQ(evaluator_.stack[0].value[i], 0u);
    }
    EXPECT_EQ(evaluator_.slotMark, 0);
}

TEST_F(FormulaStack, KeepsTheSlotOfAnEntryThatWasTakenOff) {
    Push({TokenLeftParen, TokenValue});
    uint64_t* slot = evaluator_.stack[1].value;
    const uint64_t* top = *CurrentScratchStack().top;
    evaluator_.top = 0;
    ASSERT_TRUE(PushFormulaToken(evaluator_, {TokenValue, 5, 1, nullptr}));
    EXPECT_EQ(evaluator_.stack[1].value, slot);
    EXPECT_EQ(PlainText(RealAt(slot)), "1e0") << "it holds the old number";
    EXPECT_EQ(*CurrentScratchStack().top, top);
    EXPECT_EQ(evaluator_.slotMark, 1);
}

TEST_F(FormulaStack, StaysFullAtFiftyEntries) {
    for (int i = 0; i < 50; i++) {
        Push({TokenLeftParen});
    }
    EXPECT_FALSE(PushFormulaToken(evaluator_, {TokenValue, 77, 8, nullptr}));
    EXPECT_EQ(evaluator_.top, 49);
    EXPECT_EQ(evaluator_.error, uint32_t{FormulaErrorTooComplicated});
    EXPECT_EQ(evaluator_.errorPosition, 78u);
    EXPECT_EQ(evaluator_.errorLength, 8u);
    EXPECT_EQ(evaluator_.stack[49].id, uint32_t{TokenLeftParen});
}

TEST_F(FormulaStack, LeavesABinaryResultWhereTheLeftOperandWas) {
    Push({TokenValue, OperatorAdd, TokenValue});
    const uint64_t* left = evaluator_.stack[0].value;
    ApplyOperator(evaluator_, Coming(TokenEnd));
    ExpectTop(0, "3", 0, 23);
    EXPECT_EQ(evaluator_.stack[0].value, left);
}

TEST_F(FormulaStack, TradesTheSlotsOfSignAndValue) {
    Push({OperatorSubtract, TokenValue});
    const uint64_t* signSlot = evaluator_.stack[0].value;
    const uint64_t* valueSlot = evaluator_.stack[1].value;
    ApplyOperator(evaluator_, Coming(TokenEnd));
    ExpectTop(0, "-1", 0, 13);
    EXPECT_EQ(evaluator_.stack[0].value, valueSlot);
    EXPECT_EQ(evaluator_.stack[1].value, signSlot);
}

TEST_F(FormulaStack, TradesTheSlotsOfParenthesisAndValue) {
    Push({TokenLeftParen, TokenValue});
    const uint64_t* parenSlot = evaluator_.stack[0].value;
    const uint64_t* valueSlot = evaluator_.stack[1].value;
    Reduce(TokenRightParen);
    ExpectTop(0, "1", 0, 13);
    EXPECT_EQ(evaluator_.stack[0].value, valueSlot);
    EXPECT_EQ(evaluator_.stack[1].value, parenSlot);
}

TEST_F(FormulaStack, LeavesAFunctionValueWhereTheFunctionWas) {
    Push({OperatorSubtract, FunctionAbs, TokenLeftParen, OperatorSubtract, TokenValue});
    const uint64_t* slot = evaluator_.stack[1].value;
    Reduce(TokenRightParen);
    ExpectTop(1, "1", 10, 33);
    EXPECT_EQ(evaluator_.stack[1].value, slot);
}

TEST_F(FormulaStack, AppliesASignAfterParenthesisAndSeparator) {
    Push({FunctionGcd, TokenLeftParen, OperatorSubtract, TokenValue});
    Reduce(TokenSeparator);
    EXPECT_EQ(evaluator_.top, 3);
    EXPECT_EQ(evaluator_.stack[3].id, uint32_t{TokenSeparator});
    Push({OperatorAdd, TokenValue});
    Reduce(OperatorAdd);
    ASSERT_EQ(evaluator_.top, 5);
    EXPECT_EQ(evaluator_.stack[5].id, uint32_t{OperatorAdd});
    EXPECT_EQ(PlainText(RealAt(evaluator_.stack[4].value)), "2e0");
    EXPECT_EQ(PlainText(RealAt(evaluator_.stack[2].value)), "-1e0");
}

TEST_F(FormulaStack, PushesAPowerOnEveryOperator) {
    for (const uint32_t below : {OperatorAdd, OperatorSubtract, OperatorMultiply, OperatorDivide,
                                 OperatorPower, OperatorMod}) {
        Restart();
        Push({TokenValue, below, TokenValue});
        Reduce(OperatorPower);
        EXPECT_EQ(evaluator_.top, 3) << below;
    }
}

TEST_F(FormulaStack, PushesProductsOnSumsOnly) {
    for (const uint32_t coming : {OperatorMultiply, OperatorDivide, OperatorMod}) {
        for (const uint32_t below :
             {OperatorAdd, OperatorSubtract, OperatorMultiply, OperatorDivide, OperatorMod}) {
            Restart();
            Push({TokenValue, below, TokenValue});
            Reduce(coming);
            const bool pushed = below == OperatorAdd || below == OperatorSubtract;
            EXPECT_EQ(evaluator_.top, pushed ? 3 : 1) << below << " " << coming;
            EXPECT_EQ(evaluator_.stack[evaluator_.top].id, coming);
        }
    }
}

TEST_F(FormulaStack, WaitsForAllPowersFromRightToLeft) {
    Push({TokenValue, OperatorPower, TokenValue, OperatorPower, TokenValue});
    Reduce(OperatorPower);
    EXPECT_EQ(evaluator_.top, 5);
    EXPECT_EQ(TakeCode(), CalcErrorNone) << "none of them was applied";
}

TEST_F(FormulaStack, RefusesASignOtherThanPlusAndMinus) {
    for (const uint32_t id : {OperatorMultiply, OperatorDivide, OperatorPower, OperatorMod}) {
        Restart();
        Push({TokenLeftParen, id, TokenValue});
        ApplyOperator(evaluator_, Coming(TokenEnd));
        ExpectError(FormulaErrorSyntax, 1, 3);
        Restart();
        Push({id, TokenValue});
        ApplyOperator(evaluator_, Coming(TokenEnd));
        ExpectError(FormulaErrorSyntax, 0, 3);
    }
}

TEST_F(FormulaStack, RefusesAnOperatorOnWhatIsNoOperand) {
    for (const uint32_t id : {uint32_t{FunctionSin}, uint32_t{OperatorAdd}}) {
        Restart();
        Push({TokenLeftParen, id, OperatorAdd, TokenValue});
        ApplyOperator(evaluator_, Coming(TokenEnd));
        ExpectError(FormulaErrorSyntax, 1, 3);
    }
}

TEST_F(FormulaStack, ReportsAnUnknownOperatorAsInternal) {
    for (const uint32_t id : {606u, 699u}) {
        Restart();
        Push({TokenValue, id, TokenValue});
        ApplyOperator(evaluator_, Coming(TokenEnd));
        ExpectError(FormulaErrorInternal, 3, 4);
        Restart();
        Push({id, TokenValue});
        ApplyOperator(evaluator_, Coming(TokenEnd));
        ExpectError(FormulaErrorInternal, 2, 4);
    }
}

TEST_F(FormulaStack, EndsEveryLoopAtAnError) {
    for (const uint32_t coming : {uint32_t{OperatorAdd}, uint32_t{TokenSeparator},
                                  uint32_t{TokenRightParen}, uint32_t{TokenEnd}}) {
        Restart();
        Push({TokenLeftParen, TokenValue, 606, TokenValue});
        Reduce(coming);
        ExpectError(FormulaErrorInternal, 4, 4);
        EXPECT_EQ(evaluator_.top, 3) << "nothing was done";
    }
}

TEST_F(FormulaStack, RefusesArgumentsThatAreNoValues) {
    Push({FunctionGcd, TokenLeftParen, OperatorAdd, TokenSeparator, TokenValue});
    Reduce(TokenRightParen);
    ExpectError(FormulaErrorSyntax, 2, 3);
}

TEST_F(FormulaStack, RefusesASeparatorAtTheBottom) {
    Push({TokenSeparator, TokenValue});
    Reduce(TokenRightParen);
    ExpectError(FormulaErrorSyntax, 0, 3);
}

TEST_F(FormulaStack, ReportsArgumentsWithoutAParenthesisAsInternal) {
    Push({TokenValue, TokenSeparator, TokenValue});
    Reduce(TokenRightParen);
    ExpectError(FormulaErrorInternal, 3, 4);
    Restart();
    Push({TokenLeftParen, TokenValue, TokenSeparator, TokenValue});
    Reduce(TokenRightParen);
    ExpectError(FormulaErrorInternal, 4, 4);
    Restart();
    Push({FunctionSin, OperatorAdd, TokenValue, TokenSeparator, TokenValue});
    Reduce(TokenRightParen);
    ExpectError(FormulaErrorInternal, 5, 4);
}

TEST_F(FormulaStack, ReportsAnUnknownFunctionAsInternal) {
    Push({315, TokenLeftParen, TokenValue});
    Reduce(TokenRightParen);
    ExpectError(FormulaErrorInternal, 3, 4);
    Restart();
    Push({OperatorMod, TokenLeftParen, TokenValue, TokenSeparator, TokenValue});
    Reduce(TokenRightParen);
    ExpectError(FormulaErrorArgumentCount, 0, 3);
}

TEST_F(FormulaStack, MissesTheLeftParenthesisAboveAnythingElse) {
    Push({FunctionSin, TokenValue});
    Reduce(TokenRightParen);
    ExpectError(FormulaErrorLeftParenMissing, 2, 4);
}

}  // namespace
}  // namespace tallymere
