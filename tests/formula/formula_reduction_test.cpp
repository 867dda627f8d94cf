// States of the stack that the driver never lets arise, and what operands leave behind on the
// stack.
#include "formula/formula_reduction.h"

#include <gtest/gtest.h>

#include <initializer_list>

#include "core/scratch.h"
#include "formula/formula_stack.h"
#include "formula/operator_table.h"
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
    void Push(std::initializer_list<Symbol> symbols) {
        for (const Symbol& symbol : symbols) {
            ASSERT_TRUE(PushFormulaToken(evaluator_, Token(symbol, NextPosition(), 3)));
            if (symbol.kind == TokenValue) {
                ValueFromInteger(evaluator_.stack[evaluator_.top].value, ++values_);
            }
        }
    }

    void Reduce(const Symbol& symbol) { ReduceOnToken(evaluator_, Coming(symbol)); }

    void Restart() {
        evaluator_.top = -1;
        evaluator_.error = FormulaErrorNone;
    }

    FormulaToken Coming(const Symbol& symbol) const { return Token(symbol, NextPosition(), 4); }

    void ExpectError(uint32_t error, uint64_t index, uint64_t length) {
        EXPECT_EQ(evaluator_.error, error);
        EXPECT_EQ(evaluator_.errorPosition, 10 * index + 1);
        EXPECT_EQ(evaluator_.errorLength, length);
    }

    void ExpectTop(int64_t top, std::string_view value, uint64_t position, uint64_t length) {
        EXPECT_EQ(evaluator_.error, uint32_t{FormulaErrorNone});
        ASSERT_EQ(evaluator_.top, top);
        const FormulaToken& entry = evaluator_.stack[top];
        EXPECT_EQ(entry.kind, TokenValue);
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
    ASSERT_TRUE(PushFormulaToken(evaluator_, Token(TokenValue, 5, 1)));
    EXPECT_EQ(evaluator_.stack[1].value, slot);
    EXPECT_EQ(PlainText(RealAt(slot)), "1e0") << "it holds the old number";
    EXPECT_EQ(*CurrentScratchStack().top, top);
    EXPECT_EQ(evaluator_.slotMark, 1);
}

TEST_F(FormulaStack, StaysFullAtFiftyEntries) {
    for (int i = 0; i < 50; i++) {
        Push({TokenLeftParen});
    }
    EXPECT_FALSE(PushFormulaToken(evaluator_, Token(TokenValue, 77, 8)));
    EXPECT_EQ(evaluator_.top, 49);
    EXPECT_EQ(evaluator_.error, uint32_t{FormulaErrorTooComplicated});
    EXPECT_EQ(evaluator_.errorPosition, 78u);
    EXPECT_EQ(evaluator_.errorLength, 8u);
    EXPECT_EQ(Symbol(evaluator_.stack[49]), TokenLeftParen);
}

TEST_F(FormulaStack, LeavesABinaryResultWhereTheLeftOperandWas) {
    Push({TokenValue, OperatorId::Add, TokenValue});
    const uint64_t* left = evaluator_.stack[0].value;
    ApplyOperator(evaluator_);
    ExpectTop(0, "3", 0, 23);
    EXPECT_EQ(evaluator_.stack[0].value, left);
}

TEST_F(FormulaStack, TradesTheSlotsOfSignAndValue) {
    Push({OperatorId::Subtract, TokenValue});
    const uint64_t* signSlot = evaluator_.stack[0].value;
    const uint64_t* valueSlot = evaluator_.stack[1].value;
    ApplyOperator(evaluator_);
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
    Push({OperatorId::Subtract, FunctionId::Abs, TokenLeftParen, OperatorId::Subtract, TokenValue});
    const uint64_t* slot = evaluator_.stack[1].value;
    Reduce(TokenRightParen);
    ExpectTop(1, "1", 10, 33);
    EXPECT_EQ(evaluator_.stack[1].value, slot);
}

TEST_F(FormulaStack, AppliesASignAfterParenthesisAndSeparator) {
    Push({FunctionId::Gcd, TokenLeftParen, OperatorId::Subtract, TokenValue});
    Reduce(TokenSeparator);
    EXPECT_EQ(evaluator_.top, 3);
    EXPECT_EQ(Symbol(evaluator_.stack[3]), TokenSeparator);
    Push({OperatorId::Add, TokenValue});
    Reduce(OperatorId::Add);
    ASSERT_EQ(evaluator_.top, 5);
    EXPECT_EQ(Symbol(evaluator_.stack[5]), OperatorId::Add);
    EXPECT_EQ(PlainText(RealAt(evaluator_.stack[4].value)), "2e0");
    EXPECT_EQ(PlainText(RealAt(evaluator_.stack[2].value)), "-1e0");
}

TEST_F(FormulaStack, PushesAPowerOnEveryOperator) {
    for (const OperatorId below : {OperatorId::Add, OperatorId::Subtract, OperatorId::Multiply,
                                   OperatorId::Divide, OperatorId::Power, OperatorId::Mod}) {
        Restart();
        Push({TokenValue, below, TokenValue});
        Reduce(OperatorId::Power);
        EXPECT_EQ(evaluator_.top, 3) << Printable(OperatorOf(below).spelling);
    }
}

TEST_F(FormulaStack, PushesProductsOnSumsOnly) {
    for (const OperatorId coming : {OperatorId::Multiply, OperatorId::Divide, OperatorId::Mod}) {
        for (const OperatorId below : {OperatorId::Add, OperatorId::Subtract, OperatorId::Multiply,
                                       OperatorId::Divide, OperatorId::Mod}) {
            Restart();
            Push({TokenValue, below, TokenValue});
            Reduce(coming);
            const bool pushed = below == OperatorId::Add || below == OperatorId::Subtract;
            EXPECT_EQ(evaluator_.top, pushed ? 3 : 1)
                << Printable(OperatorOf(below).spelling) << Printable(OperatorOf(coming).spelling);
            EXPECT_EQ(Symbol(evaluator_.stack[evaluator_.top]), coming);
        }
    }
}

TEST_F(FormulaStack, WaitsForAllPowersFromRightToLeft) {
    Push({TokenValue, OperatorId::Power, TokenValue, OperatorId::Power, TokenValue});
    Reduce(OperatorId::Power);
    EXPECT_EQ(evaluator_.top, 5);
    EXPECT_EQ(TakeCode(), CalcErrorNone) << "none of them was applied";
}

TEST_F(FormulaStack, RefusesASignOtherThanPlusAndMinus) {
    for (const OperatorId id :
         {OperatorId::Multiply, OperatorId::Divide, OperatorId::Power, OperatorId::Mod}) {
        Restart();
        Push({TokenLeftParen, id, TokenValue});
        ApplyOperator(evaluator_);
        ExpectError(FormulaErrorSyntax, 1, 3);
        Restart();
        Push({id, TokenValue});
        ApplyOperator(evaluator_);
        ExpectError(FormulaErrorSyntax, 0, 3);
    }
}

TEST_F(FormulaStack, RefusesAnOperatorOnWhatIsNoOperand) {
    for (const Symbol& symbol : {Symbol(FunctionId::Sin), Symbol(OperatorId::Add)}) {
        Restart();
        Push({TokenLeftParen, symbol, OperatorId::Add, TokenValue});
        ApplyOperator(evaluator_);
        ExpectError(FormulaErrorSyntax, 1, 3);
    }
}

TEST_F(FormulaStack, EndsEveryLoopAtAnError) {
    for (const Symbol& coming : {Symbol(OperatorId::Add), Symbol(TokenSeparator),
                                 Symbol(TokenRightParen), Symbol(TokenEnd)}) {
        Restart();
        Push({TokenLeftParen, OperatorId::Multiply, TokenValue});
        Reduce(coming);
        ExpectError(FormulaErrorSyntax, 1, 3);
        EXPECT_EQ(evaluator_.top, 2) << "nothing was done";
    }
}

TEST_F(FormulaStack, RefusesArgumentsThatAreNoValues) {
    Push({FunctionId::Gcd, TokenLeftParen, OperatorId::Add, TokenSeparator, TokenValue});
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
    Push({FunctionId::Sin, OperatorId::Add, TokenValue, TokenSeparator, TokenValue});
    Reduce(TokenRightParen);
    ExpectError(FormulaErrorInternal, 5, 4);
}

TEST_F(FormulaStack, ReportsArgumentsOfWhatIsNoFunctionAsInternal) {
    for (const Symbol& symbol : {Symbol(OperatorId::Mod), Symbol(TokenValue)}) {
        Restart();
        Push({symbol, TokenLeftParen, TokenValue, TokenSeparator, TokenValue});
        Reduce(TokenRightParen);
        ExpectError(FormulaErrorInternal, 5, 4);
    }
}

TEST_F(FormulaStack, RefusesAWrongNumberOfArgumentsAtTheFunction) {
    Push({FunctionId::Gcd, TokenLeftParen, TokenValue});
    Reduce(TokenRightParen);
    ExpectError(FormulaErrorArgumentCount, 0, 3);
    Restart();
    Push({FunctionId::PowMod, TokenLeftParen, TokenValue, TokenSeparator, TokenValue,
          TokenSeparator, TokenValue, TokenSeparator, TokenValue});
    Reduce(TokenRightParen);
    ExpectError(FormulaErrorArgumentCount, 0, 3);
}

TEST_F(FormulaStack, MissesTheLeftParenthesisAboveAnythingElse) {
    Push({FunctionId::Sin, TokenValue});
    Reduce(TokenRightParen);
    ExpectError(FormulaErrorLeftParenMissing, 2, 4);
}

}  // namespace
}  // namespace tallymere
