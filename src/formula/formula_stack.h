// The stack of the formula driver.
//
// Entries 0 to top hold a token, the place of its text, and a value slot. A slot is taken when the
// stack reaches an index for the first time, and it stays with the stack: entries 0 to slotMark
// have one each. Two entries may exchange their slots. A new slot is cleared. A slot that is used
// again holds its old number.
#pragma once

#include "core/contract.h"
#include "formula/formula_evaluator.h"

namespace tallymere {

/// Takes an empty stack from the ScratchStack and sets elementSize for the current type.
void StartFormulaStack(FormulaEvaluator& evaluator);

/// Puts a token on top; value is the slot of its entry. False and FormulaErrorTooComplicated at the
/// token when all entries are in use.
bool PushFormulaToken(FormulaEvaluator& evaluator, const FormulaToken& token);

/// The kind of the entry `depth` entries below the top, TokenNone below the bottom. depth >= 0.
inline TokenKind StackKind(const FormulaEvaluator& evaluator, int64_t depth) {
    TALLYMERE_REQUIRE(depth >= 0);
    return depth > evaluator.top ? TokenNone : evaluator.stack[evaluator.top - depth].kind;
}

/// True where an operand may stand: at the start of the text and after an operator, `(` or `;`.
inline bool OperandMayFollow(const FormulaEvaluator& evaluator) {
    const TokenKind kind = StackKind(evaluator, 0);
    return kind == TokenNone || kind == TokenOperator || kind == TokenLeftParen ||
           kind == TokenSeparator;
}

/// Makes `entry` the value that reaches from its own text to the end of that of `last`.
inline void TurnIntoValue(FormulaToken& entry, const FormulaToken& last) {
    entry.kind = TokenValue;
    entry.length = last.position + last.length - entry.position;
}

}  // namespace tallymere
