// The stack of the formula driver.
//
// Entries 0 to top hold a token id, the place of its text, and a value slot. Slots are taken when
// the stack reaches an index for the first time and stay with the stack: entries 0 to slotMark have
// one each, though entries trade them. A new slot is cleared; one that is used again holds an old
// number.
#pragma once

#include "formula/formula_evaluator.h"

namespace tallymere {

/// Takes an empty stack from the ScratchStack and sets elementSize for the current type.
void StartFormulaStack(FormulaEvaluator& evaluator);

/// Puts a token on top; value is the slot of its entry. False and error 10204 at the token when all
/// entries are in use.
bool PushFormulaToken(FormulaEvaluator& evaluator, const FormulaToken& token);

/// The id `depth` entries below the top, TokenNone below the bottom.
inline uint32_t StackId(const FormulaEvaluator& evaluator, int64_t depth) {
    return depth > evaluator.top ? uint32_t{TokenNone} : evaluator.stack[evaluator.top - depth].id;
}

/// True where an operand may stand: at the start of the text and after an operator, `(` or `;`.
inline bool OperandMayFollow(const FormulaEvaluator& evaluator) {
    const uint32_t id = StackId(evaluator, 0);
    return id == TokenNone || IsOperatorId(id) || id == TokenLeftParen || id == TokenSeparator;
}

/// Makes `entry` the value that reaches from its own text to the end of that of `last`.
inline void TurnIntoValue(FormulaToken& entry, const FormulaToken& last) {
    entry.id = TokenValue;
    entry.length = last.position + last.length - entry.position;
}

}  // namespace tallymere
